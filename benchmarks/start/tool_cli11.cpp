#include <CLI/CLI.hpp>

#include "settings.h"

int main(int argc, char** argv) {
    CLI::App app("Shows a start");
    Settings settings;
    app.add_option("-o,--output", settings.output, "output file");
    app.add_option("-n,--number", settings.number, "how many");
    app.add_option("-r,--ratio", settings.ratio, "scale");
    app.add_option("-w,--width", settings.width, "columns of the output");
    app.add_option("-t,--threads", settings.threads, "threads at work");
    app.add_option("-s,--separator", settings.separator, "between two fields");
    app.add_option("-c,--columns", settings.columns, "columns to print");
    app.add_option("-l,--label", settings.label, "title of the output");
    app.add_flag("-f,--force", settings.force, "overwrites files");
    app.add_flag("-q,--quiet", settings.quiet, "prints nothing");
    app.add_option("file", settings.file, "input file");
    CLI11_PARSE(app, argc, argv);
    return checked(settings);
}
