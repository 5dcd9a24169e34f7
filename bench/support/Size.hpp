// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace mobrel::bench {

struct Size {
    int width = 0;
    int height = 0;

    bool operator==(const Size&) const = default;
    std::int64_t pixels() const { return std::int64_t{width} * height; }
    std::string toString() const { return std::to_string(width) + 'x' + std::to_string(height); }
};

}  // namespace mobrel::bench
