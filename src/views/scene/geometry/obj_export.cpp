#include "views/scene/geometry/obj_export.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "base/fixed_text.h"
#include "base/whole_file.h"
#include "frequency/tables.h"
#include "platform/dialogs.h"
#include "views/scene/geometry/fold.h"
#include "views/scene/geometry/kathara_geometry.h"

namespace veloria {

namespace {

// Text in the making. Vertices count from 1 through the whole file.
struct ObjText {
    std::string text;
    int vertices = 0;

    void line(const std::string& content) { text += content + "\n"; }
    void group(const char* name) { text += std::string("\no ") + name + "\n"; }

    void vertex(Point3 point, const std::string& comment = {}) {
        ++vertices;
        line("v " + number(point.x) + " " + number(point.y) + " " + number(point.z) + comment);
    }
    void link(int from, int to) { line("l " + std::to_string(from) + " " + std::to_string(to)); }

    static std::string number(float value) { return fixedText(static_cast<double>(value), 4); }
};

void writeHeader(ObjText& obj, bool tesla) {
    obj.line("# Veloria — Kathara 3D Full Export");
    obj.line(std::string("# Coordinate mode: ") + (tesla ? "Tesla/freqTo3D" : "Tree of Life"));
    obj.line("# Objects: Solfeggio, Reflection(81), Rotation(81),");
    obj.line("#          Shadow(180), Enneagram, Merkaba_A/B/C");
}

void writeEdges(ObjText& obj, std::span<const NodeEdge> edges) {
    for (const NodeEdge& edge : edges)
        obj.link(edge.from + 1, edge.to + 1);
}

void writeSolfeggio(ObjText& obj, bool tesla) {
    obj.group("Solfeggio");
    const SolfeggioPoints points = tesla ? solfeggioTesla(kExportTeslaOffsets) : solfeggioTreePoints;
    for (std::size_t i = 0; i < points.size(); ++i)
        obj.vertex(points[i], "  # " + fixedText(solfeggio12[i], 0) + " Hz");
    writeEdges(obj, treeEdges);
    writeEdges(obj, crossEdges);
}

// Each vertex of the group is linked to the next.
void chainFrom(ObjText& obj, int first) {
    for (int vertex = first; vertex < obj.vertices; ++vertex)
        obj.link(vertex, vertex + 1);
}

void writeAvatar(ObjText& obj, const char* name, const std::array<double, kAvatarFamilySize>& frequencies,
                 float yOffset) {
    obj.group(name);
    const int first = obj.vertices + 1;
    for (const double hz : frequencies)
        obj.vertex(freqTo3D(foldForView(hz), yOffset));
    chainFrom(obj, first);
}

void writeShadow(ObjText& obj) {
    obj.group("Shadow");
    const int first = obj.vertices + 1;
    for (std::uint32_t i = 0; i < kShadowIndexCount; ++i) {
        if (!isConvergence(i)) obj.vertex(freqTo3D(foldForView(shadowFrequency(i)), kShadowOffset));
    }
    chainFrom(obj, first);
}

void writeEnneagram(ObjText& obj) {
    obj.group("Enneagram");
    const int first = obj.vertices + 1;
    for (int digit = 1; digit <= 9; ++digit)
        obj.vertex(enneagramPoint(digit));
    for (int i = 0; i < 9; ++i)
        obj.link(first + i, first + (i + 1) % 9);
    for (std::size_t i = 0; i < kHexad.size(); ++i)
        obj.link(first + kHexad[i], first + kHexad[(i + 1) % kHexad.size()]);
    // The triangle of 3, 6 and 9, which the scene does not draw.
    obj.link(first + 2, first + 5);
    obj.link(first + 5, first + 8);
    obj.link(first + 8, first + 2);
}

void writeMerkaba(ObjText& obj) {
    constexpr std::array<const char*, kPyramidCount> kNames = {"Merkaba_Pyramid_A", "Merkaba_Pyramid_B",
                                                               "Merkaba_Pyramid_C"};
    for (int pyramid = 0; pyramid < kPyramidCount; ++pyramid) {
        obj.group(kNames[static_cast<std::size_t>(pyramid)]);
        const int first = obj.vertices + 1;
        for (const Point3& corner : pyramidCorners(pyramid))
            obj.vertex(corner);
        for (const auto& face : kPyramidFaces)
            obj.line("f " + std::to_string(first + face[0]) + " " + std::to_string(first + face[1]) + " " +
                     std::to_string(first + face[2]));
    }
}

}  // namespace

std::string katharaObjText(bool teslaCoordinates) {
    ObjText obj;
    writeHeader(obj, teslaCoordinates);
    writeSolfeggio(obj, teslaCoordinates);
    writeAvatar(obj, "Reflection", reflectionFreqs, kReflectionOffset);
    writeAvatar(obj, "Rotation", rotationFreqs, kRotationOffset);
    writeShadow(obj);
    writeEnneagram(obj);
    writeMerkaba(obj);
    return obj.text;
}

bool exportKatharaObj(const std::string& path, bool teslaCoordinates) {
    const std::string text = katharaObjText(teslaCoordinates);
    return writeWholeFile(path, text.data(), text.size());
}

bool exportKatharaObjDialog(bool teslaCoordinates) {
    const std::array<platform::FileFilter, 1> filters = {{{"OBJ Files", "*.obj"}}};
    const std::string path = platform::chooseFileToSave({"Save As", filters, "kathara_scene.obj", "obj"});
    return !path.empty() && exportKatharaObj(path, teslaCoordinates);
}

}  // namespace veloria
