#include <gtest/gtest.h>
#include <kelplib/Kelp.h>

#include "arguments.h"

/// Every command line of up to three tokens over a small set, compared with the reader's rules written down once more in
/// the plainest way.
namespace {

using Strings = std::vector<std::string>;

const Strings vocabulary{"",       "-",   "--",    "---", "-o", "-O", "--o", "--out", "--OUT=a", "-o=",
                         "-o=a=b", "-ox", "-ox=1", "-v",  "-5", "a",  "/?",  "=",     "o",       "-="};

struct Names {
    const char* shortFlag;
    const char* longFlag;
};
const Names namePairs[] = {{"-o", "--out"}, {"--OUT", "-O"}, {"-", "--"}, {"", "a"}, {"-=", "/?"}};

struct Found {
    int position;
    std::string text;
};

bool operator==(const Found& left, const Found& right) {
    return left.position == right.position && left.text == right.text;
}

std::ostream& operator<<(std::ostream& stream, const Found& found) {
    return stream << found.position << " \"" << found.text << "\"";
}

std::string lower(std::string text) {
    for (char& c : text) {
        if (c >= 'A' && c <= 'Z') {
            c = "abcdefghijklmnopqrstuvwxyz"[c - 'A'];
        }
    }
    return text;
}

Found modelOption(const Strings& tokens, const Names& names, int start) {
    for (int i = 0; i < static_cast<int>(tokens.size()); ++i) {
        const std::string token = lower(tokens[static_cast<std::size_t>(i)]);
        if (start >= 0 && i >= start && (token == lower(names.shortFlag) || token == lower(names.longFlag))) {
            return {i, ""};
        }
    }
    return {0, ""};
}

Found modelValue(const Strings& tokens, const Names& names, int start) {
    for (int i = 0; i < static_cast<int>(tokens.size()); ++i) {
        const std::string& token = tokens[static_cast<std::size_t>(i)];
        if (start < 0 || i < start || token.rfind('-', 0) != 0) {
            continue;
        }
        std::string key = token.size() < 2 ? token : token.substr(0, 2);
        if (key == "--") {
            key = token.size() == 2 ? "-" : std::string("-") + token[2];
        }
        if (lower(key) == lower(names.shortFlag) || lower(key) == lower(names.longFlag)) {
            const bool hasValue = token.find('=') != std::string::npos;
            return {i + 1, hasValue ? token.substr(token.find('=') + 1) : ""};
        }
    }
    return {0, "before"};
}

Strings modelArguments(const Strings& tokens, int start, int& firstPosition) {
    Strings arguments;
    firstPosition = 0;
    for (int i = 1; i < static_cast<int>(tokens.size()); ++i) {
        const std::string& token = tokens[static_cast<std::size_t>(i)];
        if (start >= 0 && i >= start && token.rfind('-', 0) != 0) {
            firstPosition = arguments.empty() ? i : firstPosition;
            arguments.push_back(token);
        }
    }
    return arguments;
}

std::string described(const Strings& tokens, int start) {
    std::string text = "from " + std::to_string(start) + ":";
    for (const std::string& token : tokens) {
        text += " [" + token + "]";
    }
    return text;
}

void compareFlags(Kelp::OptionReader& reader, const Strings& tokens, int start) {
    for (const Names& names : namePairs) {
        const Found option{reader.hasOption(names.shortFlag, names.longFlag, start), ""};
        ASSERT_EQ(option, modelOption(tokens, names, start)) << described(tokens, start) << " for " << names.shortFlag;
        Found value{0, "before"};
        value.position = reader.getValue(names.shortFlag, names.longFlag, value.text, start);
        ASSERT_EQ(value, modelValue(tokens, names, start)) << described(tokens, start) << " for " << names.shortFlag;
    }
}

void compareArguments(const Kelp::OptionReader& reader, const Strings& tokens, int start) {
    int position = 0;
    const Strings expected = modelArguments(tokens, start, position);
    Strings arguments;
    ASSERT_EQ(reader.getArguments(arguments, start), !expected.empty()) << described(tokens, start);
    ASSERT_EQ(arguments, expected) << described(tokens, start);
    std::string first = "before";
    ASSERT_EQ(reader.getFirstArgument(first, start), position) << described(tokens, start);
    ASSERT_EQ(first, expected.empty() ? "before" : expected.front()) << described(tokens, start);
}

void compareAll(const Strings& tokens) {
    Arguments line(tokens);
    Kelp::OptionReader reader(line.argc(), line.argv());
    for (const int start : {-1, 0, 1, 2, 3}) {
        ASSERT_NO_FATAL_FAILURE(compareFlags(reader, tokens, start));
        ASSERT_NO_FATAL_FAILURE(compareArguments(reader, tokens, start));
    }
}

TEST(OptionReaderExhaustive, AgreesWithTheRulesOnEveryShortCommandLine) {
    ASSERT_NO_FATAL_FAILURE(compareAll({}));
    for (const std::string& first : vocabulary) {
        ASSERT_NO_FATAL_FAILURE(compareAll({first}));
        for (const std::string& second : vocabulary) {
            ASSERT_NO_FATAL_FAILURE(compareAll({first, second}));
            for (const std::string& third : vocabulary) {
                ASSERT_NO_FATAL_FAILURE(compareAll({first, second, third}));
            }
        }
    }
}

}  // namespace
