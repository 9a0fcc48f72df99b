#include "ui/widgets.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <string_view>

#include "base/format.h"
#include "engine/audio_lock.h"
#include "engine/control.h"
#include "frequency/classify.h"
#include "toolkit/color.h"
#include "ui/app_state.h"
#include "walker/activation.h"

namespace veloria {

const LeftTab kLeftTabs[6] = {
    {"TUNING", {110, 110, 200, 255}}, {"WAVE", {60, 160, 110, 255}}, {"FX", {160, 110, 70, 255}},
    {"VOICES", {255, 215, 100, 255}}, {"VIZ", {100, 140, 180, 255}}, {"SYS", {70, 80, 150, 255}},
};

namespace {

using Action = void (*)(AppState&);
using Condition = bool (*)(const AppState&);

bool never(const AppState&) {
    return false;
}

void setRetunerMode(AppState& app, std::int32_t mode) {
    // The mode is stored and the streams are cleared while the callback is kept out.
    const AudioLock lock;
    app.players.retuner.SetMode(mode);
}

std::int32_t retunerMode(const AppState& app) {
    return app.players.retuner.mode.load(std::memory_order_relaxed);
}

template <PanelId id>
void toggle(AppState& app) {
    togglePanel(app.panels, id);
}

template <PanelId id>
bool isOpen(const AppState& app) {
    return app.panels.panels[id].open;
}

template <std::int32_t palette>
bool isSpectrumOpen(const AppState& app) {
    return app.panels.panels[kSpectrumPanel].open && app.spectrumPalette == palette;
}

template <std::int32_t palette>
void toggleSpectrum(AppState& app) {
    if (isSpectrumOpen<palette>(app)) {
        closePanel(app.panels, kSpectrumPanel);
        return;
    }
    app.spectrumPalette = palette;
    app.panels.panels[kSpectrumPanel].open = true;
    raisePanel(app.panels, kSpectrumPanel);
}

// Closed by its button as by its box, the panel comes back with its figure.
void toggleSacred(AppState& app) {
    togglePanel(app.panels, kSacredPanel);
    if (!isOpen<kSacredPanel>(app)) app.sacred.sacredResearchMode = false;
}

template <std::int32_t waveform>
void setWaveform(AppState& app) {
    app.engine->waveform = waveform;
}

template <std::int32_t waveform>
bool isWaveform(const AppState& app) {
    return app.engine->waveform == waveform;
}

void call(const std::function<void()>& operation) {
    if (operation) operation();
}

// A button with everything that makes it one. Where it stands, its label says.
struct ButtonRow {
    const char* label;
    std::int32_t group;
    std::int32_t tab;  // ViewMode; -1 for the top bar
    SDL_Color color;   // or that of the theme's field
    SDL_Color Theme::*themeColor;
    Action action;  // null on "LOAD MUSIC FILE"
    Condition lit;
};

// In the order of the list. Clicks are tried in this order as well.
// clang-format off
constexpr ButtonRow kButtonRows[] = {
    {"LOAD MUSIC FILE", kTopBarGroup, -1, {}, &Theme::themeLoad, nullptr, never},
    {"STOP", kTopBarGroup, -1, {110, 25, 25, 255}, nullptr,
     [](AppState& app) { allNotesOff(*app.engine); call(app.onStop); }, never},
    {"PLAY", kTopBarGroup, -1, {25, 110, 45, 255}, nullptr,
     [](AppState& app) { call(app.onPlay); }, [](const AppState& app) { return app.transport.playing; }},
    {"RESET", kTopBarGroup, -1, {140, 40, 40, 255}, nullptr,
     [](AppState& app) { call(app.onReset); }, never},
    {"SPEC 1", kLeftPanelGroup, kVizTab, {60, 80, 140, 255}, nullptr, toggleSpectrum<0>, isSpectrumOpen<0>},
    {"SPEC 2", kLeftPanelGroup, kVizTab, {140, 60, 120, 255}, nullptr, toggleSpectrum<1>, isSpectrumOpen<1>},
    {"SACRED", kLeftPanelGroup, kVizTab, {60, 140, 100, 255}, nullptr, toggleSacred, isOpen<kSacredPanel>},
    {"HARMONICS", kLeftPanelGroup, kVizTab, {140, 100, 60, 255}, nullptr, toggle<kHarmonicsPanel>,
     isOpen<kHarmonicsPanel>},
    {"KATHARA", kLeftPanelGroup, kVizTab, {160, 130, 80, 255}, nullptr,
     [](AppState& app) { app.kathara.researchMode = !app.kathara.researchMode; },
     [](const AppState& app) { return app.kathara.researchMode; }},
    {"LOTUS", kLeftPanelGroup, kVizTab, {200, 160, 60, 255}, nullptr, toggle<kLotusPanel>, isOpen<kLotusPanel>},
    {"POLAR", kLeftPanelGroup, kVizTab, {80, 160, 200, 255}, nullptr, toggle<kPolarPanel>, isOpen<kPolarPanel>},
    {"SCOPE", kLeftPanelGroup, kVizTab, {100, 200, 180, 255}, nullptr, toggle<kScopePanel>, isOpen<kScopePanel>},
    {"KATHARA PANEL", kLeftPanelGroup, kVizTab, {160, 130, 80, 255}, nullptr, toggle<kKatharaPanel>,
     isOpen<kKatharaPanel>},
    {"SHADOW", kLeftPanelGroup, kVizTab, {180, 60, 60, 255}, nullptr, toggle<kShadowPanel>, isOpen<kShadowPanel>},
    {"Original Midi", kLeftPanelGroup, kTuningTab, {80, 200, 80, 255}, nullptr,
     [](AppState& app) { app.engine->sacredOptimizer = false; },
     [](const AppState& app) { return !app.engine->sacredOptimizer; }},
    {"Sacred Optimizer", kLeftPanelGroup, kTuningTab, {200, 180, 60, 255}, nullptr,
     [](AppState& app) { app.engine->sacredOptimizer = true; },
     [](const AppState& app) { return app.engine->sacredOptimizer; }},
    {"FFT Off", kLeftPanelGroup, kTuningTab, {120, 120, 120, 255}, nullptr,
     [](AppState& app) { setModeOff(app.players.retuner); },
     [](const AppState& app) { return retunerMode(app) == kModeOff; }},
    {"FFT Full", kLeftPanelGroup, kTuningTab, {60, 160, 200, 255}, nullptr,
     [](AppState& app) { setRetunerMode(app, kModeFull); },
     [](const AppState& app) { return retunerMode(app) == kModeFull; }},
    {"FFT Peak", kLeftPanelGroup, kTuningTab, {200, 120, 60, 255}, nullptr,
     [](AppState& app) { setRetunerMode(app, kModePeak); },
     [](const AppState& app) { return retunerMode(app) == kModePeak; }},
    {"Sine", kLeftPanelGroup, kWaveTab, {}, &Theme::themeSine, setWaveform<0>, isWaveform<0>},
    {"Saw", kLeftPanelGroup, kWaveTab, {}, &Theme::themeSaw, setWaveform<1>, isWaveform<1>},
    {"Square", kLeftPanelGroup, kWaveTab, {}, &Theme::themeSquare, setWaveform<2>, isWaveform<2>},
    {"Triangle", kLeftPanelGroup, kWaveTab, {}, &Theme::themeTriangle, setWaveform<3>, isWaveform<3>},
    {"Bass Filter", kLeftPanelGroup, kTuningTab, {}, &Theme::themeFilter,
     [](AppState& app) { app.engine->bassFilter = !app.engine->bassFilter; },
     [](const AppState& app) { return app.engine->bassFilter; }},
    {"MIDI Normalize", kLeftPanelGroup, kTuningTab, {100, 140, 200, 255}, nullptr,
     [](AppState& app) { app.transport.midiNormalize = !app.transport.midiNormalize; },
     [](const AppState& app) { return app.transport.midiNormalize; }},
    {"Heart", kLeftPanelGroup, kTuningTab, {255, 100, 140, 255}, nullptr,
     [](AppState& app) { toggleHeart(*app.engine, app.transport.playing); },
     [](const AppState& app) {
         return app.engine->activationMode == kActivationSingle || app.engine->activationMode == kActivationHeart;
     }},
    {"Trinity", kLeftPanelGroup, kTuningTab, {255, 200, 80, 255}, nullptr,
     [](AppState& app) { toggleTrinity(*app.engine, app.transport.playing); },
     [](const AppState& app) { return app.engine->activationMode == kActivationTrinity; }},
    {"Fibonacci", kLeftPanelGroup, kTuningTab, {100, 220, 255, 255}, nullptr,
     [](AppState& app) { toggleFibonacci(*app.engine, app.transport.playing); },
     [](const AppState& app) { return app.engine->activationMode == kActivationFibonacci; }},
    {"DNA Spiral", kLeftPanelGroup, kTuningTab, {120, 60, 200, 255}, nullptr,
     [](AppState& app) { walkerToggle(app.walker, *app.engine, app.draw.ticks); },
     [](const AppState& app) { return app.walker.running; }},
    {"Import MIDI", kLeftPanelGroup, kTuningTab, {100, 140, 200, 255}, nullptr,
     [](AppState& app) { call(app.onImportMidi); }, never},
};
// clang-format on

const ButtonRow* findButtonRow(std::string_view label) {
    const auto row = std::find_if(std::begin(kButtonRows), std::end(kButtonRows),
                                  [label](const ButtonRow& r) { return label == r.label; });
    return row == std::end(kButtonRows) ? nullptr : row;
}

void addButtons(AppState& app) {
    for (const ButtonRow& row : kButtonRows) {
        Widget widget;
        widget.label = row.label;
        widget.color = row.themeColor != nullptr ? app.theme.*row.themeColor : row.color;
        widget.group = row.group;
        if (row.action != nullptr) widget.onClick = [&app, action = row.action] { action(app); };
        app.widgets.push_back(std::move(widget));
    }
}

// Neighbouring rows get hues a golden angle apart.
SDL_Color goldenHue(int n, float offset, float saturation, float lightness) {
    const float hue = std::fmod(static_cast<float>(n) * 137.508f + offset, 360.0f);
    return hslToRgb(hue, saturation, lightness);
}

// The indices of a table in ascending order of its frequencies.
template <class FrequencyOf>
std::vector<std::uint32_t> ascending(std::uint32_t count, FrequencyOf frequencyOf) {
    std::vector<std::uint32_t> order(count);
    std::iota(order.begin(), order.end(), 0u);
    std::sort(order.begin(), order.end(),
              [&](std::uint32_t a, std::uint32_t b) { return frequencyOf(a) < frequencyOf(b); });
    return order;
}

// One of the two Avatar families.
struct AvatarFamily {
    double (*frequencyOf)(std::uint32_t);
    const char* word;
    std::int32_t group;
    float hueOffset;
    float saturation;
    void (*toggle)(SynthEngine&, std::uint32_t);
};

void addAvatarRows(AppState& app, const AvatarFamily& family) {
    int n = 0;
    for (const std::uint32_t index : ascending(kAvatarFamilySize, family.frequencyOf)) {
        const double hz = family.frequencyOf(index);
        Widget widget;
        widget.label = formatText("%.0f %s", hz, family.word);
        widget.detail = formatText("%.0f Hz | DR%d", hz, digitalRoot(hz));
        widget.color = goldenHue(n++, family.hueOffset, family.saturation, 0.4f);
        widget.group = family.group + static_cast<std::int32_t>(index);
        widget.onClick = [&app, index, toggleRow = family.toggle] { toggleRow(*app.engine, index); };
        app.widgets.push_back(std::move(widget));
    }
}

// What a Shadow row's class makes of it.
struct ShadowClass {
    const char* name;
    float hueOffset;
    float saturation;
};
constexpr ShadowClass kShadowClasses[] = {{"444", 0.0f, 0.6f}, {"555", 120.0f, 0.55f}, {"666", 240.0f, 0.5f}};

Widget shadowRow(AppState& app, std::uint32_t index, int n) {
    const auto number = static_cast<int>(shadowFrequency(index));
    Widget widget;
    widget.label = formatText("%d Shadow", number);
    widget.group = kShadowGroup + static_cast<std::int32_t>(index);
    if (isConvergence(index)) {
        widget.color = {80, 70, 100, 255};
        widget.detail = formatText("%d Hz | AVT", number);
        widget.onClick = [] {};
        return widget;
    }
    const ShadowClass& own = kShadowClasses[shadowGroup(static_cast<std::int32_t>(index))];
    // The digits' sum, summed again to one digit, is the number's digital root.
    widget.detail = formatText("%d Hz | DR%d | %s", number, digitalRoot(number), own.name);
    widget.color = goldenHue(n, own.hueOffset, own.saturation, 0.38f);
    widget.onClick = [&app, index] { toggleShadow(*app.engine, index); };
    return widget;
}

void addShadowRows(AppState& app) {
    int n = 0;
    for (const std::uint32_t index : ascending(kShadowIndexCount, shadowFrequency)) {
        app.widgets.push_back(shadowRow(app, index, n++));
    }
}

double rotationFrequency(std::uint32_t index) {
    return rotationFreqs[index];
}

// The place in the source table of a row of the family that starts at `group`; -1 for a widget of another.
int rowIndex(const Widget& widget, std::int32_t group, int count) {
    const int index = widget.group - group;
    return index >= 0 && index < count ? index : -1;
}

}  // namespace

void buildWidgetLists(AppState& app) {
    app.widgets.clear();
    addButtons(app);
    addAvatarRows(app, {reflectionFrequency, "Reflect", kReflectionGroup, 0.0f, 0.65f, toggleReflection});
    addAvatarRows(app, {rotationFrequency, "Rotate", kRotationGroup, 180.0f, 0.6f, toggleRotation});
    addShadowRows(app);
}

const Widget* findWidget(const AppState& app, const std::string& label) {
    const auto widget = std::find_if(app.widgets.begin(), app.widgets.end(),
                                     [&](const Widget& w) { return w.label == label; });
    return widget == app.widgets.end() ? nullptr : &*widget;
}

std::int32_t tabOfButton(const std::string& label) {
    const ButtonRow* row = findButtonRow(label);
    return row == nullptr ? -1 : row->tab;
}

bool isLit(const AppState& app, const Widget& widget) {
    const auto held = [](const auto& flags, int index) { return flags[static_cast<std::size_t>(index)]; };
    if (const int i = rowIndex(widget, kReflectionGroup, kAvatarFamilySize); i >= 0) {
        return held(app.engine->reflectionHeld, i);
    }
    if (const int i = rowIndex(widget, kRotationGroup, kAvatarFamilySize); i >= 0) {
        return held(app.engine->rotationHeld, i);
    }
    if (const int i = rowIndex(widget, kShadowGroup, kShadowIndexCount); i >= 0) {
        return held(app.engine->shadowHeld, i);
    }
    const ButtonRow* row = findButtonRow(widget.label);
    return row != nullptr && row->lit(app);
}

bool isInertRow(const Widget& widget) {
    const int i = rowIndex(widget, kShadowGroup, kShadowIndexCount);
    return i >= 0 && isConvergence(static_cast<std::uint32_t>(i));
}

ShownRows shownRows(const AppState& app, int avatarTop) {
    if (app.tableTab == 1) {
        return {kShadowGroup, kShadowIndexCount, kShadowRowsTop,
                rowGrid(app.layout, kShadowRowsTop, app.shadowScroll)};
    }
    return {app.avatarSubTab == 0 ? kReflectionGroup : kRotationGroup, kAvatarFamilySize, avatarTop,
            rowGrid(app.layout, avatarTop, app.avatarScroll)};
}

bool isShownRow(const AppState& app, const Widget& widget) {
    const ShownRows shown = shownRows(app);
    return rowIndex(widget, shown.group, shown.count) >= 0;
}

}  // namespace veloria
