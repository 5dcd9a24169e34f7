// SPDX-License-Identifier: MIT
#include "files_bench.hpp"

#include <zimg.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "imaging/cDIBDither.hpp"
#include "imaging/cDIBPal.hpp"
#include "imaging/cDIBSave.hpp"
#include "imaging/mGDIpEx.hpp"
#include "platform/pictures/PictureReader.hpp"
#include "support/PictureBench.hpp"
#include "support/TestPictures.hpp"

namespace mobrel::bench {
namespace {

using test::Picture;

/// A picture whose pixel (x, y) is the old one's `placeOf`(x, y), both counted in memory order.
template <typename PlaceOf>
void rearrange(cDIB& picture, int width, int height, PlaceOf placeOf) {
    const Picture old = test::fromSurface(picture);
    Picture rearranged(width, height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const auto [oldX, oldY] = placeOf(x, y);
            rearranged.at(x, y) = old.at(oldX, oldY);
        }
    }
    test::toSurface(rearranged, picture);
}

std::vector<PictureOperation> orientations() {
    const auto pair = [](int x, int y) { return std::pair(x, y); };
    return {
        {"orientation", "Orientation_FlipH", [](cDIB& picture) { picture.Orientation(false, true, false); },
         [=](cDIB& picture) {
             const int right = picture.Width() - 1;
             rearrange(picture, picture.Width(), picture.Height(),
                       [=](int x, int y) { return pair(right - x, y); });
         }},
        {"orientation", "Orientation_FlipV", [](cDIB& picture) { picture.Orientation(false, false, true); },
         [=](cDIB& picture) {
             const int top = picture.Height() - 1;
             rearrange(picture, picture.Width(), picture.Height(),
                       [=](int x, int y) { return pair(x, top - y); });
         }},
        {"orientation", "Orientation_Rotate90",
         [](cDIB& picture) { picture.Orientation(true, false, false); },
         [=](cDIB& picture) {
             // rows of memory run upwards, so what was a row becomes a column from the right
             const int top = picture.Height() - 1;
             rearrange(picture, picture.Height(), picture.Width(),
                       [=](int x, int y) { return pair(y, top - x); });
         }}};
}

/// One channel as a plane of words that zimg's plain kernels scale.
class Plane {
 public:
    Plane(int width, int height)
        : m_width(static_cast<unsigned>(width)),
          m_height(static_cast<unsigned>(height)),
          m_stride((m_width * sizeof(std::uint16_t) + kAlignment - 1) / kAlignment * kAlignment),
          m_words(memoryOf(m_stride * m_height)) {}

    std::uint16_t& at(int x, int y) {
        const auto row = static_cast<std::size_t>(y) * (m_stride / sizeof(std::uint16_t));
        return static_cast<std::uint16_t*>(m_words.get())[row + static_cast<std::size_t>(x)];
    }

    void scaleTo(Plane& target) const {
        zimg_graph_builder_params params;
        zimg_graph_builder_params_default(&params, ZIMG_API_VERSION);
        params.resample_filter = ZIMG_RESIZE_BICUBIC;
        params.filter_param_a = 0.0;
        params.filter_param_b = 0.5;
        params.cpu_type = ZIMG_CPU_NONE;
        const zimg_image_format from = format();
        const zimg_image_format to = target.format();
        const std::unique_ptr<zimg_filter_graph, void (*)(zimg_filter_graph*)> graph(
            zimg_filter_graph_build(&from, &to, &params), zimg_filter_graph_free);
        std::size_t workBytes = 0;
        if (graph == nullptr || zimg_filter_graph_get_tmp_size(graph.get(), &workBytes) != 0) {
            throw std::runtime_error("no graph");
        }
        const Memory work = memoryOf(workBytes);
        zimg_image_buffer_const in{};
        in.version = ZIMG_API_VERSION;
        in.plane[0] = {m_words.get(), static_cast<std::ptrdiff_t>(m_stride), ZIMG_BUFFER_MAX};
        zimg_image_buffer out{};
        out.version = ZIMG_API_VERSION;
        out.plane[0] = {target.m_words.get(), static_cast<std::ptrdiff_t>(target.m_stride), ZIMG_BUFFER_MAX};
        if (zimg_filter_graph_process(graph.get(), &in, &out, work.get(), nullptr, nullptr, nullptr,
                                      nullptr) != 0) {
            throw std::runtime_error("not scaled");
        }
    }

 private:
    static constexpr std::size_t kAlignment = 64;
    using Memory = std::unique_ptr<void, void (*)(void*)>;

    static Memory memoryOf(std::size_t bytes) {
        const std::size_t whole = (bytes / kAlignment + 1) * kAlignment;
        Memory memory(std::aligned_alloc(kAlignment, whole), std::free);
        if (memory == nullptr) throw std::bad_alloc();
        return memory;
    }

    zimg_image_format format() const {
        zimg_image_format format;
        zimg_image_format_default(&format, ZIMG_API_VERSION);
        format.width = m_width;
        format.height = m_height;
        format.pixel_type = ZIMG_PIXEL_WORD;
        format.depth = 16;
        format.pixel_range = ZIMG_RANGE_FULL;
        format.color_family = ZIMG_COLOR_GREY;
        return format;
    }

