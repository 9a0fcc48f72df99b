// The list of sounding voices, put at (5, 84) as on its tab.
#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "engine/control.h"
#include "tests/ui/offscreen.h"
#include "toolkit/primitives.h"
#include "toolkit/text.h"
#include "views/scope.h"

namespace veloria {
namespace {

using test::isColor;
using test::kBackdrop;
using test::over;
using test::Picture;

class VoicesList : public test::DrawTest {
  protected:
    VoicesList() : DrawTest(400, 420) {}

    void add(int channel, int count) {
        for (int i = 0; i < count; ++i)
            snapshot.voices.push_back({440.0, -1, 0.5f, 0, 0.5f, channel});
    }
    Picture draw() {
        screen.clear(kBackdrop);
        drawVoices(context, 5, 84, snapshot);
        return picture();
    }
    // The list drawn line by line: rows of a channel each, from 140 down, 22 apart.
    struct Row {
        const char* text;
        SDL_Color color;
        int barWidth;
    };
    [[nodiscard]] Picture listOf(const char* headline, const std::vector<Row>& rows) {
        test::Offscreen sheet(400, 420);
        sheet.clear(kBackdrop);
        TextCache ownCache;
        DrawContext own = context;
        own.renderer = sheet.renderer;
        own.textCache = &ownCache;
        DrawText(own, headline, 13, 116, fonts.fontLabel, {100, 255, 120, 255});
        int y = 140;
        for (const Row& row : rows) {
            DrawText(own, row.text, 13, y, fonts.fontLabel, row.color);
            SDL_Color bar = row.color;
            bar.a = 75;
            fillRect(sheet.renderer, {95, y + 4, row.barWidth, 11}, bar);
            y += 22;
        }
        Picture drawn = sheet.picture();
        clearTextCache(ownCache);
        return drawn;
    }

    FrameSnapshot snapshot;
};

TEST_F(VoicesList, SilenceHasOnlyTheHeadline) {
    EXPECT_TRUE(draw() == listOf("Voices: 0 / 256", {}));
    EXPECT_GT(touched(), 50);
}

TEST_F(VoicesList, OnlyChannelsThatSoundHaveARowButAllUseUpTheRamp) {
    add(0, 1);
    add(2, 3);
    add(5, 2);
    EXPECT_TRUE(draw() == listOf("Voices: 6 / 256", {{"Ch0: 1", {100, 210, 255, 255}, 7},
                                                     {"Ch2: 3", {128, 174, 255, 255}, 21},
                                                     {"Ch5: 2", {170, 120, 255, 255}, 14}}));
}

TEST_F(VoicesList, TheGreenOfTheHighChannelsStaysAt80) {
    add(7, 1);
    add(8, 1);
    add(10, 4);
    add(11, 1);
    EXPECT_TRUE(draw() == listOf("Voices: 7 / 256", {{"Ch7: 1", {198, 84, 255, 255}, 7},
                                                     {"Ch8: 1", {212, 80, 255, 255}, 7},
                                                     {"Ch10: 4", {240, 80, 255, 255}, 28},
                                                     {"Ch11: 1", {254, 80, 255, 255}, 7}}));
}

TEST_F(VoicesList, TheListStopsAfterTwelveChannels) {
    add(12, 5);
    add(13, 1);
    add(15, 1);
    EXPECT_TRUE(draw() == listOf("Voices: 7 / 256", {})) << "counted all the same";
    add(11, 1);
    EXPECT_TRUE(draw() == listOf("Voices: 8 / 256", {{"Ch11: 1", {254, 80, 255, 255}, 7}}));
}

TEST_F(VoicesList, RowsEndAboveTheListsFoot) {
    for (int channel = 0; channel < 12; ++channel)
        add(channel, 1);
    // The eighth row ends at 316, a ninth would at 338; the foot is at 84 + 250 = 334.
    EXPECT_TRUE(draw() == listOf("Voices: 12 / 256", {{"Ch0: 1", {100, 210, 255, 255}, 7},
                                                      {"Ch1: 1", {114, 192, 255, 255}, 7},
                                                      {"Ch2: 1", {128, 174, 255, 255}, 7},
                                                      {"Ch3: 1", {142, 156, 255, 255}, 7},
                                                      {"Ch4: 1", {156, 138, 255, 255}, 7},
                                                      {"Ch5: 1", {170, 120, 255, 255}, 7},
                                                      {"Ch6: 1", {184, 102, 255, 255}, 7},
                                                      {"Ch7: 1", {198, 84, 255, 255}, 7}}));
}

TEST_F(VoicesList, ABarEndsAt155Pixels) {
    add(0, 22);
    add(1, 23);
    add(2, 200);
    EXPECT_TRUE(draw() == listOf("Voices: 245 / 256", {{"Ch0: 22", {100, 210, 255, 255}, 154},
                                                       {"Ch1: 23", {114, 192, 255, 255}, 155},
                                                       {"Ch2: 200", {128, 174, 255, 255}, 155}}));
}

TEST_F(VoicesList, MoreVoicesThanTheFigureAreCountedAsTheyAre) {
    add(3, 300);
    EXPECT_TRUE(draw() == listOf("Voices: 300 / 256", {{"Ch3: 300", {142, 156, 255, 255}, 155}}));
}

TEST_F(VoicesList, TheBarsPixelsStandWhereTheRowSays) {
    add(0, 10);
    const Picture seen = draw();
    const SDL_Color bar = over({100, 210, 255, 75}, kBackdrop);
    EXPECT_TRUE(isColor(seen.at(95, 144), bar));
    EXPECT_TRUE(isColor(seen.at(164, 154), bar));
    EXPECT_EQ(seen.at(94, 150), kBackdrop);
    EXPECT_EQ(seen.at(165, 150), kBackdrop);
    EXPECT_EQ(seen.at(100, 143), kBackdrop);
    EXPECT_EQ(seen.at(100, 155), kBackdrop);
}

TEST_F(VoicesList, TheEnginesSoundingVoicesAreCountedAndWaitingOnesAreNot) {
    SynthEngine engine;
    toggleReflection(engine, 3);
    toggleRotation(engine, 4);
    toggleShadow(engine, 7);
    Voice waiting;
    waiting.channel = 0;
    waiting.startTime = 100.0;
    waiting.endTime = 101.0;
    engine.voices.push_back(waiting);
    const auto retuner = std::make_unique<SacredFft>();
    takeFrameSnapshot(engine, {}, *retuner, snapshot);
    EXPECT_TRUE(draw() == listOf("Voices: 3 / 256",
                                 {{"Ch8: 2", {212, 80, 255, 255}, 14}, {"Ch10: 1", {240, 80, 255, 255}, 7}}));
}

TEST_F(VoicesList, ItStandsWhereItIsPut) {
    add(1, 2);
    drawVoices(context, 105, 34, snapshot);
    const Picture seen = picture();
    EXPECT_TRUE(isColor(seen.at(195, 94), over({114, 192, 255, 75}, kBackdrop)));
    EXPECT_EQ(seen.at(195, 93), kBackdrop);
    EXPECT_EQ(seen.at(194, 94), kBackdrop);
}

}  // namespace
}  // namespace veloria
