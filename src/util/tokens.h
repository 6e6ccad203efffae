#ifndef KELPLIB_UTIL_TOKENS_H
#define KELPLIB_UTIL_TOKENS_H

namespace Kelp {

/// argv[position].
/// \throws std::logic_error  when there is none or it is null, with the text that some standard libraries have for this
const char* tokenAt(int argc, char** argv, int position);

/// Looks at argv[0] to argv[argc-1].
/// \throws std::logic_error  as tokenAt
void checkTokens(int argc, char** argv);

}  // namespace Kelp

#endif
