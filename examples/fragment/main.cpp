// fragment: cuts a file into numbered fragments and joins them again.

#include <kelplib/CommandLineTool.h>
#include <kelplib/KelpProgress.h>

#include <cstdlib>
#include <exception>
#include <iostream>
#include <new>
#include <stdexcept>

#include "cut.h"
#include "interruption.h"
#include "join.h"
#include "request.h"

namespace {

void run(int argc, char** argv) {
    std::vector<Kelp::Option> options = fragment::acceptedOptions();
    std::vector<Kelp::Argument> arguments{
        {"FILE", "the file to cut", false},
        {"FRAGMENT", "a fragment to join; one alone stands for itself and all that follow it", true},
    };
    // Help, unknown flags and a missing file end the program in here.
    CommandLineTool tool(argc, argv, "Cuts a file into numbered fragments and joins them again.",
                         "(-n=PIECES | -s=BYTES) [-o=BASE] [-f] [-v] FILE  or  -j -o=FILE [-f] [-v] FRAGMENT...",
                         "-n=4 film.mp4  (and back: -j -o=film.mp4 film.mp4.part_0)",
                         "     Numbered fragments of large files", options, arguments);

    // The first file that is opened would take the place of a closed standard output, and get its text.
    if (KELP_rewind_cursor(0) == -1) {
        throw std::runtime_error("standard output is closed");
    }
    fragment::noteInterruptions();
    Kelp::OptionReader reader(argc, argv);
    const fragment::Request request = fragment::readRequest(reader, tool);
    if (request.join) {
        fragment::join(request, tool);
    } else {
        fragment::cut(request, tool);
    }
    if (!std::cout.flush()) {
        throw std::runtime_error("all files are written, but standard output cannot be");
    }
}

int report(const char* problem) {
    std::cerr << "fragment: " << problem << std::endl;
    return EXIT_FAILURE;
}

}  // namespace

int main(int argc, char** argv) {
    try {
        run(argc, argv);
        return EXIT_SUCCESS;
    } catch (const fragment::Interruption& interruption) {
        report("interrupted");
        fragment::endBy(interruption);
    } catch (const std::out_of_range&) {
        // The help screen shows the tool's name, and the library finds none in a path such as C:\ab.
        return report("the program path holds no name of at least four letters");
    } catch (const std::bad_alloc&) {
        return report("out of memory");
    } catch (const std::exception& error) {
        return report(error.what());
    }
}
