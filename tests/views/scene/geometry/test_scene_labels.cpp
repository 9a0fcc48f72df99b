#include "views/scene/geometry/scene_labels.h"

#include <gtest/gtest.h>

namespace veloria {
namespace {

TEST(SceneLabels, LabelsThatTouchDoNotOverlap) {
    const LabelRect label{10, 20, 30, 8};
    EXPECT_FALSE(labelsOverlap({40, 20, 5, 8}, label));
    EXPECT_TRUE(labelsOverlap({39, 20, 5, 8}, label));
    EXPECT_FALSE(labelsOverlap({5, 20, 5, 8}, label));
    EXPECT_TRUE(labelsOverlap({5, 20, 6, 8}, label));
    EXPECT_FALSE(labelsOverlap({10, 28, 30, 8}, label));
    EXPECT_TRUE(labelsOverlap({10, 27, 30, 8}, label));
    EXPECT_FALSE(labelsOverlap({10, 12, 30, 8}, label));
    EXPECT_TRUE(labelsOverlap({15, 22, 2, 2}, label)) << "within";
}

TEST(SceneLabels, OneThatFindsNoRoomIsNotRemembered) {
    SceneLabels labels;
    EXPECT_TRUE(placeLabel(labels, {0, 0, 20, 8}));
    EXPECT_FALSE(placeLabel(labels, {10, 4, 20, 8}));
    EXPECT_EQ(labels.count, 1);
    EXPECT_TRUE(placeLabel(labels, {20, 4, 20, 8})) << "only the refused one was in the way";
    EXPECT_EQ(labels.count, 2);
}

TEST(SceneLabels, BeyondFiveHundredAndTwelveTheyAreDrawnButNotRemembered) {
    SceneLabels labels;
    for (int i = 0; i < 512; ++i)
        ASSERT_TRUE(placeLabel(labels, {i * 10, 0, 10, 8}));
    EXPECT_TRUE(placeLabel(labels, {0, 100, 10, 8}));
    EXPECT_TRUE(placeLabel(labels, {0, 100, 10, 8}));
    EXPECT_EQ(labels.count, 512);
    EXPECT_FALSE(placeLabel(labels, {5, 0, 10, 8}));
}

}  // namespace
}  // namespace veloria
