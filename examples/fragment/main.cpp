// fragment: cuts a file into numbered fragments and joins them again.

#include "fragment.h"

namespace {

void checkCombination(const Kelpkit::CommandLine& line) {
    const bool pieces = line.has("-n");
    if (line.has("-j") && (pieces || line.has("-s"))) {
        line.refuse(pieces ? "-n" : "-s", "cannot be combined with -j");
    }
    if (line.has("-j") && !line.has("-o")) {
        line.refuse("-j", "needs the name of the file to write, as in -o=FILE");
    }
    if (!line.has("-j") && pieces == line.has("-s")) {
        throw Kelpkit::UsageError(pieces ? "-n and -s cannot be combined" : "-n=PIECES, -s=BYTES or -j is missing");
    }
    if (!line.has("-j") && line.arguments().size() > 1) {
        throw Kelpkit::UsageError("\"" + line.arguments()[1] + "\": only one file can be cut at a time");
    }
}

int work(Kelpkit::CommandLine& line) {
    checkCombination(line);
    for (const std::string& name : line.arguments()) {
        Kelpkit::requireNoPattern(name);
    }
    Kelpkit::noteInterruptions();
    line.has("-j") ? fragment::join(line) : fragment::cut(line);
    return EXIT_SUCCESS;
}

}  // namespace

int main(int argc, char** argv) {
    const Kelpkit::Definition tool{
        "fragment",
        "Cuts a file into numbered fragments and joins them again.",
        {{"-n", "--number", "cuts FILE into PIECES fragments of the same size, give or take a byte",
          Kelpkit::takesValue},
         {"-s", "--size", "cuts FILE into fragments of BYTES bytes; the last one has the rest", Kelpkit::takesValue},
         {"-o", "--output",
          "begins the names of the fragments (without it: FILE.part_); with -j, names the joined file",
          Kelpkit::takesValue},
         {"-j", "--join", "joins fragments into one file, which -o names", Kelpkit::isSwitch},
         {"-f", "--force", "overwrites existing files", Kelpkit::isSwitch},
         {"-v", "--verbose", "names every fragment", Kelpkit::isSwitch},
         {"-h", "--help", "shows this help", Kelpkit::isSwitch}},
        {{"FILE", "the file to cut", false},
         {"FRAGMENT", "a fragment to join; if there is only one, all that follow it are joined too", true}},
        "-n=4 film.mp4  (and back: -j -o=film.mp4 film.mp4.part_0)",
        "(-n=PIECES | -s=BYTES) [-o=BASE] [-f] [-v] FILE  or  -j -o=FILE [-f] [-v] FRAGMENT...",
        "     Numbered fragments of large files",
        "",
        1};
    return Kelpkit::run(tool, argc, argv, work);
}