    unsigned m_width;
    unsigned m_height;
    std::size_t m_stride;
    Memory m_words;
};

int quarterOf(int side) {
    return std::max(side / 4, 2);
}

/// Channel by channel, whole planes of 128 v + 16448 each.
void scalePlainly(cDIB& picture) {
    const Picture old = test::fromSurface(picture);
    Picture scaled(quarterOf(old.width), quarterOf(old.height));
    for (const std::size_t channel : test::kChannels) {
        Plane from(old.width, old.height);
        Plane to(scaled.width, scaled.height);
        for (int y = 0; y < old.height; ++y) {
            for (int x = 0; x < old.width; ++x) {
                from.at(x, y) = static_cast<std::uint16_t>(128 * old.sample(x, y, channel) + 16448);
            }
        }
        from.scaleTo(to);
        for (int y = 0; y < scaled.height; ++y) {
            for (int x = 0; x < scaled.width; ++x) {
                const int value = (to.at(x, y) - 16448 + 64) >> 7;
                scaled.at(x, y)[channel] = static_cast<std::uint8_t>(std::clamp(value, 0, 255));
            }
        }
    }
    test::toSurface(scaled, picture);
}

PictureOperation stretch() {
    return {"scaling", "StretchDIB_quarter",
            [](cDIB& picture) {
                StretchDIB(picture, quarterOf(picture.Width()), quarterOf(picture.Height()), true);
            },
            scalePlainly};
}

/// A file that stands in memory where the system has a folder for that. Goes with its owner.
class BenchFile {
 public:
    BenchFile() : m_path((folder() / "mobrel-bench-XXXXXX").string()) {
        if (::mkdtemp(m_path.data()) == nullptr) throw std::runtime_error("no temporary folder");
    }
    BenchFile(const BenchFile&) = delete;
    BenchFile& operator=(const BenchFile&) = delete;
    ~BenchFile() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }

    std::string path() const { return m_path + "/picture.bmp"; }

    void remove() const { std::filesystem::remove(path()); }

    void write(std::string_view bytes) const {
        std::ofstream stream(path(), std::ios::binary | std::ios::trunc);
        stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        if (!stream.flush()) throw std::runtime_error("cannot write " + path());
    }

    std::string read() const {
        std::ifstream stream(path(), std::ios::binary);
        std::string bytes(std::filesystem::file_size(path()), '\0');
        if (!stream.read(bytes.data(), static_cast<std::streamsize>(bytes.size()))) {
            throw std::runtime_error("cannot read " + path());
        }
        return bytes;
    }

 private:
    static std::filesystem::path folder() {
        const std::filesystem::path inMemory = "/dev/shm";
        std::error_code none;
        return std::filesystem::is_directory(inMemory, none) ? inMemory
                                                             : std::filesystem::temp_directory_path();
    }

    std::string m_path;
};

void append(std::string& bytes, std::uint32_t value, int count) {
    for (; count > 0; --count, value >>= 8) bytes += static_cast<char>(value & 0xFF);
}

/// The picture as a file of 24 bits, byte by byte.
std::string plainFileOf(const cDIB& picture) {
    const auto width = static_cast<std::uint32_t>(picture.Width());
    const auto height = static_cast<std::uint32_t>(picture.Height());
    const std::uint32_t padding = width % 4;
    std::string bytes = "BM";
    append(bytes, 40 + (width * 3 + padding) * height, 4);
    append(bytes, 0, 4);
    append(bytes, 54, 4);
    append(bytes, 40, 4);
    append(bytes, width, 4);
    append(bytes, height, 4);
    append(bytes, 1, 2);
    append(bytes, 24, 2);
    bytes.append(24, '\0');
    const std::uint8_t* pixel = picture.DIBitsPtr();
    for (std::uint32_t y = 0; y < height; ++y) {
        for (std::uint32_t x = 0; x < width; ++x, pixel += 4) {
            for (std::size_t channel = 0; channel < 3; ++channel) append(bytes, pixel[channel], 1);
        }
        bytes.append(padding, '\0');
    }
    return bytes;
}

void wipe(cDIB& picture) {
    std::memset(picture.DIBitsPtr(), 0, static_cast<std::size_t>(picture.Size()));
}

/// Lays bytes over the picture, as far as they fit, and their number over its last pixel.
void keep(cDIB& picture, std::string_view bytes) {
    wipe(picture);
    const auto room = static_cast<std::size_t>(picture.Size()) - sizeof(std::size_t);
    const std::size_t size = bytes.size();
    std::memcpy(picture.DIBitsPtr(), bytes.data(), std::min(room, size));
    std::memcpy(picture.DIBitsPtr() + room, &size, sizeof size);
}

/// A new file; to delete an old one is no part of it.
PictureOperation save(const std::shared_ptr<BenchFile>& file) {
    return {"files",
            "Save_BMP",
            [file](cDIB& picture) { cDIBSave().Save_BMP(file->path(), picture, cDIBPal(), nullptr, 24); },
            [](cDIB& picture) { keep(picture, plainFileOf(picture)); },
            [file](cDIB&) { file->remove(); },
            [file](cDIB& picture) { keep(picture, file->read()); }};
}

PictureOperation load(const std::shared_ptr<BenchFile>& file) {
    return {"files", "Load_BMP",
            [file](cDIB& picture) {
                cDIBPal palette;
                picture.CreateFromStdPicture(readPictureFile(file->path()), palette, nullptr);
            },
            [](cDIB&) {},  // what was saved comes back
            [file](cDIB& picture) {
                file->write(plainFileOf(picture));
                wipe(picture);
            }};
}

}  // namespace

std::vector<PictureOperation> fileOperations() {
    std::vector<PictureOperation> operations = orientations();
    operations.push_back(stretch());
    const auto file = std::make_shared<BenchFile>();
    operations.push_back(save(file));
    operations.push_back(load(file));
    return operations;
}

}  // namespace mobrel::bench
