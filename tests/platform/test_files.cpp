#include "platform/files.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <limits>

#include "base/little_endian.h"
#include "platform/linux/file_names.h"
#include "platform/path_text.h"
#include "tests/platform/scratch_folder.h"

namespace veloria::platform {
namespace {

using test::ScratchFolder;

TEST(Files, AWholeFileIsReadByteForByte) {
    const ScratchFolder folder;
    std::string content;
    for (unsigned i = 0; i < 3U * 1024 * 1024 + 17; ++i)
        content += static_cast<char>((i * 2654435761U) >> 24);
    std::vector<std::uint8_t> bytes{1, 2, 3};
    ASSERT_TRUE(readWholeFile(folder.write("big.bin", content), bytes));
    EXPECT_EQ(std::string(bytes.begin(), bytes.end()), content);
}

TEST(Files, AnEmptyFileIsReadAsNoBytes) {
    const ScratchFolder folder;
    std::vector<std::uint8_t> bytes{1, 2, 3};
    EXPECT_TRUE(readWholeFile(folder.write("empty.bin", ""), bytes));
    EXPECT_TRUE(bytes.empty());
}

// The kernel's files tell no size beforehand.
TEST(Files, AFileThatTellsNoSizeIsReadToItsEnd) {
    std::vector<std::uint8_t> bytes;
    EXPECT_TRUE(readWholeFile("/proc/self/status", bytes));
    EXPECT_GT(bytes.size(), 100U);
}

TEST(Files, AMissingFileIsNotReadAndLeavesNoBytes) {
    const ScratchFolder folder;
    std::vector<std::uint8_t> bytes{1, 2, 3};
    EXPECT_FALSE(readWholeFile(folder / "missing.bin", bytes));
    EXPECT_TRUE(bytes.empty());
    EXPECT_EQ(openFile(folder / "missing.bin", "rb"), nullptr);
}

TEST(Files, AFolderIsNotRead) {
    const ScratchFolder folder;
    std::vector<std::uint8_t> bytes{1};
    EXPECT_FALSE(readWholeFile(folder.path(), bytes));
    EXPECT_TRUE(bytes.empty());
    EXPECT_FALSE(readWholeFile("", bytes));
}

// A pipe that nobody writes to must not hold the program up, and a device has no end.
TEST(Files, OnlyRegularFilesAreRead) {
    const ScratchFolder folder;
    const std::string pipe = folder / "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    std::vector<std::uint8_t> bytes;
    EXPECT_FALSE(readWholeFile(pipe, bytes));
    EXPECT_FALSE(readWholeFile("/dev/zero", bytes));
}

TEST(Files, TheStartOfAFileIsReadAndNoMore) {
    const ScratchFolder folder;
    const std::string path = folder.write("ten.bin", "0123456789");
    const auto start = [&](std::size_t most) {
        std::vector<std::uint8_t> bytes{1, 2, 3};
        EXPECT_TRUE(readFileStart(path, most, bytes)) << most;
        return std::string(bytes.begin(), bytes.end());
    };
    EXPECT_EQ(start(0), "");
    EXPECT_EQ(start(1), "0");
    EXPECT_EQ(start(9), "012345678");
    EXPECT_EQ(start(10), "0123456789");
    EXPECT_EQ(start(11), "0123456789");
    EXPECT_EQ(start(std::numeric_limits<std::size_t>::max()), "0123456789");
}

TEST(Files, TheStartOfAHugeFileTakesNoMoreMemoryThanItself) {
    const ScratchFolder folder;
    const std::string path = folder.write("huge.bin", "begin");
    std::error_code error;
    std::filesystem::resize_file(path, std::uintmax_t{1} << 38, error);
    if (error) GTEST_SKIP() << "no room for a file with holes: " << error.message();
    std::vector<std::uint8_t> bytes;
    ASSERT_TRUE(readFileStart(path, 3000000, bytes));
    EXPECT_EQ(bytes.size(), 3000000U);
    EXPECT_EQ(bytes.capacity(), 3000000U);
    EXPECT_EQ(std::string(bytes.begin(), bytes.begin() + 6), std::string("begin\0", 6));
}

TEST(Files, AFileThatTellsNoSizeIsReadAsFarAsIsAsked) {
    std::vector<std::uint8_t> bytes;
    EXPECT_TRUE(readFileStart("/proc/self/status", 40, bytes));
    EXPECT_EQ(bytes.size(), 40U);
}

TEST(Files, NoFileHasNoStart) {
    const ScratchFolder folder;
    std::vector<std::uint8_t> bytes{1};
    EXPECT_FALSE(readFileStart(folder / "missing.bin", 4, bytes));
    EXPECT_TRUE(bytes.empty());
    EXPECT_FALSE(readFileStart(folder.path(), 4, bytes));
    EXPECT_FALSE(readFileStart("/dev/zero", 4, bytes));
}

TEST(LittleEndian, TheLowByteComesFirst) {
    constexpr std::uint8_t kBytes[] = {0x01, 0xFE, 0x80, 0xFF};
    static_assert(littleEndian16(kBytes) == 0xFE01);
    static_assert(littleEndian32(kBytes) == 0xFF80FE01);
    EXPECT_EQ(littleEndian16(kBytes + 2), 0xFF80);
}

TEST(Files, ANameThatIsNoUtf8Opens) {
    const ScratchFolder folder;
    std::vector<std::uint8_t> bytes;
    EXPECT_TRUE(readWholeFile(folder.write("latin-\xE9 \"x\".bin", "abc"), bytes));
    EXPECT_EQ(bytes, (std::vector<std::uint8_t>{'a', 'b', 'c'}));
}

TEST(Files, AnOpenedFileIsWrittenAndReadBack) {
    const ScratchFolder folder;
    const std::string path = folder / "written.bin";
    {
        const FileHandle file = openFile(path, "wb");
        ASSERT_NE(file, nullptr);
        EXPECT_EQ(std::fwrite("xyz", 1, 3, file.get()), 3U);
    }
    std::vector<std::uint8_t> bytes;
    ASSERT_TRUE(readWholeFile(path, bytes));
    EXPECT_EQ(bytes, (std::vector<std::uint8_t>{'x', 'y', 'z'}));
}

TEST(PathText, TextThatIsUtf8StaysAsItIs) {
    EXPECT_EQ(displayText(""), "");
    EXPECT_EQ(displayText("/home/a b/song.mid"), "/home/a b/song.mid");
    EXPECT_EQ(displayText("caf\xC3\xA9 \xE2\x99\xA5 \xF0\x9F\x8E\xB5"),
              "caf\xC3\xA9 \xE2\x99\xA5 \xF0\x9F\x8E\xB5");
}

TEST(PathText, BytesThatAreNoTextBecomeReplacementSigns) {
    const std::string sign = "\xEF\xBF\xBD";
    EXPECT_EQ(displayText("latin-\xE9.mid"), "latin-" + sign + ".mid");
    EXPECT_EQ(displayText("\xFF"), sign);
    EXPECT_EQ(displayText("a\x80z"), "a" + sign + "z");          // a follower without a leader
    EXPECT_EQ(displayText("\xC0\xAF"), sign + sign);             // "/" spelt too long
    EXPECT_EQ(displayText("\xED\xA0\x80"), sign + sign + sign);  // half of a surrogate pair
}

TEST(PathText, ATornSignAtTheEndIsReplaced) {
    const std::string shown = displayText("note \xE2\x99");
    EXPECT_EQ(shown.rfind("note \xEF\xBF\xBD", 0), 0U);
    EXPECT_EQ(shown.find('\xE2'), std::string::npos);
}

TEST(FileNames, FilterPatternsTakeEitherCaseOfLetters) {
    EXPECT_EQ(globPatterns("*.mid;*.midi"),
              (std::vector<std::string>{"*.[mM][iI][dD]", "*.[mM][iI][dD][iI]"}));
    EXPECT_EQ(globPatterns("*.MP3"), (std::vector<std::string>{"*.[mM][pP]3"}));
}

TEST(FileNames, TheFilterForAllFilesTakesNamesWithoutADot) {
    EXPECT_EQ(globPatterns("*.*"), (std::vector<std::string>{"*"}));
}

TEST(FileNames, EmptyPatternsAreLeftOut) {
    EXPECT_TRUE(globPatterns("").empty());
    EXPECT_EQ(globPatterns(";*.a;;"), (std::vector<std::string>{"*.[aA]"}));
}

TEST(FileNames, TheExtensionIsAppendedWhereThereIsNone) {
    EXPECT_EQ(withExtension("/tmp/take", "wav"), "/tmp/take.wav");
    EXPECT_EQ(withExtension("/tmp.d/take", "wav"), "/tmp.d/take.wav");
    EXPECT_EQ(withExtension("/tmp/take.", "wav"), "/tmp/take.wav");
    EXPECT_EQ(withExtension("/tmp/.take", "wav"), "/tmp/.take.wav");
}

TEST(FileNames, AnExtensionOfTheUsersOwnIsKept) {
    EXPECT_EQ(withExtension("/tmp/take.wav", "wav"), "/tmp/take.wav");
    EXPECT_EQ(withExtension("/tmp/take.WAV", "wav"), "/tmp/take.WAV");
    EXPECT_EQ(withExtension("/tmp/take.raw", "wav"), "/tmp/take.raw");
    EXPECT_EQ(withExtension("/tmp/take", ""), "/tmp/take");
}

TEST(FileNames, APathIsTakenApartAtItsLastSlash) {
    EXPECT_EQ(lastElement("/a/b.c"), "b.c");
    EXPECT_EQ(lastElement("b.c"), "b.c");
    EXPECT_EQ(folderOf("/a/b.c"), "/a");
    EXPECT_EQ(folderOf("/b.c"), "/");
    EXPECT_EQ(folderOf("b.c"), "");
}

TEST(FileIdentity, IsTheSameUnderEveryNameOfAFileAndNoOther) {
    const test::ScratchFolder folder;
    const std::string file = folder.write("a", "same");
    const std::string other = folder.write("b", "same");
    std::filesystem::create_symlink("a", folder / "link");
    std::filesystem::create_hard_link(file, folder / "second");
    ASSERT_TRUE(fileIdentity(file));
    EXPECT_EQ(fileIdentity(file), fileIdentity(folder / "link"));
    EXPECT_EQ(fileIdentity(file), fileIdentity(folder / "second"));
    EXPECT_NE(fileIdentity(file), fileIdentity(other));
    EXPECT_FALSE(fileIdentity(folder / "missing"));
}

}  // namespace
}  // namespace veloria::platform
