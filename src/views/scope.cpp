#include "views/scope.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <string>
#include <vector>

#include "base/format.h"
#include "toolkit/color.h"
#include "toolkit/primitives.h"
#include "toolkit/text.h"

namespace veloria {

namespace {

constexpr int kTraceGridPitch = 40;
constexpr int kGridAlpha = 100;
constexpr int kZeroAlpha = 80;
constexpr float kSampleHeight = 90.0f;  // pixels from the zero line at full level
constexpr float kFarthest = 10000.0f;   // pixels; a wild sample goes no farther, outside any window
constexpr SDL_Color kTraceColor{0, 255, 200, 255};
constexpr SDL_Color kTitleColor{120, 230, 210, 255};

constexpr int kListedChannels = 12;  // the toggles of the tables are 8 and 10; their colour ramp ends here
constexpr int kListInset = 8;
constexpr int kHeadlineDrop = 32;
constexpr int kFirstRowDrop = 24;  // below the headline
constexpr int kRowPitch = 22;
constexpr int kListHeight = 250;
constexpr int kBarInset = 90;
constexpr int kBarDrop = 4;
constexpr int kBarHeight = 11;
constexpr int kBarPerVoice = 7;
constexpr int kBarLongest = 155;
constexpr int kBarAlpha = 75;
constexpr SDL_Color kHeadlineColor{100, 255, 120, 255};

void drawScopeGrid(const DrawContext& context, const SDL_Rect& body) {
    const SDL_Color color = withAlpha(context.theme->themeBackground, kGridAlpha);
    const int right = body.x + body.w - 1;
    const int bottom = body.y + body.h - 1;
    for (int x = body.x; x <= right; x += kTraceGridPitch)
        vLine(context.renderer, x, body.y, bottom, color);
    for (int y = body.y; y <= bottom; y += kTraceGridPitch)
        hLine(context.renderer, body.x, right, y, color);
}

float heightOf(float sample) {
    if (std::isnan(sample)) return 0.0f;
    return std::clamp(sample * kSampleHeight, -kFarthest, kFarthest);
}

void drawTrace(const DrawContext& context, const ScopeLayout& layout, const ScopeBuffer& scope) {
    std::vector<SDL_Point> points;
    points.reserve(static_cast<std::size_t>(layout.body.w));
    for (int i = 0; i < layout.body.w; ++i) {
        const auto index = static_cast<std::size_t>((scope.write - i + layout.body.w) % kScopeBufferSize);
        const float y = layout.zeroLine + heightOf(scope.samples[index]);
        points.push_back({layout.body.x + i, static_cast<int>(y)});
    }
    SDL_SetRenderDrawBlendMode(context.renderer, SDL_BLENDMODE_NONE);  // opaque: nothing to blend
    SDL_SetRenderDrawColor(context.renderer, kTraceColor.r, kTraceColor.g, kTraceColor.b, kTraceColor.a);
    SDL_RenderDrawLines(context.renderer, points.data(), static_cast<int>(points.size()));
}

// The ramp of green goes down by 18 a channel also for channels that have no row, and stops at 80.
SDL_Color channelColor(int channel) {
    const int green = std::max(210 - 18 * channel, 80);
    return {static_cast<Uint8>(100 + 14 * channel), static_cast<Uint8>(green), 255, 255};
}

std::array<int, kListedChannels> voicesPerChannel(const FrameSnapshot& snapshot) {
    std::array<int, kListedChannels> counts{};
    for (const VoiceInfo& voice : snapshot.voices) {
        if (voice.channel < 0 || voice.channel >= kListedChannels) continue;
        ++counts[static_cast<std::size_t>(voice.channel)];
    }
    return counts;
}

}  // namespace

ScopeLayout scopeLayout(const ScopeState& state, const SDL_Rect& body) {
    return {body, static_cast<float>(body.y) + static_cast<float>(body.h) * state.scopeCentre};
}

void drawScope(const DrawContext& context, const ScopeState& state, const SDL_Rect& body,
               const ScopeBuffer& scope) {
    if (body.w <= 0 || body.h <= 0) return;
    const ScopeLayout layout = scopeLayout(state, body);
    const ClipGuard clip(context.renderer, body);
    fillRect(context.renderer, body, context.theme->scopeBackground, SDL_BLENDMODE_NONE);
    drawScopeGrid(context, body);
    hLine(context.renderer, body.x, body.x + body.w - 1, static_cast<int>(layout.zeroLine),
          withAlpha(context.theme->themeAccent, kZeroAlpha));
    drawTrace(context, layout, scope);
}

void drawScopePanel(const DrawContext& context, const PanelState& panel, const ScopeState& state,
                    const FrameSnapshot& snapshot) {
    PanelStyle style;
    style.titleColor = kTitleColor;
    drawPanel(context, panel, "SCOPE  [Oscilloscope]", style,
              [&](const PanelLayout& layout) { drawScope(context, state, layout.body, snapshot.scope); });
}

void drawVoices(const DrawContext& context, int x, int y, const FrameSnapshot& snapshot) {
    TTF_Font* font = context.fonts->fontLabel;
    const int left = x + kListInset;
    const int top = y + kHeadlineDrop;
    DrawText(context, formatText("Voices: %d / %d", static_cast<int>(snapshot.voices.size()), kVoiceFigure),
             left, top, font, kHeadlineColor);
    const std::array<int, kListedChannels> counts = voicesPerChannel(snapshot);
    int rowY = top + kFirstRowDrop;
    for (int channel = 0; channel < kListedChannels; ++channel) {
        const int count = counts[static_cast<std::size_t>(channel)];
        if (count == 0) continue;
        if (rowY + kRowPitch > y + kListHeight) break;
        const SDL_Color color = channelColor(channel);
        DrawText(context, formatText("Ch%d: %d", channel, count), left, rowY, font, color);
        const SDL_Rect bar{x + kBarInset, rowY + kBarDrop, std::min(kBarPerVoice * count, kBarLongest),
                           kBarHeight};
        fillRect(context.renderer, bar, withAlpha(color, kBarAlpha));
        rowY += kRowPitch;
    }
}

int voiceListHeight(const FrameSnapshot& snapshot) {
    const std::array<int, kListedChannels> counts = voicesPerChannel(snapshot);
    const auto rows = counts.size() - static_cast<std::size_t>(std::count(counts.begin(), counts.end(), 0));
    constexpr int kHead = kHeadlineDrop + kFirstRowDrop;
    constexpr int kRoom = (kListHeight - kHead) / kRowPitch;
    return kHead + kRowPitch * std::min(static_cast<int>(rows), kRoom);
}

}  // namespace veloria
