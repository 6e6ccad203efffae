#ifndef KELPLIB_BENCHMARKS_OUTPUT_H
#define KELPLIB_BENCHMARKS_OUTPUT_H

#include <string>
#include <thread>

/// Sends standard output somewhere else for its lifetime.
class Redirection {
public:
    explicit Redirection(int descriptor);
    ~Redirection();
    Redirection(const Redirection&) = delete;
    Redirection& operator=(const Redirection&) = delete;

private:
    int before = -1;
};

/// A terminal of our own, with a thread that reads what is written to it.
class Terminal {
public:
    Terminal();
    ~Terminal();
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;

    /// The side that programs write to.
    int descriptor() const;

private:
    int reading;
    int writing;
    std::thread reader;
};

/// A descriptor that swallows everything.
int nullDevice();

/// What `write` prints on standard output.
std::string printedBy(void (*write)());

#endif
