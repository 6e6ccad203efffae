#include "tool_inspector.h"

namespace tool_inspector {

namespace {

/// There is one tag for each member. Instantiating Reveal for it defines the tag's friend function `member`, which returns
/// the pointer to the member.
template <class Tag, typename Tag::Pointer pointer>
struct Reveal {
    friend typename Tag::Pointer member(Tag /*tag*/) {
        return pointer;
    }
};

template <class Member>
struct Tag {
    using Pointer = Member CommandLineTool::*;
};

struct OptionWidth : Tag<std::size_t> {
    friend Pointer member(OptionWidth /*tag*/);
};
struct Options : Tag<std::map<std::string, Kelp::Option, ci_less>> {
    friend Pointer member(Options /*tag*/);
};
struct Header : Tag<std::string> {
    friend Pointer member(Header /*tag*/);
};
struct Example : Tag<std::string> {
    friend Pointer member(Example /*tag*/);
};
struct ArgumentList : Tag<std::vector<Kelp::Argument>> {
    friend Pointer member(ArgumentList /*tag*/);
};

template struct Reveal<OptionWidth, &CommandLineTool::optionWidth>;
template struct Reveal<Options, &CommandLineTool::options>;
template struct Reveal<Header, &CommandLineTool::header>;
template struct Reveal<Example, &CommandLineTool::example>;
template struct Reveal<ArgumentList, &CommandLineTool::argumentList>;

}  // namespace

std::size_t optionWidth(const CommandLineTool& tool) {
    return tool.*member(OptionWidth());
}

const std::map<std::string, Kelp::Option, ci_less>& options(const CommandLineTool& tool) {
    return tool.*member(Options());
}

const std::string& header(const CommandLineTool& tool) {
    return tool.*member(Header());
}

const std::string& example(const CommandLineTool& tool) {
    return tool.*member(Example());
}

const std::vector<Kelp::Argument>& argumentList(const CommandLineTool& tool) {
    return tool.*member(ArgumentList());
}

}  // namespace tool_inspector
