// A batch when memory ends in the middle of it. Replaces operator new for the whole program.
#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <new>

#include "cli/arguments.h"
#include "cli/batch.h"
#include "tests/cli/run_tool.h"
#include "tests/media/midi_bytes.h"

namespace {

// The length of a string that nothing can be added to; 0 for none. What is asked for then is the sum of both
// lengths or, as a string grows, twice its own.
std::atomic<std::size_t> g_lastString{0};

bool isRefused(std::size_t size) {
    const std::size_t length = g_lastString.load(std::memory_order_relaxed);
    const auto isAbout = [size](std::size_t about) { return size >= about && size < about + 5; };
    return length != 0 && (isAbout(length + 4) || isAbout(2 * length));
}

}  // namespace

[[gnu::noinline]] void* operator new(std::size_t size) {
    void* memory = isRefused(size) ? nullptr : std::malloc(size == 0 ? 1 : size);
    if (memory == nullptr) throw std::bad_alloc();
    return memory;
}
// Sorting asks this way for its buffer, and gives it back to the ordinary delete.
[[gnu::noinline]] void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return std::malloc(size == 0 ? 1 : size);
}
[[gnu::noinline]] void operator delete(void* memory) noexcept {
    std::free(memory);
}
[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

namespace veloria {
namespace {

class BatchMemoryDeathTest : public test::ToolTest {
  protected:
    // A song of a second, by a name of more than 3000 letters: nothing else of a run is about as long.
    std::string song(const std::string& name) const {
        test::MidiTrack track;
        track.on(0, 0, 60, 100).off(960, 0, 60).endOfTrack();
        write(name, test::midiFile(480, {track}));
        std::string longName = folder.string();
        while (longName.size() < 3001)
            longName += "/.";
        return longName + "/" + name;
    }
};

// The line of a file that is done begins with its name, to which " -> " is added.
TEST_F(BatchMemoryDeathTest, AFileThatCannotBeReportedHasFailedAndTheOthersAreRendered) {
    const std::vector<std::string> songs = {song("a.mid"), song("b.mid"), song("c.mid")};
    const auto parsed = cli::parseArguments(
        {"render", songs[0], songs[1], songs[2], "--out-dir", path("out"), "--jobs", "2"});
    ASSERT_EQ(parsed.error, "");
    const auto renderWithoutMemory = [&] {
        g_lastString = songs[0].size();
        std::exit(cli::runBatch(parsed.options));
    };
    EXPECT_EXIT(renderWithoutMemory(), ::testing::ExitedWithCode(1), "3 of 3 files failed: .*c\\.mid");
    for (const char* output : {"out/a.wav", "out/b.wav", "out/c.wav"})
        EXPECT_TRUE(std::filesystem::exists(path(output))) << output;
}

}  // namespace
}  // namespace veloria
