#ifndef KELPKIT_PROGRAMS_ROFF_QUOTING_H
#define KELPKIT_PROGRAMS_ROFF_QUOTING_H

#include <cstddef>
#include <string>

/// \file
/// Texts for roff, the language below mdoc. No character has a meaning for it, except a full stop at the beginning of a line.
/// Characters above ASCII stay UTF-8: lexgrog, which reads the descriptions for whatis, knows no escape sequences for them. A
/// control character, and a byte that is not UTF-8, is shown as \\xNN.

namespace Kelpkit::programs {

/// Returns a text without line ends for roff.
std::string roffText(const std::string& text);

/// Returns a word for roff. A line may break within a word of more than `longest` columns; groff warns about a word longer than a
/// line.
std::string roffWord(const std::string& word, std::size_t longest);

/// Returns the beginning of a text for roff that takes about `columns` on a console.
std::string roffStart(const std::string& text, std::size_t columns);

/// Returns how many bytes of a line mandoc takes a text for: it replaces each character above ASCII by up to 10 bytes.
std::size_t roffLength(const std::string& text);

}  // namespace Kelpkit::programs

#endif
