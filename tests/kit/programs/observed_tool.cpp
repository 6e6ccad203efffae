// A tool of the library whose name decides what it does: "finding-RULE" and "none-RULE" play the samples of docs/kit-rules.md,
// which "samples" prints; other names are tools that are hard to observe.

#include <fcntl.h>
#include <kelplib/CommandLineTool.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <map>
#include <string>
#include <thread>
#include <vector>

namespace {

using Options = std::vector<Kelp::Option>;
using Arguments = std::vector<Kelp::Argument>;

struct Step {
    const char* text;
    std::function<void(Options& options, Arguments& arguments, std::string& usage)> change;
    std::function<void(CommandLineTool& tool, Kelp::OptionReader& reader, FilePath& file, std::string& value)> use;
};

#define CHANGE(...)                                                                                  \
    Step {                                                                                           \
#__VA_ARGS__, []([[maybe_unused]] Options & options, [[maybe_unused]] Arguments & arguments, \
                         [[maybe_unused]] std::string & usage) { __VA_ARGS__; }, {}                  \
    }
#define USE(...)                                                                                                      \
    Step {                                                                                                            \
#__VA_ARGS__, {}, []([[maybe_unused]] CommandLineTool & tool, [[maybe_unused]] Kelp::OptionReader & reader,   \
                             [[maybe_unused]] FilePath & file, [[maybe_unused]] std::string & value) { __VA_ARGS__; } \
    }

struct Sample {
    const char* rule;
    Step finding;
    Step none;
    bool usesBoth;  ///< whether the neighbour makes the calls of the sample, too
};

const Sample samples[] = {
    {"no-verbose", USE(tool.print("reading")),
     CHANGE(options.emplace_back("-v", "--verbose", "print each step", false)), true},
    {"no-output", USE(tool.getOutFile(file)),
     CHANGE(options.emplace_back("-o", "--output", "write to this file", true)), true},
    {"asked-by-long-name", USE(tool.hasOption("--number", 1)), USE(tool.hasOption("-n", 1)), false},
    {"asked-unregistered", USE(reader.getValue("-q", "--quick", value, 1)),
     USE(reader.getValue("-n", "--number", value, 1)), false},
    {"late-option", USE(tool.registerOption({"-v", "--verbose", "print each step", false})),
     CHANGE(options.emplace_back("-v", "--verbose", "print each step", false)), false},
    {"file-demanded", CHANGE(arguments.clear(); usage = "[-n=LINES]"),
     CHANGE(arguments[0].repeated = true; usage = "[-n=LINES] [FILE...]"), false},
};

/// What the tool of the page does.
int play(int argc, char** argv, const Step& step, const Step& calls) {
    Options options{{"-n", "--number", "how many lines to show", true}, {"-h", "--help", "show this help", false}};
    Arguments arguments{{"FILE", "a text", false}};
    std::string usage = "[-n=LINES] [FILE]";
    if (step.change) {
        step.change(options, arguments, usage);
    }
    CommandLineTool tool(argc, argv, "Shows the first lines of a text.", usage, "-n=3", "", options, arguments);
    Kelp::OptionReader reader(argc, argv);
    FilePath file("a.txt");
    std::string value;
    if (calls.use) {
        calls.use(tool, reader, file, value);
    }
    return EXIT_SUCCESS;
}

int printSamples() {
    for (const Sample& sample : samples) {
        std::cout << sample.rule << "\n" << sample.finding.text << "\n" << sample.none.text << "\n";
    }
    return EXIT_SUCCESS;
}

/// The tool of the page without calls after the constructor.
int playPlain(int argc, char** argv) {
    return play(argc, argv, {}, {});
}

/// Two options of one letter, of which the help screen shows one.
int playDropped(int argc, char** argv) {
    return play(argc, argv, CHANGE(options.emplace_back("-N", "--name", "a name", true)), {});
}

/// An option that takes the letter of verbose mode.
int playVersion(int argc, char** argv) {
    return play(argc, argv, CHANGE(options.emplace_back("-V", "--version", "show the version", false)), {});
}

