// Tests that run once in each instruction set of this machine.
#pragma once

#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "engine/vector_target.h"

namespace veloria {

// In the words of a failure.
inline void PrintTo(const VectorTarget& target, std::ostream* out) {
    *out << target.name;
}

}  // namespace veloria

namespace veloria::test {

class OnEveryTarget : public ::testing::TestWithParam<VectorTarget> {
  protected:
    void SetUp() override { forceVectorTarget(GetParam()); }
    void TearDown() override { chooseVectorTarget(); }
};

inline std::string nameOfTarget(const ::testing::TestParamInfo<VectorTarget>& info) {
    return info.param.name;
}

}  // namespace veloria::test
