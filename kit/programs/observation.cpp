#include "observation.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <utility>

#include "ascii_case.h"

namespace Kelpkit::programs {

namespace {

using Fields = std::vector<std::string>;

/// Cuts a field off the beginning of a text.
std::optional<std::string_view> cutField(std::string_view& text) {
    std::size_t size = 0;
    std::size_t at = 0;
    for (; at < text.size() && text[at] >= '0' && text[at] <= '9' && size <= text.size(); ++at) {
        size = 10 * size + static_cast<std::size_t>(text[at] - '0');
    }
    if (at == 0 || at == text.size() || text[at] != ':' || size > text.size() - at - 1) {
        return std::nullopt;
    }
    const std::string_view field = text.substr(at + 1, size);
    text.remove_prefix(at + 1 + size);
    return field;
}

/// Returns the fields of an event; none if it is not one.
Fields fieldsOf(std::string_view event) {
    Fields fields;
    while (!event.empty()) {
        const std::optional<std::string_view> field = cutField(event);
        if (!field) {
            return {};
        }
        fields.emplace_back(*field);
    }
    return fields;
}

/// Reads the events of a report.
class Reader {
public:
    /// Returns whether it was an event.
    bool add(const Fields& fields) {
        if (fields.size() == 2 && fields.front() == "process") {
            process = fields[1];
            return true;
        }
        const auto* const kind = std::find_if(kinds.begin(), kinds.end(), [&](const Kind& each) {
            return fields.size() == each.fields && fields.front() == each.name;
        });
        if (kind == kinds.end()) {
            return false;
        }
        const bool isTool = kind == kinds.begin();
        if (isTool) {
            latest[{process, fields[1]}] = observation.tools.size();
            observation.tools.emplace_back().process = process;
        }
        const bool isQuery = kind->addTo == nullptr;
        if (isQuery) {
            observation.queries.push_back({process, fields[0] == "value", {fields[1], fields[2]}});
            return true;
        }
        const auto tool = latest.find({process, fields[1]});
        if (tool != latest.end()) {
            kind->addTo(observation.tools[tool->second], fields);
        }
        return tool != latest.end();
    }

    Observation take(bool isWhole) {
        observation.isWhole = isWhole;
        return std::move(observation);
    }

private:
    struct Kind {
        const char* name;
        std::size_t fields;
        void (*addTo)(ObservedTool& tool, const Fields& fields);  ///< null for the query of a reader
    };
    static HelpScreen::Option optionOf(const Fields& fields) {
        return {fields[2], fields[3], fields[4]};
    }
    static constexpr std::array<Kind, 9> kinds{{
        {"tool", 4,
         [](ObservedTool& tool, const Fields& fields) {
             tool.isFull = fields[2] == "full";
             tool.ownsCommandLine = fields[3] == "own";
             tool.isOfKit = tool.isFull && fields[3] == "kit";
         }},
        {"option", 6,
         [](ObservedTool& tool, const Fields& fields) {
             tool.options.push_back(optionOf(fields));
             if (tool.isOfKit) {
                 tool.takesValue.try_emplace(lowerCase(fields[2]), fields[5] == "marked");
             }
         }},
        {"argument", 5,
         [](ObservedTool& tool, const Fields& fields) {
             tool.arguments.push_back({fields[2], fields[3], fields[4] == "repeated"});
         }},
        {"late", 5,
         [](ObservedTool& tool, const Fields& fields) {
             (tool.ownsCommandLine ? tool.lateOptions : tool.options).push_back(optionOf(fields));
         }},
        {"asks", 3, [](ObservedTool& tool, const Fields& fields) { tool.names.push_back(fields[2]); }},
        {"verbose", 2, [](ObservedTool& tool, const Fields&) { tool.asksVerbose = true; }},
        {"output", 2, [](ObservedTool& tool, const Fields&) { tool.asksOutput = true; }},
        {"token", 3, nullptr},
        {"value", 3, nullptr},
    }};

    Observation observation;
    std::string process;  ///< that of the next events
    std::map<std::pair<std::string, std::string>, std::size_t>
        latest;  ///< the position of the last tool of each object
};

}  // namespace

Observation readReport(std::string_view report) {
    Reader reader;
    while (!report.empty()) {
        const std::optional<std::string_view> event = cutField(report);
        if (!event || !reader.add(fieldsOf(*event))) {
            return reader.take(false);
        }
    }
    return reader.take(true);
}

}  // namespace Kelpkit::programs
