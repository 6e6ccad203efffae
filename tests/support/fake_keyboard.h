#ifndef KELPLIB_TESTS_FAKE_KEYBOARD_H
#define KELPLIB_TESTS_FAKE_KEYBOARD_H

#include <condition_variable>
#include <iostream>
#include <mutex>
#include <streambuf>

#include "fake_platform.h"

/// Stands in for standard input while it lives. Threads that read wait for a key here, and get the keys in the order in which
/// they came. A test waits for what has happened, never for time.
class FakeKeyboard : private std::streambuf {
public:
    /// std::cin no longer flushes std::cout, so that a waiting thread and the test do not share it.
    FakeKeyboard() : original(std::cin.rdbuf(this)), tied(std::cin.tie(nullptr)) {
        {
            const std::lock_guard<std::mutex> lock(state().mutex);
            state().readers = state().keys = state().closed = state().ends = 0;
        }
        fake_platform::onThreadEnd() = [] { change(state().ends); };
    }

    /// Ends the threads that still read.
    ~FakeKeyboard() override {
        close();
        {
            std::unique_lock<std::mutex> lock(state().mutex);
            state().changed.wait(lock, [] { return state().ends == state().readers; });
        }
        fake_platform::onThreadEnd() = nullptr;
        std::cin.rdbuf(original);
        std::cin.tie(tied);
    }

    FakeKeyboard(const FakeKeyboard&) = delete;
    FakeKeyboard& operator=(const FakeKeyboard&) = delete;

    void press() {
        change(state().keys);
    }

    /// From now on reading finds the end of the input, behind the keys pressed so far.
    void close() {
        change(state().closed);
    }

    /// Until that many threads have begun to read.
    void waitForReaders(int count) {
        waitFor(state().readers, count);
    }

    /// Until that many threads that have read are at their end.
    void waitForEnds(int count) {
        waitFor(state().ends, count);
    }

private:
    struct State {
        std::mutex mutex;
        std::condition_variable changed;
        int readers = 0;
        int keys = 0;
        int closed = 0;
        int ends = 0;
    };

    static void change(int& number) {
        const std::lock_guard<std::mutex> lock(state().mutex);
        ++number;
        state().changed.notify_all();
    }

    int_type uflow() override {
        std::unique_lock<std::mutex> lock(state().mutex);
        const int turn = state().readers++;
        state().changed.notify_all();
        state().changed.wait(lock, [&] { return state().keys > turn || state().closed > 0; });
        return state().keys > turn ? traits_type::to_int_type('k') : traits_type::eof();
    }

    static void waitFor(const int& number, int count) {
        std::unique_lock<std::mutex> lock(state().mutex);
        state().changed.wait(lock, [&] { return number >= count; });
    }

    /// One for every keyboard, as there is one standard input: a thread that has told its end may still be on its way out of
    /// change() when the keyboard goes.
    static State& state() {
        static State instance;
        return instance;
    }

    std::streambuf* original;
    std::ostream* tied;
};

#endif
