#ifndef KELPKIT_UNFINISHED_FILES_H
#define KELPKIT_UNFINISHED_FILES_H

#include <cstddef>
#include <string>
#include <vector>

#include "forced_end.h"
#include "system_file.h"

namespace Kelpkit {

/// What NewFiles is made of; see there.
class UnfinishedFiles {
public:
    UnfinishedFiles(std::vector<std::string> names, bool mayOverwrite, std::string advice);
    ~UnfinishedFiles();
    UnfinishedFiles(const UnfinishedFiles&) = delete;
    UnfinishedFiles& operator=(const UnfinishedFiles&) = delete;
    UnfinishedFiles(UnfinishedFiles&&) = delete;
    UnfinishedFiles& operator=(UnfinishedFiles&&) = delete;

    void startNext();
    void write(const char* data, std::size_t count);
    void publish();

    /// Throws the first failed write again, if there was one.
    void requireIntact() const;

private:
    /// The state of one of the names.
    struct State {
        FileIdentity identity;     ///< of the unfinished file
        bool oldIsMoved = false;   ///< NAME is now NAME.replaced
        FileIdentity old{};        ///< of the old file that was moved
        bool isPublished = false;  ///< NAME.unfinished is now NAME
    };

    void requireUsable(const std::string& name) const;
    [[noreturn]] void refuseInUse(const std::string& name) const;
    [[noreturn]] void failToWrite(std::error_code reason);
    void flush();
    void finishCurrent();
    void giveNames();
    void giveName(const std::string& name, State& state);
    void moveOldAway(const std::string& name, State& state) const;
    void removeReplaced() const;
    std::string takeBack();
    void takeBack(const std::string& name, State& state);

    std::vector<std::string> names;
    std::vector<State> states;  ///< of the files created so far, in the order of the names
    FilesToRemove toRemove;
    bool overwrite;
    std::string advice;
    CreatedFile current;
    std::string buffer;    ///< bytes of the current file that are not yet written
    std::string failure;   ///< the message of the first failed write
    bool settled = false;  ///< published or taken back
};

}  // namespace Kelpkit

#endif
