// The recorder's share of the input: its panel, and the rows that are dragged onto it.
#include <algorithm>
#include <charconv>

#include "recorder_panel/panel.h"
#include "ui/floating_panels.h"
#include "ui/input_steps.h"

namespace veloria {

namespace {

constexpr float kDroppedGainDb = -6.0f;

// What a dragged row brings along.
struct DraggedRow {
    double frequency = 0.0;  // Hz
    std::int32_t kind = 0;
    std::int32_t index = 0;  // row of its table
};

// A Shadow row's frequency stands in its label, up to the first blank.
double leadingNumber(const std::string& label) {
    double number = 0.0;
    const auto end = label.find(' ');
    std::from_chars(label.data(), label.data() + (end == std::string::npos ? label.size() : end), number);
    return number;
}

DraggedRow draggedRow(const AppState& app, const Widget& row) {
    if (app.tableTab == 1) return {leadingNumber(row.label), kSourceShadow, row.group - kShadowGroup};
    if (app.avatarSubTab == 0) {
        const std::int32_t index = row.group - kReflectionGroup;
        return {reflectionFrequency(static_cast<std::uint32_t>(index)), kSourceReflection, index};
    }
    const std::int32_t index = row.group - kRotationGroup;
    return {rotationFreqs[static_cast<std::size_t>(index)], kSourceRotation, index};
}

// The row under a right press; null for none.
const Widget* rowUnder(const AppState& app, int x, int y) {
    if (!contains(rowHitArea(app.layout), x, y)) return nullptr;
    const ShownRows shown = shownRows(app, kAvatarRightClickTop);
    const auto row = std::find_if(app.widgets.begin(), app.widgets.end(), [&](const Widget& widget) {
        return isShownRow(app, widget) && !isInertRow(widget) &&
               contains(gridCell(shown.grid, widget.group - shown.group), x, y);
    });
    return row == app.widgets.end() ? nullptr : &*row;
}

// What every dropped clip starts from: the engine's settings of this moment.
RecorderClip clipTemplate(const SynthEngine& engine) {
    RecorderClip clip;
    clip.gainInDb = kDroppedGainDb;
    clip.gainOutDb = kDroppedGainDb;
    clip.overrides = {.fibonacciCount = engine.fibonacciCount,
                      .piCount = engine.piCount,
                      .teslaCount = engine.teslaCount,
                      .octaveSteps = engine.octaveSteps,
                      .phiSteps = engine.phiSteps,
                      .fibPhase = engine.fibPhase,
                      .teslaPhase = engine.teslaPhase,
                      .waveform = engine.waveform};
    clip.bassFilter = engine.bassFilter;
    return clip;
}

// Does something lie over the recorder's rows at this point?
bool isCovered(const AppState& app, int x, int y) {
    return isUnderFloatingWindow(app, x, y) || recorderEditContains(app.recorder, app.layout.recorder, x, y);
}

// When the event came about, ms. All that has queued up behind a long frame is handed out at one instant;
// only the event itself knows that two clicks lay far apart. One that was made by hand says nothing.
std::uint32_t eventTicks(const AppState& app, const SDL_Event& event) {
    return event.common.timestamp != 0 ? event.common.timestamp : app.draw.ticks;
}

}  // namespace

bool recorderEvent(AppState& app, const SDL_Event& event) {
    RecorderInput input;
    input.ticks = eventTicks(app, event);
    SDL_GetMouseState(&input.mouseX, &input.mouseY);
    input.modifiers = SDL_GetModState();
    input.onOpenField = [&app] { endCalculatorEditing(app.calculator); };
    return handleRecorderEvent(app.recorder, event, app.layout.recorder, input);
}

bool rowDragEvent(AppState& app, const SDL_Event& event, const PointerEvent& pointer) {
    const bool button = event.type == SDL_MOUSEBUTTONDOWN || event.type == SDL_MOUSEBUTTONUP;
    const bool right = button && event.button.button == SDL_BUTTON_RIGHT;
    if (right && event.type == SDL_MOUSEBUTTONDOWN) {
        const Widget* row = rowUnder(app, pointer.x, pointer.y);
        if (row == nullptr) return false;
        const DraggedRow dragged = draggedRow(app, *row);
        beginDroneDrag(app.recorder, row->label, dragged.frequency, row->color, dragged.kind, dragged.index);
        setDragMouse(app.recorder, pointer.x, pointer.y);
        return true;
    }
    if (!app.recorder.droneDragging) return false;
    if (pointer.motion) {
        setDragMouse(app.recorder, pointer.x, pointer.y);
        return true;
    }
    if (right && isCovered(app, pointer.x, pointer.y)) {
        endDroneDrag(app.recorder);
        return true;
    }
    if (right) {
        dropDrone(app.recorder, pointer.x, pointer.y, app.layout.recorder, clipTemplate(*app.engine));
        return true;
    }
    return false;
}

}  // namespace veloria
