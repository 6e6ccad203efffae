#ifndef HISTOGRAM_FIELDS_H
#define HISTOGRAM_FIELDS_H

#include <optional>
#include <set>
#include <string>

namespace histogram {

/// Splits a text into fields, byte by byte and with lines and fields of any length. Commas, semicolons and blanks separate
/// fields. An empty field, as between two commas, counts as a column but is not reported.
class Fields {
public:
    /// \param columns  the columns to report, counted from 1; all if empty
    explicit Fields(std::set<int> columns);

    /// Takes the next byte. Pass a line end at the end of the text.
    /// \returns whether the byte completes a field, which text() returns until the next call
    bool take(char character);

    /// Returns the last complete field. A field longer than any number is cut and ends in "...".
    const std::string& text() const;

private:
    void append(char character);
    bool complete();

    std::set<int> wanted;
    std::string current;
    std::string finished;
    int column = 1;
    bool isClosed = false;  ///< a blank has ended the current field
};

/// Converts a field: "nan" with or without a sign gives NaN, "inf", "infinity" and numbers that are too large give infinity,
/// any other text gives none.
std::optional<double> numberIn(const std::string& field);

}  // namespace histogram

#endif
