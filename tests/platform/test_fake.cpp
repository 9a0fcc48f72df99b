#include "platform/fake/fake_platform.h"

#include <gtest/gtest.h>

#include <array>
#include <new>
#include <vector>

#include "platform/audio_device.h"
#include "platform/clock.h"
#include "platform/dialog_hook.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/media_command.h"
#include "platform/message_box.h"

namespace veloria::platform {
namespace {

constexpr FileFilter kFilters[] = {{"WAV Files", "*.wav"}, {"All Files", "*.*"}};

class Fake : public testing::Test {
  protected:
    void SetUp() override { fakePlatform().reset(); }
};

std::string reply(const std::string& command) {
    std::array<char, 64> text{};
    EXPECT_EQ(mediaCommand(command, text.data(), text.size()), 0);
    return text.data();
}

TEST_F(Fake, EveryCallIsWrittenDownInItsOrder) {
    std::array<char, 64> text{};
    pauseAudioDevice(true);
    waitMs(50);
    (void)mediaCommand("open \"x\" alias VeloMedia", nullptr, 0);
    mediaErrorText(263, text.data(), text.size());
    messageBox("text", "Error", MessageIcon::Error);
    messageBox("note", "Import", MessageIcon::Information);
    lockAudioDevice();
    unlockAudioDevice();
    pauseAudioDevice(false);
    EXPECT_EQ(fakePlatform().log,
              (std::vector<std::string>{"pause 1", "wait 50", "mediaCommand open \"x\" alias VeloMedia",
                                        "mediaErrorText 263", "messageBox Error|Error|text",
                                        "messageBox Information|Import|note", "lock", "unlock", "pause 0"}));
    EXPECT_STREQ(text.data(), "fake media error");
    EXPECT_EQ(fakePlatform().count("lock"), 1);
    EXPECT_EQ(fakePlatform().count("missing"), 0);
}

TEST_F(Fake, DialogsAnswerInTurnAndAreCancelledAfterThat) {
    fakePlatform().dialogPaths = {"/a.mid", "/b.wav"};
    EXPECT_EQ(chooseFileToOpen({"Select", kFilters}), "/a.mid");
    EXPECT_EQ(chooseFileToSave({"Export", kFilters, "name.wav", "wav"}), "/b.wav");
    EXPECT_EQ(chooseFileToOpen({"Select", kFilters}), "");
    EXPECT_EQ(fakePlatform().log[0], "chooseFileToOpen Select|WAV Files=*.wav|All Files=*.*");
    EXPECT_EQ(fakePlatform().log[1], "chooseFileToSave Export|name.wav|wav|WAV Files=*.wav|All Files=*.*");
}

TEST_F(Fake, ADialogStandsAsLongAsItIsToldAndCallsTheHookAtEachStep) {
    std::vector<std::uint32_t> called;
    setDialogHook([&called] { called.push_back(fakePlatform().ticks); });
    fakePlatform().dialogMs = 30;
    messageBox("text", "Error", MessageIcon::Error);
    setDialogHook({});
    messageBox("text", "Error", MessageIcon::Error);
    EXPECT_EQ(called, (std::vector<std::uint32_t>{10, 20, 30}));
    EXPECT_EQ(fakePlatform().ticks, 60u);
}

TEST_F(Fake, ABoxThatTheHookAsksForComesBehindTheDialog) {
    int asked = 0;
    setDialogHook([&asked] {
        if (++asked <= 2) messageBox(asked == 1 ? "first" : "second", "Error", MessageIcon::Error);
        EXPECT_EQ(fakePlatform().log.size(), asked <= 3 ? 1u : fakePlatform().log.size());
    });
    fakePlatform().dialogMs = 30;
    fakePlatform().dialogPaths = {"/a.mid"};
    EXPECT_EQ(chooseFileToOpen({"Select", kFilters}), "/a.mid");
    setDialogHook({});
    ASSERT_EQ(fakePlatform().log.size(), 3u);
    EXPECT_EQ(fakePlatform().log[1], "messageBox Error|Error|first");
    EXPECT_EQ(fakePlatform().log[2], "messageBox Error|Error|second");
    messageBox("third", "Error", MessageIcon::Error);
    EXPECT_EQ(fakePlatform().log.size(), 4u);
}

TEST_F(Fake, WhatTheHookThrowsIsDropped) {
    int calls = 0;
    setDialogHook([&calls] {
        ++calls;
        throw std::bad_alloc();
    });
    fakePlatform().dialogMs = 20;
    EXPECT_EQ(chooseFileToOpen({"Select", kFilters}), "");
    setDialogHook({});
    EXPECT_EQ(calls, 2);
}

TEST_F(Fake, MediaAnswersGoByCommandThenByFirstWord) {
    fakePlatform().mediaAnswers["status"] = {{0, "any"}};
    fakePlatform().mediaAnswers["status VeloMedia mode"] = {{0, "playing"}, {0, "stopped"}};
    fakePlatform().mediaAnswers["open"] = {{275, ""}};
    EXPECT_EQ(reply("status VeloMedia mode"), "playing");
    EXPECT_EQ(reply("status VeloMedia mode"), "stopped");
    EXPECT_EQ(reply("status VeloMedia mode"), "stopped");
    EXPECT_EQ(reply("status VeloMedia position"), "any");
    EXPECT_EQ(reply("play VeloMedia"), "");
    EXPECT_EQ(mediaCommand("open \"x\" alias VeloMedia", nullptr, 0), 275);
}

TEST_F(Fake, AMediaReplyIsCutToTheBuffer) {
    fakePlatform().mediaAnswers["status"] = {{0, "123456"}};
    std::array<char, 4> text{};
    (void)mediaCommand("status VeloMedia position", text.data(), text.size());
    EXPECT_STREQ(text.data(), "123");
}

TEST_F(Fake, WaitingMovesTheTicksOn) {
    fakePlatform().ticks = 1000;
    waitMs(50);
    EXPECT_EQ(ticksMs(), 1050U);
}

TEST_F(Fake, HoldsAndPausesAreCounted) {
    lockAudioDevice();
    lockAudioDevice();
    unlockAudioDevice();
    pauseAudioDevice(true);
    EXPECT_EQ(fakePlatform().lockDepth, 1);
    EXPECT_TRUE(fakePlatform().audioPaused);
}

TEST_F(Fake, TheCallbackSeesEachCallAsItHappens) {
    bool pausedAtDialog = false;
    fakePlatform().onCall = [&](const std::string& entry) {
        if (entry.rfind("chooseFileToSave", 0) == 0) pausedAtDialog = fakePlatform().audioPaused;
    };
    pauseAudioDevice(true);
    (void)chooseFileToSave({"Export", kFilters, "", ""});
    EXPECT_TRUE(pausedAtDialog);
}

TEST_F(Fake, ResetForgetsEverything) {
    fakePlatform().dialogPaths = {"/a"};
    fakePlatform().ticks = 5;
    lockAudioDevice();
    fakePlatform().reset();
    EXPECT_TRUE(fakePlatform().log.empty());
    EXPECT_TRUE(fakePlatform().dialogPaths.empty());
    EXPECT_EQ(ticksMs(), 0U);
    EXPECT_EQ(fakePlatform().lockDepth, 0);
}

TEST_F(Fake, FilesAreReal) {
    std::vector<std::uint8_t> bytes;
    EXPECT_TRUE(readWholeFile("/proc/self/status", bytes));
    EXPECT_FALSE(bytes.empty());
    EXPECT_TRUE(fakePlatform().log.empty());
}

}  // namespace
}  // namespace veloria::platform
