#ifndef KELPLIB_TESTS_SCOPED_LOCALE_H
#define KELPLIB_TESTS_SCOPED_LOCALE_H

#include <clocale>
#include <locale>
#include <string>

/// Changes the global locale of the C++ library and restores it when destroyed.
class ScopedGlobalLocale {
public:
    explicit ScopedGlobalLocale(const std::locale& locale) : original(std::locale::global(locale)) {}

    /// Uses the classic locale with one facet replaced.
    template <class Facet>
    explicit ScopedGlobalLocale(Facet* facet) : ScopedGlobalLocale(std::locale(std::locale::classic(), facet)) {}

    ~ScopedGlobalLocale() {
        std::locale::global(original);
    }

    ScopedGlobalLocale(const ScopedGlobalLocale&) = delete;
    ScopedGlobalLocale& operator=(const ScopedGlobalLocale&) = delete;

private:
    std::locale original;
};

/// Changes one category (LC_NUMERIC, LC_CTYPE) of the C library's locale and restores it when destroyed.
class ScopedCLocale {
public:
    ScopedCLocale(int changedCategory, const char* name)
        : category(changedCategory),
          original(std::setlocale(changedCategory, nullptr)),
          valid(std::setlocale(changedCategory, name) != nullptr) {}

    ~ScopedCLocale() {
        static_cast<void>(std::setlocale(category, original.c_str()));
    }

    ScopedCLocale(const ScopedCLocale&) = delete;
    ScopedCLocale& operator=(const ScopedCLocale&) = delete;

    /// Returns false if the system has no locale of that name.
    bool isValid() const {
        return valid;
    }

private:
    int category;
    std::string original;
    bool valid;
};

#endif
