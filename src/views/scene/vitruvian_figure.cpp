#include "views/scene/vitruvian_figure.h"

#include <array>
#include <cmath>

#include "toolkit/primitives.h"
#include "toolkit/text.h"

namespace veloria {

namespace {

// All lengths in scene units. The figure is 4.45 high, in the plane z = 0, with the groin at the origin.
constexpr float kHeight = 4.45f;
constexpr float kHalf = 2.225f;
constexpr float kNavel = 0.445f;  // middle of circle and star
constexpr float kShoulderX = 0.55625f;
constexpr float kShoulderY = 1.335f;
constexpr float kHeadY = 1.9491f;
constexpr float kHeadRadius = 0.278125f;
constexpr float kKnee = 1.1125f;       // from the groin, and radius of the star
constexpr float kForearm = 0.834375f;  // shoulder to elbow
constexpr float kArm = 1.66875f;       // shoulder to hand
constexpr float kScaleTextX = -2.525f;
constexpr float kScaleOuterX = -2.375f;
constexpr float kScaleInnerX = -2.175f;
constexpr float kPi = 3.1415927f;
constexpr float kSin30 = 0.5f;
constexpr float kCos30 = 0.8660254f;
constexpr float kSin25 = 0.42261827f;
constexpr float kCos25 = 0.9063078f;

constexpr SDL_Color kBody{220, 195, 140, 160};
constexpr SDL_Color kRibs{220, 195, 140, 90};
constexpr SDL_Color kSecondPose{200, 180, 130, 90};
constexpr SDL_Color kSpread{100, 220, 100, 90};
constexpr SDL_Color kSquare{200, 170, 80, 50};
constexpr SDL_Color kCircle{80, 160, 220, 50};
constexpr SDL_Color kStar{160, 100, 220, 35};
constexpr SDL_Color kScaleText{140, 130, 160, 100};
constexpr SDL_Color kScaleMark{140, 130, 160, 70};

struct FlatPoint {
    float x;
    float y;
};

struct Bone {
    FlatPoint from;
    FlatPoint to;
    int width;
};
constexpr std::array<Bone, 17> kBones = {{
    {{0.0f, 2.225f}, {0.0f, 1.66875f}, 3},
    {{0.0f, 1.66875f}, {0.0f, 1.48185f}, 2},
    {{0.0f, 1.48185f}, {0.0f, 1.335f}, 3},
    {{0.0f, 1.335f}, {0.0f, 1.1125f}, 3},
    {{0.0f, 1.1125f}, {0.0f, 0.445f}, 3},
    {{0.0f, 0.445f}, {0.0f, 0.0f}, 3},
    {{-0.55625f, 1.335f}, {0.55625f, 1.335f}, 2},
    {{-0.55625f, 1.335f}, {-1.335f, 1.335f}, 2},
    {{0.55625f, 1.335f}, {1.335f, 1.335f}, 2},
    {{-1.335f, 1.335f}, {-2.225f, 1.335f}, 2},
    {{1.335f, 1.335f}, {2.225f, 1.335f}, 2},
    {{0.0f, 0.0f}, {-0.24475f, -0.089f}, 2},
    {{0.0f, 0.0f}, {0.24475f, -0.089f}, 2},
    {{-0.24475f, -0.089f}, {-0.14685f, -1.1125f}, 2},
    {{0.24475f, -0.089f}, {0.14685f, -1.1125f}, 2},
    {{-0.14685f, -1.1125f}, {-0.122375f, -2.225f}, 2},
    {{0.14685f, -1.1125f}, {0.122375f, -2.225f}, 2},
}};
constexpr std::array<Bone, 4> kRibBones = {{
    {{-0.55625f, 1.335f}, {-0.4005f, 1.1125f}, 1},
    {{0.55625f, 1.335f}, {0.4005f, 1.1125f}, 1},
    {{-0.4005f, 1.1125f}, {0.0f, 0.445f}, 1},
    {{0.4005f, 1.1125f}, {0.0f, 0.445f}, 1},
}};

constexpr std::array<FlatPoint, 4> kSquareCorners = {
    {{-kHalf, -kHalf}, {kHalf, -kHalf}, {kHalf, kHalf}, {-kHalf, kHalf}}};

constexpr FlatPoint kGroinPoint{0.0f, 0.0f};
constexpr FlatPoint kNavelPoint{0.0f, kNavel};
constexpr FlatPoint kRightHand{kShoulderX + kArm * kCos25, kShoulderY + kArm* kSin25};

struct Marker {
    FlatPoint place;
    int radius;  // pixels
    SDL_Color disc;
    bool breathes;    // the disc's alpha is then its strongest
    int innerRadius;  // 0 for none
    const char* text;
    SDL_Color textColour;
};
constexpr SDL_Color kMarkerMiddle{255, 255, 200, 230};
constexpr std::array<Marker, 4> kMarkers = {{
    {{0.0f, 0.445f}, 6, {255, 200, 80, 180}, true, 3, "322 NAVEL", {255, 200, 100, 180}},
    {{0.0f, 0.0f}, 4, {200, 170, 80, 140}, false, 0, "244 GROIN", {200, 170, 80, 140}},
    {{0.0f, 0.55625f}, 4, {220, 80, 80, 160}, false, 0, "333 HEART", {220, 100, 100, 160}},
    {{0.0f, 2.225f}, 4, {220, 200, 255, 160}, false, 0, "444 CROWN", {200, 180, 255, 160}},
}};

struct Proportion {
    float fraction;  // of the height
    const char* text;
};
constexpr std::array<Proportion, 7> kProportions = {{
    {0.0f, "0 FEET"},
    {0.25f, "1/4 KNEE"},
    {0.5f, "1/2 GROIN (Square)"},
    {0.6f, "3/5 NAVEL (Circle)"},
    {0.75f, "3/4 NIPPLE"},
    {0.875f, "7/8 CHIN"},
    {1.0f, "1 HEAD TOP"},
}};

Point3 flat(FlatPoint point) {
    return {point.x, point.y, 0.0f};
}

FlatPoint onCircle(FlatPoint centre, float radius, float angle) {
    return {centre.x + radius * std::cos(angle), centre.y + radius * std::sin(angle)};
}

// Thin lines are one pixel wide, `width` 0.
constexpr int kThin = 0;

void stroke(const SceneCanvas& canvas, FlatPoint from, FlatPoint to, SDL_Color colour, int width) {
    if (width == kThin) {
        canvas.line(flat(from), flat(to), colour);
    } else {
        canvas.thickLine(flat(from), flat(to), colour, width);
    }
}

void drawRing(const SceneCanvas& canvas, FlatPoint centre, float radius, int segments, SDL_Color colour,
              int width) {
    const float step = 2.0f * kPi / static_cast<float>(segments);
    for (int i = 0; i < segments; ++i)
        stroke(canvas, onCircle(centre, radius, static_cast<float>(i) * step),
               onCircle(centre, radius, static_cast<float>(i + 1) * step), colour, width);
}

void drawFirstPose(const SceneCanvas& canvas) {
    for (const Bone& bone : kBones)
        stroke(canvas, bone.from, bone.to, kBody, bone.width);
    for (const Bone& bone : kRibBones)
        stroke(canvas, bone.from, bone.to, kRibs, bone.width);
    drawRing(canvas, {0.0f, kHeadY}, kHeadRadius, 12, kBody, 2);
}

FlatPoint spreadLeg(float side, float length) {
    return {side * length * kSin30, -length * kCos30};
}

FlatPoint raisedArm(float side, float length) {
    return {side * (kShoulderX + length * kCos25), kShoulderY + length * kSin25};
}

void drawSecondPose(const SceneCanvas& canvas) {
    for (const float side : {-1.0f, 1.0f}) {
        const FlatPoint knee = spreadLeg(side, kKnee);
        stroke(canvas, kGroinPoint, knee, kSecondPose, 2);
        stroke(canvas, knee, spreadLeg(side, kHalf), kSecondPose, 2);
        const FlatPoint elbow = raisedArm(side, kForearm);
        stroke(canvas, {side * kShoulderX, kShoulderY}, elbow, kSecondPose, 2);
        stroke(canvas, elbow, raisedArm(side, kArm), kSecondPose, 2);
    }
    const FlatPoint left = spreadLeg(-1.0f, kHalf);
    const FlatPoint right = spreadLeg(1.0f, kHalf);
    stroke(canvas, kGroinPoint, left, kSpread, 2);
    stroke(canvas, kGroinPoint, right, kSpread, 2);
    stroke(canvas, left, right, kSpread, 2);
}

void drawCanon(const SceneCanvas& canvas) {
    for (std::size_t i = 0; i < kSquareCorners.size(); ++i)
        stroke(canvas, kSquareCorners[i], kSquareCorners[(i + 1) % kSquareCorners.size()], kSquare, kThin);
    const float radius = std::hypot(kRightHand.x - kNavelPoint.x, kRightHand.y - kNavelPoint.y);
    drawRing(canvas, kNavelPoint, radius, 48, kCircle, kThin);
    constexpr float kSixth = kPi / 3.0f;
    for (int k = 0; k < 6; ++k) {
        const float t = static_cast<float>(k) * kSixth - kPi / 2.0f;
        const FlatPoint first = onCircle(kNavelPoint, kKnee, t);
        const FlatPoint second = onCircle(kNavelPoint, kKnee, t + kSixth);
        stroke(canvas, kNavelPoint, first, kStar, kThin);
        stroke(canvas, first, second, kStar, kThin);
        stroke(canvas, second, kNavelPoint, kStar, kThin);
    }
}

void drawMarker(const SceneCanvas& canvas, const Marker& marker) {
    const ScreenPoint at = canvas.project(flat(marker.place));
    if (!at.visible) return;
    SDL_Color disc = marker.disc;
    if (marker.breathes) disc.a = canvas.pulsed(disc.a);
    fillCircle(canvas.renderer(), at.screenX, at.screenY, marker.radius, disc);
    if (marker.innerRadius > 0)
        fillCircle(canvas.renderer(), at.screenX, at.screenY, marker.innerRadius, kMarkerMiddle);
    DrawText(canvas.context, marker.text, at.screenX + 8, at.screenY - 5, canvas.labelFont(),
             marker.textColour);
}

void drawProportion(const SceneCanvas& canvas, const Proportion& proportion) {
    const float y = proportion.fraction * kHeight - kHalf;
    const ScreenPoint at = canvas.project({kScaleTextX, y, 0.0f});
    if (at.visible) {
        DrawText(canvas.context, proportion.text, at.screenX, at.screenY - 4, canvas.labelFont(), kScaleText);
    }
    canvas.line({kScaleInnerX, y, 0.0f}, {kScaleOuterX, y, 0.0f}, kScaleMark);
}

}  // namespace

void drawVitruvianFigure(const SceneCanvas& canvas) {
    drawFirstPose(canvas);
    drawSecondPose(canvas);
    drawCanon(canvas);
    for (const Marker& marker : kMarkers)
        drawMarker(canvas, marker);
    if (canvas.labelFont() == nullptr) return;  // marks without words say nothing
    for (const Proportion& proportion : kProportions)
        drawProportion(canvas, proportion);
}

}  // namespace veloria
