#include "toolkit/text.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/ui/offscreen.h"
#include "toolkit/primitives.h"

namespace veloria {
namespace {

using test::kBackdrop;
using test::Offscreen;
using test::Picture;

constexpr SDL_Color kWhite{255, 255, 255, 255};

class Text : public test::DrawTest {
  protected:
    [[nodiscard]] std::vector<TTF_Font*> allFonts() const {
        return {fonts.fontTiny,    fonts.fontLabel, fonts.fontRow,   fonts.fontTab,
                fonts.fontHeading, fonts.fontWide,  fonts.fontSplash};
    }
};

// Stripes of many colours, so that a difference in blending shows.
void paintStripes(SDL_Renderer* renderer) {
    for (int i = 0; i < 100; ++i) {
        const auto shade = [i](int step) { return static_cast<Uint8>(i * step % 256); };
        fillRect(renderer, {i * 4, 0, 4, 300}, {shade(37), shade(91), shade(11), 255});
    }
}

// Text as it is without any cache: rendered in its colour, copied, thrown away.
void drawPlainly(SDL_Renderer* renderer, const char* text, bool utf8, int x, int y, TTF_Font* font,
                 SDL_Color color) {
    SDL_Surface* surface =
        utf8 ? TTF_RenderUTF8_Blended(font, text, color) : TTF_RenderText_Blended(font, text, color);
    ASSERT_NE(surface, nullptr);
    SDL_Texture* texture = SDL_CreateTextureFromSurface(renderer, surface);
    const SDL_Rect place{x, y, surface->w, surface->h};
    SDL_RenderCopy(renderer, texture, nullptr, &place);
    SDL_DestroyTexture(texture);
    SDL_FreeSurface(surface);
}

const std::vector<SDL_Color> kColors = {
    {255, 255, 255, 255}, {255, 215, 0, 255}, {0, 0, 0, 255}, {46, 125, 50, 255}, {255, 255, 255, 128},
    {100, 160, 255, 230}, {180, 20, 90, 77},  {1, 2, 3, 4},   {255, 215, 0, 1},   {200, 230, 255, 254}};

TEST_F(Text, KeptTextHasThePixelsOfTextRenderedAnew) {
    const char* text = "Hz 528.0 | DR6 (gjpqy) @ 100%";
    const char* utf8Text = "\xE2\x99\xA5 528 \xE2\x86\x92 \xC3\xA9\xC3\xBC \xD7\x90\xD7\x91";
    for (TTF_Font* font : allFonts()) {
        ASSERT_NE(font, nullptr);
        for (const SDL_Color& color : kColors) {
            Offscreen plain(400, 300);
            paintStripes(plain.renderer);
            drawPlainly(plain.renderer, text, false, 3, 5, font, color);
            drawPlainly(plain.renderer, utf8Text, true, 7, 90, font, color);
            const Picture wanted = plain.picture();
            for (int pass = 0; pass < 2; ++pass) {  // first rendered, then kept
                paintStripes(screen.renderer);
                DrawText(context, text, 3, 5, font, color);
                DrawTextUtf8(context, utf8Text, 7, 90, font, color);
                EXPECT_TRUE(picture() == wanted) << testing::PrintToString(color) << " pass " << pass;
            }
        }
    }
    EXPECT_EQ(cache.hits, cache.misses);
    EXPECT_EQ(cache.misses, 7 * kColors.size() * 2);
}

// One text drawn over another keeps the order of the calls.
TEST_F(Text, ManyTextsInTurnHaveThePixelsOfTextRenderedAnew) {
    Offscreen plain(400, 300);
    paintStripes(plain.renderer);
    paintStripes(screen.renderer);
    for (int i = 0; i < 200; ++i) {
        const std::string text = "row " + std::to_string(i % 5);
        const SDL_Color color = kColors[static_cast<std::size_t>(i) % kColors.size()];
        TTF_Font* font = allFonts()[static_cast<std::size_t>(i) % 6];
        drawPlainly(plain.renderer, text.c_str(), false, i * 7 % 350, i * 31 % 280, font, color);
        DrawText(context, text, i * 7 % 350, i * 31 % 280, font, color);
    }
    EXPECT_TRUE(picture() == plain.picture());
    EXPECT_GT(cache.hits, 0u);
}

TEST_F(Text, TextStandsAtItsUpperLeftCorner) {
    DrawText(context, "HHH", 60, 50, fonts.fontSplash, kWhite);
    const SDL_Point size = measureText(fonts.fontSplash, "HHH");
    const Picture seen = picture();
    int inside = 0;
    for (int y = 0; y < seen.h; ++y) {
        for (int x = 0; x < seen.w; ++x) {
            if (seen.at(x, y) == kBackdrop) continue;
            EXPECT_TRUE(x >= 60 && x < 60 + size.x && y >= 50 && y < 50 + size.y) << x << ", " << y;
            ++inside;
        }
    }
    EXPECT_GT(inside, 100);
}

TEST_F(Text, WithoutAFontNothingIsDrawn) {
    DrawText(context, "TEXT", 10, 10, nullptr, kWhite);
    DrawTextUtf8(context, "TEXT", 10, 10, nullptr, kWhite);
    DrawTextCentered(context, "TEXT", {10, 10, 90, 20}, nullptr, kWhite);
    DrawTextUtf8Centered(context, "TEXT", {10, 10, 90, 20}, nullptr, kWhite);
    DrawTextCenteredOn(context, "TEXT", 50, 10, nullptr, kWhite);
    DrawTextUtf8CenteredOn(context, "TEXT", 50, 10, nullptr, kWhite);
    EXPECT_EQ(touched(), 0);
    EXPECT_EQ(cache.misses, 0u);
}

TEST_F(Text, TheEmptyTextDrawsNothing) {
    DrawText(context, "", 10, 10, fonts.fontRow, kWhite);
    DrawTextUtf8(context, "", 10, 10, fonts.fontRow, kWhite);
    EXPECT_EQ(touched(), 0);
}

TEST_F(Text, TextThatCannotBeRenderedDrawsNothingAndIsNotKept) {
    const char* noWidth = "\xE2\x80\x8B";  // a space of no width
    ASSERT_EQ(TTF_RenderUTF8_Blended(fonts.fontRow, noWidth, kWhite), nullptr);
    DrawTextUtf8(context, noWidth, 10, 10, fonts.fontRow, kWhite);
    EXPECT_EQ(touched(), 0);
    EXPECT_EQ(cache.entries.size(), 0u);
}

TEST_F(Text, TextFadedToNothingIsNotDrawn) {
    DrawText(context, "TEXT", 10, 10, fonts.fontRow, {255, 255, 255, 0});
    DrawTextCentered(context, "TEXT", {10, 10, 90, 20}, fonts.fontRow, {255, 255, 255, 0});
    EXPECT_EQ(touched(), 0);
}

TEST_F(Text, BytesThatAreNoUtf8DoNoHarm) {
    for (const char* text : {"\xFF\xFE\xFD", "A\xC3", "\xE2\x86", "\xF0\x9F\x98", "\x80\x80"}) {
        DrawTextUtf8(context, text, 10, 10, fonts.fontRow, kWhite);
        DrawText(context, text, 10, 60, fonts.fontRow, kWhite);
    }
    EXPECT_GT(touched(), 0);
}

TEST_F(Text, PlainTextIsLatin1AndTheOtherUtf8) {
    DrawText(context, "\xE9", 10, 10, fonts.fontHeading, kWhite);
    const Picture latin = picture();
    screen.clear(kBackdrop);
    DrawTextUtf8(context, "\xC3\xA9", 10, 10, fonts.fontHeading, kWhite);
    EXPECT_TRUE(picture() == latin);
    screen.clear(kBackdrop);
    DrawText(context, "\xC3\xA9", 10, 10, fonts.fontHeading, kWhite);
    EXPECT_FALSE(picture() == latin);
}

TEST_F(Text, AViewThatIsNoWholeStringIsDrawnToItsEnd) {
    const std::string line = "ABCDEF";
    DrawText(context, std::string_view(line).substr(0, 3), 10, 10, fonts.fontHeading, kWhite);
    const Picture part = picture();
    screen.clear(kBackdrop);
    DrawText(context, "ABC", 10, 10, fonts.fontHeading, kWhite);
    EXPECT_TRUE(picture() == part);
}

TEST_F(Text, CentredTextStandsInTheMiddleByItsMeasure) {
    const SDL_Rect area{50, 60, 121, 33};
    for (const char* text : {"STOP", "LOAD MUSIC FILE", "X", "A caption far wider than its box is"}) {
        screen.clear(kBackdrop);
        DrawTextCentered(context, text, area, fonts.fontTab, kWhite);
        DrawTextUtf8Centered(context, text, {50, 160, 121, 33}, fonts.fontTab, kWhite);
        const Picture centred = picture();
        screen.clear(kBackdrop);
        int w = 0;
        int h = 0;
        ASSERT_EQ(TTF_SizeText(fonts.fontTab, text, &w, &h), 0);
        DrawText(context, text, 50 + (121 - w) / 2, 60 + (33 - h) / 2, fonts.fontTab, kWhite);
        DrawTextUtf8(context, text, 50 + (121 - w) / 2, 160 + (33 - h) / 2, fonts.fontTab, kWhite);
        EXPECT_TRUE(picture() == centred) << text;
    }
}

TEST_F(Text, TextOnAColumnHasItsMiddleThereAndItsTopWhereItIsSaid) {
    for (const char* text : {"STOP", "X", "528 Hz", "A caption that reaches out at the left"}) {
        screen.clear(kBackdrop);
        DrawTextCenteredOn(context, text, 90, 60, fonts.fontTab, kWhite);
        DrawTextUtf8CenteredOn(context, text, 91, 160, fonts.fontTab, kWhite);
        const Picture centred = picture();
        screen.clear(kBackdrop);
        int w = 0;
        ASSERT_EQ(TTF_SizeText(fonts.fontTab, text, &w, nullptr), 0);
        DrawText(context, text, 90 - w / 2, 60, fonts.fontTab, kWhite);
        DrawTextUtf8(context, text, 91 - w / 2, 160, fonts.fontTab, kWhite);
        EXPECT_TRUE(picture() == centred) << text;
    }
}

TEST_F(Text, TheMeasureIsTheSizeOfThePicture) {
    for (TTF_Font* font : allFonts()) {
        for (const char* text : {"A", "W E L C O M E", "fj|", "Hz 528", " ", "  lead"}) {
            const RenderedText plain = renderedText(cache, screen.renderer, {font, false, kWhite, text}, 0);
            EXPECT_EQ(measureText(font, text).x, plain.w) << text;
            EXPECT_EQ(measureText(font, text).y, plain.h) << text;
        }
        const char* hebrew = "\xD7\x90 \xE2\x86\x92 \xC3\xA9";
        const RenderedText utf8 = renderedText(cache, screen.renderer, {font, true, kWhite, hebrew}, 0);
        EXPECT_EQ(measureTextUtf8(font, hebrew).x, utf8.w);
        EXPECT_EQ(measureTextUtf8(font, hebrew).y, utf8.h);
        EXPECT_LT(measureTextUtf8(font, hebrew).x, measureText(font, hebrew).x);
    }
}

TEST_F(Text, WithoutAFontThereIsNothingToMeasure) {
    EXPECT_EQ(measureText(nullptr, "TEXT").x, 0);
    EXPECT_EQ(measureText(nullptr, "TEXT").y, 0);
    EXPECT_EQ(measureTextUtf8(nullptr, "TEXT").x, 0);
    EXPECT_EQ(measureText(fonts.fontRow, "").x, 0);
}

}  // namespace
}  // namespace veloria
