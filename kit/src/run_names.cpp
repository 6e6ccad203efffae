#include "run_names.h"

#include <kelpkit/Files.h>

#include <stdexcept>

namespace Kelpkit {

std::string unfinished(const std::string& name) {
    return name + ".unfinished";
}

std::string replaced(const std::string& name) {
    return name + ".replaced";
}

void refuse(const std::string& name, const std::string& advice) {
    throw std::runtime_error(name + " exists already" + (advice.empty() ? "" : "; " + advice));
}

void refuseUnfinished(const std::string& name) {
    refuse(unfinished(name), "remove it unless another run is writing it");
}

void refuseReplaced(const std::string& name) {
    refuse(replaced(name), "move it away first");
}

std::string leftover(const std::string& name) {
    for (const std::string& other : {unfinished(name), replaced(name)}) {
        if (exists(other)) {
            return other;
        }
    }
    return {};
}

}  // namespace Kelpkit
