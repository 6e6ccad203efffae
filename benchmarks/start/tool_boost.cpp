#include <boost/program_options.hpp>

#include "settings.h"

namespace po = boost::program_options;

int main(int argc, char** argv) {
    Settings settings;
    po::options_description options("Shows a start");
    options.add_options()("output,o", po::value(&settings.output), "output file")(
        "number,n", po::value(&settings.number), "how many")("ratio,r", po::value(&settings.ratio), "scale")(
        "width,w", po::value(&settings.width), "columns of the output")("threads,t", po::value(&settings.threads),
                                                                        "threads at work")(
        "separator,s", po::value(&settings.separator), "between two fields")("columns,c", po::value(&settings.columns),
                                                                             "columns to print")(
        "label,l", po::value(&settings.label), "title of the output")("force,f", po::bool_switch(&settings.force),
                                                                      "overwrites files")(
        "quiet,q", po::bool_switch(&settings.quiet), "prints nothing")("file", po::value(&settings.file), "input file");
    po::positional_options_description positionals;
    positionals.add("file", 1);
    po::variables_map values;
    po::store(po::command_line_parser(argc, argv).options(options).positional(positionals).run(), values);
    po::notify(values);
    return checked(settings);
}
