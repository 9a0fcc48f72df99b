// The fonts of the interface where files stand in the way that are none.
#include "toolkit/fonts.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "platform/fonts.h"
#include "tests/platform/scratch_folder.h"

namespace veloria {
namespace {

// Works in a folder of its own, so that the fonts' fixed paths, which have no leading slash, begin there.
class FontFiles : public testing::Test {
  protected:
    FontFiles() : before(std::filesystem::current_path()) {
        EXPECT_EQ(TTF_Init(), 0);
        std::filesystem::current_path(folder.path());
    }
    ~FontFiles() override {
        closeFonts(fonts);
        std::filesystem::current_path(before);
        TTF_Quit();
    }
    static void writeRubbish(const std::filesystem::path& path) {
        if (path.has_parent_path()) std::filesystem::create_directories(path.parent_path());
        std::ofstream(path) << "this is no font";
        ASSERT_TRUE(std::filesystem::exists(path));
    }

    test::ScratchFolder folder;
    std::filesystem::path before;
    Fonts fonts;
};

TEST_F(FontFiles, AFileThatIsNoFontIsPassedOver) {
    for (const char* name : {"arial", "segoeui", "times", "consolab", "consola"})
        writeRubbish(std::string("C:/Windows/Fonts/") + name + ".ttf");
    writeRubbish("arial.ttf");
    openFonts(fonts);
    for (const TTF_Font* font : {fonts.fontRow, fonts.fontTiny, fonts.fontHeading, fonts.fontLabel,
                                 fonts.fontTab, fonts.fontWide, fonts.fontSplash})
        EXPECT_NE(font, nullptr);
}

TEST_F(FontFiles, BehindItTheNextOfTheListIsTaken) {
    writeRubbish("C:/Windows/Fonts/segoeui.ttf");
    // Any face that is unlike the one the system would offer.
    const std::string bold = platform::findFont({{}, {}, "monospace", true});
    std::filesystem::copy_file(bold, "C:/Windows/Fonts/times.ttf");
    openFonts(fonts);
    ASSERT_NE(fonts.fontWide, nullptr);
    EXPECT_NE(TTF_FontFaceIsFixedWidth(fonts.fontWide), 0);
}

}  // namespace
}  // namespace veloria
