#ifndef KELPKIT_FORCED_END_H
#define KELPKIT_FORCED_END_H

#include <kelpkit/Files.h>

#include <filesystem>
#include <vector>

/// \file
/// A tool that does not react to a signal, for example because it waits for input, is ended by force. No object is destroyed
/// then, so that the unfinished files have to be removed here.

namespace Kelpkit {

/// While an object exists, the process is not ended by force. May be nested.
class NoForcedEnd {
public:
    NoForcedEnd();
    ~NoForcedEnd();
    NoForcedEnd(const NoForcedEnd&) = delete;
    NoForcedEnd& operator=(const NoForcedEnd&) = delete;
    NoForcedEnd(NoForcedEnd&&) = delete;
    NoForcedEnd& operator=(NoForcedEnd&&) = delete;
};

/// Files that a forced end removes.
class FilesToRemove {
public:
    FilesToRemove();
    ~FilesToRemove();
    FilesToRemove(const FilesToRemove&) = delete;
    FilesToRemove& operator=(const FilesToRemove&) = delete;
    FilesToRemove(FilesToRemove&&) = delete;
    FilesToRemove& operator=(FilesToRemove&&) = delete;

    /// Adds a file. It is removed only if the name still belongs to it.
    void add(std::filesystem::path path, FileIdentity identity);
    /// Keeps all files from now on.
    void clear();

private:
    friend bool removeFilesByForce();

    struct File {
        std::filesystem::path path;
        FileIdentity identity;
    };

    std::vector<File> files;
    FilesToRemove* next;
};

/// Removes the files of all objects, from a signal handler. Everything waits that would change them.
/// \returns whether the process may be ended: false while a NoForcedEnd exists
bool removeFilesByForce();

}  // namespace Kelpkit

#endif
