// The floors of the house: which folder of src/ may include which. The table in docs/architecture.md is this
// one.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "tests/source_dir.h"

namespace {

namespace fs = std::filesystem;
using Folders = std::set<std::string>;

// Each folder with those it names; what those name is open to it as well.
const std::map<std::string, Folders>& floors() {
    static const std::map<std::string, Folders> table = {
        {"base", {}},
        {"frequency", {"base"}},
        {"platform", {"base"}},
        {"engine", {"frequency"}},
        {"spectral", {"frequency"}},
        {"toolkit", {"platform"}},
        {"walker", {"engine"}},
        {"media", {"engine", "spectral", "platform"}},
        {"recorder", {"media"}},
        {"views/shared", {"toolkit", "engine", "walker", "spectral"}},
        {"views/scene/geometry", {"engine", "platform"}},
        {"views/scene", {"views/scene/geometry", "views/shared"}},
        {"recorder_panel", {"recorder", "toolkit"}},
        {"views/kathara", {"views/scene"}},
        {"views/spectrum", {"views/shared"}},
        {"views/sacred", {"views/scene"}},
        {"views/shadow", {"views/shared"}},
        {"views/lotus", {"views/shared"}},
        {"views/calculator", {"toolkit", "views/scene/geometry"}},
        {"views", {"views/shared"}},
        {"ui",
         {"recorder_panel", "views", "views/kathara", "views/spectrum", "views/sacred", "views/shadow",
          "views/lotus", "views/calculator"}},
        {"app", {"ui"}},
        {"cli", {"recorder", "walker", "views/scene/geometry"}},
    };
    return table;
}

// All folders that `folder` may include, itself among them.
Folders reachable(const std::string& folder) {
    Folders all{folder};
    std::vector<std::string> open{folder};
    while (!open.empty()) {
        const std::string next = open.back();
        open.pop_back();
        for (const std::string& below : floors().at(next)) {
            if (all.insert(below).second) open.push_back(below);
        }
    }
    return all;
}

// The folder of the table that a path below src/ belongs to; empty when it belongs to none.
std::string folderOf(const std::string& path) {
    std::string best;
    for (const auto& [folder, below] : floors()) {
        if (path.rfind(folder + "/", 0) == 0 && folder.size() > best.size()) best = folder;
    }
    return best;
}

// The path that a line includes, whichever way it is written; empty for any other line.
std::string includedPath(const std::string& line) {
    const auto skipBlanks = [&line](std::size_t from) {
        return std::min(line.find_first_not_of(" \t", from), line.size());
    };
    const auto skipText = [&line](std::size_t from, const std::string& text) {
        return line.compare(from, text.size(), text) == 0 ? from + text.size() : std::string::npos;
    };
    std::size_t place = skipText(skipBlanks(0), "#");
    if (place == std::string::npos) return {};
    place = skipText(skipBlanks(place), "include");
    if (place == std::string::npos) return {};
    place = skipBlanks(place);
    if (place >= line.size() || (line[place] != '"' && line[place] != '<')) return {};
    const std::size_t end = line.find_first_of("\">", place + 1);
    return end == std::string::npos ? std::string() : line.substr(place + 1, end - place - 1);
}

// What a file includes of src/.
std::vector<std::string> projectIncludes(const fs::path& file) {
    std::vector<std::string> found;
    std::ifstream stream(file);
    for (std::string line; std::getline(stream, line);) {
        const std::string path = includedPath(line);
        if (!path.empty() && fs::exists(fs::path(sourceDir()) / "src" / path)) found.push_back(path);
    }
    return found;
}

std::vector<fs::path> sources() {
    std::vector<fs::path> files;
    for (const auto& entry : fs::recursive_directory_iterator(fs::path(sourceDir()) / "src")) {
        const std::string extension = entry.path().extension().string();
        if (extension == ".h" || extension == ".hpp" || extension == ".cpp" || extension == ".cc")
            files.push_back(entry.path());
    }
    return files;
}

TEST(Floors, EverySourceBelongsToAFolderOfTheTable) {
    const auto files = sources();
    ASSERT_GT(files.size(), 20u);
    for (const fs::path& file : files) {
        const std::string path = fs::relative(file, fs::path(sourceDir()) / "src").generic_string();
        EXPECT_FALSE(folderOf(path).empty()) << path;
    }
}

TEST(Floors, AFolderIncludesOnlyItselfAndLowerFloors) {
    const fs::path root = fs::path(sourceDir()) / "src";
    for (const fs::path& file : sources()) {
        const std::string path = fs::relative(file, root).generic_string();
        const Folders allowed = reachable(folderOf(path));
        for (const std::string& include : projectIncludes(file)) {
            EXPECT_TRUE(fs::exists(root / include))
                << path << " includes " << include << ", which is not below src/";
            EXPECT_EQ(allowed.count(folderOf(include)), 1u) << path << " includes " << include;
        }
    }
}

// The words between commas, without blanks, quotes and the slash at a folder's end.
Folders foldersIn(const std::string& cell) {
    Folders found;
    std::string word;
    for (const char c : cell + ",") {
        if (c == ',') {
            if (!word.empty() && word.back() == '/') word.pop_back();
            if (!word.empty() && word != "nothing") found.insert(word);
            word.clear();
        } else if (c != ' ' && c != '`') {
            word += c;
        }
    }
    return found;
}

std::vector<std::string> cellsOf(const std::string& line) {
    std::vector<std::string> cells;
    std::istringstream stream(line.substr(std::min<std::size_t>(1, line.size())));
    for (std::string cell; std::getline(stream, cell, '|');)
        cells.push_back(cell);
    return cells;
}

TEST(Floors, TheDocumentShowsThisTable) {
    std::map<std::string, Folders> shown;
    std::map<std::string, int> floorOf;
    std::ifstream stream(fs::path(sourceDir()) / "docs/architecture.md");
    for (std::string line; std::getline(stream, line);) {
        if (line.rfind("| ", 0) != 0 || line.find("/` |") == std::string::npos) continue;
        const std::vector<std::string> cells = cellsOf(line);
        ASSERT_EQ(cells.size(), 4u) << line;
        const Folders names = foldersIn(cells[1]);
        ASSERT_EQ(names.size(), 1u) << line;
        shown[*names.begin()] = foldersIn(cells[3]);
        floorOf[*names.begin()] = std::stoi(cells[0]);
    }
    EXPECT_EQ(shown, floors());
    for (const auto& [folder, below] : floors()) {
        for (const std::string& lower : below)
            EXPECT_LE(floorOf[lower], floorOf[folder]) << folder << " over " << lower;
    }
}

TEST(Floors, AnIncludeIsSeenHoweverItIsWritten) {
    EXPECT_EQ(includedPath("#include \"engine/voice.h\""), "engine/voice.h");
    EXPECT_EQ(includedPath("#include <engine/voice.h>"), "engine/voice.h");
    EXPECT_EQ(includedPath("  # include  \"engine/voice.h\"  // why"), "engine/voice.h");
    EXPECT_EQ(includedPath("// #include \"engine/voice.h\""), "");
    EXPECT_EQ(projectIncludes(fs::path(sourceDir()) / "src/engine/reports.h"),
              std::vector<std::string>{"engine/synth_engine.h"});
}

TEST(Floors, TheCommandLineToolDoesNotKnowTheWindow) {
    const Folders allowed = reachable("cli");
    for (const char* window : {"toolkit", "recorder_panel", "views/shared", "views/scene", "ui", "app"})
        EXPECT_EQ(allowed.count(window), 0u) << window;
}

TEST(Floors, NoFloorReachesItself) {
    for (const auto& [folder, below] : floors()) {
        for (const std::string& lower : below)
            EXPECT_EQ(reachable(lower).count(folder), 0u) << folder;
    }
}

}  // namespace
