// Pictures that were looked at once and are kept: a view drawn from fixed state must look the same ever
// after.
//
// With VELORIA_WRITE_GOLDEN=1 in the environment the pictures are written anew instead of compared; look at
// them, and give the reason in the commit that changes them:
//   VELORIA_WRITE_GOLDEN=1 build/release/bin/test_views --gtest_filter='Golden*'
#pragma once

#include <gtest/gtest.h>
#include <png.h>

#include <algorithm>
#include <cstdlib>
#include <string>
#include <vector>

#include "tests/source_dir.h"
#include "tests/ui/offscreen.h"

namespace veloria::test {

inline std::string goldenPath(const std::string& name) {
    return sourceDir() + "/tests/views/golden/" + name + ".png";
}

inline bool writePng(const std::string& path, const Picture& picture) {
    std::vector<png_byte> bytes;
    bytes.reserve(picture.pixels.size() * 3);
    for (const SDL_Color& pixel : picture.pixels)
        bytes.insert(bytes.end(), {pixel.r, pixel.g, pixel.b});
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(picture.w);
    image.height = static_cast<png_uint_32>(picture.h);
    image.format = PNG_FORMAT_RGB;
    return png_image_write_to_file(&image, path.c_str(), 0, bytes.data(), 0, nullptr) != 0;
}

// Empty when there is no such picture.
inline Picture readPng(const std::string& path) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    if (png_image_begin_read_from_file(&image, path.c_str()) == 0) return {};
    image.format = PNG_FORMAT_RGB;
    std::vector<png_byte> bytes(PNG_IMAGE_SIZE(image));
    if (png_image_finish_read(&image, nullptr, bytes.data(), 0, nullptr) == 0) return {};
    Picture picture;
    picture.w = static_cast<int>(image.width);
    picture.h = static_cast<int>(image.height);
    for (std::size_t i = 0; i + 2 < bytes.size(); i += 3)
        picture.pixels.push_back({bytes[i], bytes[i + 1], bytes[i + 2], 255});
    return picture;
}

inline Picture crop(const Picture& picture, const SDL_Rect& rect) {
    Picture part;
    part.w = rect.w;
    part.h = rect.h;
    for (int y = rect.y; y < rect.y + rect.h; ++y) {
        for (int x = rect.x; x < rect.x + rect.w; ++x)
            part.pixels.push_back(picture.at(x, y));
    }
    return part;
}

// A channel may be off by this much, since sines and blends round differently from machine to machine; and
// one pixel in two hundred by more, where a rounded coordinate moves a line by a pixel.
constexpr int kGoldenTolerance = 10;
constexpr int kGoldenPixelsPerWrongOne = 200;

inline testing::AssertionResult isGolden(const Picture& seen, const std::string& name) {
    const std::string path = goldenPath(name);
    if (std::getenv("VELORIA_WRITE_GOLDEN") != nullptr) {
        if (writePng(path, seen)) return testing::AssertionSuccess();
        return testing::AssertionFailure() << "cannot write " << path;
    }
    const Picture golden = readPng(path);
    if (golden.w != seen.w || golden.h != seen.h) {
        return testing::AssertionFailure() << name << " is " << seen.w << " by " << seen.h
                                           << ", the kept one " << golden.w << " by " << golden.h;
    }
    std::size_t wrong = 0;
    for (std::size_t i = 0; i < seen.pixels.size(); ++i)
        wrong += isColor(seen.pixels[i], golden.pixels[i], kGoldenTolerance) ? 0u : 1u;
    if (wrong <= seen.pixels.size() / kGoldenPixelsPerWrongOne) return testing::AssertionSuccess();
    const std::string beside = testing::TempDir() + name + ".png";
    writePng(beside, seen);
    return testing::AssertionFailure()
           << name << ": " << wrong << " pixels differ; what was drawn is " << beside;
}

}  // namespace veloria::test
