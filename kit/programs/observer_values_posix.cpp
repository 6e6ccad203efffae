// The part of the observer for the values that are texts. The library contains their template, which its header says, so that
// this file cannot include the header.

#include <string>

#include "observer_events.h"

namespace Kelp {

/// The library's class without its data, as in observer_posix.cpp.
class __attribute__((visibility("default"))) OptionReader {
public:
    OptionReader(int argc, char** argv);
    template <class T>
    int getValue(std::string shortFlag, std::string longFlag, T& value, int start);
    template <class T>
    int getValue(const char* shortFlag, const char* longFlag, T& value, int start);
};

OptionReader::OptionReader(int argc, char** argv) {
    using Function = void(void*, int, char**);
    reinterpret_cast<Function*>(Kelpkit::programs::observer::next())(this, argc, argv);
    Kelpkit::programs::observer::noteReader(this, Kelpkit::programs::observer::isOwn(argc, argv));
}

template <>
int OptionReader::getValue(std::string shortFlag, std::string longFlag, std::string& value, int start) {
    using Function = int(void*, std::string*, std::string*, std::string&, int);
    auto* const library = reinterpret_cast<Function*>(Kelpkit::programs::observer::next());
    Kelpkit::programs::observer::addQuery(this, {"value", shortFlag, longFlag});
    return library(this, &shortFlag, &longFlag, value, start);
}

template <>
int OptionReader::getValue(const char* shortFlag, const char* longFlag, std::string& value, int start) {
    using Function = int(void*, const char*, const char*, std::string&, int);
    auto* const library = reinterpret_cast<Function*>(Kelpkit::programs::observer::next());
    Kelpkit::programs::observer::addQuery(
        this, {"value", shortFlag == nullptr ? "" : shortFlag, longFlag == nullptr ? "" : longFlag});
    return library(this, shortFlag, longFlag, value, start);
}

}  // namespace Kelp
