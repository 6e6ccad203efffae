#include "printable.h"

#include "escaped.h"

namespace common {

std::string printable(const std::string& text) {
    std::string result(4 * text.size(), '\0');
    result.resize(common_escaped(result.data(), text.data(), text.size()));
    return result;
}

}  // namespace common
