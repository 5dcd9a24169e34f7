// SPDX-License-Identifier: MIT
#include "platform/drawing/DeviceContext.hpp"

#include <hwy/cache_control.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <functional>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "platform/base/RuntimeError.hpp"
#include "platform/drawing/AxisMap.hpp"
#include "platform/drawing/ContextPixels.hpp"
#include "platform/drawing/PixelBuffer.hpp"
#include "platform/drawing/rearrange_vectors.hpp"

namespace mobrel {

namespace {

/// True when the map from a side to itself puts every pixel at its mirror image or where it was.
bool isMirrorOrIdentity(const AxisMap& map, int extent) {
    return map.sources.size() == static_cast<std::size_t>(extent) && (hasStep(map, 1) || hasStep(map, -1));
}

/// A source line, and the one that is wanted after it, which is loaded meanwhile: lines of a large picture
/// lie pages apart, where the processor starts too late.
struct SourceLine {
    const std::uint8_t* pixels;
    const std::uint8_t* next;
};

void gatherPixels(std::uint8_t* out, const SourceLine& line, std::span<const int> sources) {
    for (const int x : sources) {
        hwy::Prefetch(pixelAt(line.next, x));
        std::memcpy(out, pixelAt(line.pixels, x), kPixelBytes);
        out += kPixelBytes;
    }
}

/// Sets the target line's pixels from a source line in other memory.
void fitLine(std::uint8_t* out, const SourceLine& line, const AxisMap& columns,
             const std::optional<Repetition>& repeated) {
    std::span<const int> left(columns.sources);
    if (repeated) {
        gatherPixels(out, line, left.first(repeated->before));
        left = left.subspan(repeated->before);
        out += repeated->before * kPixelBytes;
        const std::size_t done =
            repeated->times *
            kernels::repeatPixels(pixelAt(line.pixels, left.front()), repeated->whole, repeated->times, out);
        left = left.subspan(done);
        out += done * kPixelBytes;
    }
    gatherPixels(out, line, left);
}

/// Fits the source to the target; the two share no memory. Target lines that take the same source line are
/// copies.
void copyPixels(DeviceContext& target, const DeviceContext& source, const AxisMap& columns,
                const AxisMap& rows) {
    const bool plain = hasStep(columns, 1);
    const auto repeated = repetitionOf(columns);
    const std::size_t count = rows.sources.size();
    const std::uint8_t* previous = nullptr;
    for (std::size_t i = 0; i < count; ++i) {
        std::uint8_t* out = pixelAt(target.line(rows.first + static_cast<int>(i)), columns.first);
        const std::uint8_t* line = source.line(rows.sources[i]);
        if (i > 0 && rows.sources[i] == rows.sources[i - 1]) {
            std::memcpy(out, previous, columns.bytes());
        } else if (plain) {
            std::memcpy(out, pixelAt(line, columns.sources.front()), columns.bytes());
        } else {
            fitLine(out, {line, source.line(rows.sources[std::min(i + 1, count - 1)])}, columns, repeated);
        }
        previous = out;
    }
}

/// Fits the source to a target on the same memory, from a copy of the block that is read.
void copyPixelsAside(DeviceContext& target, const DeviceContext& source, AxisMap columns, AxisMap rows) {
    const int left = columns.lowestSource();
    const int top = rows.lowestSource();
    const int width = columns.highestSource() - left + 1;
    const int height = rows.highestSource() - top + 1;
    auto buffer = PixelBuffer::create(width, height);
    if (!buffer) throw RuntimeError(ErrorNumber::OutOfMemory);
    DeviceContext block(buffer->bits(), width, height, RowOrder::TopDown);
    block.BitBlt(0, 0, width, height, source, left, top);
    for (int& x : columns.sources) x -= left;
    for (int& y : rows.sources) y -= top;
    copyPixels(target, block, columns, rows);
}

/// Moves a block within the surface, the lines in the order that reads each before it is written.
void moveBlock(DeviceContext& surface, const AxisMap& columns, const AxisMap& rows) {
    const int count = static_cast<int>(rows.sources.size());
    const int source = rows.sources.front();
    const bool downwards = rows.first > source;
    for (int i = 0; i < count; ++i) {
        const int y = downwards ? count - 1 - i : i;
        std::memmove(pixelAt(surface.line(rows.first + y), columns.first),
                     pixelAt(surface.line(source + y), columns.sources.front()), columns.bytes());
    }
}

void reverseLine(std::uint8_t* line, int width) {
    const auto done = static_cast<int>(kernels::mirrorPixels(line, static_cast<std::size_t>(width)));
    std::uint8_t* right = pixelAt(line, width - 1 - done);
    for (std::uint8_t* left = pixelAt(line, done); left < right; left += kPixelBytes, right -= kPixelBytes) {
        const std::uint32_t kept = readPixel(left);
        writePixel(left, readPixel(right));
        writePixel(right, kept);
    }
}

void reverseLineOrder(DeviceContext& surface) {
    const std::size_t bytes = static_cast<std::size_t>(surface.width()) * kPixelBytes;
    std::vector<std::uint8_t> kept(bytes);
    for (int top = 0, bottom = surface.height() - 1; top < bottom; ++top, --bottom) {
        std::memcpy(kept.data(), surface.line(top), bytes);
        std::memcpy(surface.line(top), surface.line(bottom), bytes);
        std::memcpy(surface.line(bottom), kept.data(), bytes);
    }
}

/// Mirrors the whole surface along the axes that run backwards.
void mirrorSurface(DeviceContext& surface, const AxisMap& columns, const AxisMap& rows) {
    if (columns.isReversed()) {
        for (int y = 0; y < surface.height(); ++y) reverseLine(surface.line(y), surface.width());
    }
    if (rows.isReversed()) reverseLineOrder(surface);
}

/// From the first byte to behind the last. Lines of a part have others' pixels between them.
std::pair<const std::uint8_t*, const std::uint8_t*> memoryOf(const DeviceContext& surface) {
    const std::uint8_t* top = surface.line(0);
    const std::uint8_t* bottom = surface.line(surface.height() - 1);
    const std::less<const std::uint8_t*> isBefore;
    const std::uint8_t* last = isBefore(top, bottom) ? bottom : top;
    return {isBefore(top, bottom) ? top : bottom, pixelAt(last, surface.width())};
}

}  // namespace

DeviceContext::DeviceContext(std::uint8_t* bits, int width, int height, RowOrder order) noexcept
    : m_topLine(bits), m_width(width), m_height(height), m_stride(std::ptrdiff_t{width} * 4) {
    if (order == RowOrder::TopDown || height == 0) return;
    m_topLine += (height - 1) * m_stride;
    m_stride = -m_stride;
}

void DeviceContext::BitBlt(int x, int y, int width, int height, const DeviceContext& source, int xSource,
                           int ySource) {
    StretchBlt(x, y, width, height, source, xSource, ySource, width, height);
}

void DeviceContext::StretchBlt(int x, int y, int width, int height, const DeviceContext& source, int xSource,
                               int ySource, int sourceWidth, int sourceHeight) {
    const AxisMap columns = mapAxis({x, width, m_width}, {xSource, sourceWidth, source.m_width});
    const AxisMap rows = mapAxis({y, height, m_height}, {ySource, sourceHeight, source.m_height});
    if (columns.empty() || rows.empty()) return;
    const bool same = isSameSurface(source);
    if (!sharesMemory(source)) {
        copyPixels(*this, source, columns, rows);
    } else if (same && hasStep(columns, 1) && hasStep(rows, 1)) {
        moveBlock(*this, columns, rows);
    } else if (same && isMirrorOrIdentity(columns, m_width) && isMirrorOrIdentity(rows, m_height)) {
        mirrorSurface(*this, columns, rows);
    } else {
        copyPixelsAside(*this, source, columns, rows);
    }
}

DeviceContext DeviceContext::part(const Rect& rect) noexcept {
    const Rect inside = intersection(rect, bounds());
    if (inside.isEmpty()) return {m_topLine, 0, 0, m_stride};
    return {pixelAt(line(inside.top), inside.left), inside.width(), inside.height(), m_stride};
}

bool DeviceContext::isSameSurface(const DeviceContext& other) const noexcept {
    return m_topLine == other.m_topLine && m_width == other.m_width && m_height == other.m_height &&
           m_stride == other.m_stride;
}

bool DeviceContext::sharesMemory(const DeviceContext& other) const noexcept {
    const auto [begin, end] = memoryOf(*this);
    const auto [otherBegin, otherEnd] = memoryOf(other);
    const std::less<const std::uint8_t*> isBefore;
    return isBefore(begin, otherEnd) && isBefore(otherBegin, end);
}

}  // namespace mobrel
