// SPDX-License-Identifier: MIT
#include "imaging/grey_vectors.hpp"

#define HWY_TARGET_INCLUDE "imaging/grey_vectors.cpp"
#include <hwy/foreach_target.h>  // IWYU pragma: keep
#include <hwy/highway.h>

#include "imaging/GreyLanes.hpp"
#include "imaging/WeightedGrey.hpp"
#include "platform/drawing/pixel_lanes-inl.hpp"

#if HWY_TARGET != HWY_SCALAR

HWY_BEFORE_NAMESPACE();
namespace mobrel {
namespace HWY_NAMESPACE {

using kernels::HWY_NAMESPACE::load;
using kernels::HWY_NAMESPACE::store;
using kernels::HWY_NAMESPACE::withColours;

std::size_t greyUntilTie(std::uint8_t* row, std::size_t count) {
    const Pixels d;
    const std::size_t step = hn::Lanes(d);
    std::size_t done = 0;
    for (; done + step <= count; done += step) {
        loadAhead(row + done * 4);
        const PixelVector pixels = load(Pixels(), row + done * 4);
        const WeightedGreys weighted(pixels);
        if (HWY_UNLIKELY(!hn::AllFalse(d, weighted.isTie))) break;
        const PixelVector greys = hn::Mul(weighted.greys, hn::Set(d, 0x010101));
        store(withColours(greys, pixels), d, row + done * 4);
    }
    return done;
}

std::size_t addPlainGreys(const std::uint8_t* row, std::size_t count, std::int64_t& sum) {
    const hn::Repartition<std::uint64_t, Pixels> sums;
    const std::size_t step = hn::Lanes(Pixels());
    auto total = hn::Zero(sums);
    std::size_t done = 0;
    for (; done + step <= count; done += step) {
        loadAhead(row + done * 4);
        const PixelVector greys = plainGreys(load(Pixels(), row + done * 4));
        total = hn::Add(total, hn::SumsOf8(hn::BitCast(hn::Repartition<std::uint8_t, Pixels>(), greys)));
    }
    sum += static_cast<std::int64_t>(hn::GetLane(hn::SumOfLanes(sums, total)));
    return done;
}

std::size_t takeFirstBytes(const std::uint8_t* row, std::size_t count, std::uint8_t* bytes) {
    const hn::Rebind<std::uint8_t, Pixels> narrow;
    const std::size_t step = hn::Lanes(Pixels());
    std::size_t done = 0;
    for (; done + step <= count; done += step) {
        hn::StoreU(hn::U8FromU32(channel(load(Pixels(), row + done * 4), 0)), narrow, bytes + done);
    }
    return done;
}

}  // namespace HWY_NAMESPACE
}  // namespace mobrel
HWY_AFTER_NAMESPACE();

#endif

#if HWY_ONCE

namespace mobrel {

MOBREL_VECTOR_KERNEL(greyUntilTie);
MOBREL_VECTOR_KERNEL(addPlainGreys);
MOBREL_VECTOR_KERNEL(takeFirstBytes);

std::int64_t sumOfPlainGreys(const std::uint8_t* row, std::size_t count) {
    std::int64_t sum = 0;
    for (std::size_t x = addPlainGreys(row, count, sum); x < count; ++x) sum += plainGrey(row + x * 4);
    return sum;
}

}  // namespace mobrel

#endif
