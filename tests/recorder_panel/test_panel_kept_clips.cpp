// The picture of many clips that is laid down again: it must never be told from one that is drawn.
#include <functional>

#include "tests/recorder_panel/panel_fixture.h"

namespace veloria {
namespace {

using test::isColor;
using test::kTop;
using test::Picture;

class RecorderKeptClips : public test::RecorderPanelTest {
  protected:
    // Four rows that are covered three times over, with labels, details, lines and a selection among them.
    void fillRows() {
        for (int i = 0; i < 400; ++i) {
            const double start = (i * 37 % 400) * 0.075;
            RecorderClip& made =
                clip(i % 4, 100.0 + i % 13 * 10.0, start, start + (i % 9 == 0 ? 5.0 : 0.02 + i % 5 * 0.3));
            made.colour = {static_cast<Uint8>(i * 7), static_cast<Uint8>(i * 11), static_cast<Uint8>(i * 13),
                           static_cast<Uint8>(i % 3 == 0 ? 255 : 90)};
            made.label = "clip " + std::to_string(i);
            made.gainInDb = static_cast<float>(-i % 20);
            made.selected = i % 6 == 0;
        }
    }
    // As another frame: the clock of the text cache goes on.
    Picture frame() {
        context.ticks += 16;
        return drawn();
    }
    // Draws until the picture is kept.
    Picture kept() {
        frame();
        const Picture seen = frame();
        EXPECT_FALSE(recorder.keptClips.pixels.empty());
        return seen;
    }
    // What a panel that has kept nothing shows.
    Picture fresh() {
        recorder.keptClips = {};
        return frame();
    }
    // The one that lies over the others of the first row.
    RecorderClip& uppermost() { return recorder.clips.at(0).rbegin()->second.back(); }
};

TEST_F(RecorderKeptClips, AStillSceneIsKeptAtItsSecondDrawingAndLooksTheSame) {
    fillRows();
    const Picture one = frame();
    EXPECT_TRUE(recorder.keptClips.pixels.empty()) << "it may be moving";
    const Picture two = frame();
    EXPECT_FALSE(recorder.keptClips.pixels.empty());
    EXPECT_TRUE(one == two);
    EXPECT_TRUE(frame() == one) << "laid down";
    EXPECT_TRUE(frame() == one);
}

TEST_F(RecorderKeptClips, TheKeptPixelsAreWhatIsSeen) {
    fillRows();
    kept();
    // A mark in the kept picture itself, 100 columns and 20 lines into the rows.
    recorder.keptClips.pixels[20 * 1140 + 100] = 0xFFFF00FFu;
    EXPECT_TRUE(isColor(frame().at(130 + 100, kTop + 20), {255, 0, 255, 255}, 0));
}

TEST_F(RecorderKeptClips, FewClipsAreDrawnEachTime) {
    clip(0, 440.0, 0.0, 20.0);
    for (int i = 0; i < 4; ++i)
        frame();
    EXPECT_TRUE(recorder.keptClips.pixels.empty());
}

TEST_F(RecorderKeptClips, WhatIsPaintedOverTheClipsMoves) {
    fillRows();
    const Picture before = kept();
    recorder.playhead = 10.0;
    const Picture after = frame();
    EXPECT_FALSE(recorder.keptClips.pixels.empty()) << "the playhead is no part of the picture";
    EXPECT_FALSE(after.at(at(10), kTop + 10) == before.at(at(10), kTop + 10));
    EXPECT_TRUE(after == fresh());
}

TEST_F(RecorderKeptClips, EveryChangeThatShowsIsShownAtOnce) {
    const std::vector<std::pair<const char*, std::function<void()>>> changes = {
        {"start", [this] { uppermost().start += 1.0; }},
        {"end", [this] { uppermost().end += 1.0; }},
        {"colour", [this] { uppermost().colour.g ^= 0x80; }},
        {"selected", [this] { uppermost().selected = !uppermost().selected; }},
        {"label", [this] { uppermost().label = "another"; }},
        {"level", [this] { uppermost().gainInDb = -1.5f; }},
        {"pan", [this] { uppermost().pan = 0.9f; }},
        {"overrides", [this] { uppermost().overrides.teslaPhase = 7; }},
        {"optimized", [this] { uppermost().optimized = true; }},
        {"frequency", [this] { moveClipToFrequency(recorder, &uppermost(), 777.0); }},
        {"channel", [this] { moveClipToChannel(recorder, &uppermost(), 2); }},
        {"another clip", [this] { clip(1, 300.0, 3.0, 9.0); }},
        {"one clip less", [this] { recorder.clips.at(0).rbegin()->second.pop_back(); }},
        {"channels", [this] { recorder.channelCount = 3; }},
        {"row zoom", [this] { recorder.rowZoom = 2.0f; }},
        {"time zoom", [this] { recorder.viewSpan = 20.0; }},
        {"view", [this] { recorder.viewStart = 4.0; }},
        {"range", [this] { recorder.rangeEnabled = true; }},
        {"range's start", [this] { recorder.rangeEnabled = true, recorder.rangeStart = 4.0; }},
        {"size", [this] { area.w = 1000; }},
        {"place", [this] { area.y = 340; }},
    };
    for (const auto& [name, change] : changes) {
        recorder.clips.clear();
        fillRows();
        uppermost().end = uppermost().start + 12.0;
        Picture before = kept();
        change();
        const Picture after = frame();
        EXPECT_FALSE(after == before) << name;
        EXPECT_TRUE(after == fresh()) << name;
        frame();
        EXPECT_TRUE(after == frame()) << name << ", kept in its turn";
        recorder.channelCount = 4;
        recorder.rowZoom = 1.0f;
        recorder.viewSpan = 30.0;
        recorder.viewStart = 0.0;
        recorder.rangeEnabled = false;
        recorder.rangeStart = 0.0;
        area = {0, 350, 1280, 340};
    }
}

// Rows that all look the same but for their ground: a scroll by one row changes nothing else.
TEST_F(RecorderKeptClips, TheRowsBeneathBelongToThePicture) {
    recorder.channelCount = 20;
    for (int row = 0; row < 20; ++row) {
        for (int i = 0; i < 40; ++i)
            clip(row, 440.0, 0.5 * i, 0.5 * i + 2.0);
    }
    const Picture before = kept();
    recorder.scrollY = 34;
    const Picture after = frame();
    EXPECT_FALSE(after.at(1200, kTop + 5) == before.at(1200, kTop + 5));
    EXPECT_TRUE(after == fresh());
}

TEST_F(RecorderKeptClips, TextsOnAKeptPictureStayInTheCache) {
    fillRows();
    kept();
    for (int i = 0; i < 100; ++i) {
        recorder.playhead = 0.37 * i;  // a new text in each frame, which throws stale ones out
        frame();
    }
    const std::uint64_t before = cache.misses;
    fresh();
    EXPECT_EQ(cache.misses, before);
}

TEST_F(RecorderKeptClips, APanelWithoutRoomKeepsNothing) {
    fillRows();
    for (const SDL_Rect& tiny :
         {SDL_Rect{0, 600, 140, 98}, SDL_Rect{0, 600, 0, 0}, SDL_Rect{0, 600, 90, 60}}) {
        area = tiny;
        for (int i = 0; i < 3; ++i)
            frame();
        EXPECT_TRUE(recorder.keptClips.pixels.empty());
    }
}

}  // namespace
}  // namespace veloria
