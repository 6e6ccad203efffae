#ifndef COMMON_NEW_FILES_H
#define COMMON_NEW_FILES_H

#include <cstddef>
#include <string>
#include <vector>

#include "system_file.h"

namespace common {

/// Files that are written one after the other and appear under their names all together or not at all.
///
/// Until publish() a file is called NAME.unfinished, and only its owner may read it. An old file that is overwritten is
/// called NAME.replaced until all the new ones have their names. An object that goes before that, because an exception
/// passes through, removes its unfinished files and leaves everything else as it was. A process that is killed leaves
/// files with these names; the next run that needs one of the names refuses to start and says which.
///
/// Files of other programs under these names are not written to, followed or removed. Only NAME itself is replaced, and
/// only with `mayOverwrite`. Two objects whose first names are the same exclude each other, however many names follow: the
/// first unfinished file is created before the others and gets its name after them. Check what depends on other runs
/// after the first startNext().
class NewFiles {
public:
    /// Creates nothing, but looks at every name: a name in use is refused unless `mayOverwrite` is set, and a folder or a
    /// device always is. startNext() and publish() refuse names that come into use later.
    NewFiles(std::vector<std::string> names, bool mayOverwrite);
    ~NewFiles();
    NewFiles(const NewFiles&) = delete;
    NewFiles& operator=(const NewFiles&) = delete;
    NewFiles(NewFiles&&) = delete;
    NewFiles& operator=(NewFiles&&) = delete;

    /// Finishes the current file and creates the next one.
    void startNext();
    /// Appends to the current file.
    void write(const char* data, std::size_t count);
    /// Finishes the last file and gives all of them their names. With `mayOverwrite` all bytes are on the disk before an old
    /// file is removed. Close the inputs first: Windows renames no open file.
    void publish();

private:
    /// What has happened to one of the names.
    struct State {
        FileIdentity identity;     ///< of the unfinished file
        bool oldIsMoved = false;   ///< NAME is now NAME.replaced
        bool isPublished = false;  ///< NAME.unfinished is now NAME
    };

    void flush();
    void finishCurrent();
    void giveNames();
    void giveName(const std::string& name, State& state);
    void removeReplaced();
    std::string takeBack();
    void takeBack(const std::string& name, State& state);

    std::vector<std::string> names;
    std::vector<State> states;  ///< of the files that are created, the first of the names
    bool overwrite;
    CreatedFile current;
    std::string buffer;    ///< bytes of the current file that are not yet written
    bool settled = false;  ///< published or taken back
};

}  // namespace common

#endif
