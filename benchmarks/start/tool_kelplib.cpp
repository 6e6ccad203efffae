#include <kelplib/CommandLineTool.h>

#include "settings.h"

int main(int argc, char** argv) {
    std::vector<Kelp::Option> options{
        {"-o", "--output", "output file", true},
        {"-n", "--number", "how many", true},
        {"-r", "--ratio", "scale", true},
        {"-w", "--width", "columns of the output", true},
        {"-t", "--threads", "threads at work", true},
        {"-s", "--separator", "between two fields", true},
        {"-c", "--columns", "columns to print", true},
        {"-l", "--label", "title of the output", true},
        {"-f", "--force", "overwrites files", false},
        {"-q", "--quiet", "prints nothing", false},
    };
    CommandLineTool tool(argc, argv, "Shows a start", options);
    Kelp::OptionReader reader(argc, argv);
    Settings settings;
    reader.getValue("-o", "--output", settings.output, 1);
    reader.getValue("-n", "--number", settings.number, 1);
    reader.getValue("-r", "--ratio", settings.ratio, 1);
    reader.getValue("-w", "--width", settings.width, 1);
    reader.getValue("-t", "--threads", settings.threads, 1);
    reader.getValue("-s", "--separator", settings.separator, 1);
    reader.getValue("-c", "--columns", settings.columns, 1);
    reader.getValue("-l", "--label", settings.label, 1);
    reader.getValue("-f", "--force", settings.force, 1);
    reader.getValue("-q", "--quiet", settings.quiet, 1);
    tool.getFirstArgument(settings.file, 1);
    return checked(settings);
}
