#ifndef COMMON_NEW_FILES_H
#define COMMON_NEW_FILES_H

#include <cstddef>
#include <fstream>
#include <string>
#include <vector>

namespace common {

/// Files that are written one after the other and appear under their names all together or not at all.
///
/// Until publish() each is called NAME.unfinished. An object that goes before that, because an exception passes
/// through, takes its unfinished files along and leaves everything else as it was.
class NewFiles {
public:
    /// Nothing is created yet, but every name is looked at: a name in use is refused unless `mayOverwrite` is set, and a
    /// folder or a device always is. Names that come into use later are refused when their turn comes.
    NewFiles(std::vector<std::string> names, bool mayOverwrite);
    ~NewFiles();
    NewFiles(const NewFiles&) = delete;
    NewFiles& operator=(const NewFiles&) = delete;
    NewFiles(NewFiles&&) = delete;
    NewFiles& operator=(NewFiles&&) = delete;

    /// Ends the file before and creates the next one.
    void startNext();
    /// Appends to the file started last.
    void write(const char* data, std::streamsize count);
    /// Ends the last file and gives all of them their names. Inputs have to be closed by now: one of them may be a file
    /// that is overwritten, and some systems move no open file.
    void publish();

private:
    void finishCurrent();
    void giveNames();
    void removeReplaced();
    std::string takeBack();

    std::vector<std::string> names;
    bool overwrite;
    std::ofstream current;
    std::size_t created = 0;  ///< the first so many files have an unfinished one
    std::size_t named = 0;    ///< the first so many files have their names
    bool settled = false;     ///< published or taken back
};

/// A file that an interrupted run has left beside the one of this name; empty when there is none.
std::string leftover(const std::string& name);

}  // namespace common

#endif
