// SPDX-License-Identifier: MIT
// Compiled once for each set of instructions; the processor's best is chosen when it runs.
#include "imaging/GreyVectors.hpp"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "imaging/GreyVectors.cpp"
#include <hwy/foreach_target.h>  // IWYU pragma: keep
#include <hwy/highway.h>

#include "imaging/WeightedGrey.hpp"
#include "platform/base/Processor.hpp"

#include "imaging/GreyLanes.hpp"

HWY_BEFORE_NAMESPACE();
namespace mobrel {
namespace HWY_NAMESPACE {

#if HWY_TARGET == HWY_SCALAR  // one lane is no vector

std::size_t WithoutTies(std::uint8_t*, std::size_t) {
    return 0;
}
std::size_t AddPlain(const std::uint8_t*, std::size_t, std::int64_t&) {
    return 0;
}
std::size_t FirstBytes(const std::uint8_t*, std::size_t, std::uint8_t*) {
    return 0;
}

#else

HWY_INLINE PixelVector load(const std::uint8_t* pixels) {
    return hn::BitCast(Pixels(), hn::LoadU(hn::Repartition<std::uint8_t, Pixels>(), pixels));
}

std::size_t WithoutTies(std::uint8_t* row, std::size_t count) {
    const Pixels d;
    const hn::Repartition<std::uint8_t, Pixels> bytes;
    const std::size_t step = hn::Lanes(d);
    std::size_t done = 0;
    for (; done + step <= count; done += step) {
        loadAhead(row + done * 4);
        const PixelVector pixels = load(row + done * 4);
        const WeightedGreys weighted(pixels);
        if (HWY_UNLIKELY(!hn::AllFalse(d, weighted.isTie))) break;
        const PixelVector kept = hn::And(pixels, hn::Set(d, 0xFF000000U));
        const PixelVector greys = hn::Mul(weighted.greys, hn::Set(d, 0x010101));
        hn::StoreU(hn::BitCast(bytes, hn::Or(greys, kept)), bytes, row + done * 4);
    }
    return done;
}

std::size_t AddPlain(const std::uint8_t* row, std::size_t count, std::int64_t& sum) {
    const hn::Repartition<std::uint64_t, Pixels> sums;
    const std::size_t step = hn::Lanes(Pixels());
    auto total = hn::Zero(sums);
    std::size_t done = 0;
    for (; done + step <= count; done += step) {
        loadAhead(row + done * 4);
        const PixelVector greys = plainGreys(load(row + done * 4));
        total = hn::Add(total, hn::SumsOf8(hn::BitCast(hn::Repartition<std::uint8_t, Pixels>(), greys)));
    }
    sum += static_cast<std::int64_t>(hn::GetLane(hn::SumOfLanes(sums, total)));
    return done;
}

std::size_t FirstBytes(const std::uint8_t* row, std::size_t count, std::uint8_t* bytes) {
    const hn::Rebind<std::uint8_t, Pixels> narrow;
    const std::size_t step = hn::Lanes(Pixels());
    std::size_t done = 0;
    for (; done + step <= count; done += step) {
        hn::StoreU(hn::U8FromU32(channel(load(row + done * 4), 0)), narrow, bytes + done);
    }
    return done;
}

#endif

}  // namespace HWY_NAMESPACE
}  // namespace mobrel
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace mobrel {

MOBREL_VECTORS(WithoutTies);
MOBREL_VECTORS(AddPlain);
MOBREL_VECTORS(FirstBytes);

std::size_t greysWithoutTies(std::uint8_t* row, std::size_t count) {
    return MOBREL_BEST(WithoutTies)(row, count);
}

std::int64_t sumOfPlainGreys(const std::uint8_t* row, std::size_t count) {
    std::int64_t sum = 0;
    for (std::size_t x = MOBREL_BEST(AddPlain)(row, count, sum); x < count; ++x)
        sum += plainGrey(row + x * 4);
    return sum;
}

std::size_t firstBytes(const std::uint8_t* row, std::size_t count, std::uint8_t* bytes) {
    return MOBREL_BEST(FirstBytes)(row, count, bytes);
}

}  // namespace mobrel

#endif  // HWY_ONCE
