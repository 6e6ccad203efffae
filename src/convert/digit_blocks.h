#ifndef KELPLIB_CONVERT_DIGIT_BLOCKS_H
#define KELPLIB_CONVERT_DIGIT_BLOCKS_H

#include <cstdint>

namespace Kelp {

/// Writes the eight digits of a number below 10^8, the zeros in front too. Works on pairs and then on single digits in the
/// parts of one register.
inline char* writeEightDigits(char* position, std::uint64_t number) {
    const std::uint64_t fours = number / 10000 << 32 | number % 10000;
    const std::uint64_t hundreds = (fours * 10486 >> 20) & 0x0000007F0000007FU;
    const std::uint64_t pairs = hundreds << 16 | (fours - hundreds * 100);
    const std::uint64_t tens = (pairs * 103 >> 10) & 0x000F000F000F000FU;
    const std::uint64_t digits = (tens << 8 | (pairs - tens * 10)) | 0x3030303030303030U;
    for (int shift = 56; shift >= 0; shift -= 8) {
        *position++ = static_cast<char>(digits >> shift);
    }
    return position;
}

/// Writes the sixteen digits of a number below 10^16, without the zeros at the end.
inline char* writeDecimals(char* position, std::uint64_t number) {
    constexpr std::uint64_t eightDigits = 100000000;
    position = writeEightDigits(position, number / eightDigits);
    if (const std::uint64_t rest = number % eightDigits; rest != 0) {
        position = writeEightDigits(position, rest);
    }
    while (position[-1] == '0') {
        --position;
    }
    return position;
}

}  // namespace Kelp

#endif
