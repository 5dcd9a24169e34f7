// SPDX-License-Identifier: MIT
// A 24-bit surface with a row of ready-made whole-picture effects.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "platform/base/Event.hpp"
#include "platform/base/RuntimeError.hpp"
#include "platform/drawing/DeviceContext.hpp"
#include "platform/drawing/PixelBuffer.hpp"
#include "platform/pictures/StdPicture.hpp"

namespace mobrel {

/// What becomes of the pixels that are drawn over, by the platform's codes. These are the usual ones; any
/// code that combines source and destination without a pattern is understood.
///
/// Source: Microsoft, "Ternary raster operations".
enum class RasterOperation : std::uint32_t {
    Blackness = 0x00000042,
    NotSrcErase = 0x001100A6,
    NotSrcCopy = 0x00330008,
    SrcErase = 0x00440328,
    DstInvert = 0x00550009,
    SrcInvert = 0x00660046,
    SrcAnd = 0x008800C6,
    MergePaint = 0x00BB0226,
    SrcCopy = 0x00CC0020,
    SrcPaint = 0x00EE0086,
    Whiteness = 0x00FF0062,
};

/// An error with a number and a text of CDIBb's own.
class CDIBbError : public RuntimeError {
 public:
    /// The surface cannot be made.
    static CDIBbError createFailed() {
        return {825, "DIB failed to create\nPlease restart your system and try again"};
    }
    /// There is no surface to draw on.
    static CDIBbError notCreated() { return {-1, "DIB has to be created first"}; }

    const char* what() const noexcept override { return m_text; }

 private:
    CDIBbError(int number, const char* text) : RuntimeError(static_cast<ErrorNumber>(number)), m_text(text) {}

    const char* m_text;
};

/// A borrowed array of bytes that counts from 1. It has none until CDIBb::MapArray lays it over pixels.
class MappedBytes {
 public:
    int upperBound() const noexcept { return static_cast<int>(m_bytes.size()); }

    /// Error 9 for an index outside 1 to upperBound.
    std::uint8_t& operator[](int index) const {
        if (index < 1 || index > upperBound()) throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
        return m_bytes[static_cast<std::size_t>(index) - 1];
    }

 private:
    friend class CDIBb;
    std::span<std::uint8_t> m_bytes;
};

/// A picture of 3 bytes a pixel (blue, green, red), bottom row first, rows rounded up to 4 bytes.
///
/// Effects marked "flat" walk the memory from its first byte to its last but one in steps of 3,
/// whatever the rows: where a row's bytes are no multiple of 4 the walk goes through the padding and the
/// channels shift from row to row. Bytes behind the end of the memory read as 0 and are not written. The
/// other effects keep to the pixels of each row. r, g, b are the components of one pixel; a component's
/// new value is used by those told after it only where the text says "new".
///
/// Empty until Create; on an empty surface an operation does nothing, unless it names an error.
class CDIBb {
 public:
    CDIBb() = default;
    CDIBb(const CDIBb&) = delete;
    CDIBb& operator=(const CDIBb&) = delete;

    /// Raised by PrintTxt, for whoever has fonts: to draw the text into the rectangle of the target.
    Event<DeviceContext&, std::string_view, const Rect&> DrawText;

    /// Makes the surface anew, all zero; the earlier one is gone in any case. CDIBbError 825, and an empty
    /// surface of 0 x 0, when a side is below 1, when 4 bytes for each pixel would be 2^31 or more, or when
    /// memory is short.
    void Create(int NewWidth, int NewHeight);

    /// Fits the picture to the whole surface, nearest neighbour; with CreateNew the surface is made at the
    /// picture's size first. CDIBbError -1 without a surface, 825 as Create. What is no bitmap draws nothing.
    void Clone(const StdPicture& Picture, bool CreateNew);
    /// Copies the block of the surface's size at (x, y) of a target to (0, 0). Here and in the two below,
    /// error 5 for an operation with a pattern, and error 7 when memory is short.
    void CloneHDC(const DeviceContext& hSrcDC, RasterOperation Operation, int x, int y);

    /// Copies the surface to (x, y) of a target.
    void PaintTo(DeviceContext& hDstDC, int x, int y, RasterOperation Operation);
    /// The same at `Percent` hundredths of its size, each side rounded to nearest, ties to even. A negative
    /// percentage draws the half turn, leftwards and upwards from (x, y).
    void PaintZoom(DeviceContext& hDstDC, int x, int y, int Percent, RasterOperation Operation);

    /// Zeroes the memory.
    void Cls();

    /// Bytes of the memory, padding included.
    int RGBSize() const noexcept { return static_cast<int>(packedStride(m_width, 24)) * m_height; }
    int Width() const noexcept { return m_width; }
    int Height() const noexcept { return m_height; }

    /// Lays the array over the memory and gives the bytes of a row. The array is dead after Create, Clone
    /// with CreateNew, RotatePic and the end of the surface. Error 11 on an empty surface.
    int MapArray(MappedBytes& Bytes);
    /// Takes the view away.
    void UnMapArray(MappedBytes& Bytes) const noexcept { Bytes.m_bytes = {}; }

