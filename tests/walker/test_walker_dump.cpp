// When a walk makes the dump file appear. The process's table is built once only, so each case runs in a
// child.
#include <unistd.h>

#include <cstdlib>
#include <filesystem>

#include "tests/walker/walk_fixture.h"

namespace veloria {
namespace {

namespace fs = std::filesystem;

class WalkerDump : public ::testing::Test {
  protected:
    void SetUp() override {
        std::string pattern = (fs::temp_directory_path() / "veloria-walk-XXXXXX").string();
        ASSERT_NE(mkdtemp(pattern.data()), nullptr);
        folder = pattern;
    }
    void TearDown() override {
        std::error_code ignored;
        fs::remove_all(folder, ignored);
    }
    void enter() const {
        if (chdir(folder.c_str()) != 0) std::_Exit(9);
    }
    bool dumped() const { return fs::exists(folder / "scale_table_dump.txt"); }

    fs::path folder;
};

TEST_F(WalkerDump, TheFirstStartWritesItAndLaterStartsAndTicksDoNot) {
    const auto inChild = [this] {
        enter();
        SynthEngine engine;
        ScaleWalker walker;
        walkerTick(walker, engine, 1000);
        walkerStop(walker, engine);
        if (dumped() || scaleCount() != 0) std::_Exit(1);
        walkerStart(walker, engine, 1000);
        if (!dumped() || scaleCount() != 342 || walkerStepCount() != 682) std::_Exit(2);
        fs::remove(folder / "scale_table_dump.txt");
        walkerTick(walker, engine, 1200);
        walkerStop(walker, engine);
        walkerStart(walker, engine, 2000);
        if (dumped() || engine.voices.size() != 3) std::_Exit(3);
        std::_Exit(0);
    };
    EXPECT_EXIT(inChild(), ::testing::ExitedWithCode(0), "^$");
}

TEST_F(WalkerDump, AWalkOverAQuietSourceWritesNothing) {
    const auto inChild = [this] {
        enter();
        SynthEngine engine;
        ScaleWalker walker;
        walker.scaleSource = test::quietScale;
        walkerStart(walker, engine, 1000);
        walkerTick(walker, engine, 1200);
        if (engine.voices.size() != 3) std::_Exit(1);
        if (dumped() || scaleCount() != 0) std::_Exit(2);
        std::_Exit(0);
    };
    EXPECT_EXIT(inChild(), ::testing::ExitedWithCode(0), "^$");
}

}  // namespace
}  // namespace veloria
