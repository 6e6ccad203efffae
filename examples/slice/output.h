#ifndef SLICE_OUTPUT_H
#define SLICE_OUTPUT_H

#include <optional>
#include <string>
#include <string_view>

#include "../common/new_files.h"

namespace slice {

/// The destination of the lines: standard output, or a file that appears once all lines are written.
class Output {
public:
    /// \param name  the file; standard output if empty
    Output(const std::string& name, bool mayOverwrite);

    /// Whether the text is written byte for byte on every system. On Windows standard output converts line ends.
    bool isBinary() const;

    void write(std::string_view text);

    /// Completes the output. Call this after closing the inputs.
    void finish();

private:
    std::optional<common::NewFiles> file;
    bool started = false;
};

}  // namespace slice

#endif
