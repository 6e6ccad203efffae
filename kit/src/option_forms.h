#ifndef KELPKIT_OPTION_FORMS_H
#define KELPKIT_OPTION_FORMS_H

#include <kelplib/Kelp.h>

#include <string>
#include <string_view>
#include <vector>

namespace Kelpkit {

/// Returns the part of a token before the first "=".
std::string formOf(const std::string& token);

/// Returns the position of the option with this form, ignoring letter case; the number of options if there is none.
std::size_t findOption(std::string_view form, const std::vector<Kelp::Option>& options);

/// Throws a std::logic_error unless each option has a short form and no two share a form.
void checkForms(const std::vector<Kelp::Option>& options);

}  // namespace Kelpkit

#endif
