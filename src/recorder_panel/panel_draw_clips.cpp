// The clips of the recorder's panel. They are first worked out as shapes: by these a picture is known that
// can be laid down again.

#include <algorithm>
#include <climits>
#include <cstdint>
#include <string>
#include <utility>

#include "base/format.h"
#include "recorder/playback.h"
#include "recorder_panel/panel_draw_steps.h"
#include "recorder_panel/panel_editor.h"
#include "toolkit/color.h"
#include "toolkit/primitives.h"
#include "toolkit/text.h"
#include "toolkit/text_cache.h"

namespace veloria {

namespace {

constexpr SDL_Color kLabelText{220, 220, 240, 230};
constexpr SDL_Color kDetailText{150, 200, 150, 200};
constexpr SDL_Color kLevelFill{60, 180, 100, 120};
constexpr SDL_Color kGripLine{255, 255, 255, 80};

// The narrowest clips, in pixels, that still have room for each part.
constexpr int kNarrowestBody = 3;
constexpr int kNarrowestBorder = 7;
constexpr int kNarrowestLabel = 49;
constexpr int kNarrowestDetail = 121;
constexpr int kNarrowestLevel = 11;
constexpr int kNarrowestGrip = 13;
constexpr int kLowestDetailRow = 25;

constexpr Uint32 kKeptFormat = SDL_PIXELFORMAT_ARGB8888;

std::string detailText(const RecorderClip& clip, double hz) {
    const VoiceOverrides& stacks = clip.overrides;
    return formatText("%.1fHz %+.0fdB F%d P%d %d O%+d Fp%d Tp%d %s %s%s", hz,
                      static_cast<double>(clip.gainInDb), stacks.fibonacciCount, stacks.piCount,
                      stacks.teslaCount, stacks.octaveSteps, stacks.fibPhase, stacks.teslaPhase,
                      waveName(stacks.waveform), panLetter(clip.pan), clip.optimized ? " OPT" : "");
}

// Cut off to whole pixels; 0 for no bar: under a pixel, and above 0 dB, where it would outgrow the clip.
int levelLength(const RecorderClip& clip, int w) {
    if (w < kNarrowestLevel) return 0;
    const auto longest = static_cast<float>(w - 4);
    const float length = amplitudeOfDb(clip.gainInDb) * longest;
    return length >= 1.0f && length <= longest ? static_cast<int>(length) : 0;
}

ClipShape placed(int x, int y, int w, int h) {
    ClipShape shape;
    shape.x = x;
    shape.y = y;
    shape.w = w;
    shape.h = h;
    return shape;
}

ClipShape bodyShape(const RecorderLayout& layout, const RecorderClip& clip, int x, int y, int w, double hz) {
    ClipShape shape = placed(x, y + 2, w, layout.rowH - 4);
    shape.selected = clip.selected;
    shape.level = levelLength(clip, w);
    if (w >= kNarrowestLabel) shape.label = clip.label;
    if (w >= kNarrowestDetail && layout.rowH >= kLowestDetailRow) shape.detail = detailText(clip, hz);
    return shape;
}

void addBucket(const RecorderLayout& layout, int row, const ClipBucket& bucket, double hz,
               std::vector<ClipShape>& shapes) {
    const int y = rowTop(layout, row);
    const int right = layout.left + layout.width;
    int lastLine = INT_MIN;
    for (const RecorderClip& clip : bucket) {
        const ClipSpan span = clipSpan(layout, clip);
        // A clip that ends where the timeline begins is out of sight, but not one that begins and ends there.
        if (span.px0 >= right || (span.px1 <= layout.left && span.px0 < layout.left)) continue;
        const int px0 = std::max(span.px0, layout.left);
        const int w = std::min(span.px1, right) - px0;
        if (w >= kNarrowestBody) {
            shapes.push_back(bodyShape(layout, clip, px0, y, w, hz));
        } else if (px0 != lastLine) {
            // Clips of one pitch often lie in one column: one line stands for all of them.
            shapes.push_back(placed(px0, y + 2, 0, layout.rowH - 5));
            lastLine = px0;
        } else {
            continue;
        }
        shapes.back().colour = {clip.colour.r, clip.colour.g, clip.colour.b, clip.colour.a};
    }
}

std::vector<ClipShape> clipShapes(const Recorder& recorder, const RecorderLayout& layout) {
    std::vector<ClipShape> shapes;
    for (int row = 0; row < layout.channelCount; ++row) {
        if (!isRowSeen(layout, row)) continue;
        const auto channel = recorder.clips.find(row);
        if (channel == recorder.clips.end()) continue;
        for (const auto& [key, bucket] : channel->second)
            addBucket(layout, row, bucket, keyFrequency(key), shapes);
    }
    return shapes;
}

SDL_Color shapeColor(const ClipShape& shape, int divisor, int alpha) {
    const auto part = [divisor](Uint8 value) { return static_cast<Uint8>(value / divisor); };
    const SDL_Color color{part(shape.colour[0]), part(shape.colour[1]), part(shape.colour[2]), 255};
    return withAlpha(color, alpha);
}

void drawTexts(const DrawContext& context, const ClipShape& shape) {
    TTF_Font* font = context.fonts->fontLabel;
    const ClipGuard clipped(context.renderer, {shape.x, shape.y, shape.w, shape.h});
    DrawTextUtf8(context, shape.label, shape.x + 4, shape.y + 3, font, kLabelText);
    DrawText(context, shape.detail, shape.x + 4, shape.y + 15, font, kDetailText);
}

void drawShape(const DrawContext& context, const ClipShape& shape) {
    SDL_Renderer* renderer = context.renderer;
    if (shape.w == 0) {
        vLine(renderer, shape.x, shape.y, shape.y + shape.h - 1, shapeColor(shape, 1, shape.colour[3]));
        return;
    }
    const SDL_Rect body{shape.x, shape.y, shape.w, shape.h};
    const int alpha = shape.selected ? 220 : 160;
    const int foot = shape.y + shape.h - 5;  // of the grips, and where the level bar begins
    fillRect(renderer, body, shapeColor(shape, 3, alpha));
    fillRect(renderer, {body.x, body.y, body.w, 3}, shapeColor(shape, 1, alpha));
    if (body.w >= kNarrowestBorder) {
        outlineRect(renderer, body, shapeColor(shape, 1, shape.selected ? 255 : 100));
    }
    if (!shape.label.empty() || !shape.detail.empty()) drawTexts(context, shape);
    fillRect(renderer, {body.x + 2, foot, shape.level, 2}, kLevelFill);
    if (!shape.selected || body.w < kNarrowestGrip) return;
    for (const int inset : {3, 5})
        vLine(renderer, body.x + body.w - inset, body.y + 3, foot, kGripLine);
}

// The rows as far as they are seen, in the timeline: all of it is painted anew in each frame.
SDL_Rect rowsSeen(SDL_Renderer* renderer, const RecorderLayout& layout) {
    const SDL_Rect painted{layout.left, rowTop(layout, 0), layout.width, layout.contentH};
    SDL_Rect clip{};
    SDL_RenderGetClipRect(renderer, &clip);
    SDL_Rect seen{};
    if (SDL_IntersectRect(&painted, &clip, &seen) == SDL_FALSE) return {};
    return seen;
}

// Is laying a picture down quicker than drawing? Not on a graphics card, where reading it back is slow, nor
// for few clips.
bool isWorthKeeping(SDL_Renderer* renderer, const ClipScene& scene) {
    SDL_RendererInfo info;
    if (SDL_GetRendererInfo(renderer, &info) != 0 || (info.flags & SDL_RENDERER_SOFTWARE) == 0) return false;
    const std::int64_t room = std::int64_t{scene.place[2]} * scene.place[3];
    std::int64_t covered = 0;
    for (const ClipShape& shape : scene.shapes)
        covered += std::int64_t{shape.w} * shape.h;
    return room > 0 && covered > room;
}

void keepPicture(SDL_Renderer* renderer, KeptClips& kept) {
    const auto [x, y, w, h] = kept.scene.place;
    const SDL_Rect place{x, y, w, h};
    kept.pixels.resize(static_cast<std::size_t>(w) * static_cast<std::size_t>(h));
    if (SDL_RenderReadPixels(renderer, &place, kKeptFormat, kept.pixels.data(), w * 4) != 0) {
        kept.pixels.clear();
    }
}

// A texture of its own each time: it costs a twentieth of what it saves, and none has to be given back before
// the renderer goes.
bool layDownPicture(SDL_Renderer* renderer, const KeptClips& kept) {
    const auto [x, y, w, h] = kept.scene.place;
    const SDL_Rect place{x, y, w, h};
    SDL_Texture* texture = SDL_CreateTexture(renderer, kKeptFormat, SDL_TEXTUREACCESS_STATIC, w, h);
    if (texture == nullptr) return false;
    const bool done = SDL_UpdateTexture(texture, nullptr, kept.pixels.data(), w * 4) == 0 &&
                      SDL_SetTextureBlendMode(texture, SDL_BLENDMODE_NONE) == 0 &&
                      SDL_RenderCopy(renderer, texture, nullptr, &place) == 0;
    SDL_DestroyTexture(texture);
    return done;
}

// The texts on a picture that is laid down must not grow old in the cache: at the next change all of them
// would have to be rendered in one frame.
void touchTexts(const DrawContext& context, const ClipScene& scene) {
    const auto touch = [&](const std::string& text, bool utf8, SDL_Color color) {
        const TextKey key{scene.font, utf8, color, text};
        static_cast<void>(renderedText(*context.textCache, context.renderer, key, context.ticks));
    };
    for (const ClipShape& shape : scene.shapes) {
        touch(shape.label, true, kLabelText);
        touch(shape.detail, false, kDetailText);
    }
}

}  // namespace

void drawRecorderClips(const DrawContext& context, Recorder& recorder, const RecorderLayout& layout) {
    const ClipGuard clipped(context.renderer, layout.rows);
    KeptClips& kept = recorder.keptClips;
    const SDL_Rect seen = rowsSeen(context.renderer, layout);
    ClipScene scene{.place = {seen.x, seen.y, seen.w, seen.h},
                    .rowH = layout.rowH,
                    .scrollY = layout.scrollY,
                    .font = context.fonts->fontLabel,
                    .view = {layout.viewStart, layout.viewSpan},
                    .range = shownRange(recorder),
                    .shapes = clipShapes(recorder, layout)};
    const bool still = scene == kept.scene;
    if (!still) kept = {std::move(scene), {}};
    if (!kept.pixels.empty() && layDownPicture(context.renderer, kept)) {
        touchTexts(context, kept.scene);
        return;
    }
    for (const ClipShape& shape : kept.scene.shapes)
        drawShape(context, shape);
    // Only a scene that has stood for a frame: one on the move would be read back in vain each time.
    if (still && isWorthKeeping(context.renderer, kept.scene)) keepPicture(context.renderer, kept);
}

}  // namespace veloria
