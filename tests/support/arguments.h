#ifndef KELPLIB_TESTS_ARGUMENTS_H
#define KELPLIB_TESTS_ARGUMENTS_H

#include <initializer_list>
#include <string>
#include <vector>

/// A command line as main receives it: Arguments line{"tool", "-v"}; f(line.argc(), line.argv()).
class Arguments {
public:
    Arguments(std::initializer_list<std::string> tokens) : Arguments(std::vector<std::string>(tokens)) {}

    explicit Arguments(std::vector<std::string> tokens) : texts(std::move(tokens)) {
        for (std::string& text : texts) {
            pointers.push_back(text.data());
        }
        pointers.push_back(nullptr);
    }

    Arguments(const Arguments&) = delete;
    Arguments& operator=(const Arguments&) = delete;

    int argc() const {
        return static_cast<int>(texts.size());
    }

    char** argv() {
        return pointers.data();
    }

private:
    std::vector<std::string> texts;
    std::vector<char*> pointers;
};

#endif
