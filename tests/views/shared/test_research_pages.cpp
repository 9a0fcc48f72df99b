// The research pages: their words, their layout and their scrolling.
#include "views/shared/research_pages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "tests/ui/offscreen.h"
#include "tests/ui/text_probe.h"

namespace veloria {
namespace {

using test::isText;
using test::kBackdrop;
using test::Picture;
using enum LineRole;

constexpr std::array<const char*, 7> kRoleNames = {"heading",   "body",       "dim",    "data",
                                                   "highlight", "reflection", "warning"};

std::uint64_t fnv1a(const std::string& text) {
    std::uint64_t hash = 0xcbf29ce484222325u;
    for (const char letter : text)
        hash = (hash ^ static_cast<unsigned char>(letter)) * 0x100000001b3u;
    return hash;
}

std::string joined(const std::vector<std::string>& parts) {
    std::string all;
    for (const std::string& part : parts)
        all += (all.empty() ? "" : "\n") + part;
    return all;
}

std::vector<PageEntry> linesOf(const ResearchPage& page) {
    std::vector<PageEntry> lines;
    for (const PageEntry& entry : page.entries) {
        if (entry.text != nullptr) lines.push_back(entry);
    }
    return lines;
}

std::string wordsOf(const ResearchPage& page) {
    std::vector<std::string> parts;
    for (const PageEntry& line : linesOf(page))
        parts.emplace_back(line.text);
    return joined(parts);
}

// "heading", "gap 2", "body" and so on.
std::string orderOf(const ResearchPage& page) {
    std::vector<std::string> parts;
    for (const PageEntry& entry : page.entries) {
        parts.push_back(entry.text == nullptr ? "gap " + std::to_string(entry.gap)
                                              : kRoleNames[static_cast<std::size_t>(entry.role)]);
    }
    return joined(parts);
}

std::map<LineRole, int> rolesOf(const ResearchPage& page) {
    std::map<LineRole, int> counts;
    for (const PageEntry& line : linesOf(page))
        ++counts[line.role];
    return counts;
}

std::map<int, int> gapsOf(const ResearchPage& page) {
    std::map<int, int> counts;
    for (const PageEntry& entry : page.entries) {
        if (entry.text == nullptr) ++counts[entry.gap];
    }
    return counts;
}

// The hashes are those of the text as it was written, taken outside this program: of its lines, and of the
// order of its roles and gaps. They change only when the text is meant to.
TEST(ResearchPages, TheKatharaPageIsItsTextWordForWord) {
    EXPECT_EQ(linesOf(katharaPage).size(), 123u);
    EXPECT_EQ(rolesOf(katharaPage),
              (std::map<LineRole, int>{
                  {Heading, 13}, {Body, 34}, {Dim, 11}, {Data, 41}, {Highlight, 22}, {Warning, 2}}));
    EXPECT_EQ(gapsOf(katharaPage), (std::map<int, int>{{2, 13}, {8, 14}, {14, 12}, {16, 1}}));
    EXPECT_EQ(fnv1a(wordsOf(katharaPage)), 0x611a173c928b206du);
    EXPECT_EQ(fnv1a(orderOf(katharaPage)), 0x2a5d7a4c167aa786u);
}

TEST(ResearchPages, TheSacredPageIsItsTextWordForWord) {
    EXPECT_EQ(linesOf(sacredPage).size(), 101u);
    EXPECT_EQ(rolesOf(sacredPage),
              (std::map<LineRole, int>{
                  {Heading, 12}, {Body, 23}, {Dim, 17}, {Data, 24}, {Highlight, 21}, {Reflection, 4}}));
    EXPECT_EQ(gapsOf(sacredPage), (std::map<int, int>{{2, 12}, {8, 19}, {14, 11}, {16, 1}}));
    EXPECT_EQ(fnv1a(wordsOf(sacredPage)), 0xd01fb7c3d5f1243eu);
    EXPECT_EQ(fnv1a(orderOf(sacredPage)), 0x7d527aedf97ce6cbu);
}

TEST(ResearchPages, TheShortPageIsItsTextWordForWord) {
    EXPECT_EQ(linesOf(katharaShortPage).size(), 14u);
    EXPECT_EQ(rolesOf(katharaShortPage), (std::map<LineRole, int>{{Heading, 3}, {Body, 9}, {Dim, 2}}));
    EXPECT_EQ(gapsOf(katharaShortPage), (std::map<int, int>{{2, 3}, {11, 1}, {16, 1}}));
    EXPECT_EQ(fnv1a(wordsOf(katharaShortPage)), 0x7772d2093a7c59cdu);
    EXPECT_EQ(fnv1a(orderOf(katharaShortPage)), 0x1309a2f64aed3eeeu);
}

TEST(ResearchPages, TheCreditsCloseTheLongPages) {
    const auto kathara = linesOf(katharaPage);
    EXPECT_STREQ(kathara.back().text, "Veloria V3.6 research notes");
    EXPECT_EQ(kathara.back().role, Dim);
    const auto sacred = linesOf(sacredPage);
    EXPECT_STREQ(sacred[98].text, "Original research + mathematical verification");
    EXPECT_STREQ(sacred[99].text, "Veloria V3.6 research notes");
    EXPECT_STREQ(sacred[100].text, "342 Frequency System");
    EXPECT_EQ(sacredPage.entries[sacredPage.entries.size() - 4].gap, 16);
}

constexpr PageEntry kSmallEntries[] = {
    pageLine(Heading, "Alpha"),
    pageGap(2),
    pageLine(Body, "Beta"),
    pageLine(Dim, "Gamma"),
    pageLine(Data, "Delta"),
    pageLine(Highlight, "Eps"),
    pageGap(8),
    pageLine(Reflection, "Zeta — "),
    pageLine(Warning, "Eta"),
};
constexpr ResearchPage kSmallPage{kSmallEntries};
constexpr int kSmallWhole = 14 + 7 * 15 + 10 + 20;

class ResearchPageView : public test::DrawTest {
  protected:
    explicit ResearchPageView(int w = 600, int h = 640) : DrawTest(w, h) {}

