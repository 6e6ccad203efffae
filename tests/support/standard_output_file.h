#ifndef KELPLIB_TESTS_STANDARD_OUTPUT_FILE_H
#define KELPLIB_TESTS_STANDARD_OUTPUT_FILE_H

#include <cstddef>
#include <filesystem>
#include <string>

/// Sends standard output into a file while it lives. It sees what C streams write, unlike CapturedOutput, and only what has
/// left their buffers: text that nobody flushed has not arrived.
class StandardOutputFile {
public:
    StandardOutputFile();
    ~StandardOutputFile();
    StandardOutputFile(const StandardOutputFile&) = delete;
    StandardOutputFile& operator=(const StandardOutputFile&) = delete;

    /// The bytes that have arrived since the last call, as they were written.
    std::string arrived();

    /// From now on whatever is written fails when it is flushed, as on a full disk.
    void fail();

private:
    /// Lets standard output lead to the file, opened in a mode of fopen's. False when it cannot.
    bool lead(const char* mode) const;

    std::filesystem::path path;
    int original;
    std::size_t seen = 0;
};

#endif
