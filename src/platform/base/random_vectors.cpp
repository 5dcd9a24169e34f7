// SPDX-License-Identifier: MIT
#include "platform/base/random_vectors.hpp"

#include "platform/base/SplitMix.hpp"

#define HWY_TARGET_INCLUDE "platform/base/random_vectors.cpp"
#include <hwy/foreach_target.h>  // IWYU pragma: keep
#include <hwy/highway.h>

#include "platform/base/Processor.hpp"

#if HWY_TARGET != HWY_SCALAR

HWY_BEFORE_NAMESPACE();
namespace mobrel {
namespace HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

using Numbers = hn::ScalableTag<std::uint32_t>;
using Counters = hn::ScalableTag<std::uint64_t>;
using CounterVector = hn::Vec<Counters>;

#if HWY_TARGET <= HWY_AVX3  // has products of 64 bits

HWY_INLINE CounterVector product(CounterVector a, std::uint64_t factor) {
    return hn::Mul(a, hn::Set(Counters(), factor));
}

#else

/// The low 64 bits of the products, from halves of 32 bits.
HWY_INLINE CounterVector product(CounterVector a, std::uint64_t factor) {
    const Numbers d;
    const auto low = hn::BitCast(d, hn::Set(Counters(), factor));
    const auto high = hn::BitCast(d, hn::Set(Counters(), factor >> 32));
    const auto mixed = hn::Add(hn::MulEven(hn::BitCast(d, a), high),
                               hn::MulEven(hn::BitCast(d, hn::ShiftRight<32>(a)), low));
    return hn::Add(hn::MulEven(hn::BitCast(d, a), low), hn::ShiftLeft<32>(mixed));
}

#endif

HWY_INLINE CounterVector mix(CounterVector z) {
    z = product(hn::Xor(z, hn::ShiftRight<30>(z)), splitmix::kFirstFactor);
    z = product(hn::Xor(z, hn::ShiftRight<27>(z)), splitmix::kSecondFactor);
    return hn::Xor(z, hn::ShiftRight<31>(z));
}

std::size_t drawNumbers(std::uint64_t counter, std::uint32_t* bits, std::size_t count) {
    const Numbers d;
    const Counters d64;
    const auto half = static_cast<std::uint64_t>(hn::Lanes(d64));
    const CounterVector next = hn::Set(d64, half * splitmix::kStep);
    CounterVector lower = hn::Add(hn::Set(d64, counter), product(hn::Iota(d64, 1), splitmix::kStep));
    CounterVector upper = hn::Add(lower, next);
    const CounterVector step = hn::Add(next, next);
    std::size_t done = 0;
    for (; done + 2 * half <= count; done += 2 * half) {
        const auto tops = hn::ConcatOdd(d, hn::BitCast(d, mix(upper)), hn::BitCast(d, mix(lower)));
        hn::StoreU(hn::ShiftRight<8>(tops), d, bits + done);
        lower = hn::Add(lower, step);
        upper = hn::Add(upper, step);
    }
    return done;
}

}  // namespace HWY_NAMESPACE
}  // namespace mobrel
HWY_AFTER_NAMESPACE();

#endif

#if HWY_ONCE

namespace mobrel {

MOBREL_VECTOR_KERNEL(drawNumbers);

}  // namespace mobrel

#endif
