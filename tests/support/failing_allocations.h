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

/// A program that links failing_allocations.cpp has an operator new of its own. It counts, and fails when a test says so.
namespace failing_allocations {

/// The `number`-th allocation from now on fails, once; with 0 none does.
void failAt(std::size_t number);

/// Whether the allocation of the last failAt() has failed.
bool hasFailed();

/// How many allocations have not been given back.
std::size_t liveCount();

/// Whether what the standard library allocates is counted too. Where it is a library of another kind, it has an operator
/// new of its own.
inline bool countsEverything() {
    const std::size_t before = liveCount();
    std::string text;
    text.append(100, 'x');
    return liveCount() > before;
}

/// Whether a vector whose copy fails gives back what it has. Those of some standard libraries do not.
inline bool vectorsGiveBack() {
    const std::vector<std::string> texts(2, std::string(100, 'x'));
    const std::size_t before = liveCount();
    // Behind the vector itself, its room and its first text.
    failAt(4);
    try {
        std::make_unique<std::vector<std::string>>(texts);
        failAt(0);
    } catch (const std::bad_alloc&) {
        failAt(0);
    }
    return liveCount() == before;
}

/// Takes what is printed to std::cout while it lives, and allocates nothing.
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

/// What came of a call whose allocation fails.
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

/// Calls `use` with a new object of `make` for every one of its allocations, which fails. Nothing but std::bad_alloc may
/// come out, nothing may be lost, and `check` has to find the object sound.
template <class Make, class Use, class Check>
void failEach(const std::string& name, Make make, Use use, Check check) {
    // Once without failing: what is allocated once in a process is there then.
    {
        auto object = make();
        EXPECT_EQ(outcomeOf(0, [&] { use(*object); }), "whole") << name;
    }
    const bool countsAll = countsEverything();
    const bool givesBack = vectorsGiveBack();
    std::string outcome = "bad_alloc";
    std::size_t number = 0;
    while (outcome == "bad_alloc" && number < 10000) {
        const std::size_t before = liveCount();
        {
            auto object = make();
            outcome = outcomeOf(++number, [&] { use(*object); });
            EXPECT_TRUE(check(*object)) << name << " after allocation " << number;
        }
        if (countsAll && givesBack) {
            EXPECT_EQ(liveCount(), before) << name << " after allocation " << number;
        }
    }
    EXPECT_EQ(outcome, "whole") << name << " at allocation " << number;
    EXPECT_TRUE(number > 1 || !countsAll) << name << " allocates nothing: the case tests nothing";
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
