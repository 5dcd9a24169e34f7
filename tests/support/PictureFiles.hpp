// SPDX-License-Identifier: MIT
// What the tests of all picture formats share: reading from memory and from a pipe, writing to memory.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/pictures/ReadOptions.hpp"
#include "platform/system/BufferedSource.hpp"
#include "platform/system/Files.hpp"
#include "support/PictureChecks.hpp"
#include "support/TemporaryFolder.hpp"

namespace mobrel::test {

using Bytes = std::vector<std::uint8_t>;
using Colors = std::vector<std::uint32_t>;
using PictureReader = StdPicture (*)(BufferedSource&, const ReadOptions&);

/// What became of a file: a picture, or the reason why there is none.
struct Outcome {
    StdPicture picture;
    std::string failure;

    /// 0xRRGGBB, top line first.
    Colors colors() const {
        Colors colors;
        for (int row = picture.pixels.height(); row-- > 0;) {
            const std::uint8_t* p = picture.pixels.row(row);
            for (int x = 0; x < picture.pixels.width(); ++x, p += 4) {
                colors.push_back(static_cast<std::uint32_t>(p[0] | p[1] << 8 | p[2] << 16));
            }
        }
        return colors;
    }
};

inline Outcome readFrom(PictureReader reader, ByteSource&& source, const ReadOptions& options = {}) {
    BufferedSource buffered(source);
    try {
        return {reader(buffered, options), ""};
    } catch (const PictureError& error) {
        return {{}, error.what()};
    }
}

/// Reads the file from memory. Read from a pipe, it must fare the same.
inline Outcome readBytes(PictureReader reader, const Bytes& bytes, const ReadOptions& options = {}) {
    Outcome outcome = readFrom(reader, MemorySource(bytes), options);
    const Outcome piped = readFrom(reader, PipeSource(bytes), options);
    EXPECT_EQ(piped.failure, outcome.failure);
    EXPECT_EQ(piped.colors(), outcome.colors());
    EXPECT_EQ(outcome.failure.empty() ? flawOf(outcome.picture) : "", "");
    return outcome;
}

/// Every beginning of the file that is not the whole must be refused.
inline void expectNoPartIsRead(PictureReader reader, const Bytes& whole) {
    EXPECT_EQ(readBytes(reader, whole).failure, "");
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const Bytes part(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
        EXPECT_NE(readBytes(reader, part).failure, "") << length << " of " << whole.size();
    }
}

/// The bytes that `write` puts into a file.
template <typename Write>
Bytes bytesOf(Write&& write) {
    const TemporaryFolder folder;
    FileWriter file = FileWriter::replace(folder.file("picture"));
    write(file);
    file.close();
    const std::string text = folder.read("picture");
    return {text.begin(), text.end()};
}

}  // namespace mobrel::test
