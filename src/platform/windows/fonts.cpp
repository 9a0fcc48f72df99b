#include "platform/fonts.h"

#include <windows.h>

#include <cstring>

#include "platform/windows/wide_text.h"

namespace veloria::platform {

namespace {

struct FontFiles {
    const char* family;
    const char* regular;
    const char* bold;
};

// The families that every Windows brings along, and the generic names by which a fallback may be asked for.
constexpr FontFiles kFontFiles[] = {
    {"Arial", "arial.ttf", "arialbd.ttf"},           {"Segoe UI", "segoeui.ttf", "segoeuib.ttf"},
    {"Times New Roman", "times.ttf", "timesbd.ttf"}, {"Consolas", "consola.ttf", "consolab.ttf"},
    {"Courier New", "cour.ttf", "courbd.ttf"},       {"sans-serif", "arial.ttf", "arialbd.ttf"},
    {"serif", "times.ttf", "timesbd.ttf"},           {"monospace", "consola.ttf", "consolab.ttf"},
};

constexpr const char* kLastResort = "arial.ttf";

bool isFile(const std::string& path) {
    const DWORD attributes = GetFileAttributesW(toWide(path).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

bool isUsableFile(const FontRequest& request, const std::string& path) {
    return isFile(path) && (request.opens == nullptr || request.opens(path));
}

std::string inFontFolder(const FontRequest& request, const char* name) {
    std::string path = std::string("C:/Windows/Fonts/") + name;
    return isUsableFile(request, path) ? path : std::string{};
}

std::string familyFile(const FontRequest& request, const char* family) {
    for (const FontFiles& files : kFontFiles) {
        if (_stricmp(files.family, family) != 0) continue;
        std::string path = request.bold ? inFontFolder(request, files.bold) : std::string{};
        return path.empty() ? inFontFolder(request, files.regular) : path;
    }
    return {};
}

}  // namespace

std::string findFont(const FontRequest& request) {
    for (const char* path : request.paths) {
        if (isUsableFile(request, path)) return path;
    }
    for (const char* family : request.families) {
        std::string path = familyFile(request, family);
        if (!path.empty()) return path;
    }
    std::string path =
        request.fallbackFamily != nullptr ? familyFile(request, request.fallbackFamily) : std::string{};
    return path.empty() ? inFontFolder(request, kLastResort) : path;
}

}  // namespace veloria::platform
