#include <gflags/gflags.h>

#include "each_option.h"
#include "parsers.h"

#define DEFINE_OPTION(name) DEFINE_string(name, "", "one of many options");
KELPLIB_EACH_OPTION(DEFINE_OPTION)

#define TEXT_OF_OPTION(name) FLAGS_##name,

namespace parsers {

Answer gflags(const CommandLine& line) {
    // Parsing reorders the pointers.
    std::vector<char*> pointers(line.argv(), line.argv() + line.argc() + 1);
    int argc = line.argc();
    char** argv = pointers.data();
    google::ParseCommandLineFlags(&argc, &argv, true);
    return {{KELPLIB_EACH_OPTION(TEXT_OF_OPTION)}, {argv + 1, argv + argc}};
}

}  // namespace parsers
