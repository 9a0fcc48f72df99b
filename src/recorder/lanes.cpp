#include "recorder/lanes.h"

#include <algorithm>

namespace veloria {

namespace {

constexpr double kTouch = 0.001;  // s that a note may begin before the lane's last one has ended

}  // namespace

std::int32_t LanePacker::place(double start, double end) {
    auto lane = std::find_if(ends.begin(), ends.end(),
                             [start](double laneEnd) { return !(laneEnd - kTouch > start); });
    if (lane == ends.end()) {
        if (ends.size() < static_cast<std::size_t>(kMaxRecorderChannels)) {
            lane = ends.insert(ends.end(), end);
        } else {
            lane = std::min_element(ends.begin(), ends.end());
        }
    }
    *lane = end;
    return static_cast<std::int32_t>(lane - ends.begin());
}

}  // namespace veloria
