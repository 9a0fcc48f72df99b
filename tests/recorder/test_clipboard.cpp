#include "recorder/clipboard.h"

#include <set>

#include "tests/recorder/recorder_fixture.h"

namespace veloria {
namespace {

class Clipboard : public test::RecorderTest {
  protected:
    RecorderClip& addSelected(std::int32_t channel, double frequency, double start, double end) {
        RecorderClip& clip = add(channel, frequency, start, end);
        clip.selected = true;
        return clip;
    }
};

TEST_F(Clipboard, HoldsTheSelectedWithTheirPlacesAndTheEarliestStart) {
    addSelected(1, 300.004, 7.0, 8.0).label = "late";
    add(0, 200.0, 1.0, 2.0);
    addSelected(0, 500.0, 4.0, 5.0);
    copySelected(recorder);
    ASSERT_EQ(recorder.clipboard.size(), 2u);
    EXPECT_EQ(recorder.clipboard[0].channel, 0);
    EXPECT_EQ(recorder.clipboard[0].frequency, 500.0);
    EXPECT_EQ(recorder.clipboard[1].channel, 1);
    EXPECT_EQ(recorder.clipboard[1].frequency, 300.0);
    EXPECT_EQ(recorder.clipboard[1].clip.label, "late");
    EXPECT_EQ(recorder.clipboardStart, 4.0);
}

TEST_F(Clipboard, ACopyOfNothingEmptiesIt) {
    addSelected(0, 500.0, 4.0, 5.0);
    copySelected(recorder);
    deselectAll(recorder);
    copySelected(recorder);
    EXPECT_TRUE(recorder.clipboard.empty());
    EXPECT_EQ(recorder.clipboardStart, 1e18);
    pasteClipboard(recorder);
    EXPECT_EQ(recorder.clipCount, 1);
}

TEST_F(Clipboard, APasteBeginsAtThePlayheadAndKeepsTheDistances) {
    addSelected(0, 500.0, 4.0, 5.0);
    addSelected(1, 300.0, 7.0, 7.5).gainInDb = -9.0f;
    copySelected(recorder);
    recorder.playhead = 10.0;
    pasteClipboard(recorder);
    ASSERT_EQ(recorder.clipCount, 4);
    const auto& clips = recorder.clips;
    const RecorderClip& first = clips.at(0).at(50000).back();
    const RecorderClip& second = clips.at(1).at(30000).back();
    EXPECT_EQ(first.start, 10.0);
    EXPECT_EQ(first.end, 11.0);
    EXPECT_EQ(second.start, 13.0);
    EXPECT_EQ(second.end, 13.5);
    EXPECT_EQ(second.gainInDb, -9.0f);
    EXPECT_FALSE(first.selected);
    EXPECT_EQ(first.id, 3);
    EXPECT_EQ(second.id, 4);
    EXPECT_EQ(recorder.nextClipId, 5);
    EXPECT_TRUE(clips.at(0).at(50000).front().selected);
}

TEST_F(Clipboard, PastingTwiceDoublesTheClipsExactlyWithOtherNumbers) {
    addSelected(0, 500.0, 4.0, 5.0);
    addSelected(0, 500.0, 4.5, 6.0);
    copySelected(recorder);
    recorder.playhead = 2.0;
    pasteClipboard(recorder);
    pasteClipboard(recorder);
    const std::vector<RecorderClip*> clips = allClips(recorder);
    ASSERT_EQ(clips.size(), 6u);
    std::set<std::int32_t> numbers;
    std::set<std::uint64_t> serials;
    for (const RecorderClip* clip : clips) {
        numbers.insert(clip->id);
        serials.insert(clip->serial);
    }
    EXPECT_EQ(numbers.size(), 6u);
    EXPECT_EQ(serials.size(), 6u);
    for (const std::size_t i : {2u, 3u}) {
        EXPECT_EQ(clips[i]->start, clips[i + 2]->start);
        EXPECT_EQ(clips[i]->end, clips[i + 2]->end);
    }
    EXPECT_EQ(recorder.clipboard.size(), 2u);
}

TEST_F(Clipboard, ClipsOfLostRowsAreLaidOnTheLastOne) {
    addSelected(0, 500.0, 0.0, 1.0);
    addSelected(3, 300.0, 0.0, 1.0);
    copySelected(recorder);
    recorder.channelCount = 2;
    pasteClipboard(recorder);
    EXPECT_EQ(clipsOfChannel(recorder, 0).size(), 2u);
    ASSERT_EQ(clipsOfChannel(recorder, 1).size(), 1u);
    EXPECT_EQ(clipFrequency(recorder, clipsOfChannel(recorder, 1)[0]), 300.0);
    EXPECT_EQ(clipsOfChannel(recorder, 3).size(), 1u);
}

TEST_F(Clipboard, OutlivesItsOriginals) {
    addSelected(0, 500.0, 3.0, 4.0);
    copySelected(recorder);
    clearRecorder(recorder);
    pasteClipboard(recorder);
    ASSERT_EQ(recorder.clipCount, 1);
    EXPECT_EQ(allClips(recorder)[0]->id, 1);
    EXPECT_EQ(allClips(recorder)[0]->start, 0.0);
}

}  // namespace
}  // namespace veloria
