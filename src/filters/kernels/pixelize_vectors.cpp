// SPDX-License-Identifier: MIT
#include "filters/kernels/pixelize_vectors.hpp"

#define HWY_TARGET_INCLUDE "filters/kernels/pixelize_vectors.cpp"
#include <hwy/foreach_target.h>  // IWYU pragma: keep
#include <hwy/highway.h>

#include "platform/base/VectorKernel.hpp"

#if HWY_TARGET != HWY_SCALAR

HWY_BEFORE_NAMESPACE();
namespace mobrel::kernels {
namespace HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

std::size_t sumRows(const std::uint8_t* bytes, std::size_t rowBytes, std::size_t rows, std::uint16_t* sums) {
    const hn::ScalableTag<std::uint16_t> d;
    const hn::Rebind<std::uint8_t, hn::ScalableTag<std::uint16_t> > narrow;
    const std::size_t half = hn::Lanes(d);
    std::size_t done = 0;
    for (; done + 2 * half <= rowBytes; done += 2 * half) {
        const std::uint8_t* at = bytes + done;
        auto lower = hn::PromoteTo(d, hn::LoadU(narrow, at));
        auto upper = hn::PromoteTo(d, hn::LoadU(narrow, at + half));
        for (std::size_t y = 1; y < rows; ++y) {
            at += rowBytes;
            lower = hn::Add(lower, hn::PromoteTo(d, hn::LoadU(narrow, at)));
            upper = hn::Add(upper, hn::PromoteTo(d, hn::LoadU(narrow, at + half)));
        }
        hn::StoreU(lower, d, sums + done);
        hn::StoreU(upper, d, sums + done + half);
    }
    return done;
}

using Channels = hn::FixedTag<std::uint32_t, 4>;

HWY_INLINE hn::Vec<Channels> column(const std::uint16_t* sums) {
    return hn::PromoteTo(Channels(), hn::LoadU(hn::Rebind<std::uint16_t, Channels>(), sums));
}

std::size_t addBlocks(const std::uint16_t* columns, std::size_t blocks, std::size_t size,
                      std::uint32_t* sums) {
    const Channels d;
    for (std::size_t block = 0; block < blocks; ++block, sums += 4) {
        auto sum = hn::LoadU(d, sums);
        for (std::size_t pair = 0; pair < size / 2; ++pair, columns += 8) {
            sum = hn::Add(hn::Add(sum, column(columns)), column(columns + 4));
        }
        if (size % 2 == 1) {
            sum = hn::Add(sum, column(columns));
            columns += 4;
        }
        hn::StoreU(sum, d, sums);
    }
    return blocks;
}

std::size_t divideSums(const std::uint32_t* sums, std::size_t count, std::int32_t divisor,
                       std::uint8_t* means) {
    const hn::ScalableTag<std::int32_t> d;
    const hn::RebindToUnsigned<decltype(d)> asUnsigned;
    const hn::RebindToFloat<decltype(d)> asFloat;
    const hn::Rebind<std::uint8_t, decltype(d)> narrow;
    const auto by = hn::Set(asFloat, static_cast<float>(divisor));
    const std::size_t step = hn::Lanes(d);
    std::size_t done = 0;
    for (; done + step <= count; done += step) {
        const auto sum = hn::BitCast(d, hn::LoadU(asUnsigned, sums + done));
        const auto mean = hn::ConvertTo(d, hn::Div(hn::ConvertTo(asFloat, sum), by));
        hn::StoreU(hn::DemoteTo(narrow, mean), narrow, means + done);
    }
    return done;
}

}  // namespace HWY_NAMESPACE
}  // namespace mobrel::kernels
HWY_AFTER_NAMESPACE();

#endif

#if HWY_ONCE

namespace mobrel::kernels {

MOBREL_VECTOR_KERNEL(sumRows);
MOBREL_VECTOR_KERNEL(addBlocks);
MOBREL_VECTOR_KERNEL(divideSums);

}  // namespace mobrel::kernels

#endif