    /// Lends a drawing target over the picture; null when the surface is empty. A target has 4 bytes a
    /// pixel, so it stands on a copy, and what is drawn on it comes into the memory with the next operation
    /// that reads or changes the memory. The target is dead from then on. Error 7 when memory is short.
    DeviceContext* hdc();

    /// Flat: adds to the components, limited to 0 to 255.
    void ShiftColors(int R, int G, int B);
    /// The same, without the pixels of the colour Except.
    void ShiftColorsEx(int R, int G, int B, Color Except);
    /// Flat: 1 moves b to g, g to r, r to b; 2 moves g to b, b to r, r to g; 3 exchanges r and b. Any
    /// other mode does nothing.
    void ExchangeRGB(int Mode);

    /// A quarter turn counter-clockwise: (x, y) goes to (y, Width - 1 - x). CDIBbError 825, and the picture
    /// as it was, when memory is short.
    void RotatePic();
    /// Mirrors left to right.
    void FlipHorZ();

    /// Has the text drawn in a rectangle at (x, y), 16 pixels wide for each character, 50 high. Text is
    /// UTF-8. Draws nothing while DrawText is connected to nothing. Error 7 when memory is short.
    void PrintTxt(std::string_view Text, int x, int y);

    /// Flat: each component becomes component - the same one at an offset + Level, by the clamp below.
    /// The offset is 3 bytes, Diagonal a row and 3 bytes. With Grey, all three then become their mean,
    /// truncated.
    void MakeEmboss(int Level, bool Diagonal, bool Grey);

    /// Flat: the pixels in reversed order, a half turn. Bytes at the end that fill no pixel stay.
    void FastRot();

    /// Flat: (r + g + b) / 3, truncated, for all three.
    void Greyscale();
    /// ShiftColors with Level for all three.
    void Brightness(int Level);
    /// Mirrors top to bottom, padding included.
    void FlipVert();
    /// Flat: 255 - c.
    void InvertColors();
    /// Takes each channel whose flag is false to 0.
    void FilterOutColors(bool R, bool G, bool B);

    /// Blacks out, padding included, every n-th row from the bottom one on, n being 100 / Percent rounded to
    /// nearest, ties to even, and 1 where that gives 0. Nothing for a Percent of 0 or below.
    void ScanLines(int Percent);
    /// Flat: black where (r + g + b) / 3 is below Threshold, else white.
    void Monochrome(int Threshold);

    /// The mean, truncated, of the square of 2 x Radius + 1 pixels a side, as far as it lies in the picture.
    /// Nothing for a Radius below 1.
    void DynamicBlur(int Radius);
    /// Each component becomes the mean, truncated, of itself and of the one to the right; the last pixel of
    /// a row stays.
    void FastBlur();

    /// Mixes in the other picture, top left on top left, where both have pixels: (c (255 - Alpha) + s Alpha)
    /// / 255, truncated, s being the other's component. Alpha is limited to 0 to 255. Error 7 when memory is
    /// short.
    void AlphaBlend(const DeviceContext& Source, int Alpha);

    /// Flat: 2 c - the same component of the next pixel in memory, by the clamp below.
    void Sharpen();

    /// Flat: brightness s = r + g + b as a glow from black by red and yellow to white: r = s, g = s - 255,
    /// b = s - 510, each limited to 0 to 255.
    void Flame();
    /// Flame with blue and red exchanged: from black by blue and cyan to white.
    void Freeze();
    /// Flat: r = g b / 256, then g = new r b / 256, then b = new r new g / 256, each rounded to nearest, ties
    /// to even.
    void Brown();
    /// Flat: the squared difference of the other two, / 128, truncated, at most 255.
    void Aqua();
    /// Flat: r = |r - 64|, then g and b = |new r - 64|.
    void NightShade();
    /// Flat: r = r / 2 + g, g = g / 2 + b, then b = b / 2 + new r, halves truncated, each at most 255.
    void PurpleStain();
    /// Flat: g = g / 2 + r, b = b / 2 + r, halves truncated, each at most 255.
    void Spooky();
    /// Flat: |1.2 (sum of the other two) - 1.4 c|, rounded, at most 255. Greys stay.
    void Psycho();

 private:
    static PixelBuffer makeSection(int width, int height);
    /// A value above 255 gives 255. kept: one below 0 leaves the destination as it is, which in each use is
    /// what the clamp before it wrote, for the channels in the order blue, green, red; 0 at first.
    static void clamp(std::int32_t value, std::uint8_t& destination) noexcept;

    std::size_t rowBytes() const noexcept { return m_section.bytesPerRow(); }
    std::span<std::uint8_t> bytes();
    void takeDrawing() noexcept;

    int m_width = 0;
    int m_height = 0;
    PixelBuffer m_section;  // the memory, a row counted in words of 4 bytes
    PixelBuffer m_drawing;  // what m_target draws on
    std::optional<DeviceContext> m_target;
};

}  // namespace mobrel
