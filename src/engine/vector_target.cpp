#include "engine/vector_target.h"

// Each instruction set's name for itself, by the same choice that all vectorised functions go by.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "engine/vector_target.cpp"
#include "hwy/foreach_target.h"
#include "hwy/highway.h"

HWY_BEFORE_NAMESPACE();
namespace veloria {
namespace HWY_NAMESPACE {

std::int64_t OwnBit() {
    return HWY_TARGET;
}

}  // namespace HWY_NAMESPACE
}  // namespace veloria
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace veloria {

HWY_EXPORT(OwnBit);

namespace {

VectorTarget targetOf(std::int64_t bit) {
    return {hwy::TargetName(bit), bit};
}

}  // namespace

std::vector<VectorTarget> vectorTargets() {
    std::vector<VectorTarget> targets;
    for (const std::int64_t bit : hwy::SupportedAndGeneratedTargets())
        targets.push_back(targetOf(bit));
    return targets;
}

void forceVectorTarget(const VectorTarget& target) {
    hwy::GetChosenTarget().Update(target.bit);
}

VectorTarget usedVectorTarget() {
    return targetOf(HWY_DYNAMIC_DISPATCH(OwnBit)());
}

void chooseVectorTarget() {
    hwy::GetChosenTarget().Update(hwy::SupportedTargets());
}

}  // namespace veloria
#endif
