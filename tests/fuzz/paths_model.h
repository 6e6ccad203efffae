#ifndef KELPLIB_TESTS_FUZZ_PATHS_MODEL_H
#define KELPLIB_TESTS_FUZZ_PATHS_MODEL_H

#include <string>

/// Turns a text into a path, character by character.
namespace paths_model {

/// A path as FilePath.h describes it: folder and name.
struct Model {
    std::string folder;
    std::string name;

    void cut(const std::string& text, char delimiter) {
        folder.clear();
        name.clear();
        for (const char c : text) {
            name += c;
            if (c == delimiter) {
                folder += name;
                name.clear();
            }
        }
    }
};

/// Returns "/" if the text contains it, else "\" if the text contains that, else an empty text.
inline std::string delimiterOf(const std::string& text) {
    for (const char* const delimiter : {"/", "\\"}) {
        if (text.find(delimiter) != std::string::npos) {
            return delimiter;
        }
    }
    return "";
}

/// Returns "yes", "no", or "out of range".
inline std::string absolute(const std::string& text) {
    if (text.empty() || text[0] == '/') {
        return text.empty() ? "no" : "yes";
    }
    if (text.size() == 1) {
        return "out of range";
    }
    return text[1] == ':' ? "yes" : "no";
}

/// Returns the path that FilePath makes of the text.
inline Model modelOf(const std::string& text, const std::string& directory) {
    Model model;
    if (absolute(text) == "yes") {
        if (!delimiterOf(text).empty()) {
            model.cut(text, delimiterOf(text)[0]);
        }
    } else if (delimiterOf(directory).empty()) {
        model = {directory, text};
    } else {
        std::string whole = text;
        for (char& c : whole) {
            c = c == '/' || c == '\\' ? delimiterOf(directory)[0] : c;
        }
        model.cut(directory + delimiterOf(directory) + whole, delimiterOf(directory)[0]);
    }
    return model;
}

}  // namespace paths_model

#endif
