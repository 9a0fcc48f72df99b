#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "tests/ui/app_fixture.h"

namespace veloria {
namespace {

using Widgets = test::AppTest;

std::vector<std::string> labels(const AppState& app, std::int32_t group) {
    std::vector<std::string> found;
    for (const Widget& widget : app.widgets) {
        if (widget.group == group) found.push_back(widget.label);
    }
    return found;
}

// A hue of `degrees`, worked out the way a colour book does.
SDL_Color hue(double degrees, double saturation, double lightness) {
    const double chroma = (1 - std::fabs(2 * lightness - 1)) * saturation;
    const double sector = std::fmod(degrees, 360.0) / 60.0;
    const double second = chroma * (1 - std::fabs(std::fmod(sector, 2.0) - 1));
    const double rgb[6][3] = {{chroma, second, 0}, {second, chroma, 0}, {0, chroma, second},
                              {0, second, chroma}, {second, 0, chroma}, {chroma, 0, second}};
    const auto byte = [&](int i) {
        return static_cast<Uint8>((rgb[static_cast<int>(sector)][i] + lightness - chroma / 2) * 255.0);
    };
    return {byte(0), byte(1), byte(2), 255};
}

void expectNear(SDL_Color actual, SDL_Color expected, const std::string& what) {
    EXPECT_NEAR(actual.r, expected.r, 1) << what;
    EXPECT_NEAR(actual.g, expected.g, 1) << what;
    EXPECT_NEAR(actual.b, expected.b, 1) << what;
    EXPECT_EQ(actual.a, 255) << what;
}

TEST_F(Widgets, TheTopBarComesFirstInItsOrder) {
    EXPECT_EQ(labels(app, kTopBarGroup),
              (std::vector<std::string>{"LOAD MUSIC FILE", "STOP", "PLAY", "RESET"}));
    EXPECT_EQ(app.widgets[0].label, "LOAD MUSIC FILE");
    EXPECT_FALSE(app.widgets[0].onClick);
}

TEST_F(Widgets, TheLeftPanelsButtonsFollowInTheirOrder) {
    const std::vector<std::string> expected = {
        "SPEC 1",     "SPEC 2",      "SACRED",         "HARMONICS", "KATHARA",       "LOTUS",
        "POLAR",      "SCOPE",       "KATHARA PANEL",  "SHADOW",    "Original Midi", "Sacred Optimizer",
        "FFT Off",    "FFT Full",    "FFT Peak",       "Sine",      "Saw",           "Square",
        "Triangle",   "Bass Filter", "MIDI Normalize", "Heart",     "Trinity",       "Fibonacci",
        "DNA Spiral", "Import MIDI"};
    EXPECT_EQ(labels(app, kLeftPanelGroup), expected);
    for (const std::string& label : expected) {
        EXPECT_GE(tabOfButton(label), 0) << label;
        EXPECT_TRUE(widget(label).onClick) << label;
        EXPECT_TRUE(widget(label).detail.empty()) << label;
    }
}

TEST_F(Widgets, EachFamilyIsAscendingAndItsGroupNamesTheSourceRow) {
    for (const std::int32_t group : {kReflectionGroup, kRotationGroup}) {
        const auto& table = group == kReflectionGroup ? reflectionFreqs : rotationFreqs;
        const char* name = group == kReflectionGroup ? " Reflect" : " Rotate";
        double last = 0.0;
        int rows = 0;
        for (const Widget& row : app.widgets) {
            if (row.group < group || row.group >= group + 81) continue;
            const double hz = table[static_cast<std::size_t>(row.group - group)];
            EXPECT_GT(hz, last);
            last = hz;
            const int number = static_cast<int>(hz);
            EXPECT_EQ(row.label, std::to_string(number) + name);
            EXPECT_EQ(row.detail,
                      std::to_string(number) + " Hz | DR" + std::to_string(number % 9 == 0 ? 9 : number % 9));
            const double offset = group == kReflectionGroup ? 0.0 : 180.0;
            expectNear(row.color, hue(rows * 137.508 + offset, group == kReflectionGroup ? 0.65 : 0.6, 0.4),
                       row.label);
            ++rows;
        }
        EXPECT_EQ(rows, 81);
    }
}

TEST_F(Widgets, TheShadowTableHas216RowsOfWhich36AreInert) {
    int rows = 0;
    int inert = 0;
    for (const Widget& row : app.widgets) {
        if (row.group < kShadowGroup) continue;
        const int number = std::stoi(row.label);
        EXPECT_EQ(row.label, std::to_string(number) + " Shadow");
        EXPECT_EQ(shadowFrequency(static_cast<std::uint32_t>(row.group - kShadowGroup)), number);
        if (isInertRow(row)) {
            ++inert;
            EXPECT_EQ(row.detail, std::to_string(number) + " Hz | AVT");
            expectNear(row.color, {80, 70, 100, 255}, row.label);
        } else {
            int root = number / 100 + number / 10 % 10 + number % 10;
            while (root > 9)
                root = root / 10 + root % 10;
            const std::string digits = std::to_string(number);
            const bool six = digits.find('6') != std::string::npos;
            const bool five = digits.find('5') != std::string::npos;
            const std::string name = six ? "666" : five ? "555" : "444";
            EXPECT_EQ(row.detail, digits + " Hz | DR" + std::to_string(root) + " | " + name);
            expectNear(row.color,
                       six    ? hue(rows * 137.508 + 240, 0.5, 0.38)
                       : five ? hue(rows * 137.508 + 120, 0.55, 0.38)
                              : hue(rows * 137.508, 0.6, 0.38),
                       row.label);
        }
        ++rows;
    }
    EXPECT_EQ(rows, 216);
    EXPECT_EQ(inert, 36);
}

TEST_F(Widgets, BuildingAgainGivesTheSameList) {
    const std::size_t count = app.widgets.size();
    buildWidgetLists(app);
    EXPECT_EQ(app.widgets.size(), count);
    EXPECT_EQ(count, 4u + 26u + 81u + 81u + 216u);
}

TEST_F(Widgets, ARowTogglesItsOwnNoteAndIsLitWhileItIsHeld) {
    const Widget& row = widget("528 Reflect");
    EXPECT_FALSE(isLit(app, row));
    row.onClick();
    EXPECT_TRUE(isLit(app, row));
    EXPECT_EQ(engine.voices.back().frequency, 528.0);
    EXPECT_EQ(engine.voices.back().pan, 0.0f);
    widget("582 Rotate").onClick();
    EXPECT_EQ(engine.voices.back().pan, 1.0f);
    widget("666 Shadow").onClick();
    EXPECT_EQ(engine.voices.back().channel, 10);
    row.onClick();
    EXPECT_FALSE(isLit(app, row));
}

TEST_F(Widgets, AnInertRowDoesNothing) {
    widget("125 Shadow").onClick();
    EXPECT_TRUE(engine.voices.empty());
    EXPECT_FALSE(isLit(app, widget("125 Shadow")));
}

TEST_F(Widgets, OnlyTheFamilyOfTheTabIsShown) {
    EXPECT_TRUE(isShownRow(app, widget("528 Reflect")));
    EXPECT_FALSE(isShownRow(app, widget("582 Rotate")));
    app.avatarSubTab = 1;
    EXPECT_FALSE(isShownRow(app, widget("528 Reflect")));
    EXPECT_TRUE(isShownRow(app, widget("582 Rotate")));
    EXPECT_FALSE(isShownRow(app, widget("666 Shadow")));
    app.tableTab = 1;
    EXPECT_TRUE(isShownRow(app, widget("666 Shadow")));
    EXPECT_FALSE(isShownRow(app, widget("582 Rotate")));
    EXPECT_FALSE(isShownRow(app, widget("STOP")));
}

}  // namespace
}  // namespace veloria
