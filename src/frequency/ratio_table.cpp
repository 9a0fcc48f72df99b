#include "frequency/ratio_table.h"

namespace veloria {

// The search for the nearest tuned frequency depends on these digits. "xR3" and "/R3" leave the square root
// of 3 from the ninth decimal on: odd, and kept, so that every tuning stays what it has always been.
// clang-format off
const std::array<RatioRow, kRatioCount> ratioTable = {{
    {1.618033988749895, "xP"},
    {2.618033988749895, "xP2"},
    {4.23606797749979, "xP3"},
    {3.141592653589793, "xPi"},
    {1.414213562373095, "xR2"},
    {1.73205080856857, "xR3"},
    {2.23606797749979, "xR5"},
    {0.6180339887498948, "/P"},
    {0.38196601125010515, "/P2"},
    {0.2360679774997897, "/P3"},
    {0.3183098861837907, "/Pi"},
    {0.7071067811865476, "/R2"},
    {0.5773502688563948, "/R3"},
    {0.4472135954999579, "/R5"},
    {2.0, "x2"}, {1.0 / 2.0, "/2"},
    {3.0, "x3"}, {1.0 / 3.0, "/3"},
    {4.0, "x4"}, {1.0 / 4.0, "/4"},
    {5.0, "x5"}, {1.0 / 5.0, "/5"},
    {6.0, "x6"}, {1.0 / 6.0, "/6"},
    {7.0, "x7"}, {1.0 / 7.0, "/7"},
    {8.0, "x8"}, {1.0 / 8.0, "/8"},
    {9.0, "x9"}, {1.0 / 9.0, "/9"},
    {13.0, "x13"}, {1.0 / 13.0, "/13"},
    {21.0, "x21"}, {1.0 / 21.0, "/21"},
    {34.0, "x34"}, {1.0 / 34.0, "/34"},
    {55.0, "x55"}, {1.0 / 55.0, "/55"},
    {89.0, "x89"}, {1.0 / 89.0, "/89"},
    {144.0, "x144"}, {1.0 / 144.0, "/144"},
    {233.0, "x233"}, {1.0 / 233.0, "/233"},
    {377.0, "x377"}, {1.0 / 377.0, "/377"},
    {610.0, "x610"}, {1.0 / 610.0, "/610"},
    {987.0, "x987"}, {1.0 / 987.0, "/987"},
}};
// clang-format on

const char* ratioLabel(std::int32_t row) {
    return row >= 1 && row <= kRatioCount ? ratioTable[static_cast<std::size_t>(row - 1)].label : "";
}

}  // namespace veloria
