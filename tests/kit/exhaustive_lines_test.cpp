// Every command line of up to four tokens over an alphabet that has each kind of token, against a plain model of "strict".
#include <gtest/gtest.h>
#include <kelpkit/CommandLine.h>

#include <array>
#include <map>

#include "arguments.h"

namespace {

constexpr std::size_t longest = 4;

/// What a token is, written down by hand.
struct Token {
    const char* text;
    const char* option;   ///< the short form; empty for an argument
    const char* value;    ///< null unless the option takes one
    const char* refusal;  ///< null if the token is accepted on its own; "%" is the token after it, or VALUE
};

constexpr std::array<Token, 14> alphabet{{{"-n=1", "-n", "1", nullptr},
                                          {"--NUMBER=-2", "-n", "-2", nullptr},
                                          {"-n=", "-n", "", nullptr},
                                          {"-n", "-n", nullptr, "-n needs its value attached: -n=%"},
                                          {"-n3", "-n", nullptr, "-n needs its value attached: -n=3"},
                                          {"-l", "-l", nullptr, nullptr},
                                          {"--Loud", "-l", nullptr, nullptr},
                                          {"-l=x", "-l", nullptr, "-l=x: -l takes no value"},
                                          {"-lq", "", nullptr, "-lq: one option at a time: -l -q"},
                                          {"-q", "-q", nullptr, nullptr},
                                          {"--nu=1", "", nullptr, "--nu: no such option; did you mean --number?"},
                                          {"-5", "", nullptr, "-5: no such option"},
                                          {"a", "", nullptr, nullptr},
                                          {"", "", nullptr, nullptr}}};

const Kelpkit::Definition tool{"tool",
                               "",
                               {{"-n", "--number", "", Kelpkit::takesValue},
                                {"-l", "--loud", "", Kelpkit::isSwitch},
                                {"-q", "--quick", "", Kelpkit::isSwitch}},
                               {{"FIRST", "", false}, {"SECOND", "", false}},
                               "",
                               "",
                               "",
                               "",
                               1};

using Line = std::vector<const Token*>;

bool isFlag(const Token& token) {
    return token.text[0] == '-';
}

std::string replaced(std::string refusal, const std::string& value) {
    const std::size_t place = refusal.find('%');
    return place == std::string::npos ? refusal : refusal.replace(place, 1, value);
}

std::string nextOf(const Line& line, std::size_t i) {
    const std::string next = i + 1 < line.size() ? line[i + 1]->text : "";
    return next == "a" || next == "-5" ? next : "VALUE";
}

/// The answer to a command line as one text.
std::string modelAnswer(const Line& line) {
    std::map<std::string, const Token*> seen;
    std::vector<std::string> arguments;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const Token& token = *line[i];
        if (token.refusal != nullptr) {
            return replaced(token.refusal, nextOf(line, i));
        }
        if (!isFlag(token)) {
            arguments.emplace_back(token.text);
        } else if (const auto [first, isNew] = seen.emplace(token.option, &token); !isNew) {
            return std::string(token.option) + " is given twice: " + first->second->text + ", " + token.text;
        }
    }
    if (arguments.empty()) {
        return "FIRST is missing";
    }
    if (arguments.size() > 2) {
        return "\"" + arguments[2] + "\": one argument too many";
    }
    std::string answer;
    for (const auto& [option, token] : seen) {
        answer += option + (token->value == nullptr ? std::string() : "=" + std::string(token->value)) + ";";
    }
    for (const std::string& argument : arguments) {
        answer += "[" + argument + "]";
    }
    return answer;
}

std::string kitAnswer(const Line& line) {
    std::vector<std::string> tokens{"tool"};
    for (const Token* token : line) {
        tokens.emplace_back(token->text);
    }
    Arguments argv(tokens);
    try {
        const Kelpkit::CommandLine read(tool, argv.argc(), argv.argv());
        std::string answer = read.has("-l") ? "-l;" : "";
        if (const auto value = read.value<std::string>("-n")) {
            answer += "-n=" + *value + ";";
        }
        answer += read.has("-q") ? "-q;" : "";
        for (const std::string& argument : read.arguments()) {
            answer += "[" + argument + "]";
        }
        return answer;
    } catch (const Kelpkit::UsageError& error) {
        return error.what();
    }
}

TEST(ExhaustiveLines, AnswerLikeTheModel) {
    std::size_t count = 0;
    std::vector<Line> lines{{}};
    for (std::size_t length = 0; length <= longest; ++length) {
        std::vector<Line> longer;
        for (const Line& line : lines) {
            ++count;
            ASSERT_EQ(kitAnswer(line), modelAnswer(line));
            for (const Token& token : alphabet) {
                longer.push_back(line);
                longer.back().push_back(&token);
            }
        }
        lines = length < longest ? longer : std::vector<Line>();
    }
    EXPECT_EQ(count, 1U + 14 + 14 * 14 + 14 * 14 * 14 + 14 * 14 * 14 * 14);
}

}  // namespace
