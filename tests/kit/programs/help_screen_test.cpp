#include "help_screen.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

namespace {

using Kelpkit::programs::HelpScreen;
using Kelpkit::programs::parse;
using Kelpkit::programs::render;
using Kelpkit::programs::ScreenError;
using Kelpkit::programs::textOfVisibleForm;
using Kelpkit::programs::visibleScreen;

const std::string usual =
    "\n"
    "\033[34m####################################\033[0m\n"
    "\033[37m\tfirstlines\033[0m\n"
    "\033[37m     Small tools\033[0m\n"
    "\033[34m####################################\033[0m\n"
    "\n"
    "\033[36mShows the first lines of a text.\033[0m\n"
    "\033[36mUsage:\033[0m\n"
    "  firstlines [OPTIONS] FILE \n"
    "\n"
    "\033[36mOptions:\033[0m\n"
    "  \033[34m-h, --help:\033[0m shows this help\n"
    "\n"
    "  \033[34m-n, --number:\033[0m how many lines\n"
    "\n"
    "\n"
    "\033[36mArguments:\033[0m\n"
    "  \033[34mFILE:\033[0m the text\n"
    "\n"
    "\n"
    "\033[36mExample:\033[0m\n"
    "  \033[34mfirstlines\033[0m -n=3 notes.txt\n";

/// All texts are empty.
const std::string empty =
    "\n"
    "\033[34m####################################\033[0m\n"
    "\033[37m\t\033[0m\n"
    "\033[37m\033[0m\n"
    "\033[34m####################################\033[0m\n"
    "\n"
    "\033[36m\033[0m\n"
    "\033[36mUsage:\033[0m\n"
    "   \n"
    "\n"
    "\033[36mOptions:\033[0m\n"
    "  \033[34m, :\033[0m \n"
    "\n"
    "\n"
    "\033[36mArguments:\033[0m\n"
    "  \033[34m:\033[0m \n"
    "\n"
    "\n"
    "\033[36mExample:\033[0m\n"
    "  \033[34m\033[0m \n";

/// There is no option and no argument.
const std::string bare =
    "\n"
    "\033[34m####################################\033[0m\n"
    "\033[37m\tbare\033[0m\n"
    "\033[37m     \033[0m\n"
    "\033[34m####################################\033[0m\n"
    "\n"
    "\033[36mDoes nothing.\033[0m\n"
    "\033[36mUsage:\033[0m\n"
    "  bare [OPTIONS] \n"
    "\n"
    "\033[36mOptions:\033[0m\n"
    "\n"
    "\033[36mArguments:\033[0m\n"
    "\n"
    "\033[36mExample:\033[0m\n"
    "  \033[34mbare\033[0m \n";

/// The texts look like parts of the screen.
const std::string odd =
    "\n"
    "\033[34m####################################\033[0m\n"
    "\033[37m\t\todd\nname\033[0m\n"
    "\033[37m####################################\n\n\033[0m\n"
    "\033[34m####################################\033[0m\n"
    "\n"
    "\033[36mUsage:\n  odd\t\"`$(x)` \\ %s\xC3\xA9\xE6\x97\xA5\033[0m\n"
    "\033[36mUsage:\033[0m\n"
    "  \todd\nname \n\n[36mOptions:\n\n\n"
    "\n"
    "\033[36mOptions:\033[0m\n"
    "  \033[34m, , , , ::\033[0m \n\n  \n"
    "\n"
    "  \033[34m-a, :\033[0m   [34m-b, --c: \n\n\n"
    "\n"
    "\n"
    "\033[36mArguments:\033[0m\n"
    "  \033[34ma: b:\033[0m : \r\x07\n"
    "\n"
    "  \033[34mc:\033[0m \n\n  \n"
    "\n"
    "\n"
    "\033[36mExample:\033[0m\n"
    "  \033[34m\todd\nname\033[0m  a\tb \n";

const std::array<const std::string*, 4> screens{&usual, &empty, &bare, &odd};

std::string withCrLf(const std::string& text) {
    std::string result;
    for (const char character : text) {
        result += character == '\n' ? "\r\n" : std::string(1, character);
    }
    return result;
}

/// Returns the refusal of a text; empty if it is accepted and its bytes come back.
std::string refusal(const std::string& text) {
    try {
        return render(parse(text)) == text ? "" : "other bytes";
    } catch (const ScreenError& error) {
        return error.what();
    }
}

std::string replaced(std::string text, const std::string& from, const std::string& to) {
    const std::size_t position = text.find(from);
    EXPECT_NE(position, std::string::npos) << from;
    return text.replace(position, from.size(), to);
}

// Accepted screens

TEST(HelpScreen, Usual) {
    const HelpScreen screen = parse(usual);
    EXPECT_EQ(screen.name, "firstlines");
    EXPECT_EQ(screen.banner, "     Small tools");
    EXPECT_EQ(screen.description, "Shows the first lines of a text.");
    EXPECT_EQ(screen.usage, "[OPTIONS] FILE ");
    ASSERT_EQ(screen.options.size(), 2U);
    EXPECT_EQ(screen.options[0].shortForm, "-h");
    EXPECT_EQ(screen.options[0].longForm, "--help");
    EXPECT_EQ(screen.options[0].text, "shows this help");
    EXPECT_EQ(screen.options[1].shortForm, "-n");
    EXPECT_EQ(screen.options[1].longForm, "--number");
    EXPECT_EQ(screen.options[1].text, "how many lines");
    ASSERT_EQ(screen.arguments.size(), 1U);
    EXPECT_EQ(screen.arguments[0].name, "FILE");
    EXPECT_EQ(screen.arguments[0].text, "the text");
    EXPECT_EQ(screen.example, "-n=3 notes.txt");
}

TEST(HelpScreen, Odd) {
    const HelpScreen screen = parse(odd);
    EXPECT_EQ(screen.name, "\todd\nname");
    EXPECT_EQ(screen.banner, "####################################\n\n");
    EXPECT_EQ(screen.description, "Usage:\n  odd\t\"`$(x)` \\ %s\xC3\xA9\xE6\x97\xA5");
    EXPECT_EQ(screen.usage, "\n\n[36mOptions:\n\n");
    ASSERT_EQ(screen.options.size(), 2U);
    EXPECT_EQ(screen.options[0].shortForm, "");
    EXPECT_EQ(screen.options[0].longForm, ", , , :");
    EXPECT_EQ(screen.options[0].text, "\n\n  ");
    EXPECT_EQ(screen.options[1].shortForm, "-a");
    EXPECT_EQ(screen.options[1].longForm, "");
    EXPECT_EQ(screen.options[1].text, "  [34m-b, --c: \n\n");
    ASSERT_EQ(screen.arguments.size(), 2U);
    EXPECT_EQ(screen.arguments[0].name, "a: b");
    EXPECT_EQ(screen.arguments[0].text, ": \r\x07");
    EXPECT_EQ(screen.arguments[1].name, "c");
    EXPECT_EQ(screen.arguments[1].text, "\n\n  ");
    EXPECT_EQ(screen.example, " a\tb ");
}

TEST(HelpScreen, BytesComeBack) {
    for (const std::string* screen : screens) {
        EXPECT_EQ(render(parse(*screen)), *screen);
        EXPECT_EQ(render(parse(withCrLf(*screen))), *screen);
    }
}

TEST(HelpScreen, EveryChangedByte) {
    std::size_t accepted = 0;
    for (const std::string* screen : screens) {
        for (std::size_t i = 0; i < screen->size(); ++i) {
            std::string text = *screen;
            for (int step = 1; step < 256; ++step) {
                text[i] = static_cast<char>((*screen)[i] + step);
                const std::string result = refusal(text);
                ASSERT_NE(result, "other bytes") << text;
                accepted += result.empty() ? 1 : 0;
            }
        }
    }
    EXPECT_GT(accepted, 10'000U);
}

TEST(HelpScreen, EveryChangedByteWithCrLf) {
    const std::string screen = withCrLf(usual);
    for (std::size_t i = 0; i < screen.size(); ++i) {
        std::string text = screen;
        for (int step = 1; step < 256; ++step) {
            text[i] = static_cast<char>(screen[i] + step);
            try {
                ASSERT_EQ(withCrLf(render(parse(text))), text);
            } catch (const ScreenError&) {
                continue;
            }
        }
    }
}

TEST(HelpScreen, EveryMissingAndDoubledByte) {
    for (const std::string* screen : screens) {
        for (std::size_t i = 0; i < screen->size(); ++i) {
            EXPECT_NE(refusal(screen->substr(0, i)), "other bytes") << i;
            EXPECT_NE(refusal(screen->substr(0, i) + screen->substr(i + 1)), "other bytes") << i;
            EXPECT_NE(refusal(screen->substr(0, i) + screen->substr(i, 1) + screen->substr(i)), "other bytes") << i;
        }
    }
}

TEST(HelpScreen, EveryBeginningIsRefused) {
    for (const std::string* screen : screens) {
        for (std::size_t length = 0; length < screen->size(); ++length) {
            EXPECT_NE(refusal(screen->substr(0, length)), "") << length;
        }
    }
}

// Refusals: a change of the usual screen, and the message

struct Refused {
    const char* from;
    const char* to;
    const char* message;
};

TEST(HelpScreen, Refusals) {
    const Refused table[] = {
        // The banner
        {"\n", "", "line 1: expected an empty line"},
        {"\n", "Welcome\n\n", "line 1: expected an empty line"},
        {"####################################", "###################################",
         "line 2: expected a blue line of 36 \"#\""},
        {"\033[34m#", "\033[35m#", "line 2: expected a blue line of 36 \"#\""},
        {"\033[37m\t", "\033[37m", "line 3: expected a tab and the name of the tool in white"},
        {"\tfirstlines\033[0m", "\tfirstlines", "line 4: expected the end of the white line"},
        {"\tfirstlines\033[0m\n", "\tfirstlines\033[0m \n", "line 3: expected the end of the white line"},
        {"\tfirstlines", "\tfirst\033[1mlines", "line 3: expected the end of the white line"},
        {"\033[37m     ", "     ", "line 4: expected the text of the banner in white"},
        {"tools\033[0m", "tools\033[m", "line 4: expected the end of the white line"},
        {"tools\033[0m\n\033[34m", "tools\033[0m\n\033[36m", "line 5: expected a blue line of 36 \"#\""},
        {"\n\n\033[36mShows", "\n\033[36mShows", "line 6: expected an empty line"},
        // Description and usage
        {"\033[36mShows", "Shows", "line 7: expected the description in cyan"},
        {"text.\033[0m", "text.", "line 8: expected the end of the cyan line"},
        {"Usage:", "usage:", "line 8: expected the heading \"Usage:\""},
        {"Usage:\033[0m\n  ", "Usage:\033[0m\n ", "line 9: expected two blanks, the name of the tool and a blank"},
        {"  firstlines ", "  lastlines ", "line 9: expected two blanks, the name of the tool and a blank"},
        {"  firstlines ", "  firstlines", "line 9: expected two blanks, the name of the tool and a blank"},
        {"FILE \n\n", "FILE \n", "line 10: expected an empty line and the heading \"Options:\""},
        {"Options:", "Option:", "line 11: expected an empty line and the heading \"Options:\""},
        // Options
        {"  \033[34m-h", " \033[34m-h", "line 12: expected an option, or an empty line and the heading \"Arguments:\""},
        {"  \033[34m-h", "  \033[31m-h",
         "line 12: expected an option, or an empty line and the heading \"Arguments:\""},
        {"--help:\033", "--help\033", "line 12: expected \":\" after the forms of the option"},
        {"--help:\033[0m ", "--help:\033[0m", "line 12: expected \":\" after the forms of the option"},
        {"-h, --help", "-h --help", "line 12: expected \", \" between the forms of the option"},
        {"this help\n\n", "this help\n", "line 13: expected an empty line after the option"},
        {"help\n\n  \033[34m-n", "help\n\n \033[34m-n", "line 14: expected an empty line after the option"},
        {"how many", "\033[1mhow many", "line 14: expected an empty line after the option"},
        {"lines\n\n\n", "lines\n\n", "line 16: expected an empty line after the option"},
        {"lines\n\n\n", "lines\n\n  ", "line 16: expected an option, or an empty line and the heading \"Arguments:\""},
        {"Arguments:", "Argument:", "line 16: expected an option, or an empty line and the heading \"Arguments:\""},
        // Arguments
        {"FILE:", "FILE", "line 18: expected \":\" after the name of the argument"},
        {"the text\n\n\n", "the text\n\n", "line 20: expected an empty line after the argument"},
        {"Example:", "Examples:", "line 20: expected an argument, or an empty line and the heading \"Example:\""},
        // Example and end
        {"  \033[34mfirst", " \033[34mfirst", "line 22: expected two blanks, the name of the tool in blue and a blank"},
        {"  \033[34mfirst", "  \033[34mFirst",
         "line 22: expected two blanks, the name of the tool in blue and a blank"},
        {"notes.txt\n", "notes.txt", "line 22: expected a line end"},
        {"notes.txt\n", "notes.txt\n\n", "line 23: expected the end of the help screen"},
        {"notes.txt\n", "notes.txt\ndone\n", "line 23: expected the end of the help screen"},
        {"notes.txt\n", "\033[0m\n", "line 22: expected the example without colours"},
        // Line ends and characters
        {"notes.txt\n", "notes.txt\r\n", "line 22: expected a line end as in line 1"},
        {"\n", "\r\n", "line 2: expected a line end as in line 1"},
        {"the text", "the \xFFtext", "line 18: expected printable characters in UTF-8"},
        {"the text", "the \xC3", "line 18: expected printable characters in UTF-8"},
        {"the text", "the \xC2\x9B[31m", "line 18: expected printable characters in UTF-8"},
    };
    for (const Refused& each : table) {
        EXPECT_EQ(refusal(replaced(usual, each.from, each.to)), each.message) << each.from;
    }
    EXPECT_EQ(refusal(""), "line 1: expected an empty line");
    EXPECT_EQ(refusal("Welcome\r\n\r\n"), "line 1: expected an empty line");
    EXPECT_EQ(refusal(usual + usual), "line 23: expected the end of the help screen");
    EXPECT_EQ(refusal(replaced(usual, "the text", std::string("the \0text", 9))),
              "line 18: expected printable characters in UTF-8");
    EXPECT_EQ(refusal(replaced(withCrLf(usual), "Usage:\033[0m\r\n", "Usage:\033[0m\n")),
              "line 8: expected a line end as in line 1");
    // A text with CRLF on Windows
    EXPECT_EQ(refusal(withCrLf(replaced(usual, "lines of", "lines\r\nof"))),
              "line 7: expected a line end as in line 1");
}

// The visible form

const std::string visibleOdd =
    "$\n"
    "\\e[34m####################################\\e[0m$\n"
    "\\e[37m\\t\\todd$\n"
    "name\\e[0m$\n"
    "\\e[37m####################################$\n"
    "$\n"
    "\\e[0m$\n"
    "\\e[34m####################################\\e[0m$\n"
    "$\n"
    "\\e[36mUsage:$\n"
    "  odd\\t\"`$(x)` \\\\ %s\xC3\xA9\xE6\x97\xA5\\e[0m$\n"
    "\\e[36mUsage:\\e[0m$\n"
    "  \\todd$\n"
    "name $\n"
    "$\n"
    "[36mOptions:$\n"
    "$\n"
    "$\n"
    "$\n"
    "\\e[36mOptions:\\e[0m$\n"
    "  \\e[34m, , , , ::\\e[0m $\n"
    "$\n"
    "  $\n"
    "$\n"
    "  \\e[34m-a, :\\e[0m   [34m-b, --c: $\n"
    "$\n"
    "$\n"
    "$\n"
    "$\n"
    "\\e[36mArguments:\\e[0m$\n"
    "  \\e[34ma: b:\\e[0m : \\r\\x07$\n"
    "$\n"
    "  \\e[34mc:\\e[0m $\n"
    "$\n"
    "  $\n"
    "$\n"
    "$\n"
    "\\e[36mExample:\\e[0m$\n"
    "  \\e[34m\\todd$\n"
    "name\\e[0m  a\\tb $\n";

TEST(VisibleScreen, Odd) {
    EXPECT_EQ(visibleScreen(parse(odd)), visibleOdd);
}

TEST(VisibleScreen, TextComesBack) {
    for (const std::string* screen : screens) {
        const std::string visible = visibleScreen(parse(*screen));
        EXPECT_TRUE(Kelpkit::programs::isVisibleForm(visible));
        EXPECT_FALSE(Kelpkit::programs::isVisibleForm(*screen));
        EXPECT_EQ(textOfVisibleForm(visible), *screen);
        EXPECT_EQ(textOfVisibleForm(withCrLf(visible)), *screen);
    }
}

TEST(VisibleScreen, Refusals) {
    const std::string escapes = R"(line 2: expected \e, \t, \r, \\ or \xNN)";
    const std::pair<std::string, std::string> table[] = {
        {"$", "line 1: expected $ at the end"},
        {"$\na\n", "line 2: expected $ at the end"},
        {"$\n\n", "line 2: expected $ at the end"},
        {"$\na$\r$\nb", "line 3: expected $ at the end"},
        {"$\n\\$\n", escapes},
        {"$\n\\n$\n", escapes},
        {"$\n\\x0$\n", escapes},
        {"$\n\\x0G$\n", escapes},
        {"$\n\\xG0$\n", escapes},
        {"$\n\\x1B$\n", escapes},
    };
    for (const auto& [text, message] : table) {
        try {
            ADD_FAILURE() << textOfVisibleForm(text);
        } catch (const ScreenError& error) {
            EXPECT_EQ(error.what(), message) << text;
        }
    }
}

}  // namespace
