#ifndef KELPKIT_PROGRAMS_MAN_SECTIONS_H
#define KELPKIT_PROGRAMS_MAN_SECTIONS_H

#include <string>
#include <vector>

namespace Kelpkit::programs {

/// A section of a man page.
struct ManSection {
    std::string title;  ///< in capital letters
    std::string text;   ///< in mdoc: the lines below the heading, each with its line end
};

/// Inserts further sections into a page and puts all into the conventional order of man pages. A section replaces that of the
/// same title; those with a title of their own come before EXAMPLES, in their order.
/// \param page      its sections, in the conventional order
/// \param sections  lines of mdoc; each section begins with ".Sh TITLE"; lines before the first one are left out
void insertManSections(std::vector<ManSection>& page, const std::string& sections);

/// Returns a text for insertManSections, with LF for its line ends.
/// \throws ScreenError  "line 7: expected ..." for control characters, a text that is not UTF-8, and anything but comments before
///                      the first section, a heading without a title, and a second section of the same title
std::string checkedManSections(const std::string& bytes);

/// Reads sections for insertManSections from a file.
/// \throws std::runtime_error  "notes.mdoc: not man page sections: line 7: expected ..."; for more than 1,000,000 bytes; if the
///                             file cannot be read
std::string readManSections(const std::string& file);

}  // namespace Kelpkit::programs

#endif
