#include "command_line/flag_check.h"

#include <bitset>
#include <cctype>

#include "command_line/flag_key.h"
#include "command_line/token_record.h"

namespace Kelp {

namespace {

using Marks = std::bitset<256>;

std::size_t indexOf(char mark) {
    return static_cast<unsigned char>(mark);
}

/// Whether ci_less treats the mark of a letter and its capital alike. In a Turkish locale it does not for "i".
bool coversBothCases(char mark) {
    const bool isLetter = mark >= 'a' && mark <= 'z';
    return !isLetter || std::tolower(mark) == std::tolower(mark - 'a' + 'A');
}

/// Returns the marks of the tokens that need no look at their text: arguments, and flags that an option certainly has.
Marks acceptedMarks(const FlagCheck::Options& options) {
    Marks accepted;
    for (const auto& [key, option] : options) {
        if (key.size() == 2 && key.front() == '-') {
            const char mark = foldAscii(key.back());
            accepted.set(indexOf(mark), coversBothCases(mark));
        }
    }
    // "-" and "--" have this mark both, but different keys.
    accepted.reset(indexOf('\0'));
    return accepted.set(indexOf(argumentMark)).set(indexOf(slashMark));
}

}  // namespace

std::string FlagCheck::findUnknown(const OptionReader& reader, const Options& options) {
    const Marks accepted = acceptedMarks(options);
    for (std::size_t i = 0; i < reader.record.size(); ++i) {
        if (!accepted.test(indexOf(reader.record.mark(i)))) {
            std::string key = flagKey(reader.record.at(i));
            if (options.find(key) == options.end()) {
                return key;
            }
        }
    }
    return {};
}

}  // namespace Kelp
