#include "frame/flag_key.h"

namespace Kelp {

std::string flagKey(const std::string& flag) {
    std::string key = flag.substr(0, 2);
    if (key.size() > 1) {
        key[1] = keyLetter(flag.c_str());
    }
    return key;
}

}  // namespace Kelp
