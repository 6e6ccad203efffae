#ifndef KELPLIB_FRAME_FLAG_KEY_H
#define KELPLIB_FRAME_FLAG_KEY_H

#include <string>

namespace Kelp {

/// Whether a token stands for a flag and not for a positional argument.
bool isFlag(const std::string& token);

/// The key by which a token is told apart: its first two characters, or a dash and the third one after "--". So "--output"
/// and "-o=x" share the key "-o". The key of "--" is a dash and a NUL: read as a C string it is "-", printed it is both.
std::string flagKey(const std::string& token);

}  // namespace Kelp

#endif
