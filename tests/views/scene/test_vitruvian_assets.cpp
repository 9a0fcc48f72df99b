#include "views/scene/vitruvian_assets.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "tests/platform/scratch_folder.h"
#include "tests/source_dir.h"
#include "tests/ui/offscreen.h"
#include "tests/views/scene/geometry/literal_wire.h"
#include "tests/views/scene/geometry/stl_bytes.h"

namespace veloria {
namespace {

using test::isColor;
using test::over;
using Bytes = std::vector<std::uint8_t>;

constexpr SDL_Color kGround{90, 60, 30, 255};
constexpr SDL_Color kPaper{240, 200, 40, 255};

std::string_view text(const Bytes& bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

Bytes fileBytes(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    const std::vector<char> letters{std::istreambuf_iterator<char>(file), {}};
    return {letters.begin(), letters.end()};
}

void put(Bytes& bytes, std::size_t at, std::uint64_t value, int count) {
    for (int i = 0; i < count; ++i)
        bytes[at + static_cast<std::size_t>(i)] = static_cast<std::uint8_t>(value >> (8 * i));
}

// A picture in one colour as a BMP file of 24 bits a pixel.
Bytes bitmap(int w, int h) {
    const test::ScratchFolder folder;
    SDL_Surface* surface = SDL_CreateRGBSurfaceWithFormat(0, w, h, 24, SDL_PIXELFORMAT_BGR24);
    SDL_FillRect(surface, nullptr, SDL_MapRGB(surface->format, kPaper.r, kPaper.g, kPaper.b));
    EXPECT_EQ(SDL_SaveBMP(surface, (folder / "made.bmp").c_str()), 0);
    SDL_FreeSurface(surface);
    return fileBytes(folder / "made.bmp");
}

// A figure on a pedestal that the floor's cut takes away.
Bytes figure() {
    return test::stlFile({test::StlTriangle{{{-9, 0, -9}, {9, 0, -9}, {0, 1, 9}}},
                          test::StlTriangle{{{0, 2, 0}, {0, 10, 0}, {4, 2, 3}}},
                          test::StlTriangle{{{4, 2, 3}, {0, 10, 0}, {4, 9, 3}}}});
}

// Width and height of what is read; (0, 0) for nothing.
SDL_Point sizeRead(const Bytes& bytes) {
    SDL_Surface* surface = readBackdrop(bytes);
    if (surface == nullptr) return {0, 0};
    const SDL_Point size{surface->w, surface->h};
    SDL_FreeSurface(surface);
    return size;
}

testing::AssertionResult isRead(const Bytes& bytes, int w, int h) {
    const SDL_Point size = sizeRead(bytes);
    if (size.x == w && size.y == h) return testing::AssertionSuccess();
    return testing::AssertionFailure() << size.x << " by " << size.y;
}

// Works in a folder of its own, as the program would in the user's.
class VitruvianAssetsTest : public testing::Test {
  protected:
    VitruvianAssetsTest() : before(std::filesystem::current_path()) {
        std::filesystem::current_path(folder.path());
    }
    ~VitruvianAssetsTest() override {
        freeAssets(assets);
        std::filesystem::current_path(before);
    }

    void load() { loadAssetsOnce(assets, screen.renderer); }
    [[nodiscard]] bool hasNothing() const {
        return assets.bitmapTexture == nullptr && !assets.wireModel.loaded && assets.wireModel.edges.empty();
    }

    std::filesystem::path before;
    test::ScratchFolder folder;
    test::Offscreen screen{60, 40};
    VitruvianAssets assets;
};

TEST_F(VitruvianAssetsTest, MissingFilesAreNoMatter) {
    EXPECT_FALSE(assets.assetsLoaded);
    load();
    EXPECT_TRUE(assets.assetsLoaded);
    EXPECT_TRUE(hasNothing());
}

TEST_F(VitruvianAssetsTest, TheyAreLookedForOnce) {
    load();
    folder.write("vitruvian.bmp", text(bitmap(5, 4)));
    folder.write("Vitruvian.stl", text(figure()));
    load();
    EXPECT_TRUE(hasNothing()) << "what comes later is not seen";
    freeAssets(assets);
    load();
    SDL_Texture* const first = assets.bitmapTexture;
    EXPECT_NE(first, nullptr);
    load();
    EXPECT_EQ(assets.bitmapTexture, first);
}

TEST_F(VitruvianAssetsTest, ThePictureIsAFaintTexture) {
    folder.write("vitruvian.bmp", text(bitmap(5, 4)));
    load();
    ASSERT_NE(assets.bitmapTexture, nullptr);
    int w = 0;
    int h = 0;
    SDL_BlendMode blend = SDL_BLENDMODE_NONE;
    Uint8 alpha = 0;
    SDL_QueryTexture(assets.bitmapTexture, nullptr, nullptr, &w, &h);
    SDL_GetTextureBlendMode(assets.bitmapTexture, &blend);
    SDL_GetTextureAlphaMod(assets.bitmapTexture, &alpha);
    EXPECT_EQ(w, 5);
    EXPECT_EQ(h, 4);
    EXPECT_EQ(blend, SDL_BLENDMODE_BLEND);
    EXPECT_EQ(alpha, 110);
    EXPECT_EQ(kBackdropAlpha, 110);
    screen.clear(kGround);
    const SDL_Rect place{10, 10, 20, 20};
    SDL_RenderCopy(screen.renderer, assets.bitmapTexture, nullptr, &place);
    EXPECT_TRUE(isColor(screen.picture().at(20, 20), over({240, 200, 40, 110}, kGround)));
    EXPECT_EQ(screen.picture().at(9, 20), kGround);
}

TEST_F(VitruvianAssetsTest, TheFigureIsFourUnitsHighWithoutItsPedestal) {
    folder.write("Vitruvian.stl", text(figure()));
    load();
    EXPECT_EQ(assets.bitmapTexture, nullptr) << "either goes without the other";
    ASSERT_TRUE(assets.wireModel.loaded);
    EXPECT_EQ(assets.wireModel.edges.size(), 5U);
    EXPECT_FLOAT_EQ(assets.wireModel.scale, 0.5f);
    EXPECT_FLOAT_EQ(assets.wireModel.centreY, 6.0f);
    const test::LiteralWire literal(figure(), 2.0f, 0.15f, 80);
    EXPECT_TRUE(test::sameModel(assets.wireModel, literal.model));
}

TEST_F(VitruvianAssetsTest, FreedTheyAreAsAtTheStart) {
    folder.write("vitruvian.bmp", text(bitmap(5, 4)));
    folder.write("Vitruvian.stl", text(figure()));
    load();
    ASSERT_FALSE(hasNothing());
    freeAssets(assets);
    EXPECT_TRUE(hasNothing());
    EXPECT_FALSE(assets.assetsLoaded);
    freeAssets(assets);  // twice does no harm
}

TEST_F(VitruvianAssetsTest, DamagedFilesLeaveNothing) {
    Bytes torn = bitmap(5, 4);
    torn.resize(torn.size() - 20);
    folder.write("vitruvian.bmp", text(torn));
    Bytes short_ = figure();
    short_.resize(short_.size() - 1);
    folder.write("Vitruvian.stl", text(short_));
    load();
    EXPECT_TRUE(assets.assetsLoaded);
    EXPECT_TRUE(hasNothing());
}

TEST_F(VitruvianAssetsTest, FoldersOfTheirNamesAreNoFiles) {
    std::filesystem::create_directory(folder / "vitruvian.bmp");
    std::filesystem::create_directory(folder / "Vitruvian.stl");
    load();
    EXPECT_TRUE(hasNothing());
}

TEST_F(VitruvianAssetsTest, AFileAboveSixtyFourMegabytesIsNoBackdrop) {
    const std::string path = folder.write("vitruvian.bmp", text(bitmap(5, 4)));
    std::error_code error;
    std::filesystem::resize_file(path, std::uintmax_t{1} << 38, error);
    if (error) GTEST_SKIP() << "no room for a file with holes: " << error.message();
    load();
    EXPECT_EQ(assets.bitmapTexture, nullptr);
    std::filesystem::resize_file(path, std::uintmax_t{64} << 20);
    freeAssets(assets);
    load();
    EXPECT_NE(assets.bitmapTexture, nullptr) << "what follows the picture is no matter";
}

TEST_F(VitruvianAssetsTest, TheScriptsPicturesLoad) {
    if (std::system("python3 -c '' 2>/dev/null") != 0) GTEST_SKIP() << "no python3";
    const std::string script = sourceDir() + "/scripts/make_assets.py";
    ASSERT_EQ(std::system(("python3 '" + script + "' made > out.txt").c_str()), 0);
    EXPECT_EQ(text(fileBytes("out.txt")),
              "make_assets: made/vitruvian.bmp (512 x 512)\nmake_assets: made/icon.bmp (64 x 64)\n");
    EXPECT_TRUE(isRead(fileBytes("made/icon.bmp"), 64, 64));
    std::filesystem::copy("made/vitruvian.bmp", "vitruvian.bmp");
    load();
    ASSERT_NE(assets.bitmapTexture, nullptr);
    // On a ground of its own the drawing shows at the square's upper side, and between its lines the ground.
    test::Offscreen sheet(512, 512);
    SDL_Surface* surface = readBackdrop(fileBytes("vitruvian.bmp"));
    SDL_Texture* texture = SDL_CreateTextureFromSurface(sheet.renderer, surface);
    SDL_FreeSurface(surface);
    sheet.clear(kGround);
    SDL_RenderCopy(sheet.renderer, texture, nullptr, nullptr);
    SDL_DestroyTexture(texture);
    // A unit is 204 pixels, the square reaches from -1 to 1, and 0.1868 is in the middle.
    const int upper = static_cast<int>(255.5 - (1 - 0.1868) * 204 + 0.5);
    EXPECT_TRUE(isColor(sheet.picture().at(400, upper), {214, 180, 92, 255}, 12));
    EXPECT_EQ(sheet.picture().at(400, upper + 20), kGround);
    EXPECT_EQ(sheet.picture().at(3, 3), kGround);
}

TEST(Backdrop, AWholePictureIsRead) {
    EXPECT_TRUE(isRead(bitmap(5, 4), 5, 4));
    EXPECT_TRUE(isRead(bitmap(8192, 1), 8192, 1));
    EXPECT_TRUE(isRead(bitmap(1, 8192), 1, 8192));
}

TEST(Backdrop, ATornPictureIsNone) {
    const Bytes whole = bitmap(5, 4);
    for (std::size_t size = 0; size < whole.size() - 1; ++size)  // the last byte only fills up its row
        EXPECT_TRUE(isRead(Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size)), 0, 0))
            << size;
}

TEST(Backdrop, TooLargeASideIsRefused) {
    EXPECT_TRUE(isRead(bitmap(8193, 1), 0, 0));
    EXPECT_TRUE(isRead(bitmap(1, 8193), 0, 0));
    // 16,777,216 pixels, and a row more, of one bit each.
    const auto claimed = [](std::uint64_t w, std::uint64_t h) {
        Bytes bytes = bitmap(1, 1);
        put(bytes, 18, w, 4);
        put(bytes, 22, h, 4);
        put(bytes, 28, 8, 2);
        bytes.resize(bytes.size() + static_cast<std::size_t>(w * h));
        return bytes;
    };
    EXPECT_TRUE(isRead(claimed(4096, 4096), 4096, 4096));
    EXPECT_TRUE(isRead(claimed(4096, 4097), 0, 0));
}

TEST(Backdrop, AHeadThatLiesIsRefused) {
    const auto sized = [](std::int64_t w, std::int64_t h) {
        Bytes bytes = bitmap(5, 4);
        put(bytes, 18, static_cast<std::uint64_t>(w), 4);
        put(bytes, 22, static_cast<std::uint64_t>(h), 4);
        return bytes;
    };
    EXPECT_TRUE(isRead(sized(5, 4), 5, 4));
    EXPECT_TRUE(isRead(sized(5, -4), 5, 4)) << "the upper row first";
    EXPECT_TRUE(isRead(sized(8000, 2000), 0, 0));
    EXPECT_TRUE(isRead(sized(0, 4), 0, 0));
    EXPECT_TRUE(isRead(sized(-5, 4), 0, 0));
    EXPECT_TRUE(isRead(sized(5, 0), 0, 0));
    EXPECT_TRUE(isRead(sized(0x7FFFFFFF, 0x7FFFFFFF), 0, 0));
    EXPECT_TRUE(isRead(sized(5, std::int64_t{0x80000000}), 0, 0));
}

TEST(Backdrop, TheOldestHeadAndRunLengthsAreRead) {
    Bytes old = bitmap(5, 4);
    const Bytes rows(old.end() - 64, old.end());
    old.resize(26);
    put(old, 10, 26, 4);
    put(old, 14, 12, 4);
    put(old, 18, 5, 2);
    put(old, 20, 4, 2);
    put(old, 22, 1, 2);
    put(old, 24, 24, 2);
    old.insert(old.end(), rows.begin(), rows.end());
    EXPECT_TRUE(isRead(old, 5, 4));
    Bytes runs = bitmap(5, 4);
    put(runs, 18, 200, 4);
    put(runs, 22, 1, 4);
    put(runs, 28, 8, 2);
    put(runs, 30, 1, 4);
    put(runs, 46, 1, 4);   // one colour
    put(runs, 10, 58, 4);  // and the rows behind it
    runs.resize(58);
    for (const int byte : {200, 0, 0, 1})
        runs.push_back(static_cast<std::uint8_t>(byte));
    EXPECT_TRUE(isRead(runs, 200, 1));
}

}  // namespace
}  // namespace veloria
