#ifndef KELPLIB_BENCHMARKS_SETTINGS_H
#define KELPLIB_BENCHMARKS_SETTINGS_H

#include <string>

/// The settings that the tool with ten options reads from its command line, the same for every library.
struct Settings {
    std::string output = "out.txt";
    int number = 1;
    double ratio = 1;
    int width = 80;
    int threads = 1;
    std::string separator = ",";
    std::string columns;
    std::string label;
    bool force = false;
    bool quiet = false;
    std::string file;
};

/// Returns the exit status: 0 if output, number, ratio and file have the values of the measured command line and everything
/// else its default.
inline int checked(const Settings& settings) {
    const bool given = settings.output == "a.txt" && settings.number == 5 && settings.ratio == 2.5;
    const bool kept = settings.width == 80 && settings.threads == 1 && settings.separator == "," &&
                      settings.columns.empty() && settings.label.empty() && !settings.force && !settings.quiet;
    return given && kept && settings.file == "in.txt" ? 0 : 1;
}

#endif
