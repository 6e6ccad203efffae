#include "util/ascii_fold.h"

namespace Kelp {

bool equalIgnoringAsciiCase(const char* left, const char* right) {
    while (foldAscii(*left) == foldAscii(*right)) {
        if (*left == '\0') {
            return true;
        }
        ++left;
        ++right;
    }
    return false;
}

}  // namespace Kelp