/// All ways to ask for options that exist.
int playQueries(int argc, char** argv) {
    const auto use = [](CommandLineTool& tool, Kelp::OptionReader& reader, FilePath& file, std::string& value) {
        int number = 0;
        for (int i = 0; i < 100'000; ++i) {
            tool.hasOption("-N", 1);
        }
        reader.getValue("-n", "--number", number, 1);
        reader.getValue("--number", "-n", number, 1);
        reader.getValue(std::string("-n"), std::string("--number"), value, 1);
        reader.getValue(nullptr, "-N", value, 1);
        reader.hasOption("-n", "--number", 1);
        reader.hasOption("--number", "", 1);
        reader.hasOption("/n", "n", 1);
        reader.getValue("x", "y", value, 1);
        reader.getValue("n", "-n", value, 1);
        reader.hasOption(Kelp::Option("-o", "--output", "", true), 1);
        std::vector<FilePath> files{file};
        tool.getOutFiles(files, 1);
        tool.getOutFile(file);
        tool.print(tool.isVerbose() ? "yes" : "no");
    };
    const auto change = [](Options& options, Arguments&, std::string&) {
        options.emplace_back("-O", "--output", "write to this file", true);
        options.emplace_back("-V", "--verbose", "print each step", false);
    };
    return play(argc, argv, {"", change, {}}, {"", {}, use});
}

/// All ways to ask in vain.
int playVainQueries(int argc, char** argv) {
    const auto use = [](CommandLineTool& tool, Kelp::OptionReader& reader, FilePath&, std::string& value) {
        int number = 0;
        tool.hasOption("--help", 1);
        tool.hasOption("-a", 1);
        tool.isVerbose();
        std::vector<FilePath> files;
        tool.getOutFiles(files, 1);
        reader.getValue("-b", "--bytes", number, 1);
        reader.getValue(std::string("-c"), std::string("--colour"), value, 1);
        reader.getValue("--number", "", value, 1);
        reader.getValue("--depth", "", value, 1);
        reader.getValue("n", "number", number, 1);
        reader.getValue("y", "n", value, 1);
        tool.hasOption("h", 1);
        tool.hasOption("number", 1);
        reader.hasOption("-e", "--each", 1);
        reader.hasOption(Kelp::Option("-f", "--fast", "", false), 1);
        Options late{{"-g", "--group", "a group", true}, {"-i", "--index", "an index", true}};
        tool.registerOptions(late);
    };
    return play(argc, argv, {}, {"", {}, use});
}

/// Asks a reader of another command line, then in vain one of the own line at the same address.
int playOtherLine(int argc, char** argv) {
    const auto use = [](int count, char** words) {
        Kelp::OptionReader reader(count, words);
        std::string value;
        int number = 0;
        reader.getValue(count == 2 ? "-a" : "-z", "--zone", number, 0);
        reader.getValue(std::string(count == 2 ? "-b" : "-y"), std::string(), value, 0);
        reader.getValue(count == 2 ? "-c" : "-x", nullptr, value, 0);
        reader.hasOption(count == 2 ? "-d" : "-w", "", 0);
        reader.hasOption(Kelp::Option(count == 2 ? "-e" : "-u", "", "", false), 0);
    };
    std::string words[] = {"-z=1", "-y", "-x"};
    char* line[] = {words[0].data(), words[1].data(), words[2].data()};
    const int status = playPlain(argc, argv);
    use(3, line);
    use(argc, argv);
    return status;
}

/// Constructs the tool of the page twice, and asks the first one in vain.
int playTwice(int argc, char** argv) {
    const auto use = [argc, argv](CommandLineTool& tool, Kelp::OptionReader&, FilePath& file, std::string&) {
        playPlain(argc, argv);
        tool.hasOption("-q", 1);
        tool.print("reading");
        tool.getOutFile(file);
        tool.registerOption({"-l", "--late", "is late", false});
    };
    return play(argc, argv, {}, {"", {}, use});
}

