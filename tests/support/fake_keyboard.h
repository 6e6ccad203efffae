#ifndef KELPLIB_TESTS_FAKE_KEYBOARD_H
#define KELPLIB_TESTS_FAKE_KEYBOARD_H

#include <condition_variable>
#include <iostream>
#include <mutex>
#include <streambuf>

#include "fake_platform.h"

/// Replaces standard input during its lifetime. Threads that read it wait for a key; the first thread gets the first key. A
/// test waits for events, never for time.
class FakeKeyboard : private std::streambuf {
public:
    /// Unties std::cin from std::cout, so a waiting thread does not flush std::cout while the test uses it.
    FakeKeyboard() : original(std::cin.rdbuf(this)), tied(std::cin.tie(nullptr)) {
        {
            const std::lock_guard<std::mutex> lock(state().mutex);
            state().readers = state().keys = state().closed = state().ends = 0;
        }
        fake_platform::onThreadEnd() = [] { change(state().ends); };
    }

    /// Ends the threads that are still reading.
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

    /// Ends the input after the keys pressed so far.
    void close() {
        change(state().closed);
    }

    /// Waits until that many threads have started to read.
    void waitForReaders(int count) {
        waitFor(state().readers, count);
    }

    /// Waits until that many reading threads have ended.
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

    /// Shared by all keyboards and never destroyed with one: a thread that has reported its end may still be inside change()
    /// when the keyboard is destroyed.
    static State& state() {
        static State instance;
        return instance;
    }

    std::streambuf* original;
    std::ostream* tied;
};

#endif
