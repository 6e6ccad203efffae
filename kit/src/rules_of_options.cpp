#include "ascii_case.h"
#include "rules.h"

namespace Kelpkit::rules {

namespace {

bool isShortForm(std::string_view text) {
    return text.size() == 2 && text[0] == '-' && text[1] > ' ' && text[1] <= '~' && text[1] != '-' && text[1] != '=';
}

bool isLongForm(const std::string& text) {
    return text.size() > 2 && text.compare(0, 2, "--") == 0 && text.find_first_of(" =") == std::string::npos &&
           isPrintable(text);
}

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

/// Whether an option has one form of a known option but not the other, or takes a value. An empty long form fits any option.
bool takes(const Option& option, std::string_view shortForm, std::string_view longForm) {
    const bool sameShort = equalIgnoringCase(option.shortForm, shortForm);
    const bool sameLong = equalIgnoringCase(option.longForm, longForm);
    if (sameShort && (sameLong || option.longForm.empty())) {
        return option.takesValue.value_or(false);
    }
    return sameShort || sameLong;
}

bool isOtherOutput(const Option& option) {
    constexpr std::string_view prefix = "--out";
    const std::string_view longForm = option.longForm;
    return equalIgnoringCase(option.shortForm, "-o") &&
           (!option.takesValue.value_or(true) ||
            (!longForm.empty() && !equalIgnoringCase(longForm.substr(0, prefix.size()), prefix)));
}

void checkForms(const Option& option, std::vector<Finding>& findings) {
    const bool hasLetter = isShortForm(option.shortForm);
    if (!hasLetter) {
        findings.push_back({Id::shortForm, nameOf(option)});
    }
    if (option.longForm.empty()) {
        findings.push_back({Id::emptyLong, option.shortForm});
    } else if (!isLongForm(option.longForm)) {
        findings.push_back({Id::longForm, option.longForm});
    } else if (hasLetter && !equalIgnoringCase(option.longForm.substr(2, 1), option.shortForm.substr(1))) {
        findings.push_back({Id::longLetter, option.longForm});
    }
    if (hasLetter && isDigit(option.shortForm[1])) {
        findings.push_back({Id::digit, option.shortForm});
    }
}

bool isVersion(const Option& option) {
    return equalIgnoringCase(option.shortForm, "-v") && equalIgnoringCase(option.longForm, "--version");
}

/// Whether run() answers the version option with the version.
bool isAnswered(const Tool& tool, const Option& option) {
    return !tool.version.empty() && !option.takesValue.value_or(true);
}

/// Checks the letters that have a fixed meaning.
void checkMeaning(const Tool& tool, const Option& option, std::vector<Finding>& findings) {
    if (takes(option, "-h", "--help")) {
        findings.push_back({Id::helpTaken, nameOf(option)});
    }
    if (isVersion(option)) {
        if (!isAnswered(tool, option)) {
            findings.push_back({Id::versionLetter, option.shortForm});
        }
    } else if (takes(option, "-v", "--verbose")) {
        findings.push_back({Id::verboseTaken, nameOf(option)});
    }
    if (isOtherOutput(option)) {
        findings.push_back({Id::outputLetter, option.shortForm});
    }
    if (!option.takesValue) {
        findings.push_back({Id::valueUnknown, nameOf(option)});
    }
}

}  // namespace

void checkOptions(const Tool& tool, std::vector<Finding>& findings) {
    bool letterTaken[256] = {};
    for (const Option& option : tool.options) {
        checkForms(option, findings);
        if (isShortForm(option.shortForm)) {
            const char letter = option.shortForm[1];
            const bool isCapital = letter >= 'A' && letter <= 'Z';
            bool& taken = letterTaken[static_cast<unsigned char>(isCapital ? letter - 'A' + 'a' : letter)];
            if (taken) {
                findings.push_back({Id::sameLetter, option.shortForm});
            }
            taken = true;
        }
        checkMeaning(tool, option, findings);
    }
    if (!letterTaken[static_cast<unsigned char>('h')]) {
        findings.push_back({Id::noHelp, ""});
    }
}

}  // namespace Kelpkit::rules
