// SPDX-License-Identifier: MIT
#include "canvas_bench.hpp"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "imaging/cDIB.hpp"
#include "platform/drawing/DeviceContext.hpp"
#include "support/PhotoPicture.hpp"
#include "support/PictureBench.hpp"

namespace mobrel::bench {
namespace {

constexpr Size kLarge{4000, 3000};
constexpr Size kHuge{10000, 10000};

/// The numbers of a stretch: where the source stands in the view, and at what size.
struct Place {
    int x, y, width, height;
};

DeviceContext contextOf(cDIB& view) {
    return {view.DIBitsPtr(), view.Width(), view.Height(), RowOrder::TopDown};
}

/// A bottom-up document, of which only what is seen has more than zeros.
class Document {
 public:
    explicit Document(Size size) : m_size(size) {}

    /// Its target, painted wherever it is seen in the view.
    DeviceContext seenAt(const Place& place, const cDIB& view) {
        if (!m_pixels) m_pixels = newPicture(m_size);
        DeviceContext target(m_pixels->DIBitsPtr(), m_size.width, m_size.height, RowOrder::BottomUp);
        const Size seen{seenPixels(place.width, m_size.width, view.Width()),
                        seenPixels(place.height, m_size.height, view.Height())};
        if (seen != std::exchange(m_seen, seen)) paint(target, place, seen);
        return target;
    }

 private:
    static std::unique_ptr<cDIB> newPicture(const Size& size) {
        auto picture = std::make_unique<cDIB>();
        if (!picture->Create(size.width, size.height, 0)) throw std::runtime_error("no memory");
        return picture;
    }
    static int seenPixels(std::int64_t shown, std::int64_t all, std::int64_t view) {
        return static_cast<int>(std::min(view * all / shown + 2, all));
    }
    static int firstSeen(std::int64_t place, std::int64_t shown, std::int64_t all) {
        return static_cast<int>(std::max<std::int64_t>(-place * all / shown, 0));
    }
    void paint(DeviceContext& target, const Place& place, const Size& seen) const {
        const auto photo = newPicture(seen);
        paintPhoto(*photo);
        target.BitBlt(firstSeen(place.x, place.width, m_size.width),
                      firstSeen(place.y, place.height, m_size.height), seen.width, seen.height,
                      {photo->DIBitsPtr(), seen.width, seen.height, RowOrder::TopDown}, 0, 0);
    }

    Size m_size;
    Size m_seen{0, 0};
    std::unique_ptr<cDIB> m_pixels;
};

/// Its middle in the middle of the view, at a zoom.
Place middle(const Size& document, int zoom, const cDIB& view) {
    const int width = document.width * zoom;
    const int height = document.height * zoom;
    return {(view.Width() - width) / 2, (view.Height() - height) / 2, width, height};
}

std::uint32_t pixelUnder(std::int64_t d, std::int64_t shown, std::int64_t all) {
    return static_cast<std::uint32_t>(((2 * d + 1) * all - 1) / (2 * shown));
}

void stretchPlainly(DeviceContext& target, const DeviceContext& source, const Place& place) {
    for (int y = std::max(place.y, 0); y < std::min(place.y + place.height, target.height()); ++y) {
        const std::uint32_t line = pixelUnder(y - place.y, place.height, source.height());
        for (int x = std::max(place.x, 0); x < std::min(place.x + place.width, target.width()); ++x) {
            const std::uint32_t column = pixelUnder(x - place.x, place.width, source.width());
            std::memcpy(target.line(y) + x * 4, source.line(static_cast<int>(line)) + column * 4, 4);
        }
    }
}

PictureOperation stretch(std::string name, Size size, const std::function<Place(const cDIB&)>& placeIn) {
    const auto document = std::make_shared<Document>(size);
    return {"canvas", std::move(name),
            [=](cDIB& view) {
                const Place place = placeIn(view);
                contextOf(view).StretchBlt(place.x, place.y, place.width, place.height,
                                           document->seenAt(place, view), 0, 0, size.width, size.height);
            },
            [=](cDIB& view) {
                const Place place = placeIn(view);
                DeviceContext target = contextOf(view);
                stretchPlainly(target, document->seenAt(place, view), place);
            }};
}

PictureOperation zoomed(const std::string& name, Size size, int zoom) {
    return stretch(name, size, [=](const cDIB& view) { return middle(size, zoom, view); });
}

PictureOperation fitted() {
    return stretch("StretchBlt_fit", kLarge, [](const cDIB& view) {
        return Place{0, 0, view.Width(), view.Height()};
    });
}

constexpr Color kFrom = 0x302010;
constexpr Color kTo = 0xE0C0FF;

PictureOperation fill() {
    const auto paint = [](cDIB& view) { contextOf(view).FillRect({0, 0, view.Width(), view.Height()}, kTo); };
    return {"canvas", "FillRect", paint, [](cDIB& view) {
                DeviceContext target = contextOf(view);
                for (int y = 0; y < view.Height(); ++y) {
                    for (int x = 0; x < view.Width(); ++x) target.FillRect({x, y, x + 1, y + 1}, kTo);
                }
            }};
}

/// A fade across the view, a channel at a time by its rule.
PictureOperation fade(std::string name, GradientDirection direction) {
    return {"canvas", std::move(name),
            [=](cDIB& view) {
                contextOf(view).GradientFill({0, 0, view.Width(), view.Height()}, kFrom, kTo, direction);
            },
            [=](cDIB& view) {
                const bool isAcross = direction == GradientDirection::Horizontal;
                const auto n = static_cast<unsigned>(isAcross ? view.Width() : view.Height());
                for (int y = 0; y < view.Height(); ++y) {
                    for (int x = 0; x < view.Width(); ++x) {
                        const auto i = static_cast<unsigned>(isAcross ? x : y);
                        Color color = 0;
                        for (unsigned shift = 0; shift < 24; shift += 8) {
                            const unsigned a = kFrom >> shift & 0xFF;
                            const unsigned b = kTo >> shift & 0xFF;
                            color |= (a * (n - i) + b * i) / n << shift;
                        }
                        contextOf(view).FillRect({x, y, x + 1, y + 1}, color);
                    }
                }
            }};
}

}  // namespace

std::vector<PictureOperation> canvasOperations() {
    return {zoomed("StretchBlt_zoom1", kLarge, 1),
            zoomed("StretchBlt_zoom2", kLarge, 2),
            zoomed("StretchBlt_zoom3", kLarge, 3),
            zoomed("StretchBlt_zoom8", kLarge, 8),
            zoomed("StretchBlt_zoom40", kLarge, 40),
            zoomed("StretchBlt_zoom1_huge", kHuge, 1),
            zoomed("StretchBlt_zoom3_huge", kHuge, 3),
            zoomed("StretchBlt_zoom8_huge", kHuge, 8),
            zoomed("StretchBlt_zoom40_huge", kHuge, 40),
            fitted(),
            fill(),
            fade("GradientFill_H", GradientDirection::Horizontal),
            fade("GradientFill_V", GradientDirection::Vertical)};
}

}  // namespace mobrel::bench
