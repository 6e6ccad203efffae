#include "command_line.h"

#include <algorithm>
#include <map>
#include <numeric>
#include <random>
#include <utility>

namespace {

constexpr char letters[] = "abcdefghijklmnopqrstuvwxyz";

std::size_t below(std::mt19937& random, std::size_t limit) {
    return random() % limit;
}

std::string word(std::mt19937& random, std::size_t shortest, std::size_t longest) {
    std::string text(shortest + below(random, longest - shortest + 1), ' ');
    std::generate(text.begin(), text.end(), [&random] { return letters[below(random, sizeof letters - 1)]; });
    return text;
}

/// Returns for each token whether it is a flag.
std::vector<bool> flagPlaces(std::mt19937& random, std::size_t options, std::size_t tokens) {
    const std::size_t flags = std::max(tokens / 2, std::min(options, tokens));
    std::vector<bool> isFlag(tokens);
    std::fill(isFlag.begin(), isFlag.begin() + static_cast<std::ptrdiff_t>(flags), true);
    for (std::size_t i = tokens; i > 1; --i) {
        const std::size_t other = below(random, i);
        const bool kept = isFlag[i - 1];
        isFlag[i - 1] = isFlag[other];
        isFlag[other] = kept;
    }
    return isFlag;
}

}  // namespace

bool operator==(const Answer& left, const Answer& right) {
    return left.values == right.values && left.positionals == right.positionals;
}

char keyOf(std::size_t number) {
    // Letters, digits and punctuation except special characters such as "-" and "=", then bytes outside ASCII.
    static const std::string keys = letters + std::string("0123456789!\"#$%&'()*+,./:;<>?@[\\]^_`{|}~");
    return number < keys.size() ? keys[number] : static_cast<char>(0x80 + number - keys.size());
}

std::string nameOf(std::size_t number, Spelling spelling) {
    const char first = spelling == Spelling::word ? letters[number % (sizeof letters - 1)] : keyOf(number);
    return {first, static_cast<char>('0' + number / 10), static_cast<char>('0' + number % 10)};
}

const std::vector<std::size_t>& registrationOrder(std::size_t options) {
    static std::map<std::size_t, std::vector<std::size_t>> orders;
    std::vector<std::size_t>& order = orders[options];
    if (order.empty()) {
        order.resize(options);
        std::iota(order.begin(), order.end(), std::size_t{0});
        std::mt19937 random(static_cast<unsigned>(options));
        for (std::size_t i = options; i > 1; --i) {
            std::swap(order[i - 1], order[below(random, i)]);
        }
    }
    return order;
}

CommandLine::CommandLine(std::size_t options, std::size_t count, Spelling spelling, unsigned number)
    : firstValues(options), lastValues(options) {
    addToken("tool");
    std::mt19937 random(number);
    const std::vector<bool> isFlag = flagPlaces(random, options, count);
    const auto flags = static_cast<std::size_t>(std::count(isFlag.begin(), isFlag.end(), true));
    const std::size_t distance = std::max<std::size_t>(flags / options, 1);
    std::size_t flag = 0;
    for (const bool tokenIsFlag : isFlag) {
        if (!tokenIsFlag) {
            positionals.push_back(word(random, 5, 20));
            addToken(positionals.back());
            continue;
        }
        // A new option at regular distances, and options from before in between.
        const std::size_t newest = std::min(flag / distance, options - 1);
        const std::size_t option = flag % distance == 0 ? newest : below(random, newest + 1);
        addFlag(option, nameOf(option, spelling), word(random, 1, 14));
        ++flag;
    }
    setPointers();
}

void CommandLine::setPointers() {
    for (std::size_t begin = 0; begin < text.size(); begin = text.find('\0', begin) + 1) {
        pointers.push_back(text.data() + begin);
    }
    pointers.push_back(nullptr);
}

void CommandLine::addToken(const std::string& token) {
    text += token;
    text += '\0';
}

void CommandLine::addFlag(std::size_t option, const std::string& name, const std::string& value) {
    addToken("--" + name + "=" + value);
    if (firstValues[option].empty()) {
        firstValues[option] = value;
    }
    lastValues[option] = value;
}

int CommandLine::argc() const {
    return static_cast<int>(pointers.size()) - 1;
}

char** CommandLine::argv() const {
    return pointers.data();
}

Answer CommandLine::first() const {
    return {firstValues, positionals};
}

Answer CommandLine::last() const {
    return {lastValues, positionals};
}
