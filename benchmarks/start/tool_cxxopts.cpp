#include <cxxopts.hpp>

#include "settings.h"

int main(int argc, char** argv) {
    cxxopts::Options options("tool", "Shows a start");
    Settings settings;
    options.add_options()("o,output", "output file", cxxopts::value(settings.output))(
        "n,number", "how many", cxxopts::value(settings.number))("r,ratio", "scale", cxxopts::value(settings.ratio))(
        "w,width", "columns of the output", cxxopts::value(settings.width))("t,threads", "threads at work",
                                                                            cxxopts::value(settings.threads))(
        "s,separator", "between two fields", cxxopts::value(settings.separator))("c,columns", "columns to print",
                                                                                 cxxopts::value(settings.columns))(
        "l,label", "title of the output", cxxopts::value(settings.label))("f,force", "overwrites files",
                                                                          cxxopts::value(settings.force))(
        "q,quiet", "prints nothing", cxxopts::value(settings.quiet))("file", "input file",
                                                                     cxxopts::value(settings.file));
    options.parse_positional("file");
    options.parse(argc, argv);
    return checked(settings);
}
