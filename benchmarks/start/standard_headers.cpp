// Only the standard headers that kelplib's interface needs: the limit for compiling a tool.

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
