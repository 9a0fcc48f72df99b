#include "views/scene/geometry/wire_model.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <exception>
#include <limits>
#include <numeric>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "base/little_endian.h"
#include "platform/files.h"

namespace veloria {

namespace {

// The file, in bytes: a free text, the number of triangles, then a record for each.
constexpr std::size_t kCountOffset = 80;
constexpr std::size_t kHeadSize = 84;
constexpr std::size_t kTriangleSize = 50;
constexpr std::size_t kCornersOffset = 12;  // within a record, behind the normal; two unused bytes end it
constexpr std::uint32_t kMostTriangles = 2000000;

constexpr float kSmallestSide = 1e-6f;  // of the file's figure, in its own units
constexpr int kFinestGrid = 1024;

using Triangle = std::array<Point3, 3>;
using CornerIndices = std::array<std::uint32_t, 3>;

struct Box {
    Point3 low;
    Point3 high;
};

// 0 for a file that is refused.
std::uint32_t triangleCount(std::span<const std::uint8_t> file) {
    if (file.size() < kHeadSize) return 0;
    const std::uint32_t count = platform::littleEndian32(&file[kCountOffset]);
    return count <= kMostTriangles ? count : 0;
}

bool isFinite(Point3 point) {
    return std::isfinite(point.x) && std::isfinite(point.y) && std::isfinite(point.z);
}

Point3 decodePoint(const std::uint8_t* bytes) {
    const auto number = [&](int index) {
        return std::bit_cast<float>(platform::littleEndian32(bytes + 4 * index));
    };
    return {number(0), number(1), number(2)};
}

// All triangles of the file, or none when it ends before the last or holds what is no number.
std::vector<Triangle> decodeTriangles(std::span<const std::uint8_t> file) {
    const std::size_t count = triangleCount(file);
    if (count == 0 || (file.size() - kHeadSize) / kTriangleSize < count) return {};
    std::vector<Triangle> triangles(count);
    const std::uint8_t* at = &file[kHeadSize];
    for (Triangle& triangle : triangles) {
        for (std::size_t corner = 0; corner < 3; ++corner) {
            triangle[corner] = decodePoint(at + kCornersOffset + 12 * corner);
            if (!isFinite(triangle[corner])) return {};
        }
        at += kTriangleSize;
    }
    return triangles;
}

Box boxOf(const std::vector<Triangle>& triangles) {
    constexpr float kMax = std::numeric_limits<float>::max();
    Box box{{kMax, kMax, kMax}, {-kMax, -kMax, -kMax}};
    for (const Triangle& triangle : triangles) {
        for (const Point3& point : triangle) {
            box.low = {std::min(box.low.x, point.x), std::min(box.low.y, point.y),
                       std::min(box.low.z, point.z)};
            box.high = {std::max(box.high.x, point.x), std::max(box.high.y, point.y),
                        std::max(box.high.z, point.z)};
        }
    }
    return box;
}

void cutFloor(std::vector<Triangle>& triangles, float floorCut) {
    const Box box = boxOf(triangles);
    const float level = box.low.y + (box.high.y - box.low.y) * floorCut;
    std::erase_if(triangles, [level](const Triangle& triangle) {
        return std::none_of(triangle.begin(), triangle.end(),
                            [level](const Point3& point) { return point.y > level; });
    });
}

// False when the box is too small, or larger than a number can say.
bool placeModel(WireModel& model, const Box& box, float halfSize) {
    const float side = std::max({box.high.x - box.low.x, box.high.y - box.low.y, box.high.z - box.low.z});
    if (side < kSmallestSide || !std::isfinite(side)) return false;
    model.centreX = std::midpoint(box.low.x, box.high.x);
    model.centreY = std::midpoint(box.low.y, box.high.y);
    model.centreZ = std::midpoint(box.low.z, box.high.z);
    model.scale = 2.0f * halfSize / side;
    return true;
}

// The file's Z is up and its Y runs to the back.
Point3 turnUpright(const WireModel& model, Point3 point) {
    return {(point.x - model.centreX) * model.scale, (point.z - model.centreZ) * model.scale,
            -(point.y - model.centreY) * model.scale};
}

struct Cell {
    int x;
    int y;
    int z;
    bool operator==(const Cell&) const = default;
};

struct CellHash {
    std::size_t operator()(const Cell& cell) const {
        return static_cast<std::size_t>(cell.x) * 73856093 ^ static_cast<std::size_t>(cell.y) * 19349669 ^
               static_cast<std::size_t>(cell.z) * 83492791;
    }
};

struct Grid {
    float halfSize;
    int size;

