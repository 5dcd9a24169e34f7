// SPDX-License-Identifier: MIT
// The surface, what is drawn on it and with it, and its turns.
#include "imaging/CDIBb.hpp"

#include <algorithm>
#include <utility>

#include "platform/Numbers.hpp"

namespace mobrel {

namespace {

constexpr std::size_t kPixelBytes = 3;

void checkOperation(RasterOperation operation) {
    if (operation != RasterOperation::SrcCopy) throw RuntimeError(ErrorNumber::InvalidCall);
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
    checkOperation(Operation);
    if (DeviceContext* target = hdc()) target->BitBlt(0, 0, m_width, m_height, hSrcDC, x, y);
}

void CDIBb::PaintTo(DeviceContext& hDstDC, int x, int y, RasterOperation Operation) {
    checkOperation(Operation);
    if (const DeviceContext* source = hdc()) hDstDC.BitBlt(x, y, m_width, m_height, *source, 0, 0);
}

void CDIBb::PaintZoom(DeviceContext& hDstDC, int x, int y, int Percent, RasterOperation Operation) {
    checkOperation(Operation);
    const double factor = Percent * 0.01;
    const DeviceContext* source = hdc();
    if (source == nullptr) return;
    hDstDC.StretchBlt(x, y, roundInt(m_width * factor), roundInt(m_height * factor), *source, 0, 0, m_width,
                      m_height);
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
