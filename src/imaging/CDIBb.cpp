// SPDX-License-Identifier: MIT
// The surface, what is drawn on it and with it, and its turns.
#include "imaging/CDIBb.hpp"

#include <algorithm>
#include <utility>

#include "platform/base/Numbers.hpp"

namespace mobrel {

namespace {

constexpr std::size_t kPixelBytes = 3;

/// Bit 2 S + D of an operation's result for the bits S of the source and D of the destination. Bits 16 to 23
/// of its code are that table twice, without and with the pattern's bit. Error 5 where the two differ.
unsigned truthTable(RasterOperation operation) {
    const unsigned code = static_cast<std::uint32_t>(operation) >> 16 & 0xFF;
    if (code >> 4 != (code & 15)) throw RuntimeError(ErrorNumber::InvalidCall);
    return code & 15;
}

std::uint8_t combined(unsigned table, unsigned s, unsigned d) {
    unsigned result = 0;
    if (table & 1) result |= ~s & ~d;
    if (table & 2) result |= ~s & d;
    if (table & 4) result |= s & ~d;
    if (table & 8) result |= s & d;
    return static_cast<std::uint8_t>(result);
}

/// Draws over the target by the operation. What is not a plain copy is drawn aside first: there, the
/// pixels that were reached have the 0 of every picture in byte 3.
template <typename Draw>
void drawOver(DeviceContext& target, RasterOperation operation, Draw draw) {
    const unsigned table = truthTable(operation);
    if (operation == RasterOperation::SrcCopy) return draw(target);
    auto aside = PixelBuffer::create(target.width(), target.height());
    if (!aside) throw RuntimeError(ErrorNumber::OutOfMemory);
    std::fill_n(aside->bits(), aside->bytesPerRow() * static_cast<std::size_t>(aside->height()),
                std::uint8_t{0xFF});
    DeviceContext source(aside->bits(), aside->width(), aside->height(), RowOrder::TopDown);
    draw(source);
    for (int y = 0; y < target.height(); ++y) {
        const std::uint8_t* from = source.line(y);
        std::uint8_t* to = target.line(y);
        for (int x = 0; x < target.width(); ++x, from += 4, to += 4) {
            if (from[3] != 0) continue;
            for (int channel = 0; channel < 3; ++channel) {
                to[channel] = combined(table, from[channel], to[channel]);
            }
        }
    }
}

void reversePixels(std::uint8_t* first, std::size_t count) {
    if (count == 0) return;
    std::uint8_t* last = first + (count - 1) * kPixelBytes;
    for (; first < last; first += kPixelBytes, last -= kPixelBytes) {
        std::swap_ranges(first, first + kPixelBytes, last);
    }
}

int characterCount(std::string_view utf8) {
    return static_cast<int>(std::ranges::count_if(utf8, [](char byte) { return (byte & 0xC0) != 0x80; }));
}

}  // namespace

void CDIBb::Create(int NewWidth, int NewHeight) {
    m_target.reset();
    m_drawing = PixelBuffer();
    m_section = PixelBuffer();
    m_width = 0;
    m_height = 0;
    m_section = makeSection(NewWidth, NewHeight);
    m_width = NewWidth;
    m_height = NewHeight;
}

void CDIBb::Clone(const StdPicture& Picture, bool CreateNew) {
    if (CreateNew) Create(Picture.pixels.width(), Picture.pixels.height());
    DeviceContext* target = hdc();
    if (target == nullptr) throw CDIBbError::notCreated();
    if (Picture.objectType != ObjectType::Bitmap || Picture.pixels.empty()) return;
    const int width = Picture.pixels.width();
    const int height = Picture.pixels.height();
    // The target over the picture is only read.
    const DeviceContext source(const_cast<std::uint8_t*>(Picture.pixels.bits()), width, height,
                               RowOrder::BottomUp);
    target->StretchBlt(0, 0, m_width, m_height, source, 0, 0, width, height);
}

void CDIBb::CloneHDC(const DeviceContext& hSrcDC, RasterOperation Operation, int x, int y) {
    DeviceContext* target = hdc();
    if (target == nullptr) return;
    drawOver(*target, Operation,
             [&](DeviceContext& over) { over.BitBlt(0, 0, m_width, m_height, hSrcDC, x, y); });
}

void CDIBb::PaintTo(DeviceContext& hDstDC, int x, int y, RasterOperation Operation) {
    const DeviceContext* source = hdc();
    if (source == nullptr) return;
    drawOver(hDstDC, Operation,
             [&](DeviceContext& over) { over.BitBlt(x, y, m_width, m_height, *source, 0, 0); });
}

void CDIBb::PaintZoom(DeviceContext& hDstDC, int x, int y, int Percent, RasterOperation Operation) {
    const double factor = Percent * 0.01;
    const DeviceContext* source = hdc();
    if (source == nullptr) return;
    const int width = roundInt(m_width * factor);
    const int height = roundInt(m_height * factor);
    drawOver(hDstDC, Operation, [&](DeviceContext& over) {
        over.StretchBlt(x, y, width, height, *source, 0, 0, m_width, m_height);
    });
}

void CDIBb::Cls() {
    std::ranges::fill(bytes(), std::uint8_t{0});
}

int CDIBb::MapArray(MappedBytes& Bytes) {
    const int bytesOfRow = div(RGBSize(), m_height);
    Bytes.m_bytes = bytes();
    return bytesOfRow;
}

DeviceContext* CDIBb::hdc() {
    if (m_section.empty()) return nullptr;
    if (m_target) return &*m_target;
    auto drawing = PixelBuffer::create(m_width, m_height);
    if (!drawing) throw RuntimeError(ErrorNumber::OutOfMemory);
    for (int row = 0; row < m_height; ++row) {
        const std::uint8_t* from = m_section.row(row);
        std::uint8_t* to = drawing->row(row);
        for (int x = 0; x < m_width; ++x, from += kPixelBytes, to += 4) std::copy_n(from, kPixelBytes, to);
    }
    m_drawing = std::move(*drawing);
    return &m_target.emplace(m_drawing.bits(), m_width, m_height, RowOrder::BottomUp);
}

void CDIBb::PrintTxt(std::string_view Text, int x, int y) {
    DeviceContext* target = hdc();
    if (target == nullptr) return;
    DrawText.raise(*target, Text, {x, y, wrapAdd(x, wrapMul(characterCount(Text), 16)), wrapAdd(y, 50)});
}

/// Told by memory rows, counted from the bottom: row a, column b goes to row b, column Height - 1 - a.
void CDIBb::RotatePic() {
    if (bytes().empty()) return;
    PixelBuffer turned = makeSection(m_height, m_width);
    for (int a = 0; a < m_height; ++a) {
        const std::uint8_t* from = m_section.row(a);
        const std::size_t column = static_cast<std::size_t>(m_height - 1 - a) * kPixelBytes;
        for (int b = 0; b < m_width; ++b, from += kPixelBytes) {
            std::copy_n(from, kPixelBytes, turned.row(b) + column);
        }
    }
    m_section = std::move(turned);
    std::swap(m_width, m_height);
}

void CDIBb::FlipHorZ() {
    if (bytes().empty()) return;
    for (int row = 0; row < m_height; ++row) {
        reversePixels(m_section.row(row), static_cast<std::size_t>(m_width));
    }
}

void CDIBb::FastRot() {
    const std::span<std::uint8_t> memory = bytes();
    reversePixels(memory.data(), memory.size() / kPixelBytes);
}

void CDIBb::FlipVert() {
    if (bytes().empty()) return;
    // A row is a whole number of words, so the rows change places as those of a 32-bit picture do.
    const int words = m_section.width();
    DeviceContext rows(m_section.bits(), words, m_height, RowOrder::BottomUp);
    rows.StretchBlt(0, m_height - 1, words, -m_height, rows, 0, 0, words, m_height);
}

PixelBuffer CDIBb::makeSection(int width, int height) {
    // The size must fit a drawing target too, which has 4 bytes a pixel.
    if (!PixelBuffer::isValidSize(width, height)) throw CDIBbError::createFailed();
    auto section = PixelBuffer::create(static_cast<int>(packedStride(width, 24) / 4), height);
    if (!section) throw CDIBbError::createFailed();
    return std::move(*section);
}

/// The memory, with all that was drawn. Every operation on the memory begins here.
std::span<std::uint8_t> CDIBb::bytes() {
    if (m_target) takeDrawing();
    return {m_section.bits(), static_cast<std::size_t>(RGBSize())};
}

void CDIBb::takeDrawing() noexcept {
    for (int row = 0; row < m_height; ++row) {
        const std::uint8_t* from = m_drawing.row(row);
        std::uint8_t* to = m_section.row(row);
        for (int x = 0; x < m_width; ++x, from += 4, to += kPixelBytes) std::copy_n(from, kPixelBytes, to);
    }
    m_target.reset();
    m_drawing = PixelBuffer();
}

}  // namespace mobrel
