#ifndef KELPKIT_VALUES_H
#define KELPKIT_VALUES_H

/// \file
/// Option text to typed values, whole or not at all. An accepted text means exactly what Kelp::stringToValue makes of it.

#include <kelplib/Kelp.h>

#include <filesystem>
#include <limits>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

namespace Kelpkit {

/// The result of reading a text: the value, or what would have been accepted, as in "a whole number from 1 to 10".
template <class T>
class Read {
public:
    /// Makes the result of an accepted text.
    static Read of(T value) {
        Read result;
        result.content = std::move(value);
        return result;
    }
    /// Makes the result of a refused text.
    /// \param what  continues the sentence "-n=x: not ..."
    static Read expected(std::string what) {
        Read result;
        result.what = std::move(what);
        return result;
    }

    /// Returns whether there is a value.
    explicit operator bool() const {
        return content.has_value();
    }
    /// Returns the value. Requires that there is one.
    const T& value() const {
        return *content;
    }
    /// Returns what would have been accepted; an empty text if there is a value.
    const std::string& expectation() const {
        return what;
    }

private:
    std::optional<T> content;
    std::string what;
};

/// Limits of a number, both included. Without one of them, the type sets it.
template <class T>
struct Limits {
    std::optional<T> lowest;   ///< the smallest number that is accepted
    std::optional<T> highest;  ///< the largest number that is accepted
};

/// Makes limits for numbers from `lowest` to `highest`.
template <class T>
Limits<T> between(T lowest, T highest) {
    return {lowest, highest};
}

/// Makes limits for numbers from `lowest` to the largest of the type.
template <class T>
Limits<T> atLeast(T lowest) {
    return {lowest, std::nullopt};
}

/// The names of the values of an enumeration (or of any other type), compared ignoring the case of ASCII letters.
template <class T>
using Choices = std::vector<std::pair<std::string, T>>;

/// Selects an overload of readValue by its type.
template <class T>
struct Type {};

/// \name Reading a text
/// One overload for each of these types. An option has one of them or a type of the tool's own. A number is decimal, without
/// blanks: an optional sign ("-" for signed types only), digits and, for real numbers, a decimal point with digits on at
/// least one side and an exponent. The decimal point is that of the global locale, a point unless the tool changes the
/// locale; messages always show a point. Digits are never grouped. A number has to fit its type; a real number too close to
/// 0 for its type becomes the nearest value of the type. There are no infinities and NaNs.
///
///     type                             accepts                    refuses
///     int                              "12" "-3" "+3" "007"       "" " 3" "3x" "3.0" "1e3" "0x1F" "99999999999"
///     unsigned int, std::size_t, ...   "12" "+3"                  "-3" "-0"
///     double, float                    "12" "-2.5" ".5" "1e-3"    "" "2,5" "1e" "inf" "nan" "1e400"
///     char                             "a"                        "" "ab" "\xE9"
///     bool                             "yes" "ON" "true" "1"      "" "y" "2"
///                                      "no" "Off" "false" "0"
///     std::filesystem::path            "a b/c"                    "", and on Windows all that is not UTF-8
///     std::string                      every text
///     std::vector<int>, <double>       "3:1:2"                    "" "3::1" "3,1" "3:x"
///     std::set<double>                 "3:1:3"                    the same
///     std::set<int>                    "3,1,3"                    "" "3,,1" "3:1" "3,x"
///     std::vector<std::string>         "a, b"                     "" "a,,b" "a,"
///     std::set<std::string>            "a, b"                     the same
///     std::tuple of 2 numbers          "2:9" "2:2"                "9:2" "2" "1:2:3"
///     std::tuple of 3 numbers          "3:1:2"                    "1:2"
///     Kelp::StringDouble               "iron:7.9"                 "iron" ":7.9" "iron::7.9" "iron:x"
///
/// The values are those of Kelp::stringToValue for the same text, except those of bool, for which the library takes every text
/// as true. For integer types that the library does not read, they are the numbers that the text means. A long double has the
/// precision of a double.
///
/// A tool reads a type of its own through an overload in the namespace of the type:
///
///     Kelpkit::Read<Colour> readValue(const std::string& text, Kelpkit::Type<Colour>);
/// @{

/// Reads a whole number that fits a signed char.
Read<signed char> readValue(const std::string& text, Type<signed char> type, const Limits<signed char>& limits = {});
/// Reads a whole number that fits an unsigned char.
Read<unsigned char> readValue(const std::string& text, Type<unsigned char> type,
                              const Limits<unsigned char>& limits = {});
/// Reads a whole number that fits a short.
Read<short> readValue(const std::string& text, Type<short> type, const Limits<short>& limits = {});
/// Reads a whole number that fits an unsigned short.
Read<unsigned short> readValue(const std::string& text, Type<unsigned short> type,
                               const Limits<unsigned short>& limits = {});
/// Reads a whole number that fits an int.
Read<int> readValue(const std::string& text, Type<int> type, const Limits<int>& limits = {});
/// Reads a whole number that fits an unsigned int.
Read<unsigned int> readValue(const std::string& text, Type<unsigned int> type, const Limits<unsigned int>& limits = {});
/// Reads a whole number that fits a long.
Read<long> readValue(const std::string& text, Type<long> type, const Limits<long>& limits = {});
/// Reads a whole number that fits an unsigned long.
Read<unsigned long> readValue(const std::string& text, Type<unsigned long> type,
                              const Limits<unsigned long>& limits = {});
/// Reads a whole number that fits a long long.
Read<long long> readValue(const std::string& text, Type<long long> type, const Limits<long long>& limits = {});
/// Reads a whole number that fits an unsigned long long.
Read<unsigned long long> readValue(const std::string& text, Type<unsigned long long> type,
                                   const Limits<unsigned long long>& limits = {});
/// Reads a real number, rounded to the nearest float.
Read<float> readValue(const std::string& text, Type<float> type, const Limits<float>& limits = {});
/// Reads a real number.
Read<double> readValue(const std::string& text, Type<double> type, const Limits<double>& limits = {});
/// Reads a real number with the precision of a double.
Read<long double> readValue(const std::string& text, Type<long double> type, const Limits<long double>& limits = {});

/// Reads a single byte.
Read<char> readValue(const std::string& text, Type<char> type);
/// Reads a word for true or false.
Read<bool> readValue(const std::string& text, Type<bool> type);
/// Takes every text as it is.
Read<std::string> readValue(const std::string& text, Type<std::string> type);
/// Reads a path, which need not exist.
Read<std::filesystem::path> readValue(const std::string& text, Type<std::filesystem::path> type);
/// Reads a label and a real number.
Read<Kelp::StringDouble> readValue(const std::string& text, Type<Kelp::StringDouble> type);

/// Reads whole numbers separated by ":".
Read<std::vector<int>> readValue(const std::string& text, Type<std::vector<int>> type, const Limits<int>& limits = {});
/// Reads real numbers separated by ":".
Read<std::vector<double>> readValue(const std::string& text, Type<std::vector<double>> type,
                                    const Limits<double>& limits = {});
/// Reads texts separated by ",".
Read<std::vector<std::string>> readValue(const std::string& text, Type<std::vector<std::string>> type);
/// Reads whole numbers separated by ",".
Read<std::set<int>> readValue(const std::string& text, Type<std::set<int>> type, const Limits<int>& limits = {});
/// Reads real numbers separated by ":".
Read<std::set<double>> readValue(const std::string& text, Type<std::set<double>> type,
                                 const Limits<double>& limits = {});
/// Reads texts separated by ",".
Read<std::set<std::string>> readValue(const std::string& text, Type<std::set<std::string>> type);

/// Reads a range FROM:TO of real numbers. A range that ends before it begins is refused.
Read<std::tuple<double, double>> readValue(const std::string& text, Type<std::tuple<double, double>> type,
                                           const Limits<double>& limits = {});
/// Reads a range FROM:TO of floats.
Read<std::tuple<float, float>> readValue(const std::string& text, Type<std::tuple<float, float>> type,
                                         const Limits<float>& limits = {});
/// Reads a range FROM:TO of whole numbers.
Read<std::tuple<unsigned int, unsigned int>> readValue(const std::string& text,
                                                       Type<std::tuple<unsigned int, unsigned int>> type,
                                                       const Limits<unsigned int>& limits = {});
/// Reads three whole numbers in any order.
Read<std::tuple<unsigned int, unsigned int, unsigned int>> readValue(
    const std::string& text, Type<std::tuple<unsigned int, unsigned int, unsigned int>> type,
    const Limits<unsigned int>& limits = {});
/// @}

}  // namespace Kelpkit

#endif
