#include "convert/number_reading.h"

namespace Kelp {

NumberReader::NumberReader() {
    if (locale == std::locale::classic()) {
        way = Way::classic;
    } else {
        way = needsStream(locale) ? Way::stream : Way::localized;
    }
}

}  // namespace Kelp
