#include "views/shared/palettes.h"

#include <gtest/gtest.h>

#include <cmath>

#include "tests/ui/offscreen.h"

namespace veloria {
namespace {

TEST(AvatarPalette, EachChannelRisesOverItsOwnSpan) {
    EXPECT_EQ(avatarColour(147), (SDL_Color{0, 0, 0, 255}));
    EXPECT_EQ(avatarColour(741), (SDL_Color{255, 207, 159, 255}));  // 255 * 483 / 594, 255 * 372 / 594
    EXPECT_EQ(avatarColour(444), (SDL_Color{127, 79, 32, 255}));    // 127.5, 79.8, 32.2
    EXPECT_EQ(avatarColour(963), (SDL_Color{255, 255, 255, 255}));
}

TEST(AvatarPalette, ChannelsAreHeldToAByte) {
    EXPECT_EQ(avatarColour(50), (SDL_Color{0, 0, 0, 255}));
    EXPECT_EQ(avatarColour(5000), (SDL_Color{255, 255, 255, 255}));
    EXPECT_EQ(avatarColour(std::nan("")), (SDL_Color{0, 0, 0, 255}));
}

TEST(ChakraPalette, EachRangeBeginsAndEndsWhereItShould) {
    EXPECT_EQ(chakraColour(81), (SDL_Color{127, 0, 0, 255}));
    EXPECT_EQ(chakraColour(161.99), (SDL_Color{254, 0, 0, 255}));
    EXPECT_EQ(chakraColour(162), (SDL_Color{255, 0, 0, 255}));
    EXPECT_EQ(chakraColour(284.99), (SDL_Color{255, 164, 0, 255}));
    EXPECT_EQ(chakraColour(285), (SDL_Color{255, 165, 0, 255}));
    EXPECT_EQ(chakraColour(395.99), (SDL_Color{255, 254, 0, 255}));
    EXPECT_EQ(chakraColour(396), (SDL_Color{255, 255, 0, 255}));
    EXPECT_EQ(chakraColour(462), (SDL_Color{127, 255, 0, 255}));
    EXPECT_EQ(chakraColour(528), (SDL_Color{0, 255, 0, 255}));
    EXPECT_EQ(chakraColour(583.5), (SDL_Color{0, 127, 127, 255}));
    EXPECT_EQ(chakraColour(639), (SDL_Color{0, 0, 255, 255}));
    EXPECT_EQ(chakraColour(690), (SDL_Color{37, 0, 192, 255}));
    EXPECT_EQ(chakraColour(741), (SDL_Color{75, 0, 130, 255}));
    EXPECT_EQ(chakraColour(852), (SDL_Color{165, 0, 192, 255}));
    EXPECT_EQ(chakraColour(963), (SDL_Color{255, 0, 255, 255}));
    EXPECT_EQ(chakraColour(963.1), (SDL_Color{255, 0, 255, 255}));
    EXPECT_EQ(chakraColour(-20), (SDL_Color{0, 0, 0, 255}));
}

TEST(ChosenPalette, ZeroIsAvatarAndOneIsChakra) {
    EXPECT_EQ(paletteColour(0, 741), (SDL_Color{255, 207, 159, 255}));
    EXPECT_EQ(paletteColour(1, 741), (SDL_Color{75, 0, 130, 255}));
}

}  // namespace
}  // namespace veloria
