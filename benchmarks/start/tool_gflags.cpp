#include <gflags/gflags.h>

#include "settings.h"

DEFINE_string(o, "out.txt", "output file");
DEFINE_int32(n, 1, "how many");
DEFINE_double(ratio, 1, "scale");
DEFINE_int32(width, 80, "columns of the output");
DEFINE_int32(threads, 1, "threads at work");
DEFINE_string(separator, ",", "between two fields");
DEFINE_string(columns, "", "columns to print");
DEFINE_string(label, "", "title of the output");
DEFINE_bool(force, false, "overwrites files");
DEFINE_bool(quiet, false, "prints nothing");

int main(int argc, char** argv) {
    gflags::ParseCommandLineFlags(&argc, &argv, true);
    return checked({FLAGS_o, FLAGS_n, FLAGS_ratio, FLAGS_width, FLAGS_threads, FLAGS_separator, FLAGS_columns,
                    FLAGS_label, FLAGS_force, FLAGS_quiet, argc > 1 ? argv[1] : ""});
}
