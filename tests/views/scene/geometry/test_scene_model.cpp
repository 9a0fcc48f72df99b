#include "views/scene/geometry/scene_model.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <vector>

#include "tests/views/scene/scene_fixture.h"
#include "views/scene/geometry/helix.h"
#include "views/scene/geometry/kathara_geometry.h"

namespace veloria {
namespace {

using test::emptyView;
using test::see;

constexpr SDL_Rect kRect{20, 10, 640, 400};

class SceneModel : public testing::Test {
  protected:
    const SceneItems& build() {
        sound.soundingFrequencies = sounding;
        sound.shadowActive = &shadow;
        sound.reflectionActive = &reflection;
        sound.rotationActive = &rotation;
        buildSceneItems(view, kRect, sound, *items);
        return *items;
    }
    [[nodiscard]] std::vector<SceneItem> of(SceneItemKind kind) const {
        std::vector<SceneItem> found;
        for (const SceneItem& item : items->all()) {
            if (item.kind == kind) found.push_back(item);
        }
        return found;
    }
    [[nodiscard]] SceneItem find(SceneItemKind kind, int tag) const {
        const auto all = items->all();
        const auto found = std::find_if(all.begin(), all.end(),
                                        [=](const SceneItem& i) { return i.kind == kind && i.tag == tag; });
        EXPECT_NE(found, all.end()) << tag;
        return found == all.end() ? SceneItem{} : *found;
    }

