// What the user is told where no window can be shown, and what starting the toolkits leaves as it was.
#include <SDL.h>
#include <gst/gst.h>
#include <gtest/gtest.h>

#include <array>
#include <clocale>
#include <cstdlib>
#include <filesystem>

#include "platform/dialogs.h"
#include "platform/linux/gtk_modal.h"
#include "platform/media_command.h"
#include "platform/message_box.h"
#include "tests/platform/scratch_folder.h"

namespace veloria::platform {
namespace {

constexpr FileFilter kFilters[] = {{"All Files", "*.*"}};

// Takes every display away, also on a developer's desk, and puts the user's settings to a locale that is not
// "C".
class NoDisplay : public testing::Test {
  protected:
    void SetUp() override {
        unsetenv("DISPLAY");
        unsetenv("WAYLAND_DISPLAY");
        setenv("XDG_RUNTIME_DIR", m_folder.path().c_str(), 1);
        setenv("LC_ALL", "C.UTF-8", 1);
        ASSERT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C");
    }
    test::ScratchFolder m_folder;
};

TEST_F(NoDisplay, AMessageGoesToStandardErrorAsOneLine) {
    testing::internal::CaptureStderr();
    messageBox("Could not read\naudio file!", "Error", MessageIcon::Error);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Error: Could not read audio file!\n");
}

TEST_F(NoDisplay, AMessageWithBytesThatAreNoTextIsShownWithReplacements) {
    testing::internal::CaptureStderr();
    messageBox("caf\xE9 100%s", "Title", MessageIcon::Warning);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Title: caf\xEF\xBF\xBD 100%s\n");
}

TEST_F(NoDisplay, AnOpenDialogIsCancelledWithOneMessage) {
    testing::internal::CaptureStderr();
    EXPECT_EQ(chooseFileToOpen({"Select Music File", kFilters}), "");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Error: The file dialog could not be opened.\n");
}

TEST_F(NoDisplay, ASaveDialogIsCancelledWithOneMessage) {
    const std::filesystem::path before = std::filesystem::current_path();
    testing::internal::CaptureStderr();
    EXPECT_EQ(chooseFileToSave({"Export", kFilters, "a.wav", "wav"}), "");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Error: The file dialog could not be opened.\n");
    EXPECT_EQ(std::filesystem::current_path(), before);
}

TEST_F(NoDisplay, NumbersKeepTheirPointWhenTheToolkitsHaveStarted) {
    EXPECT_FALSE(startGtk());
    const std::string path = m_folder.write("none.wma", "no sound");
    (void)mediaCommand("open \"" + path + "\" alias VeloMedia", nullptr, 0);
    EXPECT_TRUE(gst_is_initialized());
    EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C");
    EXPECT_STREQ(std::setlocale(LC_ALL, nullptr), "C");
}

// A run under a video driver that draws nowhere opens no window on a display that happens to be there.
TEST_F(NoDisplay, ADriverThatDrawsNowhereKeepsEveryDisplayUntouched) {
    SDL_SetHint(SDL_HINT_VIDEODRIVER, "dummy");
    ASSERT_EQ(SDL_Init(SDL_INIT_VIDEO), 0) << SDL_GetError();
    EXPECT_FALSE(hasScreen());
    EXPECT_FALSE(startGtk());
    testing::internal::CaptureStderr();
    messageBox("text", "Error", MessageIcon::Information);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Error: text\n");
    SDL_Quit();
    EXPECT_TRUE(hasScreen());
}

}  // namespace
}  // namespace veloria::platform
