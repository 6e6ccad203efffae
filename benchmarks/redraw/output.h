#ifndef KELPLIB_BENCHMARKS_OUTPUT_H
#define KELPLIB_BENCHMARKS_OUTPUT_H

#include <string>
#include <thread>

/// Redirects standard output during its lifetime.
class Redirection {
public:
    explicit Redirection(int descriptor);
    ~Redirection();
    Redirection(const Redirection&) = delete;
    Redirection& operator=(const Redirection&) = delete;

private:
    int before = -1;
};

/// A pseudo-terminal with a thread that reads its output.
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

/// A pseudo-terminal whose output waits until it is read.
class QuietTerminal {
public:
    QuietTerminal();
    ~QuietTerminal();
    QuietTerminal(const QuietTerminal&) = delete;
    QuietTerminal& operator=(const QuietTerminal&) = delete;

    /// The side that programs write to.
    int descriptor() const;
    /// Reads up to the next carriage return.
    void readLine();

private:
    int reading;
    int writing;
};

/// Returns a descriptor of /dev/null.
int nullDevice();

/// Calls `write` and returns what it prints on standard output.
std::string printedBy(void (*write)());

#endif
