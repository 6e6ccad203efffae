#include <tclap/CmdLine.h>

#include "settings.h"

int main(int argc, char** argv) {
    Settings settings;
    TCLAP::CmdLine line("Shows a start", '=', "1.0");
    TCLAP::ValueArg<std::string> output("o", "output", "output file", false, settings.output, "file", line);
    TCLAP::ValueArg<int> number("n", "number", "how many", false, settings.number, "count", line);
    TCLAP::ValueArg<double> ratio("r", "ratio", "scale", false, settings.ratio, "factor", line);
    TCLAP::ValueArg<int> width("w", "width", "columns of the output", false, settings.width, "count", line);
    TCLAP::ValueArg<int> threads("t", "threads", "threads at work", false, settings.threads, "count", line);
    TCLAP::ValueArg<std::string> separator("s", "separator", "between two fields", false, settings.separator, "text",
                                           line);
    TCLAP::ValueArg<std::string> columns("c", "columns", "columns to print", false, settings.columns, "list", line);
    TCLAP::ValueArg<std::string> label("l", "label", "title of the output", false, settings.label, "text", line);
    TCLAP::SwitchArg force("f", "force", "overwrites files", line);
    TCLAP::SwitchArg quiet("q", "quiet", "prints nothing", line);
    TCLAP::UnlabeledValueArg<std::string> file("file", "input file", false, "", "file", line);
    line.parse(argc, argv);
    settings = {output.getValue(),  number.getValue(),    ratio.getValue(),   width.getValue(),
                threads.getValue(), separator.getValue(), columns.getValue(), label.getValue(),
                force.getValue(),   quiet.getValue(),     file.getValue()};
    return checked(settings);
}
