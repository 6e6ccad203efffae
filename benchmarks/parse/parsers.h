#ifndef KELPLIB_BENCHMARKS_PARSERS_H
#define KELPLIB_BENCHMARKS_PARSERS_H

#include <kelplib/Kelp.h>

#include <cstddef>
#include <vector>

#include "../support/command_line.h"

/// The same work by kelplib and other libraries: reading the values of options 0 to `options` - 1 and the positional arguments.
/// A table or description that a library needs before it parses is built outside these functions, but an object that itself
/// parses is built and destroyed inside them.
namespace parsers {

std::vector<Kelp::Option> kelplibOptions(std::size_t options);

Answer kelplib(const CommandLine& line, std::vector<Kelp::Option>& options);
Answer getoptLong(const CommandLine& line, std::size_t options);
Answer cli11(const CommandLine& line, std::size_t options);
Answer cxxopts(const CommandLine& line, std::size_t options);
Answer boostProgramOptions(const CommandLine& line, std::size_t options);
Answer tclap(const CommandLine& line, std::size_t options);
/// The flags of these two are global variables of the program, KELPLIB_BENCHMARK_OPTIONS of them.
Answer gflags(const CommandLine& line);
Answer abseil(const CommandLine& line);

}  // namespace parsers

#endif
