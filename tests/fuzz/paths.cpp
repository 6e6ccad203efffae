// File paths. Input lines: the current directory, the text of a path, another text, then a delimiter.
#include <kelplib/FilePath.h>

#include <algorithm>
#include <stdexcept>

#include "check.h"
#include "fake_platform.h"
#include "input.h"
#include "paths_model.h"
#include "target.h"

namespace {

using fuzz::expectSame;
using namespace paths_model;

void compare(const FilePath& file, const Model& model, const std::string& directory) {
    expectSame("getPath", file.getPath(), model.folder);
    expectSame("getName", file.getName(), model.name);
    expectSame("filePath", file.filePath(), model.folder + model.name);
    const std::size_t dot = model.name.find_last_of('.');
    expectSame("prefix", file.prefix(), dot == std::string::npos ? model.name : model.name.substr(0, dot));
    expectSame("extension", file.extension(), dot == std::string::npos ? "" : model.name.substr(dot + 1));
    const std::string own = delimiterOf(model.folder);
    const std::string other = delimiterOf(directory);
    expectSame("getDelim", file.getDelim(), !own.empty() ? own : !other.empty() ? other : "/");
}

template <class Call>
std::string answer(Call call) {
    try {
        return call() ? "yes" : "no";
    } catch (const std::out_of_range&) {
        return "out of range";
    }
}

void compareChanges(FilePath& file, Model& model, const std::string& text, char delimiter) {
    const std::string& directory = fake_platform::state().directory;
    expectSame("setPath", answer([&] { return file.setPath(text); }), absolute(text));
    model.folder = absolute(text) == "yes" ? text : model.folder;
    compare(file, model, directory);
    Model cut;
    cut.cut(text, '/');
    cut.cut(std::string(cut.name), '\\');
    file.setName(text);
    model.name = cut.name;
    compare(file, model, directory);
    file.fromString(text, delimiter);
    model.cut(text, delimiter);
    compare(file, model, directory);
    file.fromNameInCurrentDir(text);
    compare(file, {directory, text}, directory);
}

}  // namespace

void fuzz::paths(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    const std::string directory = input.line();
    const std::string text = input.line();
    const std::string other = input.line();
    fake_platform::reset();
    fake_platform::state().directory = directory;
    expectSame("getCurrentDir", FilePath::getCurrentDir(), directory);
    expectSame("isAbsoluteFilePath", answer([&] { return FilePath::isAbsoluteFilePath(text); }), absolute(text));
    FilePath file;
    Model model;
    try {
        file = FilePath(text);
        model = modelOf(text, directory);
    } catch (const std::out_of_range&) {
        expectSame("construction", absolute(text), std::string("out of range"));
    }
    compare(file, model, directory);
    compareChanges(file, model, other, input.number<char>());
}
