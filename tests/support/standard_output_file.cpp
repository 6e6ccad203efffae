#include "standard_output_file.h"

#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <stdexcept>

StandardOutputFile::StandardOutputFile()
    : path(std::filesystem::temp_directory_path() / ("kelplib-output-" + std::to_string(getpid()))),
      original(dup(STDOUT_FILENO)) {
    if (std::fflush(stdout) != 0 || !redirect("wb")) {
        throw std::runtime_error("standard output cannot be redirected to " + path.string());
    }
}

StandardOutputFile::~StandardOutputFile() {
    // Text still in the buffer after a failed write must not appear after the test.
    redirect("ab");
    (void)std::fflush(stdout);
    dup2(original, STDOUT_FILENO);
    close(original);
    std::clearerr(stdout);
    std::error_code ignored;
    std::filesystem::remove(path, ignored);
}

std::string StandardOutputFile::arrived() {
    std::ifstream file(path, std::ios::binary);
    file.seekg(static_cast<std::streamoff>(seen));
    std::string text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    seen += text.size();
    return text;
}

void StandardOutputFile::fail() {
    if (std::fflush(stdout) != 0 || !redirect("rb")) {
        throw std::runtime_error("standard output still works");
    }
}

bool StandardOutputFile::redirect(const char* mode) const {
    std::FILE* const file = std::fopen(path.string().c_str(), mode);
    if (file == nullptr) {
        return false;
    }
    const bool done = dup2(fileno(file), STDOUT_FILENO) != -1;
    return std::fclose(file) == 0 && done;
}
