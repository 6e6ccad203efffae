#ifndef KELPKIT_PROGRAMS_OBSERVED_RUN_H
#define KELPKIT_PROGRAMS_OBSERVED_RUN_H

#include <string>

#include "observation.h"
#include "tool_process.h"

namespace Kelpkit::programs {

/// Returns why no tool can be observed: "the observer kelp_observer.so is missing"; empty if tools can.
std::string observationProblem();

/// Runs a tool with the observer, and returns what it has reported. How the run ends does not matter. See observed_run_posix.cpp.
/// \throws Interruption        if a signal asked this process to end
/// \throws std::runtime_error  if there is no folder for the report
Observation observe(const Run& run, const RunLimits& limits);

}  // namespace Kelpkit::programs

#endif
