#ifndef KELPLIB_TESTS_LOCALE_FACETS_H
#define KELPLIB_TESTS_LOCALE_FACETS_H

#include <algorithm>
#include <array>
#include <locale>
#include <string>
#include <utility>

/// Punctuation of numbers: by default a decimal comma, and dots between groups of digits ("\3": of three; "": no groups).
class Punctuation : public std::numpunct<char> {
public:
    explicit Punctuation(std::string groupSizes, char decimalPoint = ',', char thousandsSeparator = '.')
        : grouping(std::move(groupSizes)), point(decimalPoint), separator(thousandsSeparator) {}

protected:
    char do_decimal_point() const override {
        return point;
    }
    char do_thousands_sep() const override {
        return separator;
    }
    std::string do_grouping() const override {
        return grouping;
    }

private:
    std::string grouping;
    char point;
    char separator;
};

/// Treats "_" as a blank and the space as no blank.
class UnderscoreBlank : public std::ctype<char> {
public:
    UnderscoreBlank() : std::ctype<char>(table().data()) {}

private:
    static const std::array<mask, table_size>& table() {
        static const std::array<mask, table_size> changed = [] {
            std::array<mask, table_size> masks{};
            std::copy_n(classic_table(), table_size, masks.begin());
            std::swap(masks['_'], masks[' ']);
            return masks;
        }();
        return changed;
    }
};

/// Reads every text as 77.
class SeventySeven : public std::num_get<char> {
protected:
    using std::num_get<char>::do_get;
    using State = std::ios_base::iostate;

    iter_type do_get(iter_type, iter_type end, std::ios_base&, State&, long& value) const override {
        value = 77;
        return end;
    }
    iter_type do_get(iter_type, iter_type end, std::ios_base&, State&, unsigned short& value) const override {
        value = 77;
        return end;
    }
    iter_type do_get(iter_type, iter_type end, std::ios_base&, State&, unsigned int& value) const override {
        value = 77;
        return end;
    }
    iter_type do_get(iter_type, iter_type end, std::ios_base&, State&, unsigned long long& value) const override {
        value = 77;
        return end;
    }
    iter_type do_get(iter_type, iter_type end, std::ios_base&, State&, float& value) const override {
        value = 77;
        return end;
    }
    iter_type do_get(iter_type, iter_type end, std::ios_base&, State&, double& value) const override {
        value = 77;
        return end;
    }
};

#endif
