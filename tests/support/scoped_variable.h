#ifndef KELPLIB_TESTS_SCOPED_VARIABLE_H
#define KELPLIB_TESTS_SCOPED_VARIABLE_H

#include <cstdlib>
#include <list>
#include <optional>
#include <string>

/// An environment variable with another value, or without one, while it lives.
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
        // Some systems take the variable away for an empty value, the others for its name alone.
        if (!value && std::getenv(name.c_str()) != nullptr) {
            put(name);
        }
    }

    /// The text becomes part of the environment on some systems, so it stays.
    static void put(std::string text) {
        static std::list<std::string> texts;
        putenv(texts.emplace_back(std::move(text)).data());
    }

    std::string name;
    std::optional<std::string> original;
};

#endif
