// Prints through the library until the process ends. The library has to flush it: this file does not include <iostream>,
// and std::cout has a buffer of its own.
#include <kelplib/Kelp.h>

#include <cstdlib>
#include <ios>

namespace {

void print(const char* when) {
    Kelp::Option("-p", "--print", when, false).printIndented(0, 0);
}

struct Last {
    ~Last() {
        print("from a static object's destructor");
    }
};

const Last last;

}  // namespace

int main() {
    std::atexit([] { print("from an exit handler"); });
    std::ios_base::sync_with_stdio(false);
    print("from main");
}
