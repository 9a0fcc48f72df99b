#include "views/shared/coloured_notes.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

#include "tests/ui/offscreen.h"

namespace veloria {
namespace {

TEST(ColouredNotes, KeepFrequencyAndProgressAndTakeThePalettesColour) {
    const std::vector<ActiveNote> notes = {{741.0f, 0.25f, 0.0f}, {462.0f, 0.75f, 1.0f}};
    const std::vector<ColouredNote> avatar = colouredNotes(notes, 0);
    const std::vector<ColouredNote> chakra = colouredNotes(notes, 1);
    ASSERT_EQ(avatar.size(), 2u);
    ASSERT_EQ(chakra.size(), 2u);
    EXPECT_EQ(avatar[0].frequency, 741.0f);
    EXPECT_EQ(avatar[1].progress, 0.75f);
    EXPECT_EQ(avatar[0].colour, (SDL_Color{255, 207, 159, 255}));
    EXPECT_EQ(chakra[0].colour, (SDL_Color{75, 0, 130, 255}));
    EXPECT_EQ(chakra[1].colour, (SDL_Color{127, 255, 0, 255}));
}

TEST(ColouredNotes, AreTheFirstHundredAndTwentyEight) {
    std::vector<ActiveNote> notes;
    for (int i = 0; i < 300; ++i)
        notes.push_back({static_cast<float>(100 + i), 0.5f, 0.5f});
    const std::vector<ColouredNote> coloured = colouredNotes(notes, 0);
    ASSERT_EQ(coloured.size(), 128u);
    EXPECT_EQ(coloured.front().frequency, 100.0f);
    EXPECT_EQ(coloured.back().frequency, 227.0f);
    EXPECT_TRUE(colouredNotes({}, 0).empty());
}

TEST(NoteEnvelope, IsFullFromATwentiethToNineTenths) {
    for (const float progress : {0.05f, 0.2f, 0.5f, 0.9f})
        EXPECT_EQ(noteEnvelope(progress), 1.0f) << progress;
}

TEST(NoteEnvelope, RisesFromNothingAndFallsToNothing) {
    EXPECT_EQ(noteEnvelope(0.0f), 0.0f);
    EXPECT_FLOAT_EQ(noteEnvelope(0.0125f), 0.25f);
    EXPECT_FLOAT_EQ(noteEnvelope(0.04f), 0.8f);
    EXPECT_NEAR(noteEnvelope(0.92f), 0.8f, 1e-5f);
    EXPECT_NEAR(noteEnvelope(0.975f), 0.25f, 1e-5f);
    EXPECT_EQ(noteEnvelope(1.0f), 0.0f);
}

TEST(NoteEnvelope, IsNothingOutsideTheNote) {
    constexpr float kInfinity = std::numeric_limits<float>::infinity();
    for (const float progress :
         {-0.001f, -1e30f, 1.001f, 1e30f, kInfinity, -kInfinity, std::numeric_limits<float>::quiet_NaN()}) {
        EXPECT_EQ(noteEnvelope(progress), 0.0f) << progress;
    }
}

TEST(NoteGlow, IsAThirdOfEachChannelCut) {
    EXPECT_EQ(glowOf({255, 200, 2, 100}), (SDL_Color{85, 66, 0, 33}));
}

}  // namespace
}  // namespace veloria
