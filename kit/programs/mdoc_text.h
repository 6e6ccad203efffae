#ifndef KELPKIT_PROGRAMS_MDOC_TEXT_H
#define KELPKIT_PROGRAMS_MDOC_TEXT_H

#include <string>
#include <vector>

/// \file
/// Texts of a tool in mdoc, the language of man pages. Nothing in them is a macro. White space becomes one blank or a line end.

namespace Kelpkit::programs {

/// Returns the words of a text.
std::vector<std::string> mdocWords(const std::string& text);

/// Returns a text as lines to be filled, each with its line end. They have at most 80 bytes, but a longer word has a line of its
/// own. A sentence begins a line.
std::string mdocText(const std::string& text);

/// Returns a text as lines of a literal display, each with its line end. They keep their blanks, except the last ones.
std::string mdocLiteral(const std::string& text);

/// Returns a text as one argument of a macro.
std::string mdocArgument(const std::string& text);

/// Returns the first sentence of a text, without its full stop, as the arguments of the macro Nd; empty if there is none. A
/// sentence ends with ".", "!" or "?" before a word with a capital letter. A long one is cut, also within a word: lexgrog prints
/// what lets a word break.
std::string mdocSummary(const std::string& text);

}  // namespace Kelpkit::programs

#endif
