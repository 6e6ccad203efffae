#include "fields.h"

#include <kelplib/Kelp.h>

#include <limits>
#include <utility>

#include "../common/numbers.h"

namespace histogram {

namespace {

/// No double needs more than 767 significant digits, so a longer field is not meant as a number.
constexpr std::size_t maxBytes = 1000;

constexpr int lastColumn = std::numeric_limits<int>::max();

bool isBlank(char character) {
    return character == ' ' || (character >= '\t' && character <= '\r' && character != '\n');
}

}  // namespace

Fields::Fields(std::set<int> columns) : wanted(std::move(columns)) {}

bool Fields::take(char character) {
    if (isBlank(character)) {
        isClosed = !current.empty();
        return false;
    }
    if (character == ',' || character == ';' || character == '\n') {
        const bool isField = complete();
        column = character == '\n' ? 1 : column;
        return isField;
    }
    if (isClosed) {
        const bool isField = complete();
        append(character);
        return isField;
    }
    append(character);
    return false;
}

void Fields::append(char character) {
    if (current.size() < maxBytes) {
        current += character;
    } else if (current.size() == maxBytes) {
        current += "...";
    }
}

bool Fields::complete() {
    const bool isField = !current.empty() && (wanted.empty() || wanted.count(column) != 0);
    finished.swap(current);
    current.clear();
    isClosed = false;
    column += column < lastColumn ? 1 : 0;
    return isField;
}

const std::string& Fields::text() const {
    return finished;
}

std::optional<double> numberIn(const std::string& field) {
    if (const std::optional<double> number = common::decimalNumber(field)) {
        return number;
    }
    const bool hasSign = !field.empty() && (field.front() == '-' || field.front() == '+');
    const std::string name = Kelp::toLower(field.substr(hasSign ? 1 : 0));
    if (name == "nan") {
        return std::numeric_limits<double>::quiet_NaN();
    }
    if (name == "inf" || name == "infinity") {
        const double infinite = std::numeric_limits<double>::infinity();
        return field.front() == '-' ? -infinite : infinite;
    }
    return std::nullopt;
}

}  // namespace histogram
