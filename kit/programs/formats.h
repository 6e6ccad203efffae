#ifndef KELPKIT_PROGRAMS_FORMATS_H
#define KELPKIT_PROGRAMS_FORMATS_H

#include <string>
#include <vector>

#include "described_tool.h"

/// \file
/// The formats of kelp-doc: each a pure function from a described tool to the text of a file. Equal tools give equal texts.

namespace Kelpkit::programs {

/// Returns a completion script. It defines its function, registers it and runs nothing else; no text of the tool is executed.
/// \name Completions
/// @{
std::string bashCompletion(const DescribedTool& tool);
std::string zshCompletion(const DescribedTool& tool);
std::string fishCompletion(const DescribedTool& tool);
/// @}

/// Returns a man page of section 1 in mdoc and UTF-8. No text of the tool is a macro or a request. It contains all texts except the
/// banner; NAME has the first sentence of the description, without its full stop.
/// \param date      "November 22, 2026"
/// \param sections  further sections in mdoc, as insertManSections of man_sections.h takes them; may be empty
std::string manPage(const DescribedTool& tool, const std::string& date, const std::string& sections);

/// Returns a page in Markdown (CommonMark). No text of the tool has a meaning for Markdown.
std::string markdown(const DescribedTool& tool);

/// Returns the description as JSON in UTF-8, for programs that make other formats. All members are always present:
///
///     {
///       "format": 1,
///       "name": "firstlines",
///       "banner": "",                   the line below the name in the banner
///       "description": "Shows the first lines of a text.",
///       "usage": "[OPTIONS] FILE",      after the name
///       "example": "-n=3 notes.txt",    after the name
///       "options": [                    in the order of the screen
///         {"short": "-n", "long": "--number", "text": "how many lines", "takes": "text", "value": "LINES", "choices": []}
///       ],
///       "arguments": [
///         {"name": "FILE", "text": "the text to show", "repeated": false, "optional": false}
///       ]
///     }
///
/// "takes" is "unknown", "nothing", "text", "file", "folder" or "choice", as in Takes; "value" is the name of the value, or empty.
/// "format" grows by 1 when a member changes its meaning or goes, not when one is added.
std::string json(const DescribedTool& tool);

}  // namespace Kelpkit::programs

#endif
