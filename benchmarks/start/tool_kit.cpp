#include <kelpkit/Tool.h>

#include "settings.h"

static int start(Kelpkit::CommandLine& line) {
    Settings settings;
    settings.output = line.value<std::string>("-o").value_or(settings.output);
    settings.number = line.value<int>("-n").value_or(settings.number);
    settings.ratio = line.value<double>("-r").value_or(settings.ratio);
    settings.width = line.value<int>("-w").value_or(settings.width);
    settings.threads = line.value<int>("-t").value_or(settings.threads);
    settings.separator = line.value<std::string>("-s").value_or(settings.separator);
    settings.columns = line.value<std::string>("-c").value_or(settings.columns);
    settings.label = line.value<std::string>("-l").value_or(settings.label);
    settings.force = line.has("-f");
    settings.quiet = line.has("-q");
    settings.file = line.arguments().front();
    return checked(settings);
}

int main(int argc, char** argv) {
    const Kelpkit::Definition tool{"tool",
                                   "Shows a start",
                                   {{"-o", "--output", "output file", Kelpkit::takesValue},
                                    {"-n", "--number", "how many", Kelpkit::takesValue},
                                    {"-r", "--ratio", "scale", Kelpkit::takesValue},
                                    {"-w", "--width", "columns of the output", Kelpkit::takesValue},
                                    {"-t", "--threads", "threads at work", Kelpkit::takesValue},
                                    {"-s", "--separator", "between two fields", Kelpkit::takesValue},
                                    {"-c", "--columns", "columns to print", Kelpkit::takesValue},
                                    {"-l", "--label", "title of the output", Kelpkit::takesValue},
                                    {"-f", "--force", "overwrites files", Kelpkit::isSwitch},
                                    {"-q", "--quiet", "prints nothing", Kelpkit::isSwitch}},
                                   {{"FILE", "the file", false}}};
    return Kelpkit::run(tool, argc, argv, start);
}