/// Asks in vain for one option, and then for more than a report can hold.
int playTalkative(int argc, char** argv) {
    const auto use = [](CommandLineTool& tool, Kelp::OptionReader&, FilePath&, std::string&) {
        tool.hasOption("-q", 1);
        tool.hasOption(std::string(1'000'000, 'x'), 1);
        tool.hasOption("-r", 1);
    };
    return play(argc, argv, {}, {"", {}, use});
}

/// Constructs no tool unless it is asked for help.
int playEarly(int argc, char** argv) {
    return argc == 3 ? playPlain(argc, argv) : EXIT_FAILURE;
}

/// Runs another tool, which asks in vain, and then asks itself, also in a process of its own.
int playWithOther(int argc, char** argv) {
    const auto use = [argv](CommandLineTool& tool, Kelp::OptionReader& reader, FilePath&, std::string& value) {
        if (fork() == 0) {
            char name[] = "short-vain";
            char* line[] = {name, argv[1], nullptr};
            execv("/proc/self/exe", line);
            std::abort();
        }
        wait(nullptr);
        if (fork() == 0) {
            reader.getValue("-r", "--rest", value, 1);
            _exit(EXIT_SUCCESS);
        }
        wait(nullptr);
        tool.hasOption("-n", 1);
    };
    return play(argc, argv, {}, {"", {}, use});
}

/// A tool with options of its own that asks in vain.
int playShortVain(int argc, char** argv) {
    const CommandLineTool tool(argc, argv, "Is short.");
    Kelp::OptionReader reader(argc, argv);
    std::string value;
    reader.getValue("-a", "--all", value, 1);
    return tool.hasOption("-b", 1);
}

/// Becomes another user, whose processes its caller may not kill.
int playRoot(int /*argc*/, char** /*argv*/) {
    setuid(0);
    std::this_thread::sleep_for(std::chrono::minutes(2));
    return EXIT_SUCCESS;
}

/// The other constructors, with the options that they take.
int playShort(int argc, char** argv) {
    const std::string name = argv[0];
    const Kelp::Option help("-h", "--help", "show this help", false);
    const Kelp::Option other("-H", "--height", "a height", true);
    if (name == "short0") {
        const CommandLineTool tool(argc, argv, "Is short.");
    } else if (name == "short1") {
        const CommandLineTool tool(argc, argv, "Is short.", other);
    } else if (name == "short2") {
        const CommandLineTool tool(argc, argv, "Is short.", help, other);
    } else {
        Options options{help, other, other};
        const CommandLineTool tool(argc, argv, "Is short.", options);
    }
    return EXIT_SUCCESS;
}

/// A tool that derives from the library's.
int playDerived(int argc, char** argv) {
    class Derived : public CommandLineTool {
    public:
        Derived(int argc, char** argv, Options& options) : CommandLineTool(argc, argv, "Is derived.", options) {}
    };
    Options options{{"-h", "--help", "show this help", false}, {"-h", "--host", "a host", false}};
    const Derived tool(argc, argv, options);
    return EXIT_SUCCESS;
}

/// A tool that registers its options and then gives the library its command line.
int playTwoSteps(int argc, char** argv) {
    CommandLineTool tool(1, argv, "Is built in two steps.");
    tool.registerOption({"-h", "--help", "show this help", false});
    Kelp::OptionReader reader(argc, argv);
    if (reader.hasOption("-h", "--help", 1) != 0) {
        tool.printUsage();
    }
    return EXIT_SUCCESS;
}

/// Shows its help screen as the kit does, and marks its options otherwise than the usage line shows them.
int playKit(int, char** argv) {
    Options options{{"-n", "--number", "how many lines to show", true},
                    {"-q", "--quiet", "no messages", false},
                    {"-h", "--help", "show this help", false}};
    Arguments arguments{{"FILE", "a text", false}};
    std::string path = argv[0] == std::string("-") ? "kits" : argv[0];
    std::string file = ".";
    char* line[] = {path.data(), file.data()};
    const CommandLineTool tool(2, line, "Is like one of the kit.", "[-n] [-q=TEXT] FILE", "a.txt", "", options,
                               arguments);
    tool.printUsage();
}

