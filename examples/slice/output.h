#ifndef SLICE_OUTPUT_H
#define SLICE_OUTPUT_H

#include <optional>
#include <string>
#include <string_view>

#include "../common/new_files.h"

namespace slice {

/// Where the lines go: a file that is there when all of them are, or standard output.
class Output {
public:
    /// \param name  empty: standard output
    Output(const std::string& name, bool mayOverwrite);

    /// Whether what is written arrives byte for byte on every system. On Windows standard output makes its own line ends.
    bool isBinary() const;

    void write(std::string_view text);

    /// Call it when everything is written and the inputs are closed.
    void finish();

private:
    std::optional<common::NewFiles> file;
    bool started = false;
};

}  // namespace slice

#endif
