#include "frame/flag_key.h"

namespace Kelp {

bool isFlag(const std::string& token) {
    return !token.empty() && token.front() == '-';
}

std::string flagKey(const std::string& token) {
    std::string key = token.substr(0, 2);
    if (key == "--") {
        key[1] = token.size() > 2 ? token[2] : '\0';
    }
    return key;
}

}  // namespace Kelp
