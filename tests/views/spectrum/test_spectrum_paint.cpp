// The landscape looks the same whichever way it is drawn.
#include "views/spectrum/spectrum_paint.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <random>
#include <vector>

#include "tests/ui/offscreen.h"
#include "tests/views/spectrum/spectrum_reference.h"
#include "views/spectrum/spectrum.h"

namespace veloria {
namespace {

using test::Offscreen;
using test::Picture;
using test::SpectrumReference;

// A ground in which every pixel differs from its neighbours.
void paintGround(SDL_Renderer* renderer, int w, int h) {
    SDL_SetRenderDrawBlendMode(renderer, SDL_BLENDMODE_NONE);
    for (int y = 0; y < h; y += 3) {
        for (int x = 0; x < w; x += 3) {
            SDL_SetRenderDrawColor(renderer, static_cast<Uint8>(x * 7 + y), static_cast<Uint8>(x + y * 5),
                                   static_cast<Uint8>(x * 3 + y * 11), 255);
            const SDL_Rect tile{x, y, 3, 3};
            SDL_RenderFillRect(renderer, &tile);
        }
    }
}

std::vector<ActiveNote> someNotes(int count, std::uint32_t seed) {
    std::mt19937 random(seed);
    std::uniform_real_distribution<float> hz(60.0f, 1050.0f);
    std::uniform_real_distribution<float> progress(0.0f, 1.0f);
    std::vector<ActiveNote> notes;
    for (int i = 0; i < count; ++i) {
        const float frequency = hz(random);
        notes.push_back({frequency, progress(random), 0.5f});
    }
    return notes;
}

// The largest difference of a channel.
int distance(const Picture& left, const Picture& right) {
    int most = 0;
    for (std::size_t i = 0; i < left.pixels.size(); ++i) {
        const SDL_Color a = left.pixels[i];
        const SDL_Color b = right.pixels[i];
        most = std::max({most, std::abs(a.r - b.r), std::abs(a.g - b.g), std::abs(a.b - b.b)});
    }
    return most;
}

enum class Way { Reference, Rectangles, Pixels, Chosen };

struct Scene {
    int w = 556;
    int h = 354;
    std::vector<ActiveNote> notes;
    int palette = 1;
    float time = 0.0f;
    SDL_Rect body{0, 0, 556, 354};
    Uint32 format = SDL_PIXELFORMAT_ARGB8888;
};

Picture drawn(const Scene& scene, Way way) {
    SDL_Surface* surface = SDL_CreateRGBSurfaceWithFormat(0, scene.w, scene.h, 32, scene.format);
    SDL_Renderer* renderer = SDL_CreateSoftwareRenderer(surface);
    paintGround(renderer, scene.w, scene.h);
    SDL_RenderSetClipRect(renderer, &scene.body);
    if (way == Way::Reference) {
        SpectrumReference(renderer, scene.body, scene.notes, scene.palette).draw(scene.time);
    } else {
        const auto state = std::make_unique<SpectrumState>();
        fillSpectrumGrid(state->grid, scene.notes, scene.palette);
        makeSpectrumShapes(state->grid, spectrumLayout(scene.body), scene.time, state->shapes);
        if (way == Way::Rectangles) paintSpectrumShapes(renderer, state->shapes);
        if (way == Way::Chosen) paintSpectrum(renderer, state->shapes, state->scratch);
        if (way == Way::Pixels) {
            EXPECT_TRUE(paintSpectrumPixels(renderer, state->shapes, state->scratch));
        }
    }
    SDL_RenderSetClipRect(renderer, nullptr);
    const Picture picture = test::readPicture(renderer);
    SDL_DestroyRenderer(renderer);
    SDL_FreeSurface(surface);
    return picture;
}

void expectAllWaysAlike(const Scene& scene) {
    const Picture wanted = drawn(scene, Way::Reference);
    EXPECT_EQ(distance(drawn(scene, Way::Rectangles), wanted), 0);
    EXPECT_EQ(distance(drawn(scene, Way::Pixels), wanted), 0);
    EXPECT_EQ(distance(drawn(scene, Way::Chosen), wanted), 0);
}

TEST(SpectrumPaint, AllWaysAreAlikeForAnyNumberOfNotes) {
    for (const int count : {0, 1, 2, 16, 64, 128, 400}) {
        SCOPED_TRACE(count);
        Scene scene;
        scene.notes = someNotes(count, 100 + static_cast<std::uint32_t>(count));
        scene.time = 0.37f * static_cast<float>(count);
        expectAllWaysAlike(scene);
    }
}

TEST(SpectrumPaint, AllWaysAreAlikeForBothPalettes) {
    for (const int palette : {0, 1}) {
        Scene scene;
        scene.notes = someNotes(24, 5);
        scene.palette = palette;
        expectAllWaysAlike(scene);
    }
}

TEST(SpectrumPaint, AllWaysAreAlikeInABodyOfAnySize) {
    // The last ones are lower than the picture's margins: there the far rows lie below the near ones.
    const std::vector<SDL_Rect> bodies{
        {0, 0, 1916, 1054}, {10, 20, 196, 124}, {13, 7, 81, 200},  {5, 5, 30, 100},   {0, 0, 3, 90},
        {2, 3, 1, 70},      {50, 50, 300, 60},  {50, 50, 300, 54}, {50, 50, 300, 30}, {50, 50, 300, 1}};
    for (const SDL_Rect& body : bodies) {
        SCOPED_TRACE(testing::Message() << body.w << " by " << body.h);
        Scene scene;
        scene.w = std::max(400, body.x + body.w + 40);
        scene.h = std::max(300, body.y + body.h + 40);
        scene.body = body;
        scene.notes = someNotes(40, 17);
        scene.time = 2.5f;
        expectAllWaysAlike(scene);
    }
}

TEST(SpectrumPaint, AllWaysAreAlikeWhereTheBodyLeavesTheWindow) {
    for (const SDL_Rect& body : {SDL_Rect{-150, -60, 400, 300}, SDL_Rect{250, 150, 400, 300},
                                 SDL_Rect{-500, 0, 400, 300}, SDL_Rect{40, -900, 400, 300}}) {
        SCOPED_TRACE(testing::Message() << body.x << ", " << body.y);
        Scene scene;
        scene.w = 400;
        scene.h = 300;
        scene.body = body;
        scene.notes = someNotes(64, 23);
        expectAllWaysAlike(scene);
    }
}

TEST(SpectrumPaint, AllWaysAreAlikeOnTheSurfaceOfAWindow) {
    for (const Uint32 format : {SDL_PIXELFORMAT_RGB888, SDL_PIXELFORMAT_BGR888}) {
        Scene scene;
        scene.format = format;
        scene.notes = someNotes(32, 29);
        expectAllWaysAlike(scene);
    }
}

TEST(SpectrumPaint, AllWaysAreAlikeUnderAPileOfNotes) {
    Scene scene;
    scene.notes.assign(300, {528, 1.0f, 0.5f});  // the glow runs over, the columns stand at their tallest
    expectAllWaysAlike(scene);
    scene.notes.assign(300, {528, 0.0f, 0.5f});
    expectAllWaysAlike(scene);
}

TEST(SpectrumPaint, TheGroundShowsThroughWhatIsThin) {
    Scene scene;
    scene.notes = {{550, 0.0f, 0.5f}};  // one row, the farthest: alpha 75
    const Picture seen = drawn(scene, Way::Pixels);
    const Picture ground = drawn({}, Way::Reference);
    EXPECT_GT(distance(seen, ground), 20);
    EXPECT_EQ(seen.at(20, 20), ground.at(20, 20));
    EXPECT_EQ(seen.at(300, 300), ground.at(300, 300));
}

class SpectrumWays : public testing::Test {
  protected:
    SpectrumWays() {
        fillSpectrumGrid(state->grid, someNotes(64, 3), 1);
        makeSpectrumShapes(state->grid, spectrumLayout({0, 0, 300, 200}), 1.0f, state->shapes);
    }

