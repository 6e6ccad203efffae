#include <absl/flags/flag.h>
#include <absl/flags/parse.h>

#include "settings.h"

ABSL_FLAG(std::string, o, "out.txt", "output file");
ABSL_FLAG(int, n, 1, "how many");
ABSL_FLAG(double, ratio, 1, "scale");
ABSL_FLAG(int, width, 80, "columns of the output");
ABSL_FLAG(int, threads, 1, "threads at work");
ABSL_FLAG(std::string, separator, ",", "between two fields");
ABSL_FLAG(std::string, columns, "", "columns to print");
ABSL_FLAG(std::string, label, "", "title of the output");
ABSL_FLAG(bool, force, false, "overwrites files");
ABSL_FLAG(bool, quiet, false, "prints nothing");

int main(int argc, char** argv) {
    const std::vector<char*> rest = absl::ParseCommandLine(argc, argv);
    using absl::GetFlag;
    return checked({GetFlag(FLAGS_o), GetFlag(FLAGS_n), GetFlag(FLAGS_ratio), GetFlag(FLAGS_width),
                    GetFlag(FLAGS_threads), GetFlag(FLAGS_separator), GetFlag(FLAGS_columns), GetFlag(FLAGS_label),
                    GetFlag(FLAGS_force), GetFlag(FLAGS_quiet), rest.size() > 1 ? rest[1] : ""});
}
