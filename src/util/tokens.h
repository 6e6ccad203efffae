#ifndef KELPLIB_UTIL_TOKENS_H
#define KELPLIB_UTIL_TOKENS_H

#include <string>

namespace Kelp {

/// A copy of argv[position].
/// \throws std::logic_error  when there is none or it is null, with the text that some standard libraries have for this
std::string tokenAt(int argc, char** argv, int position);

}  // namespace Kelp

#endif
