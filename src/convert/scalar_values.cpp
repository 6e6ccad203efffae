#include <kelplib/Kelp.h>

#include <utility>

#include "convert/number_reading.h"

namespace Kelp {

void stringToValue(std::string& target, std::string text) {
    target = std::move(text);
}

void stringToValue(bool& target, std::string /*text*/) {
    target = true;
}

void stringToValue(char& target, std::string text) {
    target = text.empty() ? ' ' : text.front();
}

void stringToValue(int& target, std::string text) {
    NumberReader().read(target, text);
}

void stringToValue(unsigned short& target, std::string text) {
    NumberReader().read(target, text);
}

void stringToValue(unsigned int& target, std::string text) {
    NumberReader().read(target, text);
}

void stringToValue(unsigned long long& target, std::string text) {
    NumberReader().read(target, text);
}

void stringToValue(double& target, std::string text) {
    NumberReader().read(target, text);
}

void stringToValue(float& target, std::string text) {
    NumberReader().read(target, text);
}

void stringToValue(StringDouble& target, std::string text) {
    std::vector<std::string> pieces = split(text, ':');
    if (pieces.size() != 2) {
        return;
    }
    target.label = std::move(pieces[0]);
    stringToValue(target.value, std::move(pieces[1]));
}

}  // namespace Kelp
