// SPDX-License-Identifier: MIT
#include "imaging/IndexRow.hpp"

#include <algorithm>

namespace mobrel {

namespace {

/// One byte of the row from its `count` indices; `bits` is 1 or 4.
std::uint8_t packed(const std::uint8_t* indices, int count, int bits) {
    int byte = 0;
    for (int i = 0; i < count; ++i) byte |= indices[i] << (8 - bits * (i + 1));
    return static_cast<std::uint8_t>(byte);
}

template <int kBits>
void packBelowByte(const std::uint8_t* indices, int width, std::uint8_t* row) {
    constexpr int kPerByte = 8 / kBits;
    int x = 0;
    for (; x + kPerByte <= width; x += kPerByte) *row++ = packed(indices + x, kPerByte, kBits);
    if (x < width) *row = packed(indices + x, width - x, kBits);
}

}  // namespace

void packIndices(const std::uint8_t* indices, int width, int bits, std::uint8_t* row) {
    switch (bits) {
        case 8:
            std::copy_n(indices, width, row);
            break;
        case 4:
            packBelowByte<4>(indices, width, row);
            break;
        default:
            packBelowByte<1>(indices, width, row);
            break;
    }
}

}  // namespace mobrel
