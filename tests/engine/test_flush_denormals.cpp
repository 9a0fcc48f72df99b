#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "engine/flush_denormals.h"

namespace veloria {
namespace {

// Behind volatiles, so that nothing is worked out by the compiler.
float halved(float value) {
    const volatile float given = value;
    const volatile float half = given * 0.5f;
    return half;
}

TEST(FlushDenormals, ThereAreNoneInItsScopeAndTheyAreBackAfterIt) {
    const float smallest = std::numeric_limits<float>::min();
    const float denormal = smallest / 4.0f;
    EXPECT_GT(halved(smallest), 0.0f);
    {
        const FlushDenormals flushed;
        EXPECT_EQ(halved(smallest), 0.0f);
        EXPECT_EQ(halved(denormal), 0.0f);
        { const FlushDenormals again; }
        EXPECT_EQ(halved(smallest), 0.0f);
        EXPECT_EQ(halved(1.0f), 0.5f);
    }
    EXPECT_GT(halved(smallest), 0.0f);
}

}  // namespace
}  // namespace veloria
