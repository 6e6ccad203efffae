// What a reader answers while the process can open no file: without_files_tool NAME... prints 1 for each name that passes the
// file check, and 0 for the others.
#include <kelplib/Kelp.h>
#include <sys/resource.h>

#include <cstdio>

namespace {

/// No descriptor is left for a file while it lives.
class NoFiles {
public:
    NoFiles() {
        getrlimit(RLIMIT_NOFILE, &before);
        const rlimit none{0, before.rlim_max};
        setrlimit(RLIMIT_NOFILE, &none);
    }
    ~NoFiles() {
        setrlimit(RLIMIT_NOFILE, &before);
    }
    NoFiles(const NoFiles&) = delete;
    NoFiles& operator=(const NoFiles&) = delete;

private:
    rlimit before{};
};

bool passes(char* program, char* name) {
    char* line[] = {program, name, nullptr};
    Kelp::OptionReader reader(2, line);
    std::string file;
    const NoFiles scope;
    return reader.checkFiles(file, 0);
}

/// The program's own file is there.
bool canBeOpened(const char* program) {
    const NoFiles scope;
    return std::fopen(program, "r") != nullptr;
}

}  // namespace

int main(int argc, char** argv) {
    if (canBeOpened(argv[0])) {
        return 1;
    }
    for (int i = 1; i < argc; ++i) {
        std::printf("%d\n", passes(argv[0], argv[i]) ? 1 : 0);
    }
}
