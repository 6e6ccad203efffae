#include "frame/flag_key.h"

namespace Kelp {

std::string flagKey(std::string_view flag) {
    std::string key(flag.substr(0, 2));
    if (key.size() > 1) {
        key[1] = keyLetter(flag.data());
    }
    return key;
}

}  // namespace Kelp
