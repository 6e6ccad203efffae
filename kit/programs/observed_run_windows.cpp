#include "observed_run.h"

namespace Kelpkit::programs {

std::string observationProblem() {
    return "Windows has no way to observe it";
}

Observation observe(const Run& /*run*/, const RunLimits& /*limits*/) {
    return {};
}

}  // namespace Kelpkit::programs