    Picture draw(const SDL_Rect& body, const ResearchPage& page, int indent = 12) {
        screen.clear(kBackdrop);
        drawResearchPage(context, body, body.x + indent, page, scroll);
        return picture();
    }
    // How many texts one drawing asks for.
    std::uint64_t linesDrawn(const SDL_Rect& body, const ResearchPage& page) {
        const std::uint64_t before = cache.hits + cache.misses;
        draw(body, page);
        return cache.hits + cache.misses - before;
    }

    // The same by the rule: from less than twenty pixels above the body to less than five below it.
    static std::uint64_t linesInSight(const SDL_Rect& body, const ResearchPage& page, int offset) {
        std::uint64_t count = 0;
        int y = body.y - offset + 14;
        for (const PageEntry& entry : page.entries) {
            const bool isLine = entry.text != nullptr;
            count += isLine && y > body.y - 20 && y < body.y + body.h + 5 ? 1 : 0;
            y += isLine ? 15 : entry.gap;
        }
        return count;
    }

    PageScroll scroll;
};

constexpr SDL_Rect kBody{40, 100, 400, 300};

TEST_F(ResearchPageView, EveryRoleHasItsColourAndEveryLineItsPlace) {
    const Picture seen = draw(kBody, kSmallPage);
    TTF_Font* font = fonts.fontLabel;
    EXPECT_TRUE(isText(seen, kBackdrop, "Alpha", 52, 114, font, {255, 215, 80, 255}));
    EXPECT_TRUE(isText(seen, kBackdrop, "Beta", 52, 131, font, {200, 200, 220, 255}));
    EXPECT_TRUE(isText(seen, kBackdrop, "Gamma", 52, 146, font, {160, 155, 180, 200}));
    EXPECT_TRUE(isText(seen, kBackdrop, "Delta", 52, 161, font, {140, 220, 180, 255}));
    EXPECT_TRUE(isText(seen, kBackdrop, "Eps", 52, 176, font, {255, 180, 60, 255}));
    EXPECT_TRUE(isText(seen, kBackdrop, "Zeta — ", 52, 199, font, {200, 140, 220, 255}));
    EXPECT_TRUE(isText(seen, kBackdrop, "Eta", 52, 214, font, {255, 100, 80, 255}));
}

TEST_F(ResearchPageView, TheSacredPageHasGreenHeadingsAndTheOthersGoldenOnes) {
    const SDL_Color green{160, 255, 180, 255};
    const SDL_Color gold{255, 215, 80, 255};
    TTF_Font* font = fonts.fontLabel;
    EXPECT_TRUE(
        isText(draw(kBody, sacredPage), kBackdrop, "ENNEAGRAM <-> KATHARA SYNTHESIS", 52, 114, font, green));
    EXPECT_TRUE(isText(draw(kBody, katharaPage, 10), kBackdrop, "KATHARA 12 — COMPLETE FREQUENCY SYNTHESIS",
                       50, 114, font, gold));
    EXPECT_TRUE(
        isText(draw(kBody, katharaShortPage), kBackdrop, "KATHARA 12 — RESEARCH MODE", 52, 114, font, gold));
}

TEST_F(ResearchPageView, TheShortPageStandsLineByLine) {
    const Picture seen = draw(kBody, katharaShortPage);
    TTF_Font* font = fonts.fontLabel;
    const SDL_Color body{200, 200, 220, 255};
    const SDL_Color dim{160, 155, 180, 200};
    EXPECT_TRUE(isText(seen, kBackdrop, "Full research content: ATLAS_12_Analysis.html", 52, 146, font, dim));
    EXPECT_TRUE(isText(seen, kBackdrop, "=== 12 SOLFEGGIO FREQUENCIES ===", 52, 177, font, kPageHeading));
    EXPECT_TRUE(isText(seen, kBackdrop, "147, 174, 258, 285, 369, 396, 417, 528, 639, 741, 852, 963", 52, 194,
                       font, body));
    EXPECT_TRUE(isText(seen, kBackdrop, "=== VERIFIED DISCOVERIES ===", 52, 220, font, kPageHeading));
    EXPECT_TRUE(isText(seen, kBackdrop, "7. Mean of 12 extended = 480.75 Hz (not 555)", 52, 327, font, dim));
    EXPECT_TRUE(isText(seen, kBackdrop, "8. R-R differences always multiples of 9 (9k theorem)", 52, 342,
                       font, body));
}

TEST_F(ResearchPageView, ScrollMaxIsWhatThePageIsTallerThanItsBody) {
    draw({40, 100, 400, 100}, kSmallPage);
    EXPECT_EQ(scroll.researchScrollMax, kSmallWhole - 100);
    draw({40, 100, 400, kSmallWhole - 1}, kSmallPage);
    EXPECT_EQ(scroll.researchScrollMax, 1);
    draw({40, 100, 400, kSmallWhole}, kSmallPage);
    EXPECT_EQ(scroll.researchScrollMax, 0);
    draw({242, 84, 516, 534}, katharaPage);
    EXPECT_EQ(scroll.researchScrollMax, 14 + 123 * 15 + (13 * 2 + 14 * 8 + 12 * 14 + 16) + 20 - 534);
    draw({162, 104, 416, 394}, sacredPage);
    EXPECT_EQ(scroll.researchScrollMax, 14 + 101 * 15 + (12 * 2 + 19 * 8 + 11 * 14 + 16) + 20 - 394);
}

TEST_F(ResearchPageView, ScrollMaxDoesNotDependOnTheScroll) {
    scroll.researchScroll = 700;
    draw({40, 100, 400, 534}, katharaPage);
    EXPECT_EQ(scroll.researchScrollMax, 1667);
    EXPECT_EQ(scroll.researchScroll, 700);
}

TEST_F(ResearchPageView, AShortPageDoesNotScroll) {
    draw(kBody, kSmallPage);
    EXPECT_EQ(scroll.researchScrollMax, 0);
    scrollResearchPage(scroll, -3);
    EXPECT_EQ(scroll.researchScroll, 0);
    scrollResearchPage(scroll, 3);
    EXPECT_EQ(scroll.researchScroll, 0);
}

TEST_F(ResearchPageView, ANotchIsThirtyPixelsAndTheEndsHold) {
    scroll.researchScrollMax = 100;
    scrollResearchPage(scroll, -2);
    EXPECT_EQ(scroll.researchScroll, 60);
    scrollResearchPage(scroll, 1);
    EXPECT_EQ(scroll.researchScroll, 30);
    scrollResearchPage(scroll, 2);
    EXPECT_EQ(scroll.researchScroll, 0);
    scrollResearchPage(scroll, -4);
    EXPECT_EQ(scroll.researchScroll, 100);
    scrollResearchPage(scroll, 0);
    EXPECT_EQ(scroll.researchScroll, 100);
    scrollResearchPage(scroll, INT_MAX);
    EXPECT_EQ(scroll.researchScroll, 0);
    scrollResearchPage(scroll, INT_MIN);
    EXPECT_EQ(scroll.researchScroll, 100);
}

TEST_F(ResearchPageView, ScrollingMovesTheLinesUp) {
    scroll.researchScroll = 30;
    const Picture seen = draw({40, 100, 400, 100}, kSmallPage);
    EXPECT_TRUE(isText(seen, kBackdrop, "Gamma", 52, 116, fonts.fontLabel, {160, 155, 180, 200}));
    EXPECT_TRUE(isText(seen, kBackdrop, "Zeta — ", 52, 169, fonts.fontLabel, {200, 140, 220, 255}));
}

TEST_F(ResearchPageView, AtTheEndTheLastCreditStandsTwentyPixelsAboveTheFoot) {
    scroll.researchScroll = INT_MAX;
    const SDL_Rect body{40, 100, 400, 200};
    const Picture seen = draw(body, sacredPage);
    EXPECT_EQ(scroll.researchScroll, scroll.researchScrollMax);
    const SDL_Color dim{160, 155, 180, 200};
    EXPECT_TRUE(isText(seen, kBackdrop, "342 Frequency System", 52, 300 - 20 - 15, fonts.fontLabel, dim));
    EXPECT_TRUE(isText(seen, kBackdrop, "Original research + mathematical verification", 52, 300 - 20 - 45,
                       fonts.fontLabel, dim));
}

TEST_F(ResearchPageView, ATallerBodyBringsAnOverscrolledPageBackAtOnce) {
    scroll.researchScroll = 90;
    draw({40, 100, 400, 60}, kSmallPage);
    EXPECT_EQ(scroll.researchScroll, kSmallWhole - 60);
    const Picture seen = draw({40, 100, 400, kSmallWhole - 10}, kSmallPage);
    EXPECT_EQ(scroll.researchScroll, 10);
    EXPECT_TRUE(isText(seen, kBackdrop, "Alpha", 52, 104, fonts.fontLabel, kPageHeading));
    scroll.researchScroll = -50;
    draw(kBody, kSmallPage);
    EXPECT_EQ(scroll.researchScroll, 0);
}

TEST_F(ResearchPageView, LinesOutOfSightAreNotDrawnAndKeepTheirPlace) {
    const SDL_Rect body{40, 100, 500, 200};
    for (const int offset : {0, 1, 30, 333, 1200, 2001}) {
        scroll.researchScroll = offset;
        const std::uint64_t wanted = linesInSight(body, katharaPage, offset);
        EXPECT_EQ(linesDrawn(body, katharaPage), wanted) << offset;
        EXPECT_GT(wanted, 8u);
        EXPECT_LT(wanted, 17u);
    }
    EXPECT_EQ(scroll.researchScroll, 2001) << "the end, as tall as all lines together say";
}

TEST_F(ResearchPageView, TheClipKeepsTextOutOfTheTitleBarAndOffTheEdges) {
    const SDL_Rect narrow{40, 100, 120, 97};
    for (int offset = 0; offset < 60; offset += 7) {
        scroll.researchScroll = offset;
        const Picture seen = draw(narrow, katharaPage);
        for (int y = 0; y < seen.h; ++y) {
            for (int x = 0; x < seen.w; ++x) {
                const bool inside = x >= 40 && x < 160 && y >= 100 && y < 197;
                if (!inside) {
                    ASSERT_EQ(seen.at(x, y), kBackdrop) << x << ", " << y;
                }
            }
        }
        EXPECT_GT(touched(), 100);
    }
}

TEST_F(ResearchPageView, ALineIsCutWhereTheBodyBegins) {
    scroll.researchScroll = 20;  // "Alpha" from 94 on
    const Picture seen = draw({40, 100, 400, 100}, kSmallPage);
    int inked = 0;
    for (int x = 52; x < 90; ++x)
        inked += seen.at(x, 101) == kBackdrop ? 0 : 1;
    EXPECT_GT(inked, 3);
    for (int x = 52; x < 90; ++x)
        EXPECT_EQ(seen.at(x, 99), kBackdrop);
}

TEST_F(ResearchPageView, TheClipOfBeforeIsBack) {
    const SDL_Rect before{10, 10, 300, 200};
    SDL_RenderSetClipRect(screen.renderer, &before);
    drawResearchPage(context, kBody, 52, katharaPage, scroll);
    SDL_Rect after{};
    SDL_RenderGetClipRect(screen.renderer, &after);
    EXPECT_TRUE(SDL_RectEquals(&before, &after));
    SDL_RenderSetClipRect(screen.renderer, nullptr);
}

TEST_F(ResearchPageView, ABodyWithoutSizeDrawsNothing) {
    for (const SDL_Rect& body :
         {SDL_Rect{40, 100, 0, 100}, SDL_Rect{40, 100, 400, 0}, SDL_Rect{40, 100, -5, -7}}) {
        draw(body, katharaPage);
        EXPECT_EQ(touched(), 0);
        EXPECT_GE(scroll.researchScrollMax, 2101);
        EXPECT_LE(scroll.researchScrollMax, 2201);
    }
}

TEST_F(ResearchPageView, APageOfNothingIsBlank) {
    draw(kBody, ResearchPage{});
    EXPECT_EQ(touched(), 0);
    EXPECT_EQ(scroll.researchScrollMax, 0);
}

TEST_F(ResearchPageView, WithoutAFontThePageStaysBlankAndKeepsItsLength) {
    closeFonts(fonts);
    draw({40, 100, 400, 534}, katharaPage);
    EXPECT_EQ(touched(), 0);
    EXPECT_EQ(scroll.researchScrollMax, 1667);
}

class WidePage : public ResearchPageView {
  protected:
    WidePage() : ResearchPageView(1920, 1080) {}
};

TEST_F(WidePage, FillsAMaximisedPanelAndTheSmallestOne) {
    for (const SDL_Rect& body : {SDL_Rect{2, 24, 1916, 1054}, SDL_Rect{2, 24, 196, 124}}) {
        EXPECT_EQ(linesDrawn(body, katharaPage), linesInSight(body, katharaPage, 0));
        EXPECT_EQ(scroll.researchScrollMax, 2201 - body.h);
        EXPECT_GT(touched(), 500);
    }
}

}  // namespace
}  // namespace veloria
