#ifndef KELPLIB_COMMAND_LINE_ARGV_TOKENS_H
#define KELPLIB_COMMAND_LINE_ARGV_TOKENS_H

namespace Kelp {

/// Returns argv[position].
/// \throws std::logic_error  if it does not exist or is null, with the message of libstdc++ for a string from a null pointer
const char* tokenAt(int argc, char** argv, int position);

/// Checks argv[0] to argv[argc-1].
/// \throws std::logic_error  likewise
void checkTokens(int argc, char** argv);

}  // namespace Kelp

#endif
