// The limit for compiling a tool: the standard headers that kelplib's interface needs, and what every tool does with its settings.

#include <array>
#include <cstddef>
#include <filesystem>
#include <list>
#include <map>
#include <mutex>
#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "settings.h"

int main() {
    return checked(Settings());
}
