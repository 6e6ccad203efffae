#ifndef KELPLIB_TESTS_FAILING_ALLOCATIONS_H
#define KELPLIB_TESTS_FAILING_ALLOCATIONS_H

#include <gtest/gtest.h>

#include <cstddef>
#include <iostream>
#include <memory>
#include <new>
#include <streambuf>
#include <string>
#include <vector>

/// failing_allocations.cpp replaces operator new by one that counts allocations and fails on request.
namespace failing_allocations {

/// Makes the `number`-th allocation from now on fail, once; 0 makes none fail.
void failAt(std::size_t number);

/// Whether the allocation that the last failAt() chose has failed.
bool hasFailed();

/// The number of allocations that have not been freed.
std::size_t liveCount();

/// Whether the allocations inside the standard library are counted too. A standard library in a DLL calls its own operator
/// new.
inline bool countsEverything() {
    const std::size_t before = liveCount();
    std::string text;
    text.append(100, 'x');
    return liveCount() > before;
}

/// Whether a vector frees its memory when copying it fails. libc++ 14 leaks the buffer and the texts copied so far.
inline bool vectorsFreeTheirMemory() {
    const std::vector<std::string> texts(2, std::string(100, 'x'));
    const std::size_t before = liveCount();
    // The allocation after those of the vector itself, its buffer and its first text.
    failAt(4);
    try {
        std::make_unique<std::vector<std::string>>(texts);
        failAt(0);
    } catch (const std::bad_alloc&) {
        failAt(0);
    }
    return liveCount() == before;
}

/// Discards the output of std::cout during its lifetime, without allocating.
class NoOutput : private std::streambuf {
public:
    NoOutput() : original(std::cout.rdbuf(this)) {}
    ~NoOutput() override {
        std::cout.rdbuf(original);
    }
    NoOutput(const NoOutput&) = delete;
    NoOutput& operator=(const NoOutput&) = delete;

private:
    int_type overflow(int_type character) override {
        return traits_type::not_eof(character);
    }
    std::streamsize xsputn(const char* /*text*/, std::streamsize count) override {
        return count;
    }

    std::streambuf* original;
};

/// The outcome of a call whose `number`-th allocation fails.
template <class Call>
std::string outcomeOf(std::size_t number, Call call) {
    const NoOutput output;
    failAt(number);
    std::string outcome;
    try {
        call();
        failAt(0);
        outcome = hasFailed() ? "nothing thrown" : "whole";
    } catch (const std::bad_alloc&) {
        failAt(0);
        outcome = "bad_alloc";
    } catch (const std::exception& error) {
        failAt(0);
        outcome = error.what();
    }
    return outcome;
}

/// Calls `use` with a new object of `make` once for each of its allocations and makes that allocation fail. Expects
/// std::bad_alloc and no leak, and that `check` accepts the object.
template <class Make, class Use, class Check>
void failEach(const std::string& name, Make make, Use use, Check check) {
    // The first run does not fail: it makes the allocations that happen once in a process.
    {
        auto object = make();
        EXPECT_EQ(outcomeOf(0, [&] { use(*object); }), "whole") << name;
    }
    const bool countsAll = countsEverything();
    const bool freesMemory = vectorsFreeTheirMemory();
    std::string outcome = "bad_alloc";
    std::size_t number = 0;
    while (outcome == "bad_alloc" && number < 10000) {
        const std::size_t before = liveCount();
        {
            auto object = make();
            outcome = outcomeOf(++number, [&] { use(*object); });
            EXPECT_TRUE(check(*object)) << name << " after allocation " << number;
        }
        if (countsAll && freesMemory) {
            EXPECT_EQ(liveCount(), before) << name << " after allocation " << number;
        }
    }
    EXPECT_EQ(outcome, "whole") << name << " at allocation " << number;
    EXPECT_TRUE(number > 1 || !countsAll) << name << " allocates nothing, so the case tests nothing";
}

/// The same for a call without an object.
template <class Call>
void failEach(const std::string& name, Call call) {
    failEach(
        name, [] { return std::make_unique<int>(0); }, [&](int& /*unused*/) { call(); },
        [](int& /*unused*/) { return true; });
}

}  // namespace failing_allocations

#endif
