#ifndef KELPLIB_TESTS_FAKE_KEYBOARD_H
#define KELPLIB_TESTS_FAKE_KEYBOARD_H

#include <condition_variable>
#include <iostream>
#include <memory>
#include <mutex>
#include <streambuf>

#include "fake_platform.h"

/// Stands in for standard input while it lives. Threads that read wait for a key here, and get the keys in the order in which
/// they came. A test waits for what has happened, never for time.
class FakeKeyboard : private std::streambuf {
public:
    /// std::cin no longer flushes std::cout, so that a waiting thread and the test do not share it.
    FakeKeyboard() : original(std::cin.rdbuf(this)), tied(std::cin.tie(nullptr)) {
        fake_platform::onThreadEnd() = [own = state] { own->change(own->ends); };
    }

    /// Ends the threads that still read.
    ~FakeKeyboard() override {
        close();
        {
            std::unique_lock<std::mutex> lock(state->mutex);
            state->changed.wait(lock, [this] { return state->ends == state->readers; });
        }
        fake_platform::onThreadEnd() = nullptr;
        std::cin.rdbuf(original);
        std::cin.tie(tied);
    }

    FakeKeyboard(const FakeKeyboard&) = delete;
    FakeKeyboard& operator=(const FakeKeyboard&) = delete;

    void press() {
        state->change(state->keys);
    }

    /// From now on reading finds the end of the input, behind the keys pressed so far.
    void close() {
        state->change(state->closed);
    }

    /// Until that many threads have begun to read.
    void waitForReaders(int count) {
        waitFor(state->readers, count);
    }

    /// Until that many threads that have read are at their end.
    void waitForEnds(int count) {
        waitFor(state->ends, count);
    }

private:
    /// Lives as long as anybody looks at it: a thread that ends may still be in here when the keyboard goes.
    struct State {
        std::mutex mutex;
        std::condition_variable changed;
        int readers = 0;
        int keys = 0;
        int closed = 0;
        int ends = 0;

        void change(int& number) {
            const std::lock_guard<std::mutex> lock(mutex);
            ++number;
            changed.notify_all();
        }
    };

    int_type uflow() override {
        const std::shared_ptr<State> own = state;
        std::unique_lock<std::mutex> lock(own->mutex);
        const int turn = own->readers++;
        own->changed.notify_all();
        own->changed.wait(lock, [&] { return own->keys > turn || own->closed > 0; });
        return own->keys > turn ? traits_type::to_int_type('k') : traits_type::eof();
    }

    void waitFor(const int& number, int count) {
        std::unique_lock<std::mutex> lock(state->mutex);
        state->changed.wait(lock, [&] { return number >= count; });
    }

    std::streambuf* original;
    std::ostream* tied;
    std::shared_ptr<State> state = std::make_shared<State>();
};

#endif
