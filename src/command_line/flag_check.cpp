#include "command_line/flag_check.h"

#include <bitset>

#include "command_line/flag_key.h"
#include "command_line/token_record.h"

namespace Kelp {

std::string FlagCheck::findUnknown(const OptionReader& reader, const Options& options) {
    // Long command lines repeat few letters, so each letter is looked up at most once. "-" and "--" have none.
    std::bitset<256> accepted;
    for (const auto& [key, option] : options) {
        if (key.size() == 2 && key.front() == '-') {
            accepted.set(static_cast<unsigned char>(key.back()));
        }
    }
    accepted.reset('\0');
    for (std::size_t i = 0; i < reader.record.size(); ++i) {
        if (reader.record.isArgument(i)) {
            continue;
        }
        const std::string_view token = reader.record.at(i);
        const auto letter = static_cast<unsigned char>(keyLetter(token.data()));
        if (accepted.test(letter)) {
            continue;
        }
        std::string key = flagKey(token);
        if (options.find(key) == options.end()) {
            return key;
        }
        accepted.set(letter, letter != '\0');
    }
    return {};
}

}  // namespace Kelp
