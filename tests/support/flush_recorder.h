#ifndef KELPLIB_TESTS_FLUSH_RECORDER_H
#define KELPLIB_TESTS_FLUSH_RECORDER_H

#include <iostream>
#include <streambuf>
#include <string>

/// Captures the output of std::cout during its lifetime, with a "~" for every flush.
class FlushRecorder : private std::streambuf {
public:
    FlushRecorder() : original(std::cout.rdbuf(this)) {}

    ~FlushRecorder() override {
        std::cout.rdbuf(original);
    }

    FlushRecorder(const FlushRecorder&) = delete;
    FlushRecorder& operator=(const FlushRecorder&) = delete;

    std::string text() const {
        return recorded;
    }

private:
    int_type overflow(int_type character) override {
        recorded += traits_type::to_char_type(character);
        return character;
    }

    int sync() override {
        recorded += '~';
        return 0;
    }

    std::string recorded;
    std::streambuf* original;
};

#endif
