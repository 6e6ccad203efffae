#ifndef HISTOGRAM_FIELDS_H
#define HISTOGRAM_FIELDS_H

#include <optional>
#include <set>
#include <string>

namespace histogram {

/// Cuts a text into fields, however it is handed over and however long its lines and fields are. Fields stand between
/// commas or semicolons, or between blanks; a field between two commas may be empty, and then is nobody's.
class Fields {
public:
    /// \param columns  the columns that are looked at, from 1; none: all
    explicit Fields(std::set<int> columns);

    /// Takes one byte more. The end of the text is a line end.
    /// \returns whether a field is complete. text() is it until the next call
    bool take(char character);

    /// At most so long that no number is cut; what is longer ends in "...".
    const std::string& text() const;

private:
    void append(char character);
    bool complete();

    std::set<int> wanted;
    std::string current;
    std::string finished;
    int column = 1;
    bool isClosed = false;  ///< a blank has followed the current field
};

/// The number that a field is: NaN for "nan" with or without a sign, infinite for "inf" and for what is too large; none for
/// any other text.
std::optional<double> numberIn(const std::string& field);

}  // namespace histogram

#endif
