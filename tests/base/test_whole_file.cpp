#include "base/whole_file.h"

#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/platform/scratch_folder.h"

namespace veloria {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kMuch = 1 << 20;

std::string contentOf(const std::string& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::size_t entriesIn(const std::string& folder) {
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder), {}));
}

bool writeText(const std::string& path, const std::string& text) {
    return writeWholeFile(path, text.data(), text.size());
}

mode_t modeOf(const std::string& path) {
    struct stat facts {};
    EXPECT_EQ(stat(path.c_str(), &facts), 0);
    return facts.st_mode & 07777;
}

class WholeFileTest : public testing::Test {
  protected:
    // The only file of the folder, as it was before.
    void expectOldAlone() const {
        EXPECT_EQ(contentOf(folder / "a.txt"), "old");
        EXPECT_EQ(entriesIn(folder.path()), 1u);
    }
    test::ScratchFolder folder;
};

TEST_F(WholeFileTest, IsAtItsPlaceOnlyWhenFinishedAndThenWhole) {
    {
        WholeFile file(folder / "a.txt");
        EXPECT_TRUE(file.write("new ", 4));
        EXPECT_TRUE(file.write("text", 4));
        EXPECT_FALSE(fs::exists(folder / "a.txt"));
        ASSERT_TRUE(file.finish());
        EXPECT_EQ(contentOf(folder / "a.txt"), "new text");
    }
    EXPECT_EQ(contentOf(folder / "a.txt"), "new text");
    EXPECT_EQ(entriesIn(folder.path()), 1u);
}

TEST_F(WholeFileTest, TheOldFileStandsUntilThen) {
    folder.write("a.txt", "old");
    WholeFile file(folder / "a.txt");
    file.write("new", 3);
    EXPECT_EQ(contentOf(folder / "a.txt"), "old");
    EXPECT_TRUE(file.finish());
    EXPECT_EQ(contentOf(folder / "a.txt"), "new");
    EXPECT_EQ(entriesIn(folder.path()), 1u);
}

TEST_F(WholeFileTest, AFileThatIsNotFinishedLeavesNoRest) {
    folder.write("a.txt", "old");
    {
        WholeFile file(folder / "a.txt");
        file.write("new", 3);
        EXPECT_EQ(entriesIn(folder.path()), 2u);
    }
    expectOldAlone();
}

TEST_F(WholeFileTest, TheBeginningCanBeWrittenOver) {
    WholeFile file(folder / "a.txt");
    file.write("xxxx text", 9);
    ASSERT_TRUE(file.canRewind());
    file.rewriteStart("some", 4);
    ASSERT_TRUE(file.finish());
    EXPECT_EQ(contentOf(folder / "a.txt"), "some text");
}

TEST_F(WholeFileTest, AFileIsFinishedOnce) {
    WholeFile file(folder / "a.txt");
    ASSERT_TRUE(file.finish());
    EXPECT_FALSE(file.finish());
    EXPECT_FALSE(file.write("x", 1));
    EXPECT_EQ(contentOf(folder / "a.txt"), "");
}

TEST_F(WholeFileTest, WhereNothingCanBeMadeNothingIsGood) {
    fs::create_directory(folder / "taken");
    folder.write("a.txt", "old");
    for (const std::string& path :
         {folder / "missing/a.txt", folder / "taken", folder / "a.txt/b", std::string()}) {
        WholeFile file(path);
        EXPECT_FALSE(file.good()) << path;
        EXPECT_FALSE(file.write("x", 1)) << path;
        EXPECT_FALSE(file.canRewind()) << path;
        EXPECT_FALSE(file.finish()) << path;
    }
    EXPECT_EQ(entriesIn(folder.path()), 2u);
}

TEST_F(WholeFileTest, AnOldFilesRightsStayAndANewOneHasTheUsual) {
    folder.write("a.txt", "old");
    ASSERT_EQ(chmod((folder / "a.txt").c_str(), 0640), 0);
    ASSERT_TRUE(writeText(folder / "a.txt", "new"));
    EXPECT_EQ(modeOf(folder / "a.txt"), 0640u);
    const mode_t mask = umask(027);
    ASSERT_TRUE(writeText(folder / "b.txt", "new"));
    umask(mask);
    EXPECT_EQ(modeOf(folder / "b.txt"), 0640u);
}

TEST_F(WholeFileTest, AFileThatMayNotBeWrittenIsNotReplaced) {
    folder.write("a.txt", "old");
    ASSERT_EQ(chmod((folder / "a.txt").c_str(), 0444), 0);
    ASSERT_EQ(chmod(folder.path().c_str(), 0777), 0);
    const auto asAnybody = [this] {
        // Root may write anything.
        if (geteuid() == 0 && seteuid(65534) != 0) std::_Exit(7);
        std::_Exit(writeText(folder / "a.txt", "new") ? 1 : 7);
    };
    EXPECT_EXIT(asAnybody(), testing::ExitedWithCode(7), "");
    expectOldAlone();
}

