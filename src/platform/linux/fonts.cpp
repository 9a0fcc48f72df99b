#include "platform/fonts.h"

#include <fontconfig/fontconfig.h>
#include <unistd.h>

#include <cstring>
#include <memory>

namespace veloria::platform {

namespace {

struct PatternDelete {
    void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
};
using Pattern = std::unique_ptr<FcPattern, PatternDelete>;

struct FontSetDelete {
    void operator()(FcFontSet* fonts) const { FcFontSetDestroy(fonts); }
};
using FontSet = std::unique_ptr<FcFontSet, FontSetDelete>;

const FcChar8* asFcText(const char* text) {
    return reinterpret_cast<const FcChar8*>(text);
}

// The installed faces, the nearest to the wish first.
FontSet facesByNearness(const char* family, bool bold) {
    const Pattern wish(FcPatternCreate());
    if (!wish) return nullptr;
    FcPatternAddString(wish.get(), FC_FAMILY, asFcText(family));
    FcPatternAddInteger(wish.get(), FC_WEIGHT, bold ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR);
    FcPatternAddInteger(wish.get(), FC_SLANT, FC_SLANT_ROMAN);
    FcPatternAddBool(wish.get(), FC_SCALABLE, FcTrue);
    FcConfigSubstitute(nullptr, wish.get(), FcMatchPattern);
    FcDefaultSubstitute(wish.get());
    FcResult result = FcResultNoMatch;
    return FontSet(FcFontSort(nullptr, wish.get(), FcFalse, nullptr, &result));
}

bool isFamily(const FcPattern* face, const char* family) {
    FcChar8* name = nullptr;
    for (int i = 0; FcPatternGetString(face, FC_FAMILY, i, &name) == FcResultMatch; ++i) {
        if (FcStrCmpIgnoreCase(name, asFcText(family)) == 0) return true;
    }
    return false;
}

// A scalable TrueType or OpenType face that a bare path opens: the first of its file.
bool isUsable(const FcPattern* face) {
    FcBool scalable = FcFalse;
    int index = 0;
    FcChar8* format = nullptr;
    if (FcPatternGetBool(face, FC_SCALABLE, 0, &scalable) != FcResultMatch || !scalable) return false;
    if (FcPatternGetInteger(face, FC_INDEX, 0, &index) == FcResultMatch && index != 0) return false;
    if (FcPatternGetString(face, FC_FONTFORMAT, 0, &format) != FcResultMatch) return false;
    const char* name = reinterpret_cast<const char*>(format);
    return std::strcmp(name, "TrueType") == 0 || std::strcmp(name, "CFF") == 0;
}

bool isUsableFile(const FontRequest& request, const char* path) {
    return access(path, R_OK) == 0 && (request.opens == nullptr || request.opens(path));
}

// The file of the nearest usable face; with `exact` only a face of that very family counts.
std::string nearestFace(const FontRequest& request, const char* family, bool exact) {
    const FontSet faces = facesByNearness(family, request.bold);
    if (!faces) return {};
    for (int i = 0; i < faces->nfont; ++i) {
        const FcPattern* face = faces->fonts[i];
        FcChar8* file = nullptr;
        if (!isUsable(face) || (exact && !isFamily(face, family))) continue;
        if (FcPatternGetString(face, FC_FILE, 0, &file) != FcResultMatch) continue;
        const char* path = reinterpret_cast<const char*>(file);
        if (isUsableFile(request, path)) return path;
    }
    return {};
}

}  // namespace

std::string findFont(const FontRequest& request) {
    for (const char* path : request.paths) {
        if (isUsableFile(request, path)) return path;
    }
    for (const char* family : request.families) {
        std::string path = nearestFace(request, family, true);
        if (!path.empty()) return path;
    }
    return request.fallbackFamily != nullptr ? nearestFace(request, request.fallbackFamily, false)
                                             : std::string{};
}

}  // namespace veloria::platform