const std::map<std::string, int (*)(int, char**)> behaviours{{"kits", playKit},
                                                             {"-", playKit},
                                                             {"plain", playPlain},
                                                             {"other-line", playOtherLine},
                                                             {"dropped", playDropped},
                                                             {"version", playVersion},
                                                             {"queries", playQueries},
                                                             {"vain", playVainQueries},
                                                             {"short0", playShort},
                                                             {"short1", playShort},
                                                             {"short2", playShort},
                                                             {"short3", playShort},
                                                             {"derived", playDerived},
                                                             {"steps", playTwoSteps},
                                                             {"twice", playTwice},
                                                             {"talkative", playTalkative},
                                                             {"early", playEarly},
                                                             {"with-other", playWithOther},
                                                             {"short-vain", playShortVain},
                                                             {"root", playRoot}};

const char* const reportVariable = "KELPLIB_OBSERVER_REPORT";

std::string report() {
    return std::getenv(reportVariable);
}

void startAgain(char** argv) {
    execv("/proc/self/exe", argv);
    std::abort();
}

/// What a tool does first if it is observed.
const std::map<std::string, void (*)(char**)> tricks{
    {"unset",
     [](char** argv) {
         unsetenv("LD_PRELOAD");
         unsetenv(reportVariable);
         startAgain(argv);
     }},
    {"again",
     [](char** argv) {
         if (setenv("STARTED_AGAIN", "", 0) == 0 && std::string(std::getenv("STARTED_AGAIN")).empty()) {
             setenv("STARTED_AGAIN", "yes", 1);
             startAgain(argv);
         }
     }},
    {"moved",
     [](char** argv) {
         chdir("/");
         startAgain(argv);
     }},
    {"closing",
     [](char**) {
         for (int descriptor = 3; descriptor < 1024; ++descriptor) {
             close(descriptor);
         }
     }},
    {"flood", [](char**) { std::ofstream(report()) << std::string(2'000'000, 'x'); }},
    {"garbage", [](char**) { std::ofstream(report()) << "9:4:tool1:x"; }},
    {"empty", [](char**) { std::ofstream(report()) << "0:"; }},
    {"number", [](char**) { std::ofstream(report()) << std::string(1000, '9') << ":x"; }},
    {"fifo",
     [](char**) {
         std::filesystem::remove(report());
         mkfifo(report().c_str(), S_IRUSR | S_IWUSR);
         open(report().c_str(), O_RDWR);
     }},
    {"removed", [](char**) { std::filesystem::remove_all(std::filesystem::path(report()).parent_path()); }},
    {"forked",
     [](char**) {
         if (fork() != 0) {
             wait(nullptr);
             _exit(EXIT_SUCCESS);
         }
     }},
    {"escaped",
     [](char**) {
         if (fork() == 0) {
             setsid();
             std::fclose(stdout);
             std::ofstream(std::string(std::getenv("TMPDIR")) + "/identity") << getpid() << "\n";
             std::this_thread::sleep_for(std::chrono::minutes(2));
             _exit(EXIT_SUCCESS);
         }
     }},
    {"large", [](char**) { std::cout << std::string(2'000'000, 'x') << std::flush; }},
    {"killed", [](char**) { std::raise(SIGKILL); }},
    {"sleeping", [](char**) { std::this_thread::sleep_for(std::chrono::minutes(2)); }},
};

}  // namespace

int main(int argc, char** argv) {
    const std::string name = argv[0];
    if (argc == 2 && std::string(argv[1]) == "samples") {
        return printSamples();
    }
    for (const Sample& sample : samples) {
        if (name == std::string("finding-") + sample.rule) {
            return play(argc, argv, sample.finding, sample.finding);
        }
        if (name == std::string("none-") + sample.rule) {
            return play(argc, argv, sample.none, sample.usesBoth ? sample.finding : sample.none);
        }
    }
    if (const auto trick = tricks.find(name); trick != tricks.end()) {
        if (std::getenv(reportVariable) != nullptr) {
            trick->second(argv);
        }
        return playPlain(argc, argv);
    }
    const auto found = behaviours.find(name);
    return found == behaviours.end() ? EXIT_FAILURE : found->second(argc, argv);
}
