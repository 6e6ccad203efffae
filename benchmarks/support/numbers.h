#ifndef KELPLIB_BENCHMARKS_NUMBERS_H
#define KELPLIB_BENCHMARKS_NUMBERS_H

#include <cstddef>
#include <locale>
#include <string>
#include <vector>

/// Numbers of one kind, the same in every run.
enum class Kind {
    whole,     ///< 0 to 999999
    short_,    ///< one decimal, as 12.5
    decimals,  ///< three decimals, as 1234.125
    full,      ///< 17 digits
};

std::vector<double> numbers(Kind kind, std::size_t count);

/// Numbers that are generated when they are first used: not every run measures all of them.
class LazyNumbers {
public:
    LazyNumbers(Kind kind, std::size_t count);

    std::size_t size() const;
    const std::vector<double>& get();

private:
    Kind drawnKind;
    std::size_t count;
    std::vector<double> values;
};

/// Whether a text consists of these numbers, separated by ", " or ":", as the C library reads them.
bool holds(const std::string& text, const std::vector<double>& values);

/// Returns the text of each number, written by a stream with the locale.
std::vector<std::string> textsOf(const std::vector<double>& values, const std::locale& locale);

/// Returns the texts joined by ":".
std::string joined(const std::vector<std::string>& texts);

/// Returns the classic locale with "," as the decimal point and "." between groups of three digits.
std::locale commaLocale();

/// Sets the global locale during its lifetime.
class GlobalLocale {
public:
    explicit GlobalLocale(const std::locale& locale);
    ~GlobalLocale();
    GlobalLocale(const GlobalLocale&) = delete;
    GlobalLocale& operator=(const GlobalLocale&) = delete;

private:
    std::locale before;
};

#endif
