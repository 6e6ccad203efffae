#ifndef FRAGMENT_NEW_FILES_H
#define FRAGMENT_NEW_FILES_H

#include <cstddef>
#include <fstream>
#include <string>
#include <vector>

namespace fragment {

/// Files that are written one after the other and appear under their names all together or not at all.
///
/// Until publish() each is called NAME.unfinished. An object that goes before that, because an exception passes
/// through, takes its unfinished files along and leaves everything else as it was.
class NewFiles {
public:
    /// Nothing is created yet, but every name is looked at: a name in use is refused unless `overwrite` is set, and a
    /// folder or a device always is.
    NewFiles(std::vector<std::string> names, bool overwrite);
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
    void takeBack();

    std::vector<std::string> names;
    std::ofstream current;
    std::size_t created = 0;  ///< the first so many files have an unfinished one
    std::size_t named = 0;    ///< the first so many files have their names
    bool published = false;
};

}  // namespace fragment

#endif
