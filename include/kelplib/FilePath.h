#ifndef KELPLIB_FILEPATH_H
#define KELPLIB_FILEPATH_H

/// \file
/// A file path as a tool's user typed it, made absolute and cut into folder and name.

#include <kelplib/Export.h>

#include <string>

/// A folder, ending in its delimiter, and a file name. The whole path is the two texts one behind the other; nothing is
/// inserted between them and nothing is normalised: ".", "..", doubled and mixed delimiters stay.
///
/// The delimiter is "/" or "\", chosen by looking at the text, so one program handles the paths of both systems. Where a
/// comment says current directory, it is what the system's call gives in a buffer of 260 bytes: a longer or deleted
/// directory counts as an empty text.
///
/// A plain value; throws only what it names, std::bad_alloc and std::length_error. One thread at a time may use it, several
/// may read it. The current directory is the whole process's: relative texts are completed while no thread changes it.
class KELP_API FilePath {
public:
    /// Folder and name are empty.
    FilePath() = default;

    /// Makes `text` absolute and cuts it at its last delimiter.
    /// An absolute text keeps its delimiters and is cut at the last "/" if it has one, otherwise at the last "\"; without
    /// any ("C:file") both parts stay empty. A relative text takes the delimiter of the current directory throughout, and
    /// stands behind the directory and one more delimiter. Without a current directory the name is the text as it stands.
    /// \throws std::out_of_range  for a text of one character other than "/"
    FilePath(const std::string& text);

    /// Cuts `text` behind its last `delim`. Without one the folder becomes empty and the name the whole text.
    void fromString(const std::string& text, char delim);

    /// The folder becomes the current directory, without a delimiter at its end; the name becomes `text`. The whole path
    /// is then the directory directly followed by the name.
    void fromNameInCurrentDir(const std::string& text);

    /// "/" or "\", whichever the folder holds; otherwise whichever the current directory holds; otherwise "/". "/" comes
    /// first where both occur.
    std::string getDelim() const;

    /// Folder and name together.
    std::string filePath() const;

    /// The folder.
    std::string getPath() const;

    /// The name, with its extension.
    std::string getName() const;

    /// The name up to its last dot; the whole name when it has none.
    std::string prefix() const;

    /// What follows the last dot of the name; empty when it has none.
    std::string extension() const;

    /// The name becomes what follows the last delimiter of either kind in `text`. The folder stays.
    void setName(const std::string& text);

    /// The folder becomes `text` as it stands, when it is absolute. It should end in a delimiter.
    /// \returns false, with nothing changed, when `text` is empty or relative
    /// \throws std::out_of_range  for a text of one character other than "/"
    bool setPath(const std::string& text);

    /// The current directory; empty when there is none that fits.
    static std::string getCurrentDir();

    /// Whether `text` begins with "/" or has ":" as its second character. The empty text does not.
    /// \throws std::out_of_range  for a text of one character other than "/"
    static bool isAbsoluteFilePath(const std::string& text);

private:
    std::string path;
    std::string name;
};

#endif
