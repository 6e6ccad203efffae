#include <kelpkit/Files.h>
#include <kelplib/Kelp.h>

#include <cstdlib>
#include <limits>

#include "histogram.h"

namespace histogram {

namespace {

/// The memory for the file, however large it is.
constexpr std::size_t bufferBytes = 65536;

/// No double needs more than 767 significant digits, so a longer field is not meant as a number.
constexpr std::size_t longestField = 1000;

/// Splits a text of any length. Commas, semicolons and blanks separate fields. An empty field, as between two commas, counts as
/// a column but is not a field.
class Splitter {
public:
    explicit Splitter(const std::set<int>& columns) : wanted(columns) {}

    /// Takes the next byte, at the end a line end. Returns whether it completes a field.
    bool take(char character) {
        if (character == ' ' || (character >= '\t' && character <= '\r' && character != '\n')) {
            isClosed = !current.empty();
            return false;
        }
        const bool separates = character == ',' || character == ';' || character == '\n';
        const bool isField = (separates || isClosed) && complete();
        column = character == '\n' ? 1 : column;
        if (!separates && current.size() <= longestField) {
            current += character;
        }
        return isField;
    }

    const std::string& field() const {
        return finished;
    }

private:
    bool complete() {
        const bool isField = !current.empty() && (wanted.empty() || wanted.count(column) != 0);
        finished.swap(current);
        current.clear();
        isClosed = false;
        column += column < std::numeric_limits<int>::max() ? 1 : 0;
        return isField;
    }

    const std::set<int>& wanted;
    std::string current;
    std::string finished;
    int column = 1;
    bool isClosed = false;  ///< a blank has ended the current field
};

std::optional<double> numberIn(const std::string& field) {
    const std::string name = Kelp::toLower(field.substr(field.find_first_not_of("+-") == 1 ? 1 : 0));
    const bool hasName = name == "nan" || name == "inf" || name == "infinity";
    const bool hasDigits = field.find_first_not_of("0123456789+-.eE") == std::string::npos;
    char* end = nullptr;
    const double number = std::strtod(field.c_str(), &end);
    const bool isWhole = end == field.c_str() + field.size() && field.size() <= longestField;
    return (hasName || hasDigits) && isWhole ? std::optional(number) : std::nullopt;
}

}  // namespace

void forEachField(const std::string& file, const std::set<int>& columns, Kelpkit::Progress& progress,
                  const std::function<void(std::optional<double>)>& use) {
    Kelpkit::InputFile input(file, std::ios::binary);
    Splitter splitter(columns);
    std::string buffer(bufferBytes, '\0');
    while (input.stream()) {
        const auto count = static_cast<std::size_t>(input.stream().read(buffer.data(), bufferBytes).gcount());
        for (std::size_t i = 0; i < count; ++i) {
            if (splitter.take(buffer[i])) {
                use(numberIn(splitter.field()));
            }
        }
        progress.advance(count);
    }
    if (splitter.take('\n')) {
        use(numberIn(splitter.field()));
    }
}

}  // namespace histogram
