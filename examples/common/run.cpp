#include "run.h"

#include <kelplib/KelpProgress.h>

#include <cstdlib>
#include <exception>
#include <iostream>
#include <new>
#include <stdexcept>

#include "interruption.h"
#include "printable.h"
#include "utf8_console.h"

namespace common {

namespace {

int report(const std::string& name, const char* problem) {
    std::cerr << name << ": " << printable(problem) << std::endl;
    return EXIT_FAILURE;
}

}  // namespace

int runTool(const std::string& name, int (*work)(int, char**), int argc, char** argv) {
    common_use_utf8_console();
    // If standard output were closed, the first file opened would take its descriptor and receive its text.
    if (KELP_rewind_cursor(0) == -1) {
        return report(name, "standard output is closed");
    }
    try {
        return work(argc, argv);
    } catch (const Interruption& interruption) {
        report(name, "interrupted");
        endBy(interruption);
    } catch (const std::out_of_range&) {
        // The library finds no tool name in a path such as C:\ab.
        return report(name, "the program path holds no name of at least four letters");
    } catch (const std::bad_alloc&) {
        return report(name, "out of memory");
    } catch (const std::exception& error) {
        return report(name, error.what());
    }
}

}  // namespace common
