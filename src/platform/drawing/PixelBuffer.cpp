// SPDX-License-Identifier: MIT
#include "platform/drawing/PixelBuffer.hpp"

#include <sys/mman.h>

#include <cstdlib>

namespace mobrel {

namespace {

constexpr std::size_t kHugePage = std::size_t{2} << 20;

/// Whole huge pages, at the start of one: maps one more and gives back what stands over.
std::uint8_t* mapHugePages(std::size_t bytes) noexcept {
    void* pagesOrError =
        mmap(nullptr, bytes + kHugePage, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (pagesOrError == MAP_FAILED) return nullptr;
    auto* mapped = static_cast<std::uint8_t*>(pagesOrError);
    const std::size_t before = (kHugePage - reinterpret_cast<std::uintptr_t>(mapped) % kHugePage) % kHugePage;
    if (before > 0) munmap(mapped, before);
    std::uint8_t* pages = mapped + before;
    if (before < kHugePage) munmap(pages + bytes, kHugePage - before);
    madvise(pages, bytes, MADV_HUGEPAGE);
    return pages;
}

}  // namespace

bool PixelBuffer::isValidSize(std::int64_t width, std::int64_t height) noexcept {
    constexpr std::int64_t kPixelsBelow = std::int64_t{1} << 29;  // 2^31 bytes
    return width >= 1 && height >= 1 && width < kPixelsBelow && height < kPixelsBelow &&
           width * height < kPixelsBelow;
}

std::optional<PixelBuffer> PixelBuffer::create(int width, int height) noexcept {
    if (!isValidSize(width, height)) return std::nullopt;
    PixelBuffer buffer;
    const std::size_t bytes = static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4;
    // From 512 KiB up, pages of 2 MiB: the first touch of memory costs more than most filters do, and a tenth
    // of that in huge pages. Pages that are never written take no memory, so a false claim of a size costs
    // nothing.
    constexpr std::size_t kWorthHugePages = kHugePage / 4;
    if (bytes >= kWorthHugePages) {
        const std::size_t mapped = (bytes + kHugePage - 1) / kHugePage * kHugePage;
        buffer.m_bits = {mapHugePages(mapped), ReleasePixels{mapped}};
    } else {
        buffer.m_bits = {static_cast<std::uint8_t*>(std::calloc(bytes, 1)), ReleasePixels{}};
    }
    if (buffer.m_bits == nullptr) return std::nullopt;
    buffer.m_width = width;
    buffer.m_height = height;
    return buffer;
}

void ReleasePixels::operator()(std::uint8_t* bits) const noexcept {
    if (mappedBytes > 0) {
        munmap(bits, mappedBytes);
    } else {
        std::free(bits);
    }
}

}  // namespace mobrel
