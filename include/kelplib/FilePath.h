#ifndef KELPLIB_FILEPATH_H
#define KELPLIB_FILEPATH_H

/// \file
/// A file path as the user of a tool typed it, made absolute and split into folder and name.

#include <kelplib/Export.h>

#include <string>

/// A file path in two parts: a folder, normally with a trailing delimiter, and a name. If the current directory is
/// /home/ann:
///
///     FilePath(text)           getPath()            getName()         prefix()      extension()
///     "notes/letter.old.txt"   "/home/ann/notes/"   "letter.old.txt"  "letter.old"  "txt"
///     "../README"              "/home/ann/../"      "README"          "README"      ""
///     "/tmp/.profile"          "/tmp/"              ".profile"        ""            "profile"
///     "notes\\a.txt"           "/home/ann/notes/"   "a.txt"           "a"           "txt"
///     "C:\\texts\\a.txt"       "C:\\texts\\"        "a.txt"           "a"           "txt"
///     "C:a.txt"                ""                   ""                ""            ""
///
/// \code
/// FilePath input("notes/letter.old.txt");
/// const std::string output = input.getPath() + input.prefix() + ".html";  // "/home/ann/notes/letter.old.html"
/// \endcode
///
/// The whole path is the folder followed by the name, with nothing inserted between them. Nothing is normalised: ".",
/// "..", repeated and mixed delimiters stay as they are.
///
/// The delimiter is a slash or a backslash, taken from the text itself, so one program handles the paths of both systems.
///
/// The current directory is read into a buffer of 260 bytes. A longer or deleted directory counts as an empty text.
///
/// Members throw only what their comments name, std::bad_alloc and std::length_error. Several threads may read one object;
/// changing it needs exclusive access. No thread may change the process's current directory while a member reads it.
class KELP_API FilePath {
public:
    /// Leaves folder and name empty.
    FilePath() = default;

    /// Makes `text` absolute and splits it after its last delimiter.
    ///
    /// An absolute path keeps its delimiters. It is split at the last slash, or at the last backslash if it has no slash;
    /// without either, folder and name stay empty.
    ///
    /// A relative path is appended to the current directory and one more delimiter. All its delimiters become the one that
    /// the current directory uses. Without a current directory the folder is empty and the name is `text`.
    /// \throws std::out_of_range  if `text` is a single character other than "/"
    FilePath(const std::string& text);

    /// Splits `text` after its last `delim`. If there is none, the folder becomes empty and the name all of `text`.
    void fromString(const std::string& text, char delim);

    /// Sets the folder to the current directory, without a trailing delimiter, and the name to `text`. filePath() then has
    /// no delimiter between the two.
    void fromNameInCurrentDir(const std::string& text);

    /// Returns the delimiter of the folder. If the folder has none, returns that of the current directory, or "/" if that
    /// has none either. Where slash and backslash both occur, the slash counts.
    std::string getDelim() const;

    /// Returns the folder followed by the name.
    std::string filePath() const;

    /// Returns the folder.
    std::string getPath() const;

    /// Returns the name with its extension.
    std::string getName() const;

    /// Returns the name up to its last dot, without the dot; the whole name if it has no dot.
    std::string prefix() const;

    /// Returns the part of the name after its last dot; an empty text if it has no dot.
    std::string extension() const;

    /// Sets the name to the part of `text` after its last slash or backslash. Leaves the folder unchanged.
    void setName(const std::string& text);

    /// Sets the folder to `text` unchanged if `text` is absolute. `text` should end in a delimiter.
    /// \returns false, leaving the folder unchanged, if `text` is empty or relative
    /// \throws std::out_of_range  if `text` is a single character other than "/"
    bool setPath(const std::string& text);

    /// Returns the current directory; an empty text if it has been deleted or does not fit the buffer.
    static std::string getCurrentDir();

    /// Returns whether `text` begins with "/" or has ":" as its second character. An empty text is not absolute.
    /// \throws std::out_of_range  if `text` is a single character other than "/"
    static bool isAbsoluteFilePath(const std::string& text);

private:
    std::string path;
    std::string name;
};

#endif
