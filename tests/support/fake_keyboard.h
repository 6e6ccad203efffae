#ifndef KELPLIB_TESTS_FAKE_KEYBOARD_H
#define KELPLIB_TESTS_FAKE_KEYBOARD_H

#include <condition_variable>
#include <iostream>
#include <mutex>
#include <streambuf>

/// Stands in for standard input while it lives. Threads that read wait for a key here, and get the keys in the order in which
/// they came. A test waits for what has happened, never for time.
class FakeKeyboard : private std::streambuf {
public:
    /// std::cin no longer flushes std::cout, so that a waiting thread and the test do not share it.
    FakeKeyboard() : original(std::cin.rdbuf(this)), tied(std::cin.tie(nullptr)) {}

    /// Ends the threads that still read.
    ~FakeKeyboard() override {
        close();
        {
            std::unique_lock<std::mutex> lock(mutex);
            changed.wait(lock, [this] { return ends == readers; });
        }
        std::cin.rdbuf(original);
        std::cin.tie(tied);
    }

    FakeKeyboard(const FakeKeyboard&) = delete;
    FakeKeyboard& operator=(const FakeKeyboard&) = delete;

    void press() {
        change(keys);
    }

    /// From now on reading finds the end of the input, behind the keys pressed so far.
    void close() {
        change(closed);
    }

    /// Until that many threads have begun to read.
    void waitForReaders(int count) {
        waitFor(readers, count);
    }

    /// Until that many threads that have read are at their end.
    void waitForEnds(int count) {
        waitFor(ends, count);
    }

private:
    /// One for each thread that reads, destroyed at the thread's end.
    struct AtThreadEnd {
        explicit AtThreadEnd(FakeKeyboard& read) : keyboard(read) {}
        AtThreadEnd(const AtThreadEnd&) = delete;
        AtThreadEnd& operator=(const AtThreadEnd&) = delete;
        ~AtThreadEnd() {
            keyboard.change(keyboard.ends);
        }
        FakeKeyboard& keyboard;
    };

    int_type uflow() override {
        thread_local const AtThreadEnd atThreadEnd(*this);
        std::unique_lock<std::mutex> lock(mutex);
        const int turn = readers++;
        changed.notify_all();
        changed.wait(lock, [&] { return keys > turn || closed > 0; });
        return keys > turn ? traits_type::to_int_type('k') : traits_type::eof();
    }

    void change(int& number) {
        const std::lock_guard<std::mutex> lock(mutex);
        ++number;
        changed.notify_all();
    }

    void waitFor(const int& number, int count) {
        std::unique_lock<std::mutex> lock(mutex);
        changed.wait(lock, [&] { return number >= count; });
    }

    std::streambuf* original;
    std::ostream* tied;
    std::mutex mutex;
    std::condition_variable changed;
    int readers = 0;
    int keys = 0;
    int closed = 0;
    int ends = 0;
};

#endif
