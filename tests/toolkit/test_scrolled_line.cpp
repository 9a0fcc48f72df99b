#include "toolkit/scrolled_line.h"

#include <gtest/gtest.h>

#include "tests/ui/offscreen.h"

namespace veloria {
namespace {

constexpr SDL_Color kWhite{255, 255, 255, 255};

class ScrolledLine : public test::DrawTest {
  protected:
    ScrolledLine() {
        cursor.clip = {40, 100, 200, 80};
        cursor.x = 52;
        cursor.font = fonts.fontLabel;
    }

    // No clip is set here, so a line that is drawn at all is seen.
    bool isDrawnAt(int y) {
        screen.clear(test::kBackdrop);
        cursor.y = y;
        DrawScrolledLine(context, cursor, "LINE", kWhite);
        return touched() > 0;
    }

    ScrolledCursor cursor;
};

TEST_F(ScrolledLine, OnlyALineThatMayBeSeenIsDrawn) {
    EXPECT_FALSE(isDrawnAt(80));  // 20 above the top
    EXPECT_TRUE(isDrawnAt(81));
    EXPECT_TRUE(isDrawnAt(120));
    EXPECT_TRUE(isDrawnAt(184));
    EXPECT_FALSE(isDrawnAt(185));  // 5 below the foot
}

TEST_F(ScrolledLine, TheCursorGoesOnWhetherOrNotTheLineIsSeen) {
    for (const int y : {-5000, 120, 5000}) {
        cursor.y = y;
        DrawScrolledLine(context, cursor, "LINE", kWhite);
        EXPECT_EQ(cursor.y, y + 15);
    }
    cursor.lineHeight = 14;
    cursor.y = 100;
    DrawScrolledLine(context, cursor, "", kWhite);
    EXPECT_EQ(cursor.y, 114);
}

TEST_F(ScrolledLine, TheTextStartsAtTheCursor) {
    isDrawnAt(120);
    const test::Picture seen = picture();
    for (int y = 0; y < seen.h; ++y) {
        for (int x = 0; x < seen.w; ++x) {
            if (x < 52 || y < 120) {
                EXPECT_EQ(seen.at(x, y), test::kBackdrop);
            }
        }
    }
}

TEST_F(ScrolledLine, TheTextIsUtf8) {
    cursor.y = 120;
    DrawScrolledLine(context, cursor, "A \xE2\x86\x92 B", kWhite);
    ASSERT_EQ(cache.entries.size(), 1u);
    EXPECT_TRUE(cache.entries.front().key.utf8);
}

TEST_F(ScrolledLine, WithoutAFontThePageKeepsItsLayout) {
    cursor.font = nullptr;
    EXPECT_FALSE(isDrawnAt(120));
    EXPECT_EQ(cursor.y, 135);
}

}  // namespace
}  // namespace veloria
