// SPDX-License-Identifier: MIT
#include "platform/drawing/scaling/BicubicGraph.hpp"

#include <zimg.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <new>

#include "platform/base/Numbers.hpp"
#include "platform/drawing/scaling/plane_vectors.hpp"

namespace mobrel {

namespace {

constexpr std::size_t kAlignment = 64;
constexpr std::size_t kPlanes = 3;
constexpr std::size_t kPixelBytes = 4;

using kernels::kFractionBits;
using kernels::kZero;

struct FreeGraph {
    void operator()(zimg_filter_graph* graph) const noexcept { zimg_filter_graph_free(graph); }
};
using Graph = std::unique_ptr<zimg_filter_graph, FreeGraph>;

struct FreeMemory {
    void operator()(void* memory) const noexcept { std::free(memory); }
};
using Memory = std::unique_ptr<void, FreeMemory>;

std::size_t aligned(std::size_t bytes) {
    return (bytes + kAlignment - 1) / kAlignment * kAlignment;
}

Memory alignedMemory(std::size_t bytes) {
    Memory memory(std::aligned_alloc(kAlignment, aligned(std::max(bytes, kAlignment))));
    if (memory == nullptr) throw std::bad_alloc();
    return memory;
}

zimg_image_format imageFormat(const DeviceContext& picture) {
    zimg_image_format format;
    zimg_image_format_default(&format, ZIMG_API_VERSION);
    format.width = static_cast<unsigned>(picture.width());
    format.height = static_cast<unsigned>(picture.height());
    format.pixel_type = ZIMG_PIXEL_WORD;
    format.depth = 16;
    format.pixel_range = ZIMG_RANGE_FULL;
    format.color_family = ZIMG_COLOR_RGB;
    format.matrix_coefficients = ZIMG_MATRIX_RGB;
    return format;
}

Graph buildGraph(const DeviceContext& target, const DeviceContext& source, ZimgKernels kernels) {
    const zimg_image_format from = imageFormat(source);
    const zimg_image_format to = imageFormat(target);
    zimg_graph_builder_params params;
    zimg_graph_builder_params_default(&params, ZIMG_API_VERSION);
    params.resample_filter = ZIMG_RESIZE_BICUBIC;
    params.filter_param_a = 0.0;  // b and c of Catmull and Rom; the default is another kernel
    params.filter_param_b = 0.5;
    // Not AUTO_64B: the 64-byte kernels of zimg 3.0.4 get single columns wrong at ratios like 41 to 17.
    params.cpu_type = kernels == ZimgKernels::PlainC ? ZIMG_CPU_NONE : ZIMG_CPU_AUTO;
    return Graph(zimg_filter_graph_build(&from, &to, &params));
}

/// The lines of three planes that zimg holds at a time, where line i has the place i & mask.
class LineWindow {
 public:
    /// `lines` is zimg's number, which may tell of the whole picture.
    LineWindow(unsigned lines, const DeviceContext& picture) : m_mask(zimg_select_buffer_mask(lines)) {
        const auto height = static_cast<std::size_t>(picture.height());
        const std::size_t kept = m_mask == ZIMG_BUFFER_MAX ? height : std::size_t{m_mask} + 1;
        m_stride = aligned(static_cast<std::size_t>(picture.width()) * sizeof(std::uint16_t));
        m_planeBytes = m_stride * kept;
        m_memory = alignedMemory(m_planeBytes * kPlanes);
    }

    /// Line i of each plane from a column on.
    kernels::PlaneLines<std::uint16_t> lines(unsigned i, unsigned left) const {
        const auto from = [&](std::size_t plane) {
            return reinterpret_cast<std::uint16_t*>(planeStart(plane) + m_stride * (i & m_mask)) + left;
        };
        return {from(0), from(1), from(2)};
    }

