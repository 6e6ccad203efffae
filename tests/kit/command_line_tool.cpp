// A tool with an option of each kind, which prints what it reads: command_line_tool [OPTIONS] FIRST [OTHER...]
#include <kelpkit/Tool.h>
#include <kelplib/KelpProgress.h>

#include <csignal>
#include <cstdio>
#include <iostream>
#include <new>
#include <stdexcept>

namespace failing_allocations {
// tests/support/failing_allocations.cpp makes this allocation fail.
void failAt(std::size_t number);
}  // namespace failing_allocations

namespace {

/// An exception without a text.
class Unexplained : public std::exception {
public:
    const char* what() const noexcept override {
        return nullptr;
    }
};

enum class Mode { fast, exact };

const Kelpkit::Definition tool{"reader",
                               "Prints what it reads.",
                               {{"-n", "--number", "how many", Kelpkit::takesValue},
                                {"-r", "--ratio", "a part", Kelpkit::takesValue},
                                {"-m", "--mode", "fast or exact", Kelpkit::takesValue},
                                {"-s", "--steps", "a range", Kelpkit::takesValue},
                                {"-i", "--items", "a list", Kelpkit::takesValue},
                                {"-t", "--text", "any text", Kelpkit::takesValue},
                                {"-p", "--path", "a file name", Kelpkit::takesValue},
                                {"-b", "--backup", "yes or no", Kelpkit::takesValue},
                                {"-o", "--output", "the file to write", Kelpkit::takesValue},
                                {"-f", "--fail", "how to fail", Kelpkit::takesValue},
                                {"-l", "--loud", "say more", Kelpkit::isSwitch},
                                {"-e", "--empty", "say less", Kelpkit::isSwitch},
                                {"-v", "--verbose", "name each step", Kelpkit::isSwitch},
                                {"-h", "--help", "show this help", Kelpkit::isSwitch}},
                               {{"FIRST", "the first text", false}, {"OTHER", "more texts", true}},
                               "-n=3 a",
                               "",
                               "     Reads and prints",
                               "1.2.3",
                               1};

template <class T>
void show(const char* name, const std::optional<T>& value) {
    if (value) {
        std::cout << name << " " << *value << "\n";
    }
}

void fail(const std::string& kind) {
    if (kind == "text") {
        throw std::runtime_error("the disk\nis full");
    }
    if (kind == "memory") {
        throw std::bad_alloc();
    }
    if (kind == "exhausted") {
        failing_allocations::failAt(1);
        throw std::bad_alloc();
    }
    if (kind == "nothing") {
        throw Unexplained();
    }
    if (kind == "output") {
        std::cout.exceptions(std::ios::badbit | std::ios::failbit);
        std::cout << "lost";
    }
    if (kind == "dropped") {
        std::cout.setstate(std::ios::failbit);
    }
    if (kind == "range") {
        throw std::out_of_range("no such element");
    }
    if (kind == "number") {
        throw 5;  // NOLINT(hicpp-exception-baseclass): some tools do
    }
    if (kind == "signal") {
        Kelpkit::noteInterruptions();
        static_cast<void>(std::raise(SIGTERM));
        Kelpkit::checkInterruption();
    }
    if (kind == "late-signal") {
        Kelpkit::noteInterruptions();
        static_cast<void>(std::raise(SIGTERM));
    }
    if (kind == "buffered-errors") {
        static_cast<void>(std::setvbuf(stderr, nullptr, _IOFBF, BUFSIZ));
        throw Kelpkit::Interruption{SIGTERM};  // NOLINT(hicpp-exception-baseclass)
    }
    if (kind == "lost-reader") {
        Kelpkit::noteInterruptions();
    }
    if (kind == "noted") {
        Kelpkit::noteInterruptions();
        static_cast<void>(std::raise(SIGTERM));
        try {
            Kelpkit::checkInterruption();
        } catch (const Kelpkit::Interruption& interruption) {
            throw std::runtime_error("signal " + std::to_string(interruption.signal));
        }
    }
    if (kind == "interruption") {
        throw Kelpkit::Interruption{SIGTERM};  // NOLINT(hicpp-exception-baseclass)
    }
    if (kind == "unsynchronised") {
        std::ios_base::sync_with_stdio(false);
    }
    if (kind == "unbuffered") {
        static_cast<void>(std::setvbuf(stdout, nullptr, _IONBF, 0));
    }
    if (kind == "progress") {
        Kelpkit::Progress progress(2, "copying");
        KELP_sleep(510);
        progress.advance(1);
        progress.finish();
    }
    if (kind == "usage") {
        throw Kelpkit::UsageError("-l and -e cannot be combined");
    }
}

int work(Kelpkit::CommandLine& line) {
    line.print("verbose");
    show("-n", line.value<std::size_t>("-n", Kelpkit::between(1, 1'000'000)));
    show("-r", line.value<double>("-r", Kelpkit::between(0.0, 1.0)));
    if (const auto mode = line.value<Mode>("-m", {{"fast", Mode::fast}, {"exact", Mode::exact}})) {
        std::cout << "-m " << (*mode == Mode::fast ? "fast" : "exact") << "\n";
    }
    if (const auto steps = line.value<std::tuple<unsigned int, unsigned int>>("-s")) {
        std::cout << "-s " << std::get<0>(*steps) << " to " << std::get<1>(*steps) << "\n";
    }
    for (const int item : line.value<std::vector<int>>("-i", Kelpkit::atLeast(1)).value_or(std::vector<int>())) {
        std::cout << "-i " << item << "\n";
    }
    show("-t", line.value<std::string>("-t"));
    if (const auto path = line.value<std::filesystem::path>("-p")) {
        std::cout << "-p " << path->u8string() << "\n";
    }
    show("-b", line.value<bool>("-b"));
    show("-o", line.outputFile("-o"));
    if (const auto kind = line.value<std::string>("-f")) {
        fail(*kind);
    }
    for (const char* flag : {"-l", "-e"}) {
        if (line.has(flag)) {
            std::cout << flag << "\n";
        }
    }
    for (const std::string& argument : line.arguments()) {
        std::cout << "[" << argument << "]\n";
    }
    return line.has("-e") ? 7 : 0;
}

}  // namespace

int main(int argc, char** argv) {
    return Kelpkit::run(tool, argc, argv, work);
}
