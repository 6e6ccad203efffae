#ifndef KELPKIT_COMMANDLINEVALUES_H
#define KELPKIT_COMMANDLINEVALUES_H

/// \file
/// What the templates of kelpkit/CommandLine.h share: the types that are read, and limits of another number type. Not for tools.

#include <kelpkit/Values.h>

#include <limits>
#include <set>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

/// \cond
namespace Kelpkit::detail {

/// The number type whose limits apply to a T: of a list its elements.
template <class T>
struct Element {
    using type = T;
};
template <class T>
struct Element<std::vector<T>> {
    using type = T;
};
template <class T>
struct Element<std::set<T>> {
    using type = T;
};
template <class T, class... Others>
struct Element<std::tuple<T, Others...>> {
    using type = T;
};

template <class Number>
constexpr bool isNegative(Number number) {
    if constexpr (std::is_signed_v<Number>) {
        return number < 0;
    } else {
        return false;
    }
}

/// Whether a is at most b, also for whole numbers of different signedness.
template <class A, class B>
constexpr bool isAtMost(A a, B b) {
    if constexpr (std::is_integral_v<A> && std::is_integral_v<B>) {
        if (isNegative(a) != isNegative(b)) {
            return isNegative(a);
        }
        return isNegative(a) ? static_cast<long long>(a) <= static_cast<long long>(b)
                             : static_cast<unsigned long long>(a) <= static_cast<unsigned long long>(b);
    } else {
        return static_cast<long double>(a) <= static_cast<long double>(b);
    }
}

/// Converts a limit, or takes the nearest number of the other type.
template <class To, class From>
To nearest(From limit) {
    if (!isAtMost(std::numeric_limits<To>::lowest(), limit)) {
        return std::numeric_limits<To>::lowest();
    }
    if (!isAtMost(limit, std::numeric_limits<To>::max())) {
        return std::numeric_limits<To>::max();
    }
    return static_cast<To>(limit);
}

/// Throws a std::logic_error.
[[noreturn]] void refuseLimits();

template <class To, class From>
Limits<To> convertLimits(const Limits<From>& limits) {
    static_assert(std::is_integral_v<From> || std::is_floating_point_v<To>,
                  "limits of a whole number are whole numbers");
    const auto lowest = limits.lowest.value_or(nearest<From>(std::numeric_limits<To>::lowest()));
    const auto highest = limits.highest.value_or(nearest<From>(std::numeric_limits<To>::max()));
    if (!isAtMost(lowest, highest) || !isAtMost(lowest, std::numeric_limits<To>::max()) ||
        !isAtMost(std::numeric_limits<To>::lowest(), highest)) {
        refuseLimits();
    }
    Limits<To> result;
    if (limits.lowest) {
        result.lowest = nearest<To>(*limits.lowest);
    }
    if (limits.highest) {
        result.highest = nearest<To>(*limits.highest);
    }
    return result;
}

/// Whether an overload of readValue reads a T, within limits or without.
template <class, class T, class... Limit>
struct IsReadable : std::false_type {};
template <class T, class... Limit>
struct IsReadable<
    std::void_t<decltype(readValue(std::declval<const std::string&>(), Type<T>{}, std::declval<const Limit&>()...))>, T,
    Limit...> : std::true_type {};

template <class T, class... Limit>
Read<T> read(const std::string& text, const Limit&... limits) {
    static_assert(IsReadable<void, T, Limit...>::value,
                  "kelpkit/Values.h lists the types that an option can have; this type has no readValue");
    if constexpr (IsReadable<void, T, Limit...>::value) {
        return readValue(text, Type<T>{}, limits...);
    } else {
        return {};
    }
}

}  // namespace Kelpkit::detail
/// \endcond

#endif
