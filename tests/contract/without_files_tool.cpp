// Checks files while the process cannot open any: without_files_tool NAME... prints 1 for each name that passes the reader's
// file check, 0 for the others.
#include <kelplib/Kelp.h>
#include <sys/resource.h>

#include <cstdio>

namespace {

/// Keeps the process from opening files during its lifetime.
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

/// Whether the file of this program, which exists, can be opened.
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
