#ifndef KELPLIB_TESTS_DIGEST_H
#define KELPLIB_TESTS_DIGEST_H

#include <cstdint>

/// Reduces a long sequence of results to one number (FNV-1a, 64 bits), which a test can compare with a typed-out value.
class Digest {
public:
    void add(std::uint64_t bits) {
        for (unsigned int shift = 0; shift < 64; shift += 8) {
            state = (state ^ ((bits >> shift) & 0xFFU)) * 0x100000001B3U;
        }
    }

    std::uint64_t value() const {
        return state;
    }

private:
    std::uint64_t state = 0xCBF29CE484222325U;
};

#endif