TEST_F(WholeFileTest, ALinkStaysAndWhatItLeadsToIsReplaced) {
    fs::create_directory(folder / "inner");
    folder.write("inner/a.txt", "old");
    fs::create_symlink("inner/a.txt", folder / "link");
    fs::create_symlink("link", folder / "second");
    ASSERT_TRUE(writeText(folder / "second", "new"));
    EXPECT_TRUE(fs::is_symlink(folder / "link"));
    EXPECT_TRUE(fs::is_symlink(folder / "second"));
    EXPECT_EQ(contentOf(folder / "inner/a.txt"), "new");

    fs::create_symlink("inner/b.txt", folder / "to nothing");
    ASSERT_TRUE(writeText(folder / "to nothing", "first"));
    EXPECT_TRUE(fs::is_symlink(folder / "to nothing"));
    EXPECT_EQ(contentOf(folder / "inner/b.txt"), "first");

    fs::create_symlink("round", folder / "round");
    EXPECT_FALSE(writeText(folder / "round", "x"));
}

TEST_F(WholeFileTest, ADeviceIsWrittenAndNeverReplaced) {
    ASSERT_TRUE(writeText("/dev/null", "gone"));
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
    if (!fs::exists("/dev/full")) GTEST_SKIP() << "no /dev/full here";
    EXPECT_FALSE(writeText("/dev/full", "never"));
    EXPECT_TRUE(fs::is_character_file("/dev/full"));
    fs::create_symlink("/dev/null", folder / "link");
    EXPECT_TRUE(writeText(folder / "link", "gone"));
    EXPECT_TRUE(fs::is_symlink(folder / "link"));
    EXPECT_EQ(entriesIn(folder.path()), 1u);
}

TEST_F(WholeFileTest, APipeTakesWhatIsWrittenAndKnowsNoWayBack) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    {
        WholeFile file("/proc/self/fd/" + std::to_string(ends[1]));
        EXPECT_TRUE(file.write("through", 7));
        EXPECT_FALSE(file.canRewind());
        EXPECT_TRUE(file.finish());
    }
    char text[7];
    EXPECT_EQ(read(ends[0], text, sizeof text), 7);
    EXPECT_EQ(std::string(text, 7), "through");
    close(ends[0]);
    close(ends[1]);
}

TEST_F(WholeFileTest, ADescriptorsNameIsThatFileItself) {
    // As "/dev/stdout" is when the shell has sent it into a file.
    std::FILE* kept = std::fopen((folder / "a.txt").c_str(), "w+");
    ASSERT_NE(kept, nullptr);
    EXPECT_TRUE(writeText("/proc/self/fd/" + std::to_string(fileno(kept)), "new"));
    char text[4] = "";
    EXPECT_NE(std::fgets(text, sizeof text, kept), nullptr);
    EXPECT_STREQ(text, "new");
    std::fclose(kept);
    EXPECT_EQ(entriesIn(folder.path()), 1u);
}

TEST_F(WholeFileTest, ALimitOfTheFileSizeLeavesTheOldFile) {
    folder.write("a.txt", "old");
    const auto limited = [this] {
        outliveFileSizeLimit();
        const rlimit limit{4096, 4096};
        setrlimit(RLIMIT_FSIZE, &limit);
        const bool written = writeText(folder / "a.txt", std::string(kMuch, 'x'));
        std::_Exit(written ? 1 : 7);
    };
    EXPECT_EXIT(limited(), testing::ExitedWithCode(7), "");
    expectOldAlone();
}

TEST_F(WholeFileTest, AKilledProgramLeavesTheOldFile) {
    folder.write("a.txt", "old");
    const auto killed = [this] {
        WholeFile file(folder / "a.txt");
        const std::string half(kMuch, 'x');
        file.write(half.data(), half.size());
        raise(SIGKILL);
    };
    EXPECT_EXIT(killed(), testing::KilledBySignal(SIGKILL), "");
    EXPECT_EQ(contentOf(folder / "a.txt"), "old");
}

// Fills a disk of 64 KB that only this process sees, and leaves it with 7 when all is as it should be, 8 when
// the system does not let us have one.
void fillSmallDisk(const std::string& folder) {
    if (geteuid() != 0 && unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) std::_Exit(8);
    if (geteuid() == 0 && unshare(CLONE_NEWNS) != 0) std::_Exit(8);
    if (mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0) std::_Exit(8);
    if (mount("tmpfs", folder.c_str(), "tmpfs", 0, "size=64k") != 0) std::_Exit(8);
    const std::string path = folder + "/a.txt";
    if (!writeText(path, "old")) std::_Exit(1);
    if (writeText(path, std::string(kMuch, 'x'))) std::_Exit(2);
    if (contentOf(path) != "old" || entriesIn(folder) != 1) std::_Exit(3);
    if (!writeText(path, "new") || contentOf(path) != "new") std::_Exit(4);
    std::_Exit(7);
}

TEST_F(WholeFileTest, AFullDiskLeavesTheOldFileAndIsFullNoMore) {
    const auto either = [](int status) {
        return WIFEXITED(status) && (WEXITSTATUS(status) == 7 || WEXITSTATUS(status) == 8);
    };
    EXPECT_EXIT(fillSmallDisk(folder.path()), either, "");
}

}  // namespace
}  // namespace veloria
