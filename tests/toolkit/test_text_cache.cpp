#include "toolkit/text_cache.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "tests/ui/offscreen.h"
#include "toolkit/text.h"

namespace veloria {
namespace {

using test::kBackdrop;
using test::Offscreen;
using test::Picture;

constexpr SDL_Color kWhite{255, 255, 255, 255};

class Cache : public test::DrawTest {
  protected:
    void draw(const std::string& text, int y = 10) { DrawText(context, text, 10, y, fonts.fontRow, kWhite); }

    // Draws it again to see: a kept text is a hit. It counts as used.
    bool isKept(const std::string& text) {
        const std::uint64_t before = cache.hits;
        draw(text);
        return cache.hits == before + 1;
    }
};

TEST_F(Cache, TheSecondTimeIsAHit) {
    draw("A");
    EXPECT_EQ(cache.misses, 1u);
    EXPECT_EQ(cache.hits, 0u);
    draw("A");
    draw("A");
    EXPECT_EQ(cache.misses, 1u);
    EXPECT_EQ(cache.hits, 2u);
    EXPECT_EQ(cache.entries.size(), 1u);
}

TEST_F(Cache, FontEncodingColourAndTextTellTextsApart) {
    draw("A");
    draw("B");
    DrawText(context, "A", 0, 0, fonts.fontTab, kWhite);  // another font of the same size
    DrawTextUtf8(context, "A", 0, 0, fonts.fontRow, kWhite);
    for (const SDL_Color& other :
         {SDL_Color{254, 255, 255, 255}, {255, 254, 255, 255}, {255, 255, 254, 255}, {255, 255, 255, 254}}) {
        DrawText(context, "A", 0, 0, fonts.fontRow, other);
    }
    EXPECT_EQ(cache.hits, 0u);
    EXPECT_EQ(cache.entries.size(), 8u);
}

TEST(TextKey, EveryPartOfItCounts) {
    int fonts[2] = {};  // only the addresses matter
    TTF_Font* font = reinterpret_cast<TTF_Font*>(&fonts[0]);
    TTF_Font* other = reinterpret_cast<TTF_Font*>(&fonts[1]);
    const TextKey key{font, false, {1, 2, 3, 4}, "A"};
    const TextKeyEqual equal;
    EXPECT_TRUE(equal(key, {font, false, {1, 2, 3, 4}, "A"}));
    EXPECT_FALSE(equal(key, {other, false, {1, 2, 3, 4}, "A"}));
    EXPECT_FALSE(equal(key, {font, true, {1, 2, 3, 4}, "A"}));
    EXPECT_FALSE(equal(key, {font, false, {0, 2, 3, 4}, "A"}));
    EXPECT_FALSE(equal(key, {font, false, {1, 0, 3, 4}, "A"}));
    EXPECT_FALSE(equal(key, {font, false, {1, 2, 0, 4}, "A"}));
    EXPECT_FALSE(equal(key, {font, false, {1, 2, 3, 0}, "A"}));
    EXPECT_FALSE(equal(key, {font, false, {1, 2, 3, 4}, "B"}));
}

TEST_F(Cache, TheKeyOutlivesTheCallersText) {
    {
        auto text = std::make_unique<std::string>("a text long enough to live on the heap");
        draw(*text);
        text->assign(text->size(), '#');
    }
    EXPECT_TRUE(isKept("a text long enough to live on the heap"));
}

TEST_F(Cache, TheBoundOfCountDropsTheLeastRecentlyUsed) {
    cache.maxCount = 3;
    draw("A");
    draw("B");
    draw("C");
    draw("A");  // now B is the oldest
    draw("D");
    EXPECT_EQ(cache.entries.size(), 3u);
    EXPECT_EQ(cache.index.size(), 3u);
    EXPECT_EQ(cache.evictions, 1u);
    EXPECT_TRUE(isKept("A"));
    EXPECT_TRUE(isKept("C"));
    EXPECT_TRUE(isKept("D"));
    EXPECT_FALSE(isKept("B"));
}

TEST_F(Cache, TheBoundOfBytesHolds) {
    const SDL_Point size = measureText(fonts.fontRow, "MMMM 1");
    const std::size_t one = static_cast<std::size_t>(size.x) * static_cast<std::size_t>(size.y) * 4;
    cache.maxBytes = one * 2 + one / 2;
    for (int i = 1; i <= 9; ++i) {
        draw("MMMM " + std::to_string(i));
        EXPECT_LE(cache.bytes, cache.maxBytes);
    }
    EXPECT_EQ(cache.entries.size(), 2u);
    std::size_t sum = 0;
    for (const TextEntry& entry : cache.entries)
        sum += entry.bytes;
    EXPECT_EQ(cache.bytes, sum);
    EXPECT_EQ(sum, one * 2);  // digits are of one width
    EXPECT_TRUE(isKept("MMMM 9"));
    EXPECT_TRUE(isKept("MMMM 8"));
    EXPECT_FALSE(isKept("MMMM 7"));
}

TEST_F(Cache, ATextLargerThanTheBoundIsDrawnAndNotKept) {
    draw("small");
    const Picture wanted = [&] {
        screen.clear(kBackdrop);
        draw("A much larger text");
        return picture();
    }();
    clearTextCache(cache);
    draw("i");
    cache.maxBytes = cache.bytes + 4;
    screen.clear(kBackdrop);
    draw("A much larger text");
    EXPECT_TRUE(picture() == wanted);
    EXPECT_EQ(cache.entries.size(), 1u);
    EXPECT_EQ(cache.evictions, 0u);
    EXPECT_TRUE(isKept("i"));
}

TEST_F(Cache, WithABoundOfNoneEveryTextIsRenderedAnew) {
    draw("A", 10);
    draw("B", 60);
    const Picture wanted = picture();
    clearTextCache(cache);
    cache.maxCount = 0;
    cache.hits = 0;
    screen.clear(kBackdrop);
    draw("A", 10);
    draw("B", 60);
    EXPECT_TRUE(picture() == wanted);
    EXPECT_EQ(cache.hits, 0u);
    EXPECT_EQ(cache.entries.size(), 0u);
    EXPECT_EQ(cache.bytes, 0u);
}

// The renderer draws late; a picture that is thrown away between two texts was already asked for.
TEST_F(Cache, ATextThatIsDroppedInTheSameFrameIsStillSeen) {
    draw("A", 10);
    draw("B", 60);
    draw("C", 110);
    const Picture wanted = picture();
    clearTextCache(cache);
    screen.clear(kBackdrop);
    cache.maxCount = 1;
    draw("A", 10);
    draw("B", 60);
    draw("C", 110);
    clearTextCache(cache);
    EXPECT_TRUE(picture() == wanted);
}

TEST_F(Cache, AnotherRendererStartsAnew) {
    draw("A");
    draw("B");
    const Picture wanted = picture();
    {
        Offscreen other(400, 300);
        other.clear(kBackdrop);
        context.renderer = other.renderer;
        draw("A");
        EXPECT_EQ(cache.entries.size(), 1u);
        EXPECT_EQ(cache.renderer, other.renderer);
        draw("B");
        EXPECT_TRUE(other.picture() == wanted);
        clearTextCache(cache);
    }
    context.renderer = screen.renderer;
    screen.clear(kBackdrop);
    draw("A");
    draw("B");
    EXPECT_TRUE(picture() == wanted);
}

TEST_F(Cache, ClearedItIsEmptyAndGoesOnWithNewFonts) {
    draw("A");
    const Picture wanted = picture();
    clearTextCache(cache);
    EXPECT_EQ(cache.entries.size(), 0u);
    EXPECT_EQ(cache.index.size(), 0u);
    EXPECT_EQ(cache.bytes, 0u);
    closeFonts(fonts);
    screen.clear(kBackdrop);
    draw("A");
    EXPECT_EQ(touched(), 0);
    openFonts(fonts);
    draw("A");
    EXPECT_TRUE(picture() == wanted);
    clearTextCache(cache);
    clearTextCache(cache);
}

// The ticks of the n-th frame; the counter of milliseconds starts again from 0 after 49 days, here after
// four.
std::uint32_t ticksOfFrame(std::uint32_t n) {
    return 0xFFFFFFFFu - 64 + 16 * n;
}

TEST_F(Cache, WhatWasNotDrawnForEightFramesGoesWhenANewTextComes) {
    context.ticks = ticksOfFrame(0);
    draw("old");
    draw("used");
    for (std::uint32_t n = 1; n <= 8; ++n) {
        context.ticks = ticksOfFrame(n);
        draw("used");
        draw("new " + std::to_string(n));
    }
    EXPECT_EQ(cache.evictions, 0u);
    context.ticks = ticksOfFrame(9);
    draw("used");
    EXPECT_EQ(cache.evictions, 0u) << "no new text";
    draw("new 9");
    EXPECT_EQ(cache.evictions, 1u);
    EXPECT_TRUE(isKept("used"));
    EXPECT_TRUE(isKept("new 1"));
    EXPECT_FALSE(isKept("old"));
}

// A slow machine makes no more of them stale.
TEST_F(Cache, TheLengthOfAFrameDoesNotMatter) {
    for (std::uint32_t n = 0; n < 20; ++n) {
        context.ticks = n * 3000;
        draw("A");
        draw("B");
        draw("figure " + std::to_string(n));
    }
    EXPECT_EQ(cache.misses, 22u);
}

TEST_F(Cache, OnlyAFewGoAtATime) {
    for (int i = 0; i < 20; ++i)
        draw(std::to_string(i));
    for (std::uint32_t n = 1; n <= 9; ++n) {
        context.ticks = n * 16;
        draw("0");
    }
    draw("new");
    EXPECT_EQ(cache.evictions, 4u);
    draw("newer");
    EXPECT_EQ(cache.evictions, 8u);
    for (int i = 0; i < 10; ++i)
        draw("more " + std::to_string(i));
    EXPECT_EQ(cache.evictions, 19u);
    EXPECT_TRUE(isKept("0"));
}

// Thousands of figures, as a running walker prints them, in a frame after frame.
TEST_F(Cache, AStreamOfNewTextsStaysWithinBothBounds) {
    cache.maxCount = 50;
    cache.maxBytes = 30'000;
    for (int i = 0; i < 3000; ++i) {
        draw(std::to_string(i * 7919 % 1000) + std::string(static_cast<std::size_t>(i % 9), 'W'));
        ASSERT_LE(cache.entries.size(), 50u);
        ASSERT_LE(cache.bytes, 30'000u);
        ASSERT_EQ(cache.entries.size(), cache.index.size());
    }
    EXPECT_GT(cache.evictions, 1000u);
}

}  // namespace
}  // namespace veloria
