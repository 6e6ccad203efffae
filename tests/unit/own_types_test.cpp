// Types of a tool's own, which getValue converts with overloads found at the call. Most of these tests are that they compile.
#include <gtest/gtest.h>

// getValue finds an overload in namespace Kelp for a type of the language only if it precedes the header.
#include <string>
namespace Kelp {
void stringToValue(long& target, std::string text);
}

#include <kelplib/Kelp.h>

#include <string_view>
#include <type_traits>

#include "arguments.h"

namespace own {

struct Number {
    int value = 0;
};
void stringToValue(Number& target, const std::string& text) {
    target.value = static_cast<int>(text.size());
}

enum class Mode { slow, fast };
[[nodiscard]] int stringToValue(Mode& target, std::string_view text) {
    target = text == "fast" ? Mode::fast : Mode::slow;
    return 7;
}

struct Friendly {
    int value = 0;
    friend void stringToValue(Friendly& target, std::string text, int added = 1) {
        target.value = static_cast<int>(text.size()) + added;
    }
};

template <class T>
struct Box {
    T value{};
};
template <class T>
auto stringToValue(Box<T>& target, const std::string& text) {
    return Kelp::stringToValue(target.value, text);
}

/// Refers to a value, so that a constant one can be set.
struct Reference {
    int* value;
};
void stringToValue(const Reference& target, const std::string& text) {
    *target.value = static_cast<int>(text.size());
}

class Incomplete;
void stringToValue(Incomplete& target, const std::string& text);

}  // namespace own

namespace Kelp {

struct InKelp {
    std::string text;
};
static void stringToValue(InKelp& target, std::string text) {
    target.text = "Kelp: " + text;
}

void stringToValue(long& target, std::string text) {
    target = static_cast<long>(text.size());
}

}  // namespace Kelp

namespace {

// Types that the library's overloads take without one of their own.
struct Numbers : std::vector<int> {};
struct Text : std::string {};
struct Convertible {
    operator int&() {
        return value;
    }
    int value = 0;
};
class ConvertibleForReaders {
public:
    int get() const {
        return value;
    }

private:
    friend class Kelp::OptionReader;
    operator int&() {
        return value;
    }
    int value = 0;
};

/// An overload of this one follows the call that needs it.
struct Late {
    int value = 0;
};

template <class T>
std::remove_const_t<T> valueOf(const std::string& text, T value = {}) {
    Arguments line{"tool", "-n=" + text};
    EXPECT_EQ(Kelp::OptionReader(line.argc(), line.argv()).getValue("-n", "--number", value, 1), 2);
    T same = value;
    EXPECT_EQ(Kelp::OptionReader(line.argc(), line.argv()).getValue(std::string("-n"), std::string(), same, 1), 2);
    return same;
}

TEST(OwnTypes, HaveOverloadsInTheirNamespace) {
    EXPECT_EQ(valueOf<own::Number>("four").value, 4);
    EXPECT_EQ(valueOf<own::Mode>("fast"), own::Mode::fast);
    EXPECT_EQ(valueOf<own::Friendly>("four").value, 5);
    EXPECT_EQ(valueOf<own::Box<int>>("12").value, 12);
    EXPECT_EQ(valueOf<own::Box<std::vector<double>>>("1:2.5").value, (std::vector<double>{1, 2.5}));
    int value = 0;
    valueOf<const own::Reference>("four", own::Reference{&value});
    EXPECT_EQ(value, 4);
}

TEST(OwnTypes, HaveOverloadsInNamespaceKelp) {
    EXPECT_EQ(valueOf<Kelp::InKelp>("a").text, "Kelp: a");
    EXPECT_EQ(valueOf<long>("four"), 4);
}

TEST(OwnTypes, ConvertToATypeOfTheLibrary) {
    EXPECT_EQ(valueOf<Numbers>("1:2"), (std::vector<int>{1, 2}));
    EXPECT_EQ(valueOf<Text>("a b"), "a b");
    EXPECT_EQ(valueOf<Convertible>("12").value, 12);
    EXPECT_EQ(valueOf<ConvertibleForReaders>("12").get(), 12);
}

int readLate(Kelp::OptionReader& reader, Late& value) {
    return reader.getValue("-n", "--number", value, 1);
}

[[maybe_unused]] int readIncomplete(Kelp::OptionReader& reader, own::Incomplete& value) {
    return reader.getValue("-n", "--number", value, 1);
}

void stringToValue(Late& target, const std::string& text) {
    target.value = static_cast<int>(text.size());
}

TEST(OwnTypes, HaveOverloadsAfterTheCall) {
    Arguments line{"tool", "-n=four"};
    Kelp::OptionReader reader(line.argc(), line.argv());
    Late value;
    EXPECT_EQ(readLate(reader, value), 2);
    EXPECT_EQ(value.value, 4);
}

}  // namespace

void own::stringToValue(Incomplete& /*target*/, const std::string& /*text*/) {}
