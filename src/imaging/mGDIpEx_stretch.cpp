// SPDX-License-Identifier: MIT
#include <optional>
#include <utility>

#include "imaging/BicubicPlain.hpp"
#include "imaging/mGDIpEx.hpp"
#include "platform/base/RuntimeError.hpp"
#include "platform/drawing/DeviceContext.hpp"
#include "platform/pictures/Codecs.hpp"

namespace mobrel {

namespace {

/// True where zimg is exact and lean: its weights have 14 bits, which a kernel of hundreds of pixels uses
/// up; it keeps all lines that a kernel meets; and it mirrors at an edge only once, which falls short for
/// a side of 1.
bool suitsGraph(int newSide, int oldSide) {
    constexpr int kLongestSide = 32767;
    constexpr int kMostShrinking = 16;
    return newSide > 1 && newSide <= kLongestSide && oldSide <= kLongestSide &&
           oldSide / newSide < kMostShrinking;
}

void scaleBicubic(DeviceContext& target, const DeviceContext& source) {
    const bool suits =
        suitsGraph(target.width(), source.width()) && suitsGraph(target.height(), source.height());
    if (!suits || !codecs().scaleByGraph(target, source)) scalePlainly(target, source);
}

}  // namespace

bool StretchDIB(cDIB& DIB, int NewWidth, int NewHeight, bool HighQuality) {
    if (DIB.hDIB() == nullptr) return false;
    if (HighQuality) codecs();  // a module that is missing is no shortage of memory
    std::optional<PixelBuffer> section = PixelBuffer::create(NewWidth, NewHeight);
    if (!section) return false;
    DeviceContext target(section->bits(), NewWidth, NewHeight, RowOrder::BottomUp);
    const DeviceContext& source = *DIB.hDIBDC();
    const bool isScaled = skipErrors([&] {
        if (HighQuality) {
            scaleBicubic(target, source);
        } else {
            target.StretchBlt(0, 0, NewWidth, NewHeight, source, 0, 0, DIB.Width(), DIB.Height());
        }
    });
    return isScaled && DIB.adopt(std::move(*section));
}

}  // namespace mobrel