    [[nodiscard]] int indexOf(float coordinate) const {
        const float place = (coordinate + halfSize) / (2.0f * halfSize / static_cast<float>(size));
        if (!(place > 0.0f)) return 0;
        const int last = size - 1;
        return place < static_cast<float>(last) ? static_cast<int>(place) : last;
    }
    [[nodiscard]] Cell cellOf(Point3 point) const {
        return {indexOf(point.x), indexOf(point.y), indexOf(point.z)};
    }
};

// What fell into one cell; in double precision, as a cell may hold millions.
struct CellSum {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    double count = 0.0;
};

struct Weld {
    std::vector<CornerIndices> triangles;
    std::vector<Point3> corners;  // in the order in which their cells appear
};

std::vector<Point3> means(const std::vector<CellSum>& sums) {
    std::vector<Point3> points;
    points.reserve(sums.size());
    for (const CellSum& sum : sums) {
        points.push_back({static_cast<float>(sum.x / sum.count), static_cast<float>(sum.y / sum.count),
                          static_cast<float>(sum.z / sum.count)});
    }
    return points;
}

Weld weld(const std::vector<Triangle>& triangles, const WireModel& model, const Grid& grid) {
    Weld result;
    result.triangles.reserve(triangles.size());
    std::vector<CellSum> sums;
    std::unordered_map<Cell, std::uint32_t, CellHash> indices;
    for (const Triangle& triangle : triangles) {
        CornerIndices& corners = result.triangles.emplace_back();
        for (std::size_t i = 0; i < corners.size(); ++i) {
            const Point3 point = turnUpright(model, triangle[i]);
            const auto next = static_cast<std::uint32_t>(sums.size());
            const auto [place, isNew] = indices.try_emplace(grid.cellOf(point), next);
            if (isNew) sums.emplace_back();
            corners[i] = place->second;
            CellSum& sum = sums[place->second];
            sum.x += static_cast<double>(point.x);
            sum.y += static_cast<double>(point.y);
            sum.z += static_cast<double>(point.z);
            sum.count += 1.0;
        }
    }
    result.corners = means(sums);
    return result;
}

std::vector<WireEdge> edgesOf(const Weld& welded) {
    std::vector<WireEdge> edges;
    std::unordered_set<std::uint64_t> seen;
    for (const CornerIndices& corners : welded.triangles) {
        const auto [a, b, c] = corners;
        if (a == b || b == c || c == a) continue;  // fallen together
        for (const auto& [one, other] : {std::pair{a, b}, std::pair{b, c}, std::pair{c, a}}) {
            const auto [first, second] = std::minmax(one, other);
            if (!seen.insert(std::uint64_t{first} << 32 | second).second) continue;
            edges.push_back({welded.corners[first], welded.corners[second]});
        }
    }
    edges.shrink_to_fit();
    return edges;
}

// Leaves the model empty when there is nothing to show.
void buildModel(WireModel& model, std::span<const std::uint8_t> file, const Grid& grid, float floorCut) {
    std::vector<Triangle> triangles = decodeTriangles(file);
    cutFloor(triangles, floorCut);
    if (triangles.empty() || !placeModel(model, boxOf(triangles), grid.halfSize)) return;
    model.edges = edgesOf(weld(triangles, model, grid));
    model.loaded = true;
}

}  // namespace

void readWireModel(WireModel& model, std::span<const std::uint8_t> file, float halfSize, float floorCut,
                   int gridSize) {
    model = {};
    if (!(halfSize > 0.0f) || gridSize < 1 || gridSize > kFinestGrid) return;
    try {
        buildModel(model, file, {halfSize, gridSize}, floorCut);
    } catch (const std::exception&) {  // no memory
        model = {};
    }
}

void loadWireModel(WireModel& model, const char* path, float halfSize, float floorCut, int gridSize) {
    std::vector<std::uint8_t> bytes;
    const bool hasHead = platform::readFileStart(path, kHeadSize, bytes);
    const std::size_t count = hasHead ? triangleCount(bytes) : 0;
    if (count > 0 && !platform::readFileStart(path, kHeadSize + count * kTriangleSize, bytes)) bytes.clear();
    readWireModel(model, bytes, halfSize, floorCut, gridSize);
}

}  // namespace veloria
