#include <cmath>
#include <cstdint>

#include "base/format.h"
#include "recorder/clips.h"
#include "recorder_panel/panel.h"
#include "recorder_panel/panel_editor.h"

namespace veloria {

namespace {

constexpr double kLowestDb = -60.0;
constexpr double kLowestHz = 100.0;
constexpr double kHzRange = 899.0;  // up to 999: one step short of where frequencies are folded
constexpr double kStepsRange = 8.0;
constexpr std::int32_t kLowestSteps = -4;  // the engine's own sliders end at 3
constexpr double kPercentRange = 100.0;

std::int32_t nearest(double value) {
    return static_cast<std::int32_t>(std::floor(value + 0.5));
}

template <float RecorderClip::*field>
double gainPosition(const RecorderClip& clip, double) {
    return (static_cast<double>(clip.*field) - kLowestDb) / -kLowestDb;
}
template <float RecorderClip::*field>
std::string gainText(const RecorderClip& clip, double) {
    return formatText("%.0f", static_cast<double>(clip.*field));
}
template <float RecorderClip::*field>
void applyGain(Recorder& recorder, double position) {
    recorder.editClip->*field = static_cast<float>(position * -kLowestDb + kLowestDb);
}

// A setting of the partial stacks that counts from 0 to `last`.
template <std::int32_t VoiceOverrides::*field, int last>
double countPosition(const RecorderClip& clip, double) {
    return static_cast<double>(clip.overrides.*field) / last;
}
template <std::int32_t VoiceOverrides::*field>
std::string countText(const RecorderClip& clip, double) {
    return formatText("%d", clip.overrides.*field);
}
template <std::int32_t VoiceOverrides::*field>
std::string percentText(const RecorderClip& clip, double) {
    return formatText("%d%%", clip.overrides.*field);
}
template <std::int32_t VoiceOverrides::*field, int last>
void applyCount(Recorder& recorder, double position) {
    recorder.editClip->overrides.*field = nearest(position * last);
}

template <std::int32_t VoiceOverrides::*field>
double stepsPosition(const RecorderClip& clip, double) {
    return (static_cast<double>(clip.overrides.*field) - kLowestSteps) / kStepsRange;
}
template <std::int32_t VoiceOverrides::*field>
std::string stepsText(const RecorderClip& clip, double) {
    return formatText("%+d", clip.overrides.*field);
}
template <std::int32_t VoiceOverrides::*field>
void applySteps(Recorder& recorder, double position) {
    recorder.editClip->overrides.*field = nearest(position * kStepsRange) + kLowestSteps;
}

std::string waveText(const RecorderClip& clip, double) {
    return waveName(clip.overrides.waveform);
}

double panPosition(const RecorderClip& clip, double) {
    return static_cast<double>(clip.pan);
}
std::string panText(const RecorderClip& clip, double) {
    return formatText("%.0f%s", static_cast<double>(clip.pan) * kPercentRange, panLetter(clip.pan));
}
void applyPan(Recorder& recorder, double position) {
    recorder.editClip->pan = static_cast<float>(position);
}

double frequencyPosition(const RecorderClip&, double hz) {
    return (hz - kLowestHz) / kHzRange;
}
std::string frequencyText(const RecorderClip&, double hz) {
    return formatText("%.1f", hz);
}
void applyFrequency(Recorder& recorder, double position) {
    const double hz = position * kHzRange + kLowestHz;
    const ClipPlace place = findClip(recorder, recorder.editClip);
    if (place.clip == nullptr || place.key == frequencyKey(hz)) return;
    recorder.editClip = moveClipToFrequency(recorder, recorder.editClip, hz);
}

using Clip = RecorderClip;
using Stacks = VoiceOverrides;

}  // namespace

const std::array<EditorRow, kEditorRowCount> kEditorRows = {{
    {"dB In", gainPosition<&Clip::gainInDb>, gainText<&Clip::gainInDb>, applyGain<&Clip::gainInDb>},
    {"dB Out", gainPosition<&Clip::gainOutDb>, gainText<&Clip::gainOutDb>, applyGain<&Clip::gainOutDb>},
    {"Fib", countPosition<&Stacks::fibonacciCount, 9>, countText<&Stacks::fibonacciCount>,
     applyCount<&Stacks::fibonacciCount, 9>},
    {"Pi", countPosition<&Stacks::piCount, 9>, countText<&Stacks::piCount>, applyCount<&Stacks::piCount, 9>},
    {"369", countPosition<&Stacks::teslaCount, 3>, countText<&Stacks::teslaCount>,
     applyCount<&Stacks::teslaCount, 3>},
    {"Wave", countPosition<&Stacks::waveform, 3>, waveText, applyCount<&Stacks::waveform, 3>},
    {"Oct", stepsPosition<&Stacks::octaveSteps>, stepsText<&Stacks::octaveSteps>,
     applySteps<&Stacks::octaveSteps>},
    {"OctPhi", stepsPosition<&Stacks::phiSteps>, stepsText<&Stacks::phiSteps>, applySteps<&Stacks::phiSteps>},
    {"FibPh", countPosition<&Stacks::fibPhase, 100>, percentText<&Stacks::fibPhase>,
     applyCount<&Stacks::fibPhase, 100>},
    {"TslPh", countPosition<&Stacks::teslaPhase, 100>, percentText<&Stacks::teslaPhase>,
     applyCount<&Stacks::teslaPhase, 100>},
    {"Pan", panPosition, panText, applyPan},
    {"Freq", frequencyPosition, frequencyText, applyFrequency},
}};

const char* panLetter(float pan) {
    if (pan < 0.3f) return "L";
    return pan > 0.7f ? "R" : "C";
}

const char* waveName(std::int32_t waveform) {
    constexpr std::array<const char*, 4> kNames = {"SIN", "SAW", "SQR", "TRI"};
    if (waveform < 0 || waveform >= static_cast<std::int32_t>(kNames.size())) return "?";
    return kNames[static_cast<std::size_t>(waveform)];
}

std::string editorFootText(const RecorderClip& clip) {
    return formatText("%s%s%s", clip.tuningLabel.empty() ? "Default" : clip.tuningLabel.c_str(),
                      clip.bassFilter ? " | BF" : "", clip.optimized ? " | OPT" : "");
}

void openClipEditor(Recorder& recorder, const RecorderLayout& layout, RecorderClip& clip,
                    std::int32_t channel, int mouseX) {
    constexpr int kClearOfRow = 4;  // pixels between the row and the box, above or below it
    const int row = rowTop(layout, channel);
    recorder.editOpen = true;
    recorder.editClip = &clip;
    recorder.editChannel = channel;
    recorder.editRow = -1;
    recorder.editX = mouseX;
    recorder.editY = row - kEditorHeight - kClearOfRow;
    if (recorder.editY < layout.area.y) recorder.editY = row + layout.rowH + kClearOfRow;
    const SDL_Rect box = editorBox(recorder, layout.area);
    recorder.editX = box.x;
    recorder.editY = box.y;
}

void closeClipEditor(Recorder& recorder) {
    recorder.editOpen = false;
    recorder.editClip = nullptr;
    recorder.editChannel = -1;
    recorder.editRow = -1;
}

}  // namespace veloria
