// The media commands against the real player. The sound goes to a silent output that keeps real time, since a
// build machine has no sound device.
#include "platform/media_command.h"

#include <gst/gst.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <condition_variable>
#include <cstring>
#include <deque>
#include <filesystem>
#include <mutex>
#include <thread>

#include "platform/linux/media_sink.h"
#include "tests/platform/scratch_folder.h"
#include "tests/platform/wave_bytes.h"

namespace veloria::platform {
namespace {

using test::ScratchFolder;
using test::waveBytes;

GstElement* makeSilentSink() {
    GstElement* sink = gst_element_factory_make("fakesink", nullptr);
    g_object_set(sink, "sync", TRUE, nullptr);
    return sink;
}

// The system's choice on a machine without any sound device: it finds no output that takes such sound.
GstElement* makeSinkWithoutDevice() {
    GstElement* sink = gst_element_factory_make("autoaudiosink", nullptr);
    GstCaps* caps = gst_caps_new_empty_simple("audio/x-nothing-plays-this");
    g_object_set(sink, "filter-caps", caps, nullptr);
    gst_caps_unref(caps);
    return sink;
}

GstElement* makeNoSink() {
    return nullptr;
}

int send(const std::string& command) {
    return mediaCommand(command, nullptr, 0);
}

int open(const std::string& path) {
    return send("open \"" + path + "\" alias VeloMedia");
}

std::string ask(const std::string& item) {
    std::array<char, 64> reply{};
    EXPECT_EQ(mediaCommand("status VeloMedia " + item, reply.data(), reply.size()), 0);
    return reply.data();
}

std::string errorText(int code) {
    std::array<char, 256> text{};
    mediaErrorText(code, text.data(), text.size());
    return text.data();
}

// Asks until the answer comes; a player that never gives it fails the test after ten seconds.
bool reachesMode(const std::string& mode) {
    for (int tries = 0; tries < 2000; ++tries) {
        if (ask("mode") == mode) return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return false;
}

bool positionPasses(int milliseconds) {
    for (int tries = 0; tries < 2000; ++tries) {
        if (std::stoi(ask("position")) > milliseconds) return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return false;
}

class MediaCommand : public testing::Test {
  protected:
    void SetUp() override { g_makeMediaSink = makeSilentSink; }
    void TearDown() override {
        send("stop VeloMedia");
        send("close VeloMedia");
    }
    ScratchFolder m_folder;
};

TEST_F(MediaCommand, AnOpenedFileStandsStoppedAtItsBeginning) {
    ASSERT_EQ(open(m_folder.write("tone.wav", waveBytes(1.0))), 0);
    EXPECT_EQ(ask("mode"), "stopped");
    EXPECT_EQ(ask("position"), "0");
}

TEST_F(MediaCommand, PlayMovesThePositionOn) {
    ASSERT_EQ(open(m_folder.write("tone.wav", waveBytes(20.0))), 0);
    EXPECT_EQ(send("play VeloMedia"), 0);
    EXPECT_EQ(ask("mode"), "playing");
    EXPECT_TRUE(positionPasses(30));
    EXPECT_LT(std::stoi(ask("position")), 20000);
}

TEST_F(MediaCommand, StopHoldsThePlaceAndPlayGoesOnFromIt) {
    ASSERT_EQ(open(m_folder.write("tone.wav", waveBytes(20.0))), 0);
    ASSERT_EQ(send("play VeloMedia"), 0);
    ASSERT_TRUE(positionPasses(50));
    EXPECT_EQ(send("stop VeloMedia"), 0);
    EXPECT_EQ(ask("mode"), "stopped");
    const std::string held = ask("position");
    std::this_thread::sleep_for(std::chrono::milliseconds(60));
    EXPECT_EQ(ask("position"), held);
    EXPECT_EQ(send("play VeloMedia"), 0);
    EXPECT_EQ(ask("mode"), "playing");
    EXPECT_GE(std::stoi(ask("position")), std::stoi(held));
    EXPECT_TRUE(positionPasses(std::stoi(held)));
}

TEST_F(MediaCommand, ModeTurnsToStoppedAtTheEndOfTheFile) {
    ASSERT_EQ(open(m_folder.write("tone.wav", waveBytes(0.15))), 0);
    ASSERT_EQ(send("play VeloMedia"), 0);
    EXPECT_TRUE(reachesMode("stopped"));
    EXPECT_EQ(ask("mode"), "stopped");
    EXPECT_EQ(send("stop VeloMedia"), 0);
    EXPECT_EQ(ask("mode"), "stopped");
}

TEST_F(MediaCommand, AFileThatEndedPlaysAgainAfterASeek) {
    ASSERT_EQ(open(m_folder.write("tone.wav", waveBytes(0.3))), 0);
    ASSERT_EQ(send("play VeloMedia"), 0);
    ASSERT_TRUE(reachesMode("stopped"));
    EXPECT_EQ(send("seek VeloMedia to 0"), 0);
    EXPECT_EQ(send("play VeloMedia"), 0);
    EXPECT_EQ(ask("mode"), "playing");
    EXPECT_TRUE(reachesMode("stopped"));
}

TEST_F(MediaCommand, SeekGoesToTheVeryMillisecond) {
    ASSERT_EQ(open(m_folder.write("tone.wav", waveBytes(3.0))), 0);
    EXPECT_EQ(send("seek VeloMedia to 1234"), 0);
    EXPECT_EQ(ask("position"), "1234");
    EXPECT_EQ(ask("mode"), "stopped");
}

TEST_F(MediaCommand, SeekDuringPlayGoesOnPlayingFromThere) {
    ASSERT_EQ(open(m_folder.write("tone.wav", waveBytes(30.0))), 0);
    ASSERT_EQ(send("play VeloMedia"), 0);
    EXPECT_EQ(send("seek VeloMedia to 20000"), 0);
    EXPECT_EQ(ask("mode"), "playing");
    EXPECT_GE(std::stoi(ask("position")), 20000);
    EXPECT_TRUE(positionPasses(20020));
}

TEST_F(MediaCommand, AStoppedPlaceIsFoundAgainBySeekAfterAReload) {
    const std::string path = m_folder.write("tone.wav", waveBytes(20.0));
    ASSERT_EQ(open(path), 0);
    ASSERT_EQ(send("play VeloMedia"), 0);
    ASSERT_TRUE(positionPasses(40));
    ASSERT_EQ(send("stop VeloMedia"), 0);
    const std::string place = ask("position");
    ASSERT_EQ(send("close VeloMedia"), 0);
    ASSERT_EQ(open(path), 0);
    EXPECT_EQ(send("seek VeloMedia to " + place), 0);
    EXPECT_EQ(ask("position"), place);
}

TEST_F(MediaCommand, APlaceBehindTheEndIsRefusedAndTheOldOneKept) {
    ASSERT_EQ(open(m_folder.write("tone.wav", waveBytes(1.0))), 0);
    ASSERT_EQ(send("seek VeloMedia to 500"), 0);
    for (const char* place : {"1001", "99999999", "9223372036854775807", "99999999999999999999999"}) {
        const int code = send(std::string("seek VeloMedia to ") + place);
        EXPECT_NE(code, 0) << place;
        EXPECT_EQ(errorText(code), "The position lies behind the end of the file.") << place;
    }
    EXPECT_EQ(ask("position"), "500");
}

TEST_F(MediaCommand, APlaceThatIsNoNumberIsRefused) {
    ASSERT_EQ(open(m_folder.write("tone.wav", waveBytes(1.0))), 0);
    for (const char* place : {"", "start", "-1", "12x", "1.5", " 12"}) {
        const int code = send(std::string("seek VeloMedia to ") + place);
        EXPECT_NE(code, 0) << place;
        EXPECT_EQ(errorText(code), "The position is no number of milliseconds.") << place;
    }
    EXPECT_EQ(ask("position"), "0");
}

TEST_F(MediaCommand, APathMayHoldQuotesSpacesAndSignsOfAddresses) {
    for (const char* name : {"a file.wav", "the \"best\" of.wav", "\".wav", "100% #1?.wav", "two\nlines.wav",
                             "caf\xC3\xA9.wav", "latin-\xE9.wav", "' alias x.wav", "\" alias VeloMedia"}) {
        const std::string path = m_folder.write(name, waveBytes(0.5));
        const int code = open(path);
        EXPECT_EQ(code, 0) << name << ": " << errorText(code);
        EXPECT_EQ(send("close VeloMedia"), 0) << name;
    }
}

TEST_F(MediaCommand, ARelativePathIsTakenFromTheWorkingDirectory) {
    m_folder.write("near.wav", waveBytes(0.5));
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(m_folder.path());
    const int code = open("near.wav");
    std::filesystem::current_path(before);
    EXPECT_EQ(code, 0) << errorText(code);
}

void expectRefused(const std::string& path) {
    const int code = open(path);
    EXPECT_NE(code, 0) << path;
    EXPECT_FALSE(errorText(code).empty()) << path;
    EXPECT_NE(errorText(code), errorText(0)) << path;
    EXPECT_NE(send("play VeloMedia"), 0) << "nothing may stay open behind " << path;
}

TEST_F(MediaCommand, AMissingFileIsRefusedWithTheReason) {
    expectRefused(m_folder / "missing.wma");
    EXPECT_EQ(errorText(open(m_folder / "missing.wma")), "This is not a file that can be read.");
}

// Opening a pipe would wait for its writer for ever, and a device may do anything.
TEST_F(MediaCommand, OnlyARegularFileThatCanBeReadIsOpened) {
    const std::string pipe = m_folder / "pipe.wma";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    std::filesystem::create_symlink(pipe, m_folder / "link.ogg");
    for (const std::string& path : {pipe, m_folder / "link.ogg", std::string("/dev/zero"), m_folder.path()}) {
        expectRefused(path);
        EXPECT_EQ(errorText(open(path)), "This is not a file that can be read.") << path;
    }
    const std::string tone = m_folder.write("tone.wav", waveBytes(0.5));
    std::filesystem::permissions(tone, std::filesystem::perms::none);
    if (access(tone.c_str(), R_OK) != 0) expectRefused(tone);
}

TEST_F(MediaCommand, AFileThatIsNoSoundIsRefused) {
    std::string noise;
    for (unsigned i = 0; i < 5000; ++i)
        noise += static_cast<char>((i * 37 + 11) % 256);
    expectRefused(m_folder.write("noise.wma", noise));
    expectRefused(m_folder.write("text.wma", "plain words\nand more of them\n"));
    expectRefused(m_folder.write("zeros.wma", std::string(4096, '\0')));
}

TEST_F(MediaCommand, ATornHeaderIsRefused) {
    expectRefused(m_folder.write("torn.wav", waveBytes(1.0).substr(0, 30)));
}

TEST_F(MediaCommand, AnEmptyFileIsRefused) {
    expectRefused(m_folder.write("empty.wma", ""));
}

TEST_F(MediaCommand, AFolderIsRefused) {
    expectRefused(m_folder.path());
}

TEST_F(MediaCommand, AnEmptyPathIsRefused) {
    expectRefused("");
}

// A picture can be decoded, but it would stand open and never end.
TEST_F(MediaCommand, APictureIsRefused) {
    std::string picture = "BM";
    test::appendLittleEndian(picture, 54 + 4 * 12, 4);
    test::appendLittleEndian(picture, 0, 4);
    test::appendLittleEndian(picture, 54, 4);
    test::appendLittleEndian(picture, 40, 4);
    test::appendLittleEndian(picture, 4, 4);  // width and height
    test::appendLittleEndian(picture, 4, 4);
    test::appendLittleEndian(picture, 1, 2);
    test::appendLittleEndian(picture, 24, 2);
    picture += std::string(24, '\0') + std::string(4 * 12, '\x7F');
    expectRefused(m_folder.write("picture.bmp", picture));
    EXPECT_EQ(errorText(open(m_folder / "picture.bmp")), "The file holds no sound.");
}

// What a WAV that breaks off still holds is played; then it has ended.
TEST_F(MediaCommand, ATornFilePlaysWhatItHoldsAndEnds) {
    const std::string whole = waveBytes(1.0);
    ASSERT_EQ(open(m_folder.write("torn.wav", whole.substr(0, whole.size() / 8))), 0);
    EXPECT_EQ(send("play VeloMedia"), 0);
    EXPECT_TRUE(reachesMode("stopped"));
}

TEST_F(MediaCommand, AnotherOpenIsRefusedUntilTheFirstIsClosed) {
    const std::string path = m_folder.write("tone.wav", waveBytes(0.5));
    ASSERT_EQ(open(path), 0);
    const int code = open(path);
    EXPECT_EQ(errorText(code), "A media file is open already.");
    EXPECT_EQ(ask("mode"), "stopped");
    EXPECT_EQ(send("close VeloMedia"), 0);
    EXPECT_EQ(open(path), 0);
}

TEST_F(MediaCommand, TheSecondCloseFindsNothingOpen) {
    ASSERT_EQ(open(m_folder.write("tone.wav", waveBytes(0.5))), 0);
    EXPECT_EQ(send("close VeloMedia"), 0);
    const int code = send("close VeloMedia");
    EXPECT_NE(code, 0);
    EXPECT_EQ(errorText(code), "No media file is open.");
}

TEST_F(MediaCommand, WithNothingOpenEveryCommandFails) {
    for (const char* command : {"play VeloMedia", "stop VeloMedia", "close VeloMedia", "seek VeloMedia to 0",
                                "status VeloMedia position", "status VeloMedia mode"}) {
        const int code = send(command);
        EXPECT_NE(code, 0) << command;
        EXPECT_EQ(errorText(code), "No media file is open.") << command;
    }
}

TEST_F(MediaCommand, WithNothingOpenTheModeIsNotReadyAndThePositionEmpty) {
    std::array<char, 64> reply{};
    (void)mediaCommand("status VeloMedia mode", reply.data(), reply.size());
    EXPECT_STREQ(reply.data(), "not ready");
    (void)mediaCommand("status VeloMedia position", reply.data(), reply.size());
    EXPECT_STREQ(reply.data(), "");
}

TEST_F(MediaCommand, UnknownCommandsAreRefused) {
    ASSERT_EQ(open(m_folder.write("tone.wav", waveBytes(0.5))), 0);
    for (const char* command :
         {"", "play", "play Other", "play VeloMedia twice", "pause VeloMedia", "status VeloMedia length",
          "status Other mode", "seek VeloMedia 5", "open", "open ", "open \"", "open \"x\"",
          "open x alias VeloMedia", "open \"x\" alias Other", "open \"x alias VeloMedia", "PLAY VeloMedia"}) {
        const int code = send(command);
        EXPECT_NE(code, 0) << command;
        EXPECT_EQ(errorText(code), "The media player does not know this command.") << command;
    }
}

TEST_F(MediaCommand, TheReplyIsCutToTheBuffer) {
    ASSERT_EQ(open(m_folder.write("tone.wav", waveBytes(0.5))), 0);
    std::array<char, 8> reply{};
    reply.fill('#');
    EXPECT_EQ(mediaCommand("status VeloMedia mode", reply.data(), 5), 0);
    EXPECT_EQ(std::memcmp(reply.data(), "stop\0###", 8), 0);
    reply.fill('#');
    EXPECT_EQ(mediaCommand("status VeloMedia mode", reply.data(), 1), 0);
    EXPECT_EQ(std::memcmp(reply.data(), "\0#######", 8), 0);
    reply.fill('#');
    EXPECT_EQ(mediaCommand("status VeloMedia mode", reply.data(), 0), 0);
    EXPECT_EQ(std::memcmp(reply.data(), "########", 8), 0);
}

TEST_F(MediaCommand, ACommandWithoutAnAnswerLeavesAnEmptyReply) {
    std::array<char, 64> reply{};
    reply.fill('#');
    (void)mediaCommand("play VeloMedia", reply.data(), reply.size());
    EXPECT_STREQ(reply.data(), "");
}

TEST_F(MediaCommand, TheErrorTextIsCutToTheBuffer) {
    const int code = open(m_folder / "missing.wma");
    std::array<char, 12> text{};
    text.fill('#');
    mediaErrorText(code, text.data(), 9);
    EXPECT_EQ(std::memcmp(text.data(), "This is \0###", 12), 0);
    mediaErrorText(code, nullptr, 9);
}

TEST_F(MediaCommand, EveryCodeHasAText) {
    for (const int code : {-1, 0, 1, 100, 261, 262, 263, 264, 266, 267, 268, 100000}) {
        EXPECT_FALSE(errorText(code).empty()) << code;
    }
}

TEST_F(MediaCommand, TheReasonOfARefusalOutlivesTheClosing) {
    const int code = open(m_folder / "missing.wma");
    send("stop VeloMedia");
    send("close VeloMedia");
    EXPECT_EQ(errorText(code), "This is not a file that can be read.");
}

TEST_F(MediaCommand, WithoutASoundDeviceTheFileIsRefused) {
    g_makeMediaSink = makeSinkWithoutDevice;
    const int code = open(m_folder.write("tone.wav", waveBytes(0.5)));
    EXPECT_NE(code, 0);
    EXPECT_EQ(errorText(code).rfind("There is no sound output: ", 0), 0U) << errorText(code);
    EXPECT_NE(send("play VeloMedia"), 0);
}

TEST_F(MediaCommand, WithoutAnyOutputThereIsNoPlayer) {
    g_makeMediaSink = makeNoSink;
    const int code = open(m_folder.write("tone.wav", waveBytes(0.5)));
    EXPECT_NE(code, 0);
    EXPECT_EQ(errorText(code), "No media player is available for this file.");
}

// A part of the library that hangs until it is let go.
struct Hang {
    std::mutex mutex;
    std::condition_variable changed;
    bool entered = false;
    bool letGo = false;
    bool left = false;

    void pass();
    void leave() {
        const std::lock_guard lock(mutex);
        left = true;
        changed.notify_all();
    }
    // Lets go, and waits until the thread that hung has ended: the test program must not end before it.
    void end() {
        std::unique_lock lock(mutex);
        letGo = true;
        changed.notify_all();
        changed.wait(lock, [this] { return left || !entered; });
    }
};

// Tells of the end of the thread that it belongs to.
struct ThreadEnd {
    Hang* hang = nullptr;
    ~ThreadEnd() {
        if (hang != nullptr) hang->leave();
    }
};
thread_local ThreadEnd t_threadEnd;

void Hang::pass() {
    t_threadEnd.hang = this;
    std::unique_lock lock(mutex);
    entered = true;
    changed.wait(lock, [this] { return letGo; });
}

// Outlives the thread that hangs in it.
Hang& newHang() {
    static std::deque<Hang> s_hangs;
    return s_hangs.emplace_back();
}

Hang* g_hang = nullptr;

GstElement* hangAndMakeNoSink() {
    g_hang->pass();
    return nullptr;
}

// A silent output of which one change of state never ends.
struct HangingSink {
    GstBin parent;
    Hang* hang;
    GstStateChange at;
};
struct HangingSinkClass {
    GstBinClass parent;
};

GstStateChange g_hangingChange = GST_STATE_CHANGE_NULL_TO_READY;

GstStateChangeReturn changeStateOrHang(GstElement* element, GstStateChange change) {
    auto* sink = reinterpret_cast<HangingSink*>(element);
    if (change == sink->at) sink->hang->pass();
    return GST_ELEMENT_CLASS(g_type_class_peek(GST_TYPE_BIN))->change_state(element, change);
}

void initClass(gpointer itsClass, gpointer /*unused*/) {
    GST_ELEMENT_CLASS(itsClass)->change_state = changeStateOrHang;
}

GstElement* makeHangingSink() {
    static const GType type =
        g_type_register_static_simple(GST_TYPE_BIN, "VeloriaHangingSink", sizeof(HangingSinkClass), initClass,
                                      sizeof(HangingSink), nullptr, static_cast<GTypeFlags>(0));
    auto* bin = GST_ELEMENT(g_object_new(type, nullptr));
    reinterpret_cast<HangingSink*>(bin)->hang = g_hang;
    reinterpret_cast<HangingSink*>(bin)->at = g_hangingChange;
    GstElement* sink = makeSilentSink();
    gst_bin_add(GST_BIN(bin), sink);
    GstPad* pad = gst_element_get_static_pad(sink, "sink");
    gst_element_add_pad(bin, gst_ghost_pad_new("sink", pad));
    gst_object_unref(pad);
    return bin;
}

class HungMediaCommand : public MediaCommand {
  protected:
    void SetUp() override { g_hang = &newHang(); }
    void TearDown() override {
        g_hang->end();
        MediaCommand::TearDown();
    }
    void expectANewPlayer() {
        EXPECT_EQ(send("close VeloMedia"), 0);
        g_makeMediaSink = makeSilentSink;
        EXPECT_EQ(open(m_folder.write("next.wav", waveBytes(0.5))), 0);
        EXPECT_EQ(ask("mode"), "stopped");
        EXPECT_EQ(send("play VeloMedia"), 0);
    }
};

TEST_F(HungMediaCommand, AnOpeningThatNeverEndsIsRefusedAndTheNextFileOpens) {
    g_makeMediaSink = hangAndMakeNoSink;
    const int code = open(m_folder.write("tone.wav", waveBytes(0.5)));
    EXPECT_NE(code, 0);
    EXPECT_EQ(errorText(code), "The file did not begin to play within 4 seconds.");
    EXPECT_EQ(errorText(send("play VeloMedia")), "No media file is open.");
    g_makeMediaSink = makeSilentSink;
    EXPECT_EQ(open(m_folder.write("next.wav", waveBytes(0.5))), 0);
}

TEST_F(HungMediaCommand, APlayThatNeverEndsIsRefusedAndItsFileHasStopped) {
    g_hangingChange = GST_STATE_CHANGE_PAUSED_TO_PLAYING;
    g_makeMediaSink = makeHangingSink;
    ASSERT_EQ(open(m_folder.write("tone.wav", waveBytes(0.5))), 0);
    EXPECT_EQ(ask("position"), "0");
    const int code = send("play VeloMedia");
    EXPECT_NE(code, 0);
    EXPECT_EQ(errorText(code), "The media player does not answer.");
    EXPECT_EQ(ask("mode"), "stopped");
    EXPECT_EQ(ask("position"), "0");
    for (const char* command : {"play VeloMedia", "stop VeloMedia", "seek VeloMedia to 5"})
        EXPECT_EQ(errorText(send(command)), "The media player does not answer.") << command;
    EXPECT_EQ(errorText(open(m_folder / "tone.wav")), "A media file is open already.");
    expectANewPlayer();
}

TEST_F(HungMediaCommand, AStopThatNeverEndsKeepsNobodyWaiting) {
    g_hangingChange = GST_STATE_CHANGE_PLAYING_TO_PAUSED;
    g_makeMediaSink = makeHangingSink;
    ASSERT_EQ(open(m_folder.write("tone.wav", waveBytes(20.0))), 0);
    ASSERT_EQ(send("play VeloMedia"), 0);
    EXPECT_EQ(send("stop VeloMedia"), 0);
    EXPECT_EQ(ask("mode"), "stopped");
    expectANewPlayer();
}

TEST_F(HungMediaCommand, AClosingThatNeverEndsKeepsNobodyWaiting) {
    g_hangingChange = GST_STATE_CHANGE_READY_TO_NULL;
    g_makeMediaSink = makeHangingSink;
    ASSERT_EQ(open(m_folder.write("tone.wav", waveBytes(0.5))), 0);
    expectANewPlayer();
}

}  // namespace
}  // namespace veloria::platform
