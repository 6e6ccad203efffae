#ifndef KELPLIB_TESTS_STANDARD_OUTPUT_FILE_H
#define KELPLIB_TESTS_STANDARD_OUTPUT_FILE_H

#include <cstddef>
#include <filesystem>
#include <string>

/// Redirects standard output to a file during its lifetime. Unlike CapturedOutput it receives the output of C streams, once
/// they flush it.
class StandardOutputFile {
public:
    StandardOutputFile();
    ~StandardOutputFile();
    StandardOutputFile(const StandardOutputFile&) = delete;
    StandardOutputFile& operator=(const StandardOutputFile&) = delete;

    /// Returns the bytes flushed since the last call.
    std::string arrived();

    /// Makes every later flush fail, as on a full disk.
    void fail();

private:
    /// Redirects standard output to the file, opened with a mode of fopen. Returns false on failure.
    bool redirect(const char* mode) const;

    std::filesystem::path path;
    int original;
    std::size_t seen = 0;
};

#endif
