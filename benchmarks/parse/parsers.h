#ifndef KELPLIB_BENCHMARKS_PARSERS_H
#define KELPLIB_BENCHMARKS_PARSERS_H

#include <kelplib/Kelp.h>

#include <cstddef>
#include <vector>

#include "../support/command_line.h"

/// The same job done by kelplib and by other libraries: the values of options 0 to `options` - 1 and the positional arguments.
/// What a library's user builds before the command line is looked at (a table, a description) is built before as well;
/// where that is the very object that parses, it is built and destroyed here.
namespace parsers {

std::vector<Kelp::Option> kelplibOptions(std::size_t options);

Answer kelplib(const CommandLine& line, std::vector<Kelp::Option>& options);
Answer getoptLong(const CommandLine& line, std::size_t options);
Answer cli11(const CommandLine& line, std::size_t options);
Answer cxxopts(const CommandLine& line, std::size_t options);
Answer boostProgramOptions(const CommandLine& line, std::size_t options);
Answer tclap(const CommandLine& line, std::size_t options);
/// The flags of these two are the program's: as many as KELPLIB_BENCHMARK_OPTIONS says.
Answer gflags(const CommandLine& line);
Answer abseil(const CommandLine& line);

}  // namespace parsers

#endif
