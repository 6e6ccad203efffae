#include <kelpkit/NewFiles.h>

#include <utility>

#include "output_buffers.h"
#include "unfinished_files.h"

namespace Kelpkit {

NewFiles::NewFiles(std::vector<std::string> names, bool mayOverwrite, std::string advice)
    : files(std::make_unique<UnfinishedFiles>(std::move(names), mayOverwrite, std::move(advice))) {}

NewFiles::~NewFiles() = default;

void NewFiles::startNext() {
    files->startNext();
}

void NewFiles::write(const char* data, std::size_t count) {
    files->write(data, count);
}

void NewFiles::publish() {
    files->publish();
}

namespace {

std::unique_ptr<OutputBuffer> bufferFor(std::optional<std::string> name, bool mayOverwrite, std::string advice) {
    if (name) {
        return std::make_unique<FileBuffer>(*std::move(name), mayOverwrite, std::move(advice));
    }
    return std::make_unique<StandardOutputBuffer>();
}

}  // namespace

NewFile::NewFile(std::optional<std::string> name, bool mayOverwrite, std::string advice)
    : output(nullptr), toFile(name.has_value()) {
    buffer = bufferFor(std::move(name), mayOverwrite, std::move(advice));
    output.rdbuf(buffer.get());
    output.exceptions(std::ios::badbit);
}

NewFile::~NewFile() = default;

std::ostream& NewFile::stream() {
    return output;
}

bool NewFile::isFile() const {
    return toFile;
}

void NewFile::publish() {
    buffer->publish(!output.fail());
}

}  // namespace Kelpkit
