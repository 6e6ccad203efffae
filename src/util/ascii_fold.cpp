#include "util/ascii_fold.h"

namespace Kelp {

namespace {

char fold(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
}

}  // namespace

bool equalIgnoringAsciiCase(const char* left, const char* right) {
    while (fold(*left) == fold(*right)) {
        if (*left == '\0') {
            return true;
        }
        ++left;
        ++right;
    }
    return false;
}

}  // namespace Kelp
