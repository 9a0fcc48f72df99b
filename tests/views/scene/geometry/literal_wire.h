// A second reader of STL files, plain and slow, to compare the real one with.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <map>
#include <set>
#include <span>
#include <tuple>
#include <utility>
#include <vector>

#include "views/scene/geometry/wire_model.h"

namespace veloria::test {

class LiteralWire {
  public:
    LiteralWire(std::span<const std::uint8_t> file, float halfSize, float floorCut, int gridSize)
        : m_half(halfSize), m_grid(gridSize) {
        if (!read(file)) return;
        keep(floorCut);
        if (!place()) return;
        weld();
        collectEdges();
        model.loaded = true;
    }

    WireModel model;

  private:
    using Key = std::tuple<int, int, int>;

    bool read(std::span<const std::uint8_t> file) {
        if (file.size() < 84) return false;
        std::uint64_t count = 0;
        for (std::size_t i = 84; i-- > 80;)
            count = count * 256 + file[i];
        if (count < 1 || count > 2000000 || file.size() < 84 + 50 * count) return false;
        for (std::uint64_t t = 0; t < count; ++t) {
            float numbers[12];  // the normal first
            std::memcpy(numbers, &file[static_cast<std::size_t>(84 + 50 * t)], sizeof numbers);
            for (int i = 3; i < 12; ++i) {
                if (!std::isfinite(numbers[i])) return false;
            }
            for (int i = 3; i < 12; i += 3)
                m_points.push_back({numbers[i], numbers[i + 1], numbers[i + 2]});
        }
        return true;
    }

    static std::pair<float, float> extent(const std::vector<Point3>& points, float Point3::*axis) {
        float low = points.front().*axis;
        float high = low;
        for (const Point3& point : points) {
            low = std::fmin(low, point.*axis);
            high = std::fmax(high, point.*axis);
        }
        return {low, high};
    }

    void keep(float floorCut) {
        const auto [low, high] = extent(m_points, &Point3::y);
        const float level = low + (high - low) * floorCut;
        std::vector<Point3> kept;
        for (std::size_t i = 0; i < m_points.size(); i += 3) {
            const bool stays =
                m_points[i].y > level || m_points[i + 1].y > level || m_points[i + 2].y > level;
            for (std::size_t k = i; stays && k < i + 3; ++k)
                kept.push_back(m_points[k]);
        }
        m_points = kept;
    }

    bool place() {
        if (m_points.empty()) return false;
        const auto x = extent(m_points, &Point3::x);
        const auto y = extent(m_points, &Point3::y);
        const auto z = extent(m_points, &Point3::z);
        const float side = std::fmax(std::fmax(x.second - x.first, y.second - y.first), z.second - z.first);
        if (!(side >= 1e-6f && std::isfinite(side))) return false;
        const auto middle = [](const std::pair<float, float>& ends) {
            const float sum = ends.first + ends.second;
            return std::isfinite(sum) ? sum / 2 : ends.first / 2 + ends.second / 2;
        };
        model.centreX = middle(x);
        model.centreY = middle(y);
        model.centreZ = middle(z);
        model.scale = 2.0f * m_half / side;
        return true;
    }

    int cell(float c) const {
        const double at =
            std::trunc(static_cast<double>((c + m_half) / (2.0f * m_half / static_cast<float>(m_grid))));
        return static_cast<int>(std::fmax(0.0, std::fmin(at, m_grid - 1.0)));
    }

    void weld() {
        std::map<Key, int> numbers;
        std::vector<std::vector<Point3>> heaps;
        for (const Point3& file : m_points) {
            const Point3 point{(file.x - model.centreX) * model.scale, (file.z - model.centreZ) * model.scale,
                               -(file.y - model.centreY) * model.scale};
            const Key key{cell(point.x), cell(point.y), cell(point.z)};
            const int number = numbers.emplace(key, static_cast<int>(heaps.size())).first->second;
            if (number == static_cast<int>(heaps.size())) heaps.emplace_back();
            heaps[static_cast<std::size_t>(number)].push_back(point);
            m_numbers.push_back(number);
        }
        for (const auto& heap : heaps) {
            double x = 0, y = 0, z = 0;
            for (const Point3& point : heap) {
                x += static_cast<double>(point.x);
                y += static_cast<double>(point.y);
                z += static_cast<double>(point.z);
            }
            const auto n = static_cast<double>(heap.size());
            m_welded.push_back(
                {static_cast<float>(x / n), static_cast<float>(y / n), static_cast<float>(z / n)});
        }
    }

    void collectEdges() {
        std::set<std::pair<int, int>> seen;
        for (std::size_t i = 0; i < m_numbers.size(); i += 3) {
            const int corners[] = {m_numbers[i], m_numbers[i + 1], m_numbers[i + 2], m_numbers[i]};
            if (std::set<int>(corners, corners + 3).size() < 3) continue;
            for (int side = 0; side < 3; ++side) {
                const int low = std::min(corners[side], corners[side + 1]);
                const int high = std::max(corners[side], corners[side + 1]);
                if (seen.emplace(low, high).second)
                    model.edges.push_back(
                        {m_welded[static_cast<std::size_t>(low)], m_welded[static_cast<std::size_t>(high)]});
            }
        }
    }

    float m_half;
    int m_grid;
    std::vector<Point3> m_points;  // three to a triangle
    std::vector<int> m_numbers;    // of their cells
    std::vector<Point3> m_welded;
};

inline bool sameModel(const WireModel& one, const WireModel& other) {
    if (one.loaded != other.loaded || one.edges.size() != other.edges.size()) return false;
    if (one.centreX != other.centreX || one.centreY != other.centreY || one.centreZ != other.centreZ ||
        one.scale != other.scale) {
        return false;
    }
    const auto same = [](Point3 a, Point3 b) { return a.x == b.x && a.y == b.y && a.z == b.z; };
    for (std::size_t i = 0; i < one.edges.size(); ++i) {
        if (!same(one.edges[i].from, other.edges[i].from) || !same(one.edges[i].to, other.edges[i].to))
            return false;
    }
    return true;
}

}  // namespace veloria::test