    template <typename Buffer>
    Buffer buffer() const {
        Buffer buffer{};
        buffer.version = ZIMG_API_VERSION;
        for (std::size_t plane = 0; plane < kPlanes; ++plane) {
            buffer.plane[plane].data = planeStart(plane);
            buffer.plane[plane].stride = static_cast<std::ptrdiff_t>(m_stride);
            buffer.plane[plane].mask = m_mask;
        }
        return buffer;
    }

 private:
    std::byte* planeStart(std::size_t plane) const {
        return static_cast<std::byte*>(m_memory.get()) + m_planeBytes * plane;
    }

    unsigned m_mask;
    std::size_t m_stride = 0;
    std::size_t m_planeBytes = 0;
    Memory m_memory;
};

struct Unpacking {
    const DeviceContext& source;
    const LineWindow& window;
};

struct Packing {
    DeviceContext& target;
    const LineWindow& window;
};

std::uint16_t toFixed(std::uint8_t component) {
    return static_cast<std::uint16_t>((component << kFractionBits) + kZero);
}

std::uint8_t fromFixed(std::uint16_t value) {
    return clampByte((value - kZero + (1 << (kFractionBits - 1))) >> kFractionBits);
}

int unpackLine(void* user, unsigned i, unsigned left, unsigned right) {
    const Unpacking& work = *static_cast<const Unpacking*>(user);
    const std::uint8_t* pixels = work.source.line(static_cast<int>(i)) + left * kPixelBytes;
    const auto planes = work.window.lines(i, left);
    const std::size_t count = right - left;
    for (std::size_t x = kernels::deinterleavePixels(pixels, count, planes); x < count; ++x) {
        planes.blue[x] = toFixed(pixels[x * kPixelBytes]);
        planes.green[x] = toFixed(pixels[x * kPixelBytes + 1]);
        planes.red[x] = toFixed(pixels[x * kPixelBytes + 2]);
    }
    return 0;
}

int packLine(void* user, unsigned i, unsigned left, unsigned right) {
    const Packing& work = *static_cast<const Packing*>(user);
    std::uint8_t* pixels = work.target.line(static_cast<int>(i)) + left * kPixelBytes;
    const auto planes = work.window.lines(i, left);
    const std::size_t count = right - left;
    for (std::size_t x = kernels::interleavePixels({planes.blue, planes.green, planes.red}, count, pixels);
         x < count; ++x) {
        pixels[x * kPixelBytes] = fromFixed(planes.blue[x]);
        pixels[x * kPixelBytes + 1] = fromFixed(planes.green[x]);
        pixels[x * kPixelBytes + 2] = fromFixed(planes.red[x]);
        pixels[x * kPixelBytes + 3] = 0;
    }
    return 0;
}

}  // namespace

bool scaleByGraph(DeviceContext& target, const DeviceContext& source, ZimgKernels kernels) {
    const Graph graph = buildGraph(target, source, kernels);
    std::size_t workBytes = 0;
    unsigned linesIn = 0;
    unsigned linesOut = 0;
    if (graph == nullptr || zimg_filter_graph_get_tmp_size(graph.get(), &workBytes) != ZIMG_ERROR_SUCCESS ||
        zimg_filter_graph_get_input_buffering(graph.get(), &linesIn) != ZIMG_ERROR_SUCCESS ||
        zimg_filter_graph_get_output_buffering(graph.get(), &linesOut) != ZIMG_ERROR_SUCCESS) {
        return false;
    }
    const Memory work = alignedMemory(workBytes);
    const LineWindow windowIn(linesIn, source);
    const LineWindow windowOut(linesOut, target);
    const auto bufferIn = windowIn.buffer<zimg_image_buffer_const>();
    const auto bufferOut = windowOut.buffer<zimg_image_buffer>();
    Unpacking unpacking{source, windowIn};
    Packing packing{target, windowOut};
    return zimg_filter_graph_process(graph.get(), &bufferIn, &bufferOut, work.get(), unpackLine, &unpacking,
                                     packLine, &packing) == ZIMG_ERROR_SUCCESS;
}

}  // namespace mobrel
