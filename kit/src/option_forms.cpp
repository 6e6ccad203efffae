#include "option_forms.h"

#include <stdexcept>

#include "ascii_case.h"

namespace Kelpkit {

namespace {

bool hasForm(const Kelp::Option& option, std::string_view form) {
    return !form.empty() && (equalIgnoringCase(form, option.shortFlag) || equalIgnoringCase(form, option.longFlag));
}

void checkForm(const std::string& form, std::size_t position, const std::vector<Kelp::Option>& options) {
    if (!form.empty() && findOption(form, options) != position) {
        throw std::logic_error("two options of the tool are called " + form);
    }
}

}  // namespace

std::string formOf(const std::string& token) {
    return token.substr(0, token.find('='));
}

std::size_t findOption(std::string_view form, const std::vector<Kelp::Option>& options) {
    std::size_t position = 0;
    while (position < options.size() && !hasForm(options[position], form)) {
        ++position;
    }
    return position;
}

void checkForms(const std::vector<Kelp::Option>& options) {
    for (std::size_t i = 0; i < options.size(); ++i) {
        if (options[i].shortFlag.empty()) {
            throw std::logic_error("an option of the tool has no short form: " + options[i].longFlag);
        }
        checkForm(options[i].shortFlag, i, options);
        checkForm(options[i].longFlag, i, options);
    }
}

}  // namespace Kelpkit
