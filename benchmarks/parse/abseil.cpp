#include <absl/flags/flag.h>
#include <absl/flags/parse.h>

#include "each_option.h"
#include "parsers.h"

#define DEFINE_OPTION(name) ABSL_FLAG(std::string, name, "", "one of many options");
KELPLIB_EACH_OPTION(DEFINE_OPTION)

#define TEXT_OF_OPTION(name) absl::GetFlag(FLAGS_##name),

namespace parsers {

Answer abseil(const CommandLine& line) {
    const std::vector<char*> rest = absl::ParseCommandLine(line.argc(), line.argv());
    return {{KELPLIB_EACH_OPTION(TEXT_OF_OPTION)}, {rest.begin() + 1, rest.end()}};
}

}  // namespace parsers
