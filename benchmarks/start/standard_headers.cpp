// The standard headers that kelplib's interface needs, and nothing else: the floor of compiling a tool.

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

int main() {}
