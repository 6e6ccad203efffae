#ifndef KELPLIB_TESTS_RANDOM_BITS_H
#define KELPLIB_TESTS_RANDOM_BITS_H

#include <cstdint>

/// A sequence of random bits that is the same in every run and on every system (SplitMix64).
class RandomBits {
public:
    explicit RandomBits(std::uint64_t seed) : state(seed) {}

    std::uint64_t next() {
        state += 0x9E3779B97F4A7C15U;
        std::uint64_t bits = (state ^ (state >> 30U)) * 0xBF58476D1CE4E5B9U;
        bits = (bits ^ (bits >> 27U)) * 0x94D049BB133111EBU;
        return bits ^ (bits >> 31U);
    }

private:
    std::uint64_t state;
};

#endif
