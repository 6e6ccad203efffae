#include <kelpkit/Definition.h>

#include "rules.h"

namespace Kelpkit {

namespace {

rules::Tool described(const Definition& definition) {
    rules::Tool tool;
    tool.name = definition.name;
    tool.description = definition.description;
    for (const Kelp::Option& option : definition.options) {
        tool.options.push_back({option.shortFlag, option.longFlag, option.description, option.marker});
    }
    for (const Kelp::Argument& argument : definition.arguments) {
        tool.arguments.push_back({argument.name, argument.description, argument.repeated});
    }
    tool.example = definition.example;
    tool.usage = definition.usage;
    tool.banner = definition.banner;
    tool.version = definition.version;
    tool.optionalArguments = definition.optionalArguments;
    return tool;
}

/// Returns the line of a finding, with less weight on what happens in a tool without the kit: a misread long form is a warning,
/// and a short name is nothing.
std::string reported(const rules::Finding& finding) {
    if (finding.rule == rules::Id::shortName) {
        return "";
    }
    const bool isMilder = finding.rule == rules::Id::longLetter;
    return lineOf(finding, isMilder ? rules::Severity::warning : severityOf(finding)) + "\n";
}

}  // namespace

std::string report(const Definition& definition) {
    std::string text;
    for (const rules::Finding& finding : rules::check(described(definition))) {
        text += reported(finding);
    }
    return text;
}

}  // namespace Kelpkit
