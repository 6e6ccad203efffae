#include "convert/number_reading.h"

#include <sstream>
#include <string>

#include "convert/localized_text.h"

namespace Kelp {

NumberReader::Way NumberReader::otherWay() const {
    return needsStream(locale) ? Way::stream : Way::localized;
}

template <class T>
void NumberReader::readOtherwise(T& target, std::string_view text) const {
    if (way == Way::stream) {
        std::stringstream(std::string(text)) >> target;
        return;
    }
    const std::string number = classicNumber(text, locale, std::is_floating_point_v<T>);
    if (!number.empty()) {
        const char* begin = number.data();
        readClassic(target, begin, begin + number.size());
    }
}

template void NumberReader::readOtherwise(int& target, std::string_view text) const;
template void NumberReader::readOtherwise(unsigned short& target, std::string_view text) const;
template void NumberReader::readOtherwise(unsigned int& target, std::string_view text) const;
template void NumberReader::readOtherwise(unsigned long long& target, std::string_view text) const;
template void NumberReader::readOtherwise(float& target, std::string_view text) const;
template void NumberReader::readOtherwise(double& target, std::string_view text) const;

}  // namespace Kelp
