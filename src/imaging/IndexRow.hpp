// SPDX-License-Identifier: MIT
// Writes palette indices into a packed row.
#pragma once

#include <cstdint>

namespace mobrel {

/// A zeroed row of the index map at 1, 4 or 8 bits.
class IndexRow {
 public:
    IndexRow(std::uint8_t* row, int bits) : m_row(row), m_bits(bits) {}

    /// Column x, once per column. At 1 bit any index but 0 sets the bit.
    void put(int x, int index) {
        switch (m_bits) {
            case 8:
                m_row[x] = static_cast<std::uint8_t>(index);
                break;
            case 4:
                set(x / 2, x % 2 == 0 ? index << 4 : index);
                break;
            default:
                set(x / 8, index != 0 ? 0x80 >> x % 8 : 0);
                break;
        }
    }

 private:
    void set(int at, int bits) { m_row[at] = static_cast<std::uint8_t>(m_row[at] | bits); }

    std::uint8_t* m_row;
    int m_bits;
};

}  // namespace mobrel
