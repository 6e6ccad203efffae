// Writes output files with the kit, for the tests in new_files_test.py.
//
//     new_files_tool many [-f] [-a] NAME TEXT [NAME TEXT]...     NewFiles; -f overwrites, -a gives advice
//     new_files_tool one [-f] [-a] NAME TEXT                     NewFile; "-" is standard output
//     new_files_tool drop NAME TEXT                              the same without publish()
//     new_files_tool stubborn NAME TEXT                          the same, but ignores that the text cannot be written
//     new_files_tool again CALL NAME TEXT                        NewFiles; CALL is write or publish, after a failed write
//     new_files_tool copy [-f] NAME INPUT                        copies an input that must not be the output
//     new_files_tool safecopy NAME INPUT                         reads the input while the output with any name is open
//     new_files_tool both NAME TEXT                              an unfinished file, and the text on standard output
//     new_files_tool lines NAME INPUT                            the lines of the input, each after its number
//     new_files_tool often INPUT                                 opens the input a hundred times and reads its first line
//     new_files_tool noisy NAME TEXT                             an unfinished file, and the text on standard error
//     new_files_tool wait NAME TEXT                              as "both", and then waits for a signal
//     new_files_tool raise NAME TEXT                             raises SIGTERM before it writes the text
//
// The tool writes the text "@N" as N times "x". After an error it prints a message on standard error and ends with status 1.

#include <kelpkit/Files.h>
#include <kelpkit/Interruption.h>
#include <kelpkit/NewFiles.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <optional>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace {

struct Request {
    bool overwrite = false;
    std::string advice;
    std::vector<std::string> words;
};

std::string textOf(const std::string& word) {
    return word.front() == '@' ? std::string(std::stoul(word.substr(1)), 'x') : word;
}

std::optional<std::string> nameOf(const std::string& word) {
    return word == "-" ? std::nullopt : std::optional(word);
}

void writeMany(const Request& request) {
    std::vector<std::string> names;
    for (std::size_t i = 0; i < request.words.size(); i += 2) {
        names.push_back(request.words[i]);
    }
    Kelpkit::NewFiles files(names, request.overwrite, request.advice);
    for (std::size_t i = 1; i < request.words.size(); i += 2) {
        files.startNext();
        const std::string text = textOf(request.words[i]);
        files.write(text.data(), text.size());
    }
    files.publish();
}

void writeOne(const Request& request) {
    Kelpkit::NewFile file(nameOf(request.words.at(0)), request.overwrite, request.advice);
    file.stream() << textOf(request.words.at(1));
    file.publish();
}

void drop(const Request& request) {
    Kelpkit::NewFile file(nameOf(request.words.at(0)), request.overwrite);
    file.stream() << textOf(request.words.at(1)) << std::flush;
}

void insist(const Request& request) {
    Kelpkit::NewFile file(nameOf(request.words.at(0)), request.overwrite);
    file.stream().exceptions(std::ios::goodbit);
    file.stream() << textOf(request.words.at(1)) << std::flush;
    file.stream().clear();
    file.publish();
}

void goOn(const Request& request) {
    Kelpkit::NewFiles files({request.words.at(1)}, request.overwrite);
    files.startNext();
    const std::string text = textOf(request.words.at(2));
    try {
        files.write(text.data(), text.size());
    } catch (const std::runtime_error&) {
        if (request.words.at(0) == "write") {
            files.write("x", 1);
        } else {
            files.publish();
        }
    }
}

void copy(const Request& request) {
    Kelpkit::requireNoInput(nameOf(request.words.at(0)), {request.words.at(1)});
    Kelpkit::NewFile file(nameOf(request.words.at(0)), request.overwrite);
    std::ifstream input(Kelpkit::pathOf(request.words.at(1)), std::ios::binary);
    file.stream() << input.rdbuf();
    input.close();
    file.publish();
}

void copyAnyway(const Request& request) {
    Kelpkit::NewFile file(nameOf(request.words.at(0)), true);
    // On Windows it can be replaced, because it is closed at its end.
    Kelpkit::InputFile input(request.words.at(1), std::ios::binary);
    file.stream() << "copy of " << input.stream().rdbuf();
    file.publish();
}

void writeBoth(const Request& request) {
    Kelpkit::NewFile file(nameOf(request.words.at(0)), request.overwrite);
    Kelpkit::NewFile output(std::nullopt);
    output.stream() << textOf(request.words.at(1));
    output.publish();
    file.publish();
}

void writeNoisily(const Request& request) {
    Kelpkit::NewFile file(nameOf(request.words.at(0)), request.overwrite);
    std::cerr << textOf(request.words.at(1)) << std::flush;
    file.publish();
}

void wait(const Request& request) {
    Kelpkit::NewFile file(nameOf(request.words.at(0)), request.overwrite);
    file.stream() << "unfinished";
    std::cout << textOf(request.words.at(1)) << std::endl;
    while (true) {
        Kelpkit::checkInterruption();
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
}

void numberLines(const Request& request) {
    Kelpkit::NewFile file(nameOf(request.words.at(0)), request.overwrite);
    Kelpkit::InputFile input(request.words.at(1));
    std::string line;
    for (int number = 1; std::getline(input.stream(), line); ++number) {
        file.stream() << number << " " << line << std::endl;
    }
    file.publish();
}

void readOften(const Request& request) {
    for (int i = 0; i < 100; ++i) {
        Kelpkit::InputFile input(request.words.at(0));
        std::string line;
        std::getline(input.stream(), line);
    }
}

void raiseSignal(const Request& request) {
    Kelpkit::noteInterruptions();
    Kelpkit::NewFile file(nameOf(request.words.at(0)), request.overwrite);
    file.stream() << "unfinished" << std::flush;
    static_cast<void>(std::raise(SIGTERM));
    file.stream() << textOf(request.words.at(1));
    file.publish();
}

int run(const std::string& work, const Request& request) {
    const std::vector<std::pair<std::string, void (*)(const Request&)>> works{
        {"many", writeMany}, {"one", writeOne},        {"drop", drop},         {"stubborn", insist},
        {"copy", copy},      {"safecopy", copyAnyway}, {"both", writeBoth},    {"noisy", writeNoisily},
        {"wait", wait},      {"raise", raiseSignal},   {"lines", numberLines}, {"often", readOften},
        {"again", goOn}};
    for (const auto& [name, function] : works) {
        if (name == work) {
            function(request);
            return EXIT_SUCCESS;
        }
    }
    throw std::runtime_error("no such work");
}

Request requestOf(int argc, char** argv) {
    Request request;
    for (int i = 2; i < argc; ++i) {
        const std::string word = argv[i];
        if (word == "-f") {
            request.overwrite = true;
        } else if (word == "-a") {
            request.advice = "-f overwrites it";
        } else {
            request.words.push_back(word);
        }
    }
    return request;
}

}  // namespace

int main(int argc, char** argv) {
    try {
        return run(argc > 1 ? argv[1] : "", requestOf(argc, argv));
    } catch (const Kelpkit::Interruption& interruption) {
        std::cerr << "interrupted" << std::endl;
        Kelpkit::endBy(interruption);
    } catch (const std::exception& error) {
        std::cerr << error.what() << std::endl;
        return EXIT_FAILURE;
    }
}
