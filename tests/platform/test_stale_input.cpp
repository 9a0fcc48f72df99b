#include "platform/linux/stale_input.h"

#include <SDL.h>
#include <gtest/gtest.h>

#include <vector>

namespace veloria::platform {
namespace {

class StaleInput : public testing::Test {
  protected:
    void SetUp() override {
        ASSERT_EQ(SDL_Init(SDL_INIT_EVENTS), 0);
        SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
    }
    void TearDown() override { SDL_Quit(); }
};

void push(std::uint32_t type) {
    SDL_Event event{};
    event.type = type;
    ASSERT_EQ(SDL_PushEvent(&event), 1);
}

std::vector<std::uint32_t> queued() {
    std::vector<std::uint32_t> types;
    SDL_Event event;
    while (SDL_PeepEvents(&event, 1, SDL_GETEVENT, SDL_FIRSTEVENT, SDL_LASTEVENT) == 1)
        types.push_back(event.type);
    return types;
}

// The tick count as the modal window appears, surely later than what is queued already.
std::uint32_t laterTicks() {
    const std::uint32_t before = SDL_GetTicks();
    while (SDL_GetTicks() == before)
        SDL_Delay(1);
    return SDL_GetTicks();
}

TEST_F(StaleInput, PressesWheelKeysAndTextThatCameMeanwhileAreDropped) {
    const std::uint32_t since = laterTicks();
    for (const std::uint32_t type :
         {SDL_MOUSEBUTTONDOWN, SDL_MOUSEWHEEL, SDL_KEYDOWN, SDL_TEXTINPUT, SDL_TEXTEDITING}) {
        push(type);
    }
    dropStaleInput(since);
    EXPECT_TRUE(queued().empty());
}

TEST_F(StaleInput, ReleasesQuitAndTheWindowsOwnEventsAreKeptInTheirOrder) {
    const std::uint32_t since = laterTicks();
    const std::vector<std::uint32_t> kept = {SDL_MOUSEBUTTONUP, SDL_QUIT, SDL_KEYUP, SDL_WINDOWEVENT,
                                             SDL_MOUSEMOTION};
    for (const std::uint32_t type : kept) {
        push(type);
        push(SDL_KEYDOWN);
    }
    dropStaleInput(since);
    EXPECT_EQ(queued(), kept);
}

TEST_F(StaleInput, WhatWasQueuedBeforeTheWindowStoodIsKept) {
    push(SDL_MOUSEBUTTONDOWN);
    push(SDL_KEYDOWN);
    const std::uint32_t since = laterTicks();
    push(SDL_KEYDOWN);
    dropStaleInput(since);
    EXPECT_EQ(queued(), (std::vector<std::uint32_t>{SDL_MOUSEBUTTONDOWN, SDL_KEYDOWN}));
}

}  // namespace
}  // namespace veloria::platform
