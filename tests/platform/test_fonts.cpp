#include "platform/fonts.h"

#include <SDL_ttf.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <vector>

#include "tests/platform/scratch_folder.h"

namespace veloria::platform {
namespace {

struct FontClose {
    void operator()(TTF_Font* font) const { TTF_CloseFont(font); }
};
using Font = std::unique_ptr<TTF_Font, FontClose>;

class Fonts : public testing::Test {
  protected:
    void SetUp() override { ASSERT_EQ(TTF_Init(), 0); }
    void TearDown() override { TTF_Quit(); }
};

std::string find(const std::vector<const char*>& paths, const std::vector<const char*>& families,
                 const char* fallback, bool bold = false) {
    return findFont({paths, families, fallback, bold});
}

Font openFont(const std::string& path) {
    return Font(TTF_OpenFont(path.c_str(), 12));
}

TEST_F(Fonts, ARequestForArialGivesAFaceThatOpens) {
    const std::string path = find({"C:/Windows/Fonts/arial.ttf"}, {"Arial"}, "Arial");
    EXPECT_TRUE(std::filesystem::is_regular_file(path)) << path;
    const Font font = openFont(path);
    ASSERT_NE(font, nullptr) << TTF_GetError();
    EXPECT_NE(TTF_GlyphIsProvided(font.get(), 'A'), 0);
    EXPECT_EQ(TTF_FontFaceIsFixedWidth(font.get()), 0);
}

TEST_F(Fonts, AFixedPathThatExistsComesFirst) {
    const test::ScratchFolder folder;
    const std::string own = folder.write("own.ttf", "not looked into here");
    EXPECT_EQ(find({"/no/such/font.ttf", own.c_str()}, {"DejaVu Sans"}, "Arial"), own);
}

bool opens(const std::string& path) {
    return openFont(path) != nullptr;
}

TEST_F(Fonts, AFileThatHoldsNoFontIsPassedOver) {
    const test::ScratchFolder folder;
    const std::string broken = folder.write("broken.ttf", "no font at all");
    const std::string empty = folder.write("empty.ttf", "");
    const std::string good = find({}, {"DejaVu Serif"}, nullptr);
    ASSERT_TRUE(opens(good));
    const char* paths[] = {"/no/such/font.ttf", broken.c_str(), empty.c_str(), good.c_str()};
    EXPECT_EQ(findFont({paths, {}, "Arial", false, opens}), good) << "the next path";
    const char* onlyBroken[] = {broken.c_str(), folder.path().c_str()};
    const char* families[] = {"DejaVu Serif"};
    EXPECT_EQ(findFont({onlyBroken, families, "Arial", false, opens}), good) << "then the families";
    EXPECT_TRUE(opens(findFont({onlyBroken, {}, "Arial", false, opens}))) << "then the fallback";
    const auto never = [](const std::string&) { return false; };
    EXPECT_EQ(findFont({paths, families, "Arial", false, never}), "");
}

TEST_F(Fonts, OfAFamilyTheNextFaceThatOpensIsTaken) {
    static std::string refused;
    refused = find({}, {}, "sans-serif");
    ASSERT_FALSE(refused.empty());
    const auto another = [](const std::string& path) { return path != refused && opens(path); };
    const std::string next = findFont({{}, {}, "sans-serif", false, another});
    EXPECT_NE(next, refused);
    EXPECT_TRUE(opens(next)) << next;
}

TEST_F(Fonts, AFamilyThatIsNotInstalledIsPassedOver) {
    const std::string path = find({}, {"No Such Family At All", "DejaVu Serif", "DejaVu Sans"}, "Arial");
    const Font font = openFont(path);
    ASSERT_NE(font, nullptr) << path;
    EXPECT_STREQ(TTF_FontFaceFamilyName(font.get()), "DejaVu Serif");
}

TEST_F(Fonts, AFamilyIsFoundInAnyCaseOfLetters) {
    const Font font = openFont(find({}, {"dejavu SANS"}, nullptr));
    ASSERT_NE(font, nullptr);
    EXPECT_STREQ(TTF_FontFaceFamilyName(font.get()), "DejaVu Sans");
}

// The system has a stand-in for each of these names; only the family itself counts as installed.
TEST_F(Fonts, AStandInIsNoInstalledFamily) {
    for (const char* family : {"Arial", "Segoe UI", "Times New Roman", "Consolas", "No Such Family At All"}) {
        const std::string path = find({}, {family}, nullptr);
        if (path.empty()) continue;
        const Font font = openFont(path);
        ASSERT_NE(font, nullptr) << path;
        EXPECT_STREQ(TTF_FontFaceFamilyName(font.get()), family);
    }
    EXPECT_EQ(find({}, {"No Such Family At All"}, nullptr), "");
}

TEST_F(Fonts, TheFallbackIsOfAnyFamily) {
    const std::string path = find({}, {"No Such Family At All"}, "No Such Family Either");
    EXPECT_NE(openFont(path), nullptr) << path;
}

TEST_F(Fonts, BoldMonospaceIsBoldAndOfOneWidth) {
    const std::string path = find({}, {"Consolas"}, "monospace", true);
    const Font font = openFont(path);
    ASSERT_NE(font, nullptr) << path;
    EXPECT_NE(TTF_FontFaceIsFixedWidth(font.get()), 0) << path;
    EXPECT_NE(TTF_GetFontStyle(font.get()) & TTF_STYLE_BOLD, 0) << path;
}

TEST_F(Fonts, WithoutBoldTheRegularFaceIsTaken) {
    const Font font = openFont(find({}, {"DejaVu Sans Mono"}, nullptr));
    ASSERT_NE(font, nullptr);
    EXPECT_STREQ(TTF_FontFaceFamilyName(font.get()), "DejaVu Sans Mono");
    EXPECT_EQ(TTF_GetFontStyle(font.get()), TTF_STYLE_NORMAL);
}

TEST_F(Fonts, NothingAskedForGivesNothing) {
    EXPECT_EQ(find({}, {}, nullptr), "");
    EXPECT_EQ(find({"/no/such/font.ttf"}, {}, nullptr), "");
}

}  // namespace
}  // namespace veloria::platform
