#ifndef KELPLIB_FRAME_FLAG_KEY_H
#define KELPLIB_FRAME_FLAG_KEY_H

#include <string>
#include <string_view>

namespace Kelp {

/// The character by which a flag token is told apart: what follows its dash, or its two dashes. NUL for "-" and "--".
inline char keyLetter(const char* flag) {
    return flag[1] == '-' ? flag[2] : flag[1];
}

/// The key of a flag token, behind which a NUL stands: its first two characters, or a dash and the third one after "--". So
/// "--output" and "-o=x" share the key "-o". The key of "--" is a dash and a NUL: read as a C string it is "-", printed it
/// is both.
std::string flagKey(std::string_view flag);

}  // namespace Kelp

#endif
