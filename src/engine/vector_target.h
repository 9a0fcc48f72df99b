// Which instruction set the vectorised functions use. The best that the processor has is chosen once; tests
// and benchmarks may ask for another. The choice is the process's.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace veloria {

struct VectorTarget {
    std::string name;  // "AVX2"
    std::int64_t bit = 0;
};

// The instruction sets that this program was built for and this processor has, the best first. Main thread.
[[nodiscard]] std::vector<VectorTarget> vectorTargets();

// Has all vectorised functions use `target` from now on, whatever the processor has besides. While nothing
// renders.
void forceVectorTarget(const VectorTarget& target);

// The one in use.
[[nodiscard]] VectorTarget usedVectorTarget();

// Back to the best. Called early it also keeps the first callback from asking the processor.
void chooseVectorTarget();

}  // namespace veloria
