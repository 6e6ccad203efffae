// Uses the input as PATH.
#include <kelplib/CommandLineTool.h>

#include <algorithm>
#include <array>
#include <cstdlib>

#include "captured_output.h"
#include "check.h"
#include "input.h"
#include "pieces_of.h"
#include "target.h"

namespace {

/// Sets PATH in a static buffer, because putenv of some systems keeps the pointer.
void setPath(const std::string& text) {
    static std::array<char, 8192> variable{};
    const std::string whole = "PATH=" + text;
    if (whole.size() < variable.size()) {
        variable.fill('\0');
        std::copy(whole.begin(), whole.end(), variable.begin());
        putenv(variable.data());
    }
}

}  // namespace

void fuzz::install_location(const std::uint8_t* data, std::size_t size) {
    const std::string text = untilNul(Input(data, size).rest());
    std::string printed;
    std::string expected;
    for (const std::string& entry : piecesOf(text, ';')) {
        if (entry.find("tarn") != std::string::npos) {
            printed += "tarn location: " + entry + "\n";
            expected = (entry.size() >= 10 ? entry.substr(0, entry.size() - 10) : entry) +
                       "cove//skein//SkeinStore//kelplib//tools_configuration.txt";
        }
    }
    printed += expected.empty() ? "Impossible to find tarn location\n" : "";
    if (text.empty() || text.size() > 8000) {
        return;  // Some systems have no empty variables.
    }
    static const std::string original = std::getenv("PATH") == nullptr ? "" : std::getenv("PATH");
    setPath(text);
    const CapturedOutput output;
    expectSame("getFilePath", getFilePath(), expected);
    setPath(original);
    expectSame("output", output.text(), printed);
}
