// SPDX-License-Identifier: MIT
#include "filters/kernels/rank.hpp"

namespace mobrel::kernels {

namespace {

// A neighbour more than one below p implies p > 0, and likewise above, so no sample leaves the byte.
int despeckled(int p, int a, int b) {
    p -= a < p - 1;
    p -= b < p - 1;
    p += a > p + 1;
    p += b > p + 1;
    return p;
}

}  // namespace

void despeckleRow(std::uint8_t* row, const std::uint8_t* a, const std::uint8_t* b, int count) {
    for (int i = 0; i < count; ++i, row += 4, a += 4, b += 4) {
        for (int channel = 0; channel < 3; ++channel) {
            row[channel] = static_cast<std::uint8_t>(despeckled(row[channel], a[channel], b[channel]));
        }
    }
}

}  // namespace mobrel::kernels
