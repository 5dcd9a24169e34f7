// SPDX-License-Identifier: MIT
#include "platform/base/RandomSource.hpp"

#include "platform/base/random_vectors.hpp"

namespace mobrel {

void RandomSource::draw(std::span<std::uint32_t> bits) {
    const std::size_t done = drawNumbers(m_counter, bits.data(), bits.size());
    m_counter += done * splitmix::kStep;
    for (std::uint32_t& number : bits.subspan(done)) number = bitsOf(m_counter += splitmix::kStep);
}

RandomSource& processRandomSource() {
    static RandomSource source;
    return source;
}

}  // namespace mobrel
