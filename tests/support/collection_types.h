#ifndef KELPLIB_TESTS_COLLECTION_TYPES_H
#define KELPLIB_TESTS_COLLECTION_TYPES_H

#include <set>
#include <string>
#include <tuple>
#include <vector>

// The lists and tuples that option text is read into.
using Strings = std::vector<std::string>;
using StringSet = std::set<std::string>;
using Ints = std::vector<int>;
using IntSet = std::set<int>;
using Doubles = std::vector<double>;
using DoubleSet = std::set<double>;
using UnsignedPair = std::tuple<unsigned int, unsigned int>;
using UnsignedTriple = std::tuple<unsigned int, unsigned int, unsigned int>;
using FloatPair = std::tuple<float, float>;
using DoublePair = std::tuple<double, double>;

#endif
