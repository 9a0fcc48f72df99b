#include "ui/frequency_table.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "tests/ui/offscreen.h"
#include "ui/draw.h"

namespace veloria {
namespace {

VoiceInfo voice(double hz, float pan, std::int32_t channel = 0, std::int32_t tag = 0) {
    return {hz, -1, 0.5f, tag, pan, channel};
}

std::vector<TableVoice> voices(const std::vector<double>& frequencies) {
    std::vector<TableVoice> list;
    for (const double hz : frequencies)
        list.push_back({hz, 0, false});
    return list;
}

std::vector<double> frequencies(const std::vector<TableVoice>& list) {
    std::vector<double> result;
    for (const TableVoice& entry : list)
        result.push_back(entry.frequency);
    return result;
}

TEST(FrequencyTable, PanDecidesTheColumn) {
    const FrequencyTable table = makeFrequencyTable(
        {voice(100, 0.0f), voice(200, 0.5f), voice(300, 0.7f), voice(400, 0.701f), voice(500, 1.0f)});
    EXPECT_EQ(frequencies(table.columns[kLeftColumn]), (std::vector<double>{100, 200, 300}));
    EXPECT_EQ(frequencies(table.columns[kRightColumn]), (std::vector<double>{400, 500}));
    EXPECT_TRUE(table.columns[kShadowColumn].empty());
}

TEST(FrequencyTable, ShadowVoicesStandApartWhateverTheirPan) {
    const FrequencyTable table =
        makeFrequencyTable({voice(111, 0.0f, 10), voice(666, 1.0f, 10), voice(444, 0.5f, 9)});
    EXPECT_EQ(frequencies(table.columns[kShadowColumn]), (std::vector<double>{111, 666}));
    EXPECT_EQ(frequencies(table.columns[kLeftColumn]), (std::vector<double>{444}));
}

TEST(FrequencyTable, EachColumnAscends) {
    const FrequencyTable table =
        makeFrequencyTable({voice(528, 0), voice(963, 1), voice(174, 0), voice(152, 1), voice(285.5, 0)});
    EXPECT_EQ(frequencies(table.columns[kLeftColumn]), (std::vector<double>{174, 285.5, 528}));
    EXPECT_EQ(frequencies(table.columns[kRightColumn]), (std::vector<double>{152, 963}));
}

TEST(FrequencyTable, AVoiceBetweenTheSidesIsCentred) {
    const FrequencyTable table = makeFrequencyTable({voice(1, 0.0f), voice(2, 0.29f), voice(3, 0.3f),
                                                     voice(4, 0.5f), voice(5, 0.7f), voice(6, 0.5f, 0, 3)});
    const std::vector<TableVoice>& left = table.columns[kLeftColumn];
    ASSERT_EQ(left.size(), 6u);
    EXPECT_FALSE(left[0].centred);
    EXPECT_FALSE(left[1].centred);
    EXPECT_TRUE(left[2].centred);
    EXPECT_TRUE(left[3].centred);
    EXPECT_TRUE(left[4].centred);
    EXPECT_EQ(left[5].tuningTag, 3);
}

TEST(FrequencyTable, NoVoicesGiveAnEmptyTable) {
    const FrequencyTable table = makeFrequencyTable({});
    for (const auto& column : table.columns)
        EXPECT_TRUE(column.empty());
    EXPECT_TRUE(table.pairs.empty());
}

TEST(BinauralPairs, TakeTheNearestRightVoice) {
    const auto pairs = binauralPairs(voices({500}), voices({470, 505, 520}));
    ASSERT_EQ(pairs.size(), 1u);
    EXPECT_EQ(pairs[0].left, 500);
    EXPECT_EQ(pairs[0].right, 505);
    EXPECT_FLOAT_EQ(pairs[0].beatHz, 5.0f);
}

TEST(BinauralPairs, TheFirstLeftVoiceChoosesFirst) {
    // 500 takes 504, though 503 lies nearer to it; 503 must do with 520.
    const auto pairs = binauralPairs(voices({500, 503}), voices({504, 520}));
    ASSERT_EQ(pairs.size(), 2u);
    EXPECT_EQ(pairs[0].right, 504);
    EXPECT_EQ(pairs[1].right, 520);
    EXPECT_FLOAT_EQ(pairs[1].beatHz, 17.0f);
}

TEST(BinauralPairs, TheLowerOfTwoEquallyNearWins) {
    const auto pairs = binauralPairs(voices({500}), voices({495, 505}));
    ASSERT_EQ(pairs.size(), 1u);
    EXPECT_EQ(pairs[0].right, 495);
}

TEST(BinauralPairs, BeatMoreThanATenthAndAtMostForty) {
    EXPECT_TRUE(binauralPairs(voices({500}), voices({500})).empty());
    EXPECT_TRUE(binauralPairs(voices({500}), voices({500.1 - 1e-9})).empty());
    EXPECT_EQ(binauralPairs(voices({500}), voices({500.125})).size(), 1u);
    EXPECT_EQ(binauralPairs(voices({500}), voices({540})).size(), 1u);
    EXPECT_EQ(binauralPairs(voices({500}), voices({460})).size(), 1u);
    EXPECT_TRUE(binauralPairs(voices({500}), voices({540.01})).empty());
    // A voice too near does not keep the next one from being found.
    EXPECT_EQ(binauralPairs(voices({500}), voices({500, 510})).at(0).right, 510);
}

TEST(BinauralPairs, EndAtSixteen) {
    std::vector<double> left;
    std::vector<double> right;
    for (int i = 0; i < 20; ++i) {
        left.push_back(100 + 100 * i);
        right.push_back(105 + 100 * i);
    }
    const auto pairs = binauralPairs(voices(left), voices(right));
    ASSERT_EQ(pairs.size(), 16u);
    EXPECT_EQ(pairs.back().left, 1600);
}

TEST(BinauralPairs, OnlySixtyFourOfEachSideAreLookedAt) {
    std::vector<double> many;
    for (int i = 0; i < 64; ++i)
        many.push_back(1000 + 100 * i);
    std::vector<double> left = many;
    left.push_back(9000);  // the 65th
    EXPECT_TRUE(binauralPairs(voices(left), voices({9005})).empty());
    left.erase(left.begin());
    EXPECT_EQ(binauralPairs(voices(left), voices({9005})).size(), 1u);
    std::vector<double> right = many;
    right.push_back(9005);
    EXPECT_TRUE(binauralPairs(voices({9000}), voices(right)).empty());
    right.erase(right.begin());
    EXPECT_EQ(binauralPairs(voices({9000}), voices(right)).size(), 1u);
}

TEST(AvatarBase, AnUnscaledVoiceIsItsOwnBase) {
    const AvatarBase reflection = avatarBase(528.0, 0);
    EXPECT_EQ(reflection.frequency, 528.0);
    EXPECT_STREQ(reflection.type, "Ref");
    const AvatarBase rotation = avatarBase(147.2, 0);
    EXPECT_EQ(rotation.frequency, 147.0);
    EXPECT_STREQ(rotation.type, "Rot");
}

TEST(AvatarBase, TheRatioIsTakenOff) {
    const AvatarBase phi = avatarBase(528.0 * 1.618033988749895, 1);  // "xP"
    EXPECT_EQ(phi.frequency, 528.0);
    EXPECT_STREQ(phi.type, "Ref");
    EXPECT_EQ(avatarBase(936.0 / 5.0, 22).frequency, 936.0);  // "/5"
    EXPECT_STREQ(avatarBase(936.0 / 5.0, 22).type, "Rot");
}

TEST(AvatarBase, IsFoldedIntoTheTable) {
    EXPECT_EQ(avatarBase(1056.0, 0).frequency, 528.0);
    EXPECT_EQ(avatarBase(66.0, 0).frequency, 135.0);    // 132: 135 is 3 off, 127 is 5
    EXPECT_EQ(avatarBase(1000.0, 0).frequency, 974.0);  // 1000 itself stays
}

TEST(AvatarBase, ReflectionWinsATie) {
    // 148.5 lies between 145..147 (Rotation) and 152 (Reflection): Rotation. 149.5: both 2.5 away.
    EXPECT_STREQ(avatarBase(148.5, 0).type, "Rot");
    EXPECT_STREQ(avatarBase(149.5, 0).type, "Ref");
    EXPECT_EQ(avatarBase(149.5, 0).frequency, 152.0);
}

TEST(AvatarBase, ATagOutsideTheTableIsNone) {
    EXPECT_EQ(avatarBase(528.0, 51).frequency, 528.0);
    EXPECT_EQ(avatarBase(528.0, -1).frequency, 528.0);
}

TEST(ShadowSymbol, IsTheAminoAcidOfFourDigits) {
    EXPECT_EQ(shadowSymbol(111.0), "Lys");
    EXPECT_EQ(shadowSymbol(123.0), "Met");
    EXPECT_EQ(shadowSymbol(123.9), "Met");  // whole hertz
    EXPECT_EQ(shadowSymbol(211.0), "STP");
    EXPECT_EQ(shadowSymbol(444.0), "Pro");
}

TEST(ShadowSymbol, IsTheDigitalRootOfAnyOther) {
    EXPECT_EQ(shadowSymbol(555.0), "DR6");
    EXPECT_EQ(shadowSymbol(666.0), "DR9");
    EXPECT_EQ(shadowSymbol(115.0), "DR7");
    EXPECT_EQ(shadowSymbol(440.0), "DR8");
    EXPECT_EQ(shadowSymbol(1111.0), "DR4");
}

TEST(ShadowDifference, IsMeasuredFromTheNearestNumber) {
    EXPECT_DOUBLE_EQ(shadowDifference(111.0), 0.0);
    EXPECT_DOUBLE_EQ(shadowDifference(111.25), 0.25);
    EXPECT_DOUBLE_EQ(shadowDifference(110.5), -0.5);
    EXPECT_DOUBLE_EQ(shadowDifference(700.0), 34.0);
    EXPECT_DOUBLE_EQ(shadowDifference(125.0), 0.0);  // an Avatar number is one of the 216 as well
    EXPECT_DOUBLE_EQ(shadowDifference(118.0), 2.0);  // 116
    EXPECT_DOUBLE_EQ(shadowDifference(118.5), 2.5);  // 116 and 121 are equally near: the lower
}

TEST(FrequencyTableHostile, WildFrequenciesAreSurvived) {
    const double infinity = std::numeric_limits<double>::infinity();
    const FrequencyTable table = makeFrequencyTable({voice(0.0, 0), voice(infinity, 1), voice(-5.0, 1)});
    EXPECT_TRUE(table.pairs.size() <= 1);
    for (const double hz : {0.0, -5.0, 1e18, infinity}) {
        EXPECT_FALSE(shadowSymbol(hz).empty());
        (void)avatarBase(hz, 5);
        (void)shadowDifference(hz);
    }
}

TEST(BandColor, ABeatTakesTheColourOfItsBandUpToItsUpperEnd) {
    const auto above = [](float hz) { return std::nextafter(hz, 1e9f); };
    EXPECT_EQ(SelectBandColor(0.0f), (SDL_Color{100, 160, 255, 230}));
    EXPECT_EQ(SelectBandColor(4.0f), (SDL_Color{100, 160, 255, 230}));
    EXPECT_EQ(SelectBandColor(above(4.0f)), (SDL_Color{160, 100, 255, 230}));
    EXPECT_EQ(SelectBandColor(8.0f), (SDL_Color{160, 100, 255, 230}));
    EXPECT_EQ(SelectBandColor(above(8.0f)), (SDL_Color{100, 255, 160, 230}));
    EXPECT_EQ(SelectBandColor(13.0f), (SDL_Color{100, 255, 160, 230}));
    EXPECT_EQ(SelectBandColor(above(13.0f)), (SDL_Color{255, 200, 80, 230}));
    EXPECT_EQ(SelectBandColor(30.0f), (SDL_Color{255, 200, 80, 230}));
    EXPECT_EQ(SelectBandColor(above(30.0f)), (SDL_Color{255, 100, 100, 230}));
    EXPECT_EQ(SelectBandColor(1e6f), (SDL_Color{255, 100, 100, 230}));
}

}  // namespace
}  // namespace veloria
