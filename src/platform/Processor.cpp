// SPDX-License-Identifier: MIT
#include "platform/Processor.hpp"

#if HWY_ARCH_X86
#include <cpuid.h>
#endif

namespace mobrel {

namespace {

#if HWY_ARCH_X86

/// Bits that the compiler's own question does not know on every compiler.
bool hasHalfFloatsAndLeadingZeros() {
    unsigned a = 0, b = 0, c = 0, d = 0;
    constexpr unsigned kHalfFloats = 1U << 29;
    constexpr unsigned kLeadingZeros = 1U << 5;
    if (__get_cpuid(1, &a, &b, &c, &d) == 0 || (c & kHalfFloats) == 0) return false;
    return __get_cpuid(0x80000001, &a, &b, &c, &d) != 0 && (c & kLeadingZeros) != 0;
}

// Each set holds the ones before it.
bool hasSsse3() {
    return __builtin_cpu_supports("ssse3") != 0;
}
bool hasSse4() {
    return hasSsse3() && __builtin_cpu_supports("sse4.1") != 0 && __builtin_cpu_supports("sse4.2") != 0 &&
           __builtin_cpu_supports("popcnt") != 0 && __builtin_cpu_supports("aes") != 0 &&
           __builtin_cpu_supports("pclmul") != 0;
}
bool hasAvx2() {
    return hasSse4() && __builtin_cpu_supports("avx2") != 0 && __builtin_cpu_supports("fma") != 0 &&
           __builtin_cpu_supports("bmi") != 0 && __builtin_cpu_supports("bmi2") != 0 &&
           hasHalfFloatsAndLeadingZeros();
}
bool hasAvx3() {
    return hasAvx2() && __builtin_cpu_supports("avx512f") != 0 && __builtin_cpu_supports("avx512vl") != 0 &&
           __builtin_cpu_supports("avx512dq") != 0 && __builtin_cpu_supports("avx512bw") != 0 &&
           __builtin_cpu_supports("avx512cd") != 0;
}

std::int64_t detected() {
    __builtin_cpu_init();
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
