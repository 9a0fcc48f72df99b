// The start of every test program: no window and no sound card, and the sanitizers told which libraries'
// faults are not ours. So a test program does the same whether ctest starts it or a person.
#include <gtest/gtest.h>

#include <cstdlib>

// The sanitizers ask for their options by these names before main, when little works yet: plain literals
// only.
#define VELORIA_SUPPRESSIONS(name) \
    "suppressions=" VELORIA_SOURCE_DIR "/tests/sanitizers/" name ":print_suppressions=0"
extern "C" const char* __lsan_default_options() {  // NOLINT(bugprone-reserved-identifier)
    return VELORIA_SUPPRESSIONS("leaks.supp");
}
extern "C" const char* __tsan_default_options() {  // NOLINT(bugprone-reserved-identifier)
    return VELORIA_SUPPRESSIONS("races.supp");
}

int main(int argc, char** argv) {
    setenv("SDL_VIDEODRIVER", "dummy", 0);
    setenv("SDL_AUDIODRIVER", "dummy", 0);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
