// The STL reader against a plain second one.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>

#include "../tests/views/scene/geometry/literal_wire.h"
#include "views/scene/geometry/wire_model.h"

namespace {

constexpr float kHalfSize = 2.0f;
constexpr float kFloorCut = 0.15f;
constexpr int kGridSize = 80;

void require(bool holds) {
    if (!holds) std::abort();
}

// Far from its origin a figure may be only a step or two of its numbers wide, and its middle then falls on
// an end.
void requireNear(const veloria::Point3& point) {
    for (const float coordinate : {point.x, point.y, point.z})
        require(std::fabs(coordinate) <= 2.0f * kHalfSize * 1.0001f);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::span<const std::uint8_t> bytes(data, size);
    veloria::WireModel model;
    veloria::readWireModel(model, bytes, kHalfSize, kFloorCut, kGridSize);
    require(model.loaded || model.edges.empty());
    require(model.edges.size() * 50 <= size * 3);
    for (const veloria::WireEdge& edge : model.edges) {
        requireNear(edge.from);
        requireNear(edge.to);
    }
    const veloria::test::LiteralWire literal(bytes, kHalfSize, kFloorCut, kGridSize);
    require(veloria::test::sameModel(model, literal.model));
    return 0;
}
