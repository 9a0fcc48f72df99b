// Runs a test on every instruction set that the vector code was built for and this machine has.
#pragma once

#include <gtest/gtest.h>
#include <hwy/highway.h>

#include <functional>

namespace veloria::test {

// Forces the vector code onto one instruction set for as long as it lives.
class ForcedTarget {
  public:
    explicit ForcedTarget(std::int64_t target) { hwy::SetSupportedTargetsForTest(target); }
    ~ForcedTarget() { hwy::SetSupportedTargetsForTest(0); }
    ForcedTarget(const ForcedTarget&) = delete;
    ForcedTarget& operator=(const ForcedTarget&) = delete;
};

inline void onEveryTarget(const std::function<void()>& check) {
    for (const std::int64_t target : hwy::SupportedAndGeneratedTargets()) {
        const ForcedTarget forced(target);
        SCOPED_TRACE(hwy::TargetName(target));
        check();
    }
}

}  // namespace veloria::test