    Offscreen screen{320, 220};
    std::unique_ptr<SpectrumState> state = std::make_unique<SpectrumState>();
};

TEST_F(SpectrumWays, ThePixelsAreNotTakenFromAScaledOrShiftedPicture) {
    const Picture before = screen.picture();
    SDL_RenderSetScale(screen.renderer, 2.0f, 2.0f);
    EXPECT_FALSE(paintSpectrumPixels(screen.renderer, state->shapes, state->scratch));
    SDL_RenderSetScale(screen.renderer, 1.0f, 1.0f);
    const SDL_Rect shifted{40, 20, 200, 150};
    SDL_RenderSetViewport(screen.renderer, &shifted);
    EXPECT_FALSE(paintSpectrumPixels(screen.renderer, state->shapes, state->scratch));
    SDL_RenderSetViewport(screen.renderer, nullptr);
    EXPECT_EQ(screen.picture(), before);
    EXPECT_TRUE(paintSpectrumPixels(screen.renderer, state->shapes, state->scratch));
    EXPECT_FALSE(screen.picture() == before);
}

TEST_F(SpectrumWays, AShiftedPictureIsDrawnAllTheSame) {
    const SDL_Rect shifted{20, 20, 300, 200};
    SDL_RenderSetViewport(screen.renderer, &shifted);
    paintSpectrum(screen.renderer, state->shapes, state->scratch);
    SDL_RenderSetViewport(screen.renderer, nullptr);
    Offscreen plain(320, 220);
    makeSpectrumShapes(state->grid, spectrumLayout({20, 20, 300, 200}), 1.0f, state->shapes);
    const SDL_Rect clip{20, 20, 300, 200};
    SDL_RenderSetClipRect(plain.renderer, &clip);
    paintSpectrum(plain.renderer, state->shapes, state->scratch);
    SDL_RenderSetClipRect(plain.renderer, nullptr);
    EXPECT_EQ(screen.picture(), plain.picture());
}

TEST_F(SpectrumWays, NothingIsDrawnThroughAClosedClip) {
    const SDL_Rect closed{10, 10, 0, 0};
    SDL_RenderSetClipRect(screen.renderer, &closed);
    const Picture before = screen.picture();
    EXPECT_TRUE(paintSpectrumPixels(screen.renderer, state->shapes, state->scratch));
    EXPECT_EQ(screen.picture(), before);
}

TEST_F(SpectrumWays, TheMemoryServesPicturesOfDifferentSizes) {
    for (const int size : {300, 60, 220}) {
        makeSpectrumShapes(state->grid, spectrumLayout({0, 0, size, size}), 0.0f, state->shapes);
        Offscreen used(320, 320);
        ASSERT_TRUE(paintSpectrumPixels(used.renderer, state->shapes, state->scratch));
        Offscreen fresh(320, 320);
        SpectrumScratch scratch;
        ASSERT_TRUE(paintSpectrumPixels(fresh.renderer, state->shapes, scratch));
        EXPECT_EQ(used.picture(), fresh.picture()) << size;
    }
}

}  // namespace
}  // namespace veloria
