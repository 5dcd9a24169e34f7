// SPDX-License-Identifier: MIT
#include "platform/base/Processor.hpp"

// The C library has asked the processor already, which a virtual machine answers slowly.
#if HWY_ARCH_X86 && !defined(__clang__) && __has_include(<sys/platform/x86.h>)
#include <sys/platform/x86.h>
#define MOBREL_HAS(feature, name) (CPU_FEATURE_ACTIVE(feature) != 0)
#else
#define MOBREL_HAS(feature, name) (__builtin_cpu_supports(name) != 0)
#endif

namespace mobrel {

namespace {

#if HWY_ARCH_X86

// Each set holds the ones before it. Half floats, which AVX2 comes with, are in no kernel.
bool hasSsse3() {
    return MOBREL_HAS(SSSE3, "ssse3");
}
bool hasSse4() {
    return hasSsse3() && MOBREL_HAS(SSE4_1, "sse4.1") && MOBREL_HAS(SSE4_2, "sse4.2") &&
           MOBREL_HAS(POPCNT, "popcnt") && MOBREL_HAS(AES, "aes") && MOBREL_HAS(PCLMULQDQ, "pclmul");
}
bool hasAvx2() {
    return hasSse4() && MOBREL_HAS(AVX2, "avx2") && MOBREL_HAS(FMA, "fma") && MOBREL_HAS(BMI1, "bmi") &&
           MOBREL_HAS(BMI2, "bmi2");
}
bool hasAvx3() {
    return hasAvx2() && MOBREL_HAS(AVX512F, "avx512f") && MOBREL_HAS(AVX512VL, "avx512vl") &&
           MOBREL_HAS(AVX512DQ, "avx512dq") && MOBREL_HAS(AVX512BW, "avx512bw") &&
           MOBREL_HAS(AVX512CD, "avx512cd");
}

std::int64_t detected() {
    return (hasSsse3() ? HWY_SSSE3 : 0) | (hasSse4() ? HWY_SSE4 : 0) | (hasAvx2() ? HWY_AVX2 : 0) |
           (hasAvx3() ? HWY_AVX3 : 0);
}

#else

/// Elsewhere the sets are those that the compiler may use anyway.
std::int64_t detected() {
    return HWY_ENABLED_BASELINE;
}

#endif

hwy::ChosenTarget& initialized(hwy::ChosenTarget& targets) {
    targets.Update(processorTargets());
    return targets;
}

}  // namespace

std::int64_t processorTargets() {
    static const std::int64_t targets = detected() | HWY_SCALAR;
    return targets;
}

hwy::ChosenTarget& chosenTargets() {
    static hwy::ChosenTarget targets;
    static hwy::ChosenTarget& chosen = initialized(targets);
    return chosen;
}

}  // namespace mobrel
