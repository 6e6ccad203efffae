#ifndef KELPKIT_PROGRAMS_EMPTY_FOLDER_H
#define KELPKIT_PROGRAMS_EMPTY_FOLDER_H

#include <filesystem>

namespace Kelpkit::programs {

/// A new empty folder for temporary files that only this user can enter. It is removed with its content. Its name consists of
/// ASCII letters, digits and "-".
class EmptyFolder {
public:
    /// \throws std::runtime_error  if it cannot be created
    EmptyFolder();
    ~EmptyFolder();
    EmptyFolder(const EmptyFolder&) = delete;
    EmptyFolder& operator=(const EmptyFolder&) = delete;
    EmptyFolder(EmptyFolder&&) = delete;
    EmptyFolder& operator=(EmptyFolder&&) = delete;

    /// Returns its absolute path.
    const std::filesystem::path& path() const;

private:
    std::filesystem::path folder;
};

}  // namespace Kelpkit::programs

#endif
