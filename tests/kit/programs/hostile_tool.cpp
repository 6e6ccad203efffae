// A tool whose name decides what it prints and how it ends.

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <string>
#include <thread>

namespace {

int print(const std::string& text) {
    std::fwrite(text.data(), 1, text.size(), stdout);
    std::fflush(stdout);
    return EXIT_SUCCESS;
}

std::string screenOf(const std::string& name, const std::string& description = "Is hostile.") {
    const std::string rule = "\033[34m####################################\033[0m\n";
    return "\n" + rule + "\033[37m\t" + name + "\033[0m\n\033[37m\033[0m\n" + rule + "\n\033[36m" + description +
           "\033[0m\n\033[36mUsage:\033[0m\n  " + name +
           " \n\n\033[36mOptions:\033[0m\n\n\033[36mArguments:\033[0m\n\n\033[36mExample:\033[0m\n  \033[34m" + name +
           "\033[0m \n";
}

void sleepLong() {
    std::this_thread::sleep_for(std::chrono::minutes(2));
}

int fall() {
    print(screenOf("fall").substr(0, 100));
    std::signal(SIGABRT, SIG_DFL);
    std::abort();
}

int sleepSilently() {
    std::signal(SIGTERM, SIG_IGN);
    sleepLong();
    return EXIT_SUCCESS;
}

int sleepAtTheEnd() {
    print(screenOf("late"));
    std::fclose(stdout);
    sleepLong();
    return EXIT_SUCCESS;
}

int printForever() {
    for (;;) {
        print(std::string(65536, 'x'));
    }
}

int readInput() {
    return print(screenOf("input", std::getchar() == EOF ? "no input" : "input"));
}

int failWith(const std::string& errors) {
    std::fwrite(errors.data(), 1, errors.size(), stderr);
    return 3;
}

int complain() {
    std::fputs("a complaint\n", stderr);
    return print(screenOf("complaint"));
}

/// Prints 20 MB of errors on standard error, also after the end of standard output, and ends with exit status 3.
int complainLong() {
    for (int i = 0; i < 200; ++i) {
        std::fputs((std::string(99'999, 'x') + "\n").c_str(), stderr);
        if (i == 100) {
            print(screenOf("flood"));
            std::fclose(stdout);
        }
    }
    return failWith("the end\n");
}

/// Leaves a read-only file and a folder in the current folder, and says which it is and how many entries it had.
int litter() {
    const std::filesystem::path here = std::filesystem::current_path();
    const auto entries =
        std::distance(std::filesystem::directory_iterator(here), std::filesystem::directory_iterator());
    std::filesystem::create_directories(here / "a" / "b");
    std::ofstream("a/b/file") << "left";
    std::filesystem::permissions("a/b/file", std::filesystem::perms::owner_read);
    return print(screenOf("litter", std::to_string(entries) + " " + here.filename().string()));
}

using Behaviour = std::function<int()>;

std::map<std::string, Behaviour> behaviours() {
    return {{"plain", [] { return print(screenOf("plain")); }},
            {"silent", [] { return EXIT_SUCCESS; }},
            {"fall", fall},
            {"status", [] { return print(screenOf("status")) + 3; }},
            {"twice", [] { return print(screenOf("twice") + screenOf("twice")); }},
            {"before", [] { return print("Welcome.\n" + screenOf("before")); }},
            {"after", [] { return print(screenOf("after") + "Goodbye.\n"); }},
            {"missing", [] { return print("\n\033[31mFile missing.\033[0m\n\n" + screenOf("missing")); }},
            {"large", [] { return print(std::string(2'000'000, 'x')); }},
            {"long", [] { return print(screenOf("long", std::string(900'000, 'x'))); }},
            {"endless", printForever},
            {"sleeping", sleepSilently},
            {"late", sleepAtTheEnd},
            {"input", readInput},
            {"complaint", complain},
            {"flood", complainLong},
            {"reason", [] { return failWith("first\nlast \033[0m\xff\n \r\n"); }},
            {"long-reason", [] { return failWith("begin" + std::string(2000, 'x')); }},
            {"litter", litter},
            {"other", [] { return print(screenOf("another")); }},
            {"path", [] { return print(screenOf("../path")); }}};
}

}  // namespace

int main(int argc, char** argv) {
    const std::string name = argc > 0 ? argv[0] : "";
    if (argc != 3 || std::string(argv[1]) != "--help" || std::string(argv[2]) != ".") {
        return print("--help . expected\n");
    }
    const auto all = behaviours();
    const auto found = all.find(name);
    return found == all.end() ? print("no behaviour " + name + "\n") : found->second();
}
