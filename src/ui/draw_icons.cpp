#include <cmath>

#include "toolkit/color.h"
#include "toolkit/primitives.h"
#include "ui/draw.h"

namespace veloria {

namespace {

constexpr int kUnlitAlpha = 130;
constexpr int kWaveWidth = 20;
constexpr float kIconPi = 3.14159f;

// What the icons are drawn by: their left edge, their middle row and their reach above and below it.
struct IconPlace {
    SDL_Renderer* renderer;
    int x0;
    int mid;
    int half;
    int top;  // of the button
    SDL_Color color;

    void line(int x1, int y1, int x2, int y2) const { drawLine(renderer, x1, y1, x2, y2, color); }
};

void sineIcon(const IconPlace& p) {
    constexpr int kSegments = 19;
    const auto y = [&p](int i) {
        const float angle = 2.0f * kIconPi * static_cast<float>(i) / static_cast<float>(kSegments);
        return static_cast<int>(static_cast<float>(p.mid) - std::sin(angle) * static_cast<float>(p.half));
    };
    for (int i = 0; i < kSegments; ++i)
        p.line(p.x0 + i, y(i), p.x0 + i + 1, y(i + 1));
}

void sawIcon(const IconPlace& p) {
    p.line(p.x0, p.mid + p.half, p.x0 + kWaveWidth, p.mid - p.half);
    p.line(p.x0 + kWaveWidth, p.mid - p.half, p.x0 + kWaveWidth, p.mid + p.half);
}

void squareIcon(const IconPlace& p) {
    const int middle = p.x0 + kWaveWidth / 2;
    const int end = p.x0 + kWaveWidth;
    p.line(p.x0, p.mid, p.x0, p.mid - p.half);
    p.line(p.x0, p.mid - p.half, middle, p.mid - p.half);
    p.line(middle, p.mid - p.half, middle, p.mid + p.half);
    p.line(middle, p.mid + p.half, end, p.mid + p.half);
    p.line(end, p.mid + p.half, end, p.mid);
}

void triangleIcon(const IconPlace& p) {
    const int middle = p.x0 + kWaveWidth / 2;
    p.line(p.x0, p.mid, middle, p.mid - p.half);
    p.line(middle, p.mid - p.half, p.x0 + kWaveWidth, p.mid + p.half);
}

void noteIcon(const IconPlace& p) {
    fillRect(p.renderer, {p.x0 + 2, p.mid - 2, 8, 5}, p.color);
    p.line(p.x0 + 10, p.mid - 2, p.x0 + 10, p.top + 3);
    p.line(p.x0 + 10, p.top + 3, p.x0 + 16, p.top + 7);
    p.line(p.x0 + 16, p.top + 7, p.x0 + 10, p.top + 11);
}

void spiralIcon(const IconPlace& p) {
    constexpr int kSegments = 16;
    const auto point = [&p](int i) {
        const float angle = 0.4f * static_cast<float>(i);
        const float radius = 2.0f * (1.0f + 0.15f * static_cast<float>(i));
        return SDL_Point{static_cast<int>(static_cast<float>(p.x0 + 10) + std::cos(angle) * radius),
                         static_cast<int>(static_cast<float>(p.mid) + std::sin(angle) * radius)};
    };
    for (int i = 0; i < kSegments; ++i)
        p.line(point(i).x, point(i).y, point(i + 1).x, point(i + 1).y);
}

struct Icon {
    const char* label;
    void (*draw)(const IconPlace&);
    SDL_Color color;
};
constexpr SDL_Color kWhite{255, 255, 255, 255};
constexpr Icon kIcons[] = {
    {"Sine", sineIcon, kWhite},          {"Saw", sawIcon, kWhite},
    {"Square", squareIcon, kWhite},      {"Triangle", triangleIcon, kWhite},
    {"Original Midi", noteIcon, kWhite}, {"Sacred Optimizer", spiralIcon, {255, 215, 0, 255}},
};

const Icon* iconOf(const std::string& label) {
    for (const Icon& icon : kIcons) {
        if (label == icon.label) return &icon;
    }
    return nullptr;
}

}  // namespace

bool hasButtonIcon(const std::string& label) {
    return iconOf(label) != nullptr;
}

void drawButtonIcon(const DrawContext& context, const std::string& label, const SDL_Rect& rect, bool lit) {
    const Icon* icon = iconOf(label);
    if (icon == nullptr) return;
    icon->draw({context.renderer, rect.x + 6, rect.y + rect.h / 2, rect.h / 2 - 2, rect.y,
                withAlpha(icon->color, lit ? 255 : kUnlitAlpha)});
}

}  // namespace veloria
