// SPDX-License-Identifier: MIT
#include "imaging/cDIBPal.hpp"

#include <algorithm>
#include <array>
#include <cstring>

#include "imaging/ColourTree.hpp"
#include "platform/base/RuntimeError.hpp"

namespace mobrel {

namespace {

constexpr RgbQuad quad(int red, int green, int blue) {
    return {static_cast<std::uint8_t>(blue), static_cast<std::uint8_t>(green), static_cast<std::uint8_t>(red),
            0};
}

constexpr std::array<RgbQuad, 8> kLowColours = {quad(0, 0, 0),     quad(128, 0, 0),    quad(0, 128, 0),
                                                quad(128, 128, 0), quad(0, 0, 128),    quad(128, 0, 128),
                                                quad(0, 128, 128), quad(192, 192, 192)};
constexpr std::array<RgbQuad, 8> kHighColours = {quad(128, 128, 128), quad(255, 0, 0),    quad(0, 255, 0),
                                                 quad(255, 255, 0),   quad(0, 0, 255),    quad(255, 0, 255),
                                                 quad(0, 255, 255),   quad(255, 255, 255)};

/// True for the corners of the cube, which stand in the low and high colours already.
bool isCorner(int red, int green, int blue) {
    const auto atEnd = [](int value) { return value == 0 || value == 255; };
    return atEnd(red) && atEnd(green) && atEnd(blue);
}

}  // namespace

RgbQuad* cDIBPal::InitializePalette(int nEntries) {
    m_entries.assign(static_cast<std::size_t>(nEntries), RgbQuad{});
    return m_entries.data();
}

const RgbQuad& cDIBPal::entry(std::uint8_t PalEntry) const {
    if (PalEntry >= m_entries.size()) throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    return m_entries[PalEntry];
}

void cDIBPal::makeSearchable() {
    // A palette of the platform has at most 256 entries.
    m_searchable.emplace(std::span(m_entries).first(std::min<std::size_t>(m_entries.size(), 256)));
}

void cDIBPal::Clear() noexcept {
    m_entries.clear();
    m_searchable.reset();
}

ClosestEntry cDIBPal::ClosestColor(std::uint8_t R, std::uint8_t G, std::uint8_t B) const {
    if (!m_searchable) throw RuntimeError(ErrorNumber::ObjectNotSet);
    const std::uint8_t found = m_searchable->index(R, G, B);
    return {rgbR(found), rgbG(found), rgbB(found), found};
}

bool cDIBPal::IsGreyScale() const noexcept {
    return !m_entries.empty() && std::ranges::all_of(m_entries, [](const RgbQuad& entry) {
        return entry.red == entry.green && entry.green == entry.blue;
    });
}

void cDIBPal::CreateBlackAndWhite() {
    InitializePalette(2)[1] = quad(255, 255, 255);
    makeSearchable();
}

void cDIBPal::CreateEGA() {
    RgbQuad* entries = InitializePalette(16);
    std::ranges::copy(kLowColours, entries);
    std::ranges::copy(kHighColours, entries + 8);
    makeSearchable();
}

void cDIBPal::CreateHalftone() {
    constexpr std::array<int, 5> kLevels = {0, 64, 128, 192, 255};
    RgbQuad* next = InitializePalette(256);
    for (const int blue : kLevels) {
        for (const int green : kLevels) {
            for (const int red : kLevels) *next++ = quad(red, green, blue);
        }
    }
    makeSearchable();
}

void cDIBPal::CreateWebsafe() {
    constexpr int kStep = 51;
    constexpr int kFirstGrey = 217;
    constexpr int kGreys = 31;
    RgbQuad* entries = InitializePalette(256);
    std::ranges::copy(kLowColours, entries);
    std::ranges::copy(kHighColours, entries + 248);
    RgbQuad* next = entries + kLowColours.size();
    for (int blue = 0; blue <= 255; blue += kStep) {
        for (int green = 0; green <= 255; green += kStep) {
            for (int red = 0; red <= 255; red += kStep) {
                if (!isCorner(red, green, blue)) *next++ = quad(red, green, blue);
            }
        }
    }
    // kept: entry 216, between the cube and the greys, stays black
    for (int i = 0; i < kGreys; ++i) entries[kFirstGrey + i] = quad(8 * i + 8, 8 * i + 8, 8 * i + 8);
    makeSearchable();
}

void cDIBPal::CreateGreys_016() {
    RgbQuad* entries = InitializePalette(16);
    for (int i = 0; i < 16; ++i) entries[i] = quad(i * 17, i * 17, i * 17);
    makeSearchable();
}

void cDIBPal::CreateGreys_256() {
    RgbQuad* entries = InitializePalette(256);
    for (int i = 0; i < 256; ++i) entries[i] = quad(i, i, i);
    makeSearchable();
}

void cDIBPal::CreateFastOptimal_016(const cDIB& DIB) {
    sampleGrid(DIB, 4);
}

void cDIBPal::CreateFastOptimal_256(const cDIB& DIB) {
    sampleGrid(DIB, 16);
}

void cDIBPal::sampleGrid(const cDIB& DIB, int side) {
    cDIB samples;
    if (!samples.Create(side, side, 0)) throw RuntimeError(ErrorNumber::OutOfMemory);
    samples.LoadDIBBlt(DIB);
    static_assert(sizeof(RgbQuad) == 4);
    std::memcpy(InitializePalette(side * side), samples.DIBitsPtr(),
                static_cast<std::size_t>(samples.Size()));
    makeSearchable();
}

void cDIBPal::CreateOptimal(const cDIB& DIB, int PalSize, int nLevels, float RWeight, float GWeight,
                            float BWeight) {
    ColourTree tree(nLevels, RWeight, GWeight, BWeight);
    tree.add(DIB, PalSize);
    const auto colours = tree.coloursByPopularity();
    if (PalSize < 1 || colours.size() > static_cast<std::size_t>(PalSize)) {
        throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    }
    std::ranges::copy(colours, InitializePalette(PalSize));
    makeSearchable();
}

}  // namespace mobrel
