#ifndef KELPKIT_NEAR_MISS_H
#define KELPKIT_NEAR_MISS_H

#include <string>
#include <vector>

namespace Kelpkit {

/// Returns the one of several forms that was probably meant by a flag without its value: "--number" for "--num", "--nubmer" and
/// "-number", "-n" for "--n". An empty text if no form is near, or two are equally near.
std::string nearMiss(const std::string& flag, const std::vector<std::string>& forms);

}  // namespace Kelpkit

#endif
