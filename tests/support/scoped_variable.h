#ifndef KELPLIB_TESTS_SCOPED_VARIABLE_H
#define KELPLIB_TESTS_SCOPED_VARIABLE_H

#include <cstdlib>
#include <list>
#include <optional>
#include <string>

/// Sets an environment variable, or removes it, and restores it in the destructor.
class ScopedVariable {
public:
    ScopedVariable(std::string variable, const std::optional<std::string>& value) : name(std::move(variable)) {
        if (const char* old = std::getenv(name.c_str())) {
            original = old;
        }
        set(value);
    }

    ~ScopedVariable() {
        set(original);
    }

    ScopedVariable(const ScopedVariable&) = delete;
    ScopedVariable& operator=(const ScopedVariable&) = delete;

private:
    void set(const std::optional<std::string>& value) const {
        put(name + "=" + value.value_or(""));
        // On Windows putenv removes the variable for "NAME=", on Linux for "NAME".
        if (!value && std::getenv(name.c_str()) != nullptr) {
            put(name);
        }
    }

    /// Keeps the text: on Linux putenv makes it part of the environment.
    static void put(std::string text) {
        static std::list<std::string> texts;
        putenv(texts.emplace_back(std::move(text)).data());
    }

    std::string name;
    std::optional<std::string> original;
};

#endif
