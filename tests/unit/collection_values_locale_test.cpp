#include <gtest/gtest.h>

#include "collection_types.h"
#include "locale_facets.h"
#include "number_types.h"
#include "scoped_locale.h"

namespace {

TEST(CollectionValuesUnderALocale, TakeItsDecimalPointAndGroups) {
    const ScopedGlobalLocale scope(new Punctuation("\3"));
    EXPECT_EQ(readOver<IntSet>({}, "12.345,7"), (IntSet{7, 12345}));
    EXPECT_EQ(readOver<DoubleSet>({}, "1.234,5:2"), (DoubleSet{2, 1234.5}));
    EXPECT_EQ(readOver<Ints>({1, 2}, " :1.000:12.34"), (Ints{1, 1000, 1234}));
    EXPECT_EQ(readOver<Doubles>({1.5, 2.5}, " :,5:-1,5e1"), (Doubles{1.5, 0.5, -15}));
    EXPECT_EQ(readOver<UnsignedPair>({7, 6}, "1.000:5"), UnsignedPair(5, 1000));
    EXPECT_EQ(readOver<UnsignedTriple>({7, 6, 5}, "1.000:5:2.000"), UnsignedTriple(1000, 5, 2000));
    EXPECT_EQ(readOver<FloatPair>({7.0F, 6.0F}, "2,5:1,5"), FloatPair(1.5F, 2.5F));
    EXPECT_EQ(readOver<DoublePair>({7, 6}, "1.234,5:1,5"), DoublePair(1.5, 1234.5));
}

TEST(CollectionValuesUnderALocale, AreCutAtTheSameSeparators) {
    const ScopedGlobalLocale scope(new Punctuation("\3"));
    EXPECT_EQ(readOver<Strings>({}, "1.000,5:6"), (Strings{"1.000", "5:6"}));
    EXPECT_EQ(readOver<IntSet>({}, "1,5"), (IntSet{1, 5}));
    EXPECT_EQ(readOver<DoubleSet>({}, "1,5"), (DoubleSet{1.5}));
    EXPECT_EQ(readOver<DoublePair>({7, 6}, "1,5"), DoublePair(7, 6));
}

TEST(CollectionValuesUnderALocale, KnowItsBlanks) {
    const ScopedGlobalLocale scope(new UnderscoreBlank);
    EXPECT_EQ(readOver<Ints>({1, 2}, "_:_5"), (Ints{1, 5}));
    EXPECT_EQ(readOver<Ints>({1, 2}, " :5"), (Ints{0, 5}));
    EXPECT_EQ(readOver<Doubles>({1, 2}, "5:_"), (Doubles{5, 2}));
    EXPECT_EQ(readOver<IntSet>({9}, "_"), (IntSet{0}));
    EXPECT_EQ(readOver<UnsignedPair>({7, 6}, "_:5"), UnsignedPair(0, 5));
}

TEST(CollectionValuesUnderALocale, CallItsNumberReader) {
    const ScopedGlobalLocale scope(new SeventySeven);
    EXPECT_EQ(readOver<IntSet>({}, "1,2, "), (IntSet{0, 77}));
    EXPECT_EQ(readOver<Doubles>({1, 2}, " :5"), (Doubles{1, 77}));
    EXPECT_EQ(readOver<UnsignedTriple>({7, 6, 5}, "1: :3"), UnsignedTriple(77, 0, 77));
    EXPECT_EQ(readOver<FloatPair>({7.0F, 6.0F}, "1: "), FloatPair(0.0F, 77.0F));
}

}  // namespace