    KatharaViewState view = emptyView();
    std::vector<float> sounding;
    std::array<bool, kShadowIndexCount> shadow{};
    std::array<bool, kAvatarFamilySize> reflection{};
    std::array<bool, kAvatarFamilySize> rotation{};
    SceneSound sound;
    std::unique_ptr<SceneItems> items = std::make_unique<SceneItems>();
};

TEST_F(SceneModel, WithAllSwitchedOffThereIsNothing) {
    EXPECT_EQ(build().count, 0);
}

TEST_F(SceneModel, AllThatTheDefaultCameraShowsComesInTheOrderOfTheFamilies) {
    view = KatharaViewState{};
    ASSERT_EQ(build().count, 23 + 15 + 162 + 180 + 21);
    const auto all = items->all();
    const auto kindAt = [&](std::size_t i) { return all[i].kind; };
    for (std::size_t i = 0; i < 15; ++i)
        EXPECT_EQ(kindAt(i), SceneItemKind::ThickLine);
    for (std::size_t i = 15; i < 38; ++i)
        EXPECT_EQ(kindAt(i), SceneItemKind::Line);
    for (std::size_t i = 38; i < 200; ++i) {
        EXPECT_EQ(kindAt(i), SceneItemKind::Dot);
        EXPECT_EQ(all[i].tag, static_cast<int>(i) - 38);
    }
    for (std::size_t i = 200; i < 380; ++i)
        EXPECT_EQ(kindAt(i), SceneItemKind::Diamond);
    for (std::size_t i = 380; i < 392; ++i)
        EXPECT_EQ(all[i].tag, static_cast<int>(i) - 380);
    for (std::size_t i = 392; i < 401; ++i)
        EXPECT_EQ(all[i].tag, 100 + static_cast<int>(i) - 392);
}

TEST_F(SceneModel, EdgesHaveTheirColoursWidthsAndMeanDepths) {
    view.showSolfeggio = true;
    view.azimuth = 40.0f;
    build();
    const auto tree = of(SceneItemKind::ThickLine);
    const auto cross = of(SceneItemKind::Line);
    ASSERT_EQ(tree.size(), 15u);
    ASSERT_EQ(cross.size(), 8u);
    EXPECT_EQ(tree[0].colour, (SDL_Color{110, 95, 150, 160}));
    EXPECT_EQ(tree[0].size, 2);
    EXPECT_EQ(tree[0].tag, -1);
    EXPECT_EQ(cross[0].colour, (SDL_Color{80, 70, 120, 100}));
    // The first edge goes from the crown to 852 Hz.
    const test::Seen from = see({0.0f, 2.2f, 0.0f}, view, kRect);
    const test::Seen to = see({-1.0f, 1.6f, -0.35f}, view, kRect);
    EXPECT_NEAR(tree[0].x, from.x, 1);
    EXPECT_NEAR(tree[0].y, from.y, 1);
    EXPECT_NEAR(tree[0].x2, to.x, 1);
    EXPECT_NEAR(tree[0].y2, to.y, 1);
    EXPECT_NEAR(static_cast<double>(tree[0].depth), (from.depth + to.depth) / 2, 1e-4);
}

TEST_F(SceneModel, AnEdgeWithAnEndBehindTheNearDepthIsLeftOutWhole) {
    view.showSolfeggio = true;
    view.zoom = 0.0f;
    build();
    // Seen from the origin only what lies at a depth of 0.35 or 0.55 is in front: 174, 285, 396, 528, 741.
    EXPECT_EQ(of(SceneItemKind::Node).size(), 5u);
    const auto tree = of(SceneItemKind::ThickLine);
    ASSERT_EQ(tree.size(), 4u) << "741-528, 528-396, 396-285, 285-174";
    EXPECT_TRUE(of(SceneItemKind::Line).empty());
}

TEST_F(SceneModel, TheEnneagramHasItsHexadAndRingButNotTheTriangle) {
    view.showEnneagram = true;
    build();
    const auto lines = of(SceneItemKind::Line);
    ASSERT_EQ(lines.size(), 15u);
    for (std::size_t i = 0; i < 15; ++i)
        EXPECT_EQ(lines[i].colour, (i < 6 ? SDL_Color{140, 125, 160, 80} : SDL_Color{90, 85, 115, 70}));
    // From digit 1 to digit 4, and at last from 9 to 1.
    const test::Seen one = see(enneagramPoint(1), view, kRect);
    const test::Seen four = see(enneagramPoint(4), view, kRect);
    const test::Seen nine = see(enneagramPoint(9), view, kRect);
    EXPECT_NEAR(lines[0].x, one.x, 1);
    EXPECT_NEAR(lines[0].x2, four.x, 1);
    EXPECT_NEAR(lines[14].x, nine.x, 1);
    EXPECT_NEAR(lines[14].x2, one.x, 1);
    const auto digits = of(SceneItemKind::Node);
    ASSERT_EQ(digits.size(), 9u);
    EXPECT_EQ(digits[8].tag, 108);
    EXPECT_EQ(digits[8].size, 6);
    EXPECT_EQ(digits[8].colour, (SDL_Color{110, 100, 140, 130}));
    EXPECT_EQ(digits[8].active, 0);
}

TEST_F(SceneModel, DotsLightByTheirSwitchOrByTheSound) {
    view.showReflection = view.showRotation = true;
    reflection[3] = true;         // 162
    sounding = {152.3f, 947.0f};  // reflection 0, rotation 80
    rotation[1] = true;           // 251
    build();
    for (const auto& item : items->all()) {
        const bool lit = item.tag == 0 || item.tag == 3 || item.tag == 82 || item.tag == 161;
        EXPECT_EQ(item.active, lit ? 1 : 0) << item.tag;
        EXPECT_EQ(item.size, lit ? 5 : 2);
    }
    EXPECT_EQ(find(SceneItemKind::Dot, 0).colour, (SDL_Color{255, 220, 70, 245}));
    EXPECT_EQ(find(SceneItemKind::Dot, 1).colour, (SDL_Color{210, 170, 55, 30}));
    EXPECT_EQ(find(SceneItemKind::Dot, 161).colour, (SDL_Color{70, 240, 220, 245}));
    EXPECT_EQ(find(SceneItemKind::Dot, 160).colour, (SDL_Color{55, 170, 155, 30}));
}

TEST_F(SceneModel, AMissingFlagArrayHasNothingSwitchedOn) {
    view.showReflection = view.showRotation = view.showShadow = true;
    buildSceneItems(view, kRect, SceneSound{}, *items);
    EXPECT_EQ(items->count, 162 + 180);
    for (const auto& item : items->all())
        EXPECT_EQ(item.active, 0);
}

TEST_F(SceneModel, DiamondsLeaveOutTheConvergenceNumbersAndTakeTheirGroupsColours) {
    view.showShadow = true;
    shadow[0] = true;  // 111
    sounding = {555.0f, 666.4f};
    build();
    const auto diamonds = of(SceneItemKind::Diamond);
    ASSERT_EQ(diamonds.size(), 180u);
    for (const SceneItem& item : diamonds)
        EXPECT_NE(item.tag, 200 + 10) << "125 is a rotation frequency";
    EXPECT_EQ(find(SceneItemKind::Diamond, 200).colour, (SDL_Color{255, 50, 50, 250}));
    EXPECT_EQ(find(SceneItemKind::Diamond, 200).size, 10);
    EXPECT_EQ(find(SceneItemKind::Diamond, 201).colour, (SDL_Color{180, 40, 40, 25})) << "112";
    EXPECT_EQ(find(SceneItemKind::Diamond, 201).size, 3);
    EXPECT_EQ(find(SceneItemKind::Diamond, 200 + 172).colour, (SDL_Color{50, 255, 120, 250})) << "555";
    EXPECT_EQ(find(SceneItemKind::Diamond, 204).colour, (SDL_Color{40, 140, 70, 25})) << "115";
    EXPECT_EQ(find(SceneItemKind::Diamond, 415).colour, (SDL_Color{180, 80, 255, 250})) << "666";
    EXPECT_EQ(find(SceneItemKind::Diamond, 205).colour, (SDL_Color{100, 50, 160, 25})) << "116";
    EXPECT_EQ(find(SceneItemKind::Diamond, 200 + 29).colour, (SDL_Color{100, 50, 160, 25}))
        << "156: of a 5 and a 6 the 6 counts";
}

TEST_F(SceneModel, TheHelixColoursOnlyNumbersOfOneToFour) {
    view.showShadow = true;
    view.helixLabels = true;
    shadow[1] = true;  // 112, Asn
    build();
    EXPECT_EQ(find(SceneItemKind::Diamond, 201).colour, (SDL_Color{120, 210, 190, 250}));
    EXPECT_EQ(find(SceneItemKind::Diamond, 200).colour, (SDL_Color{40, 60, 127, 30})) << "111, Lys, halved";
    EXPECT_EQ(find(SceneItemKind::Diamond, 208).colour, (SDL_Color{127, 107, 0, 30})) << "123, Met";
    EXPECT_EQ(find(SceneItemKind::Diamond, 236).colour, (SDL_Color{50, 50, 50, 30})) << "211, stop";
    EXPECT_EQ(find(SceneItemKind::Diamond, 204).colour, (SDL_Color{40, 140, 70, 25})) << "115 keeps its own";
    EXPECT_EQ(find(SceneItemKind::Diamond, 415).colour, (SDL_Color{100, 50, 160, 25}));
}

TEST(Helix, EachAminoAcidHasItsColour) {
    const struct {
        int code;
        const char* label;
        SDL_Color colour;
    } codons[] = {{222, "TTT/Phe", {255, 180, 60, 255}},  {221, "TTA/Leu", {255, 160, 40, 255}},
                  {122, "ATT/Ile", {240, 150, 30, 255}},  {123, "ATG/Met", {255, 215, 0, 255}},
                  {322, "GTT/Val", {230, 140, 50, 255}},  {242, "TCT/Ser", {80, 220, 180, 255}},
                  {442, "CCT/Pro", {200, 130, 80, 255}},  {142, "ACT/Thr", {100, 210, 160, 255}},
                  {342, "GCT/Ala", {210, 160, 70, 255}},  {212, "TAT/Tyr", {120, 200, 200, 255}},
                  {412, "CAT/His", {100, 140, 255, 255}}, {411, "CAA/Gln", {140, 200, 220, 255}},
                  {112, "AAT/Asn", {120, 210, 190, 255}}, {111, "AAA/Lys", {80, 120, 255, 255}},
                  {312, "GAT/Asp", {255, 80, 80, 255}},   {311, "GAA/Glu", {255, 100, 100, 255}},
                  {232, "TGT/Cys", {100, 220, 200, 255}}, {233, "TGG/Trp", {255, 200, 80, 255}},
                  {432, "CGT/Arg", {60, 100, 255, 255}},  {332, "GGT/Gly", {160, 220, 180, 255}},
                  {231, "TGA/STP", {100, 100, 100, 255}}};
    for (const auto& codon : codons) {
        EXPECT_EQ(codonColour(codon.code), codon.colour) << codon.label;
        EXPECT_EQ(codonLabel(codon.code), codon.label);
    }
    EXPECT_EQ(codonLabel(115), "");
}

TEST_F(SceneModel, NodesLightBySoundAlone) {
    view.showSolfeggio = true;
    sounding = {417.0f, 963.0f};
    build();
    const SceneItem transit = find(SceneItemKind::Node, 6);
    EXPECT_EQ(transit.active, 1);
    EXPECT_EQ(transit.size, 12);
    EXPECT_EQ(transit.colour, (SDL_Color{55, 210, 155, 255}));
    const SceneItem earth = find(SceneItemKind::Node, 5);
    EXPECT_EQ(earth.active, 0);
    EXPECT_EQ(earth.size, 9);
    EXPECT_EQ(earth.colour, (SDL_Color{220, 175, 55, 255}));
    EXPECT_EQ(find(SceneItemKind::Node, 7).colour, (SDL_Color{155, 95, 220, 255}));
    EXPECT_EQ(find(SceneItemKind::Node, 11).active, 1);
    EXPECT_EQ(find(SceneItemKind::Node, 0).active, 0);
}

TEST_F(SceneModel, TheCoordinatesMoveTheNodesAndNothingElse) {
    view.showSolfeggio = view.showReflection = true;
    build();
    const SceneItem tree = find(SceneItemKind::Node, 0);
    const SceneItem dot = find(SceneItemKind::Dot, 7);
    view.teslaCoordinates = true;
    build();
    const SceneItem tesla = find(SceneItemKind::Node, 0);
    const test::Seen wanted = see({-0.32f, -1.72f, 0.0f}, view, kRect);  // 147, lowered
    EXPECT_NEAR(tesla.x, wanted.x, 1);
    EXPECT_NEAR(tesla.y, wanted.y, 1);
    EXPECT_NE(tesla.y, tree.y);
    EXPECT_EQ(find(SceneItemKind::Dot, 7).y, dot.y);
}

TEST_F(SceneModel, FarItemsComeFirstWhateverTheTurn) {
    view = KatharaViewState{};
    for (const float azimuth : {0.0f, 25.0f, 180.0f, -77.0f}) {
        view.azimuth = azimuth;
        build();
        sortSceneItems(*items);
        const auto all = items->all();
        EXPECT_TRUE(std::is_sorted(all.begin(), all.end(),
                                   [](const SceneItem& a, const SceneItem& b) { return a.depth > b.depth; }));
    }
}

TEST_F(SceneModel, AFullListTakesNoMore) {
    for (int i = 0; i < 1285; ++i) {
        SceneItem item;
        item.tag = i;
        appendItem(*items, item);
    }
    EXPECT_EQ(items->count, 1280);
    EXPECT_EQ(items->items.back().tag, 1279);
}

TEST_F(SceneModel, ACameraThatIsNoNumberSeesNothing) {
    view = KatharaViewState{};
    view.zoom = std::nanf("");
    EXPECT_EQ(build().count, 0);
}

}  // namespace
}  // namespace veloria
