#ifndef KELPLIB_TESTS_FUZZ_CHECK_H
#define KELPLIB_TESTS_FUZZ_CHECK_H

#include <cstdio>
#include <cstdlib>
#include <set>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <vector>

/// Compares results of the library with those of a model. Numbers are compared bit by bit.
namespace fuzz {

/// Prints the message on standard error and aborts.
[[noreturn]] inline void fail(const std::string& message) {
    static_cast<void>(std::fprintf(stderr, "\n%s\n", message.c_str()));
    std::abort();
}

inline std::string described(std::string_view text) {
    std::string all = "\"";
    for (const char c : text) {
        if (c >= ' ' && c <= '~' && c != '\\' && c != '"') {
            all += c;
        } else {
            const auto byte = static_cast<unsigned char>(c);
            all += {'\\', 'x', "0123456789abcdef"[byte / 16], "0123456789abcdef"[byte % 16]};
        }
    }
    return all + "\"";
}

template <class T, class = std::enable_if_t<std::is_arithmetic_v<T>>>
std::string described(T value) {
    if constexpr (std::is_floating_point_v<T>) {
        char text[64];
        static_cast<void>(std::snprintf(text, sizeof text, "%a", static_cast<double>(value)));
        return text;
    } else {
        return std::to_string(value);
    }
}

template <class Container>
std::string describedEach(const Container& elements) {
    std::string all;
    for (const auto& element : elements) {
        all += "[" + described(element) + "]";
    }
    return all;
}

template <class T>
std::string described(const std::vector<T>& elements) {
    return describedEach(elements);
}

template <class T>
std::string described(const std::set<T>& elements) {
    return describedEach(elements);
}

template <class... T>
std::string described(const std::tuple<T...>& elements) {
    return std::apply([](const auto&... each) { return (("[" + described(each) + "]") + ...); }, elements);
}

/// Aborts unless the two are equal.
template <class Actual, class Expected>
void expectSame(const char* what, const Actual& actual, const Expected& expected) {
    if constexpr (std::is_convertible_v<Actual, std::string_view> &&
                  std::is_convertible_v<Expected, std::string_view>) {
        if (std::string_view(actual) == std::string_view(expected)) {
            return;
        }
    }
    const std::string actualText = described(actual);
    const std::string expectedText = described(expected);
    if (actualText != expectedText) {
        fail(std::string(what) + " gives " + actualText + "\ninstead of " + expectedText);
    }
}

}  // namespace fuzz

#endif
