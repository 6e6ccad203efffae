#include "output.h"

#include <cerrno>
#include <iostream>

#include "../common/files.h"

namespace slice {

Output::Output(const std::string& name, bool mayOverwrite) {
    if (!name.empty()) {
        file.emplace(std::vector<std::string>{name}, mayOverwrite);
    }
}

bool Output::isBinary() const {
    return file.has_value();
}

void Output::write(std::string_view text) {
    if (file) {
        if (!started) {
            file->startNext();
            started = true;
        }
        file->write(text.data(), text.size());
        return;
    }
    errno = 0;
    if (!std::cout.write(text.data(), static_cast<std::streamsize>(text.size()))) {
        common::failOnStream("cannot write standard output");
    }
}

void Output::finish() {
    if (file) {
        file->publish();
        return;
    }
    errno = 0;
    if (!std::cout.flush()) {
        common::failOnStream("cannot write standard output");
    }
}

}  // namespace slice
