// SPDX-License-Identifier: MIT
// Times a whole paint of the canvas in a view of 1000 x 700, against a copy of the view's pixels and, where
// it was found, Qt's scaled drawImage of the same part. Ends with 1 when a paint gave wrong pixels.
//
//     mobrel-bench-view [--size=WxH]... [--rounds=N]
#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#ifdef MOBREL_BENCH_QT
#include <QImage>
#include <QPainter>
#endif

#include "canvas/ucCanvas.hpp"
#include "support/Arguments.hpp"
#include "support/PhotoPicture.hpp"

namespace mobrel::bench {
namespace {

constexpr Size kView{1000, 700};
constexpr int kFit = 0;

/// The part of the view that a picture takes, which is centred.
Rect placeIn(const cDIB& picture, const ucCanvas& canvas) {
    if (canvas.FitMode()) {
        const BestFitInfo fit = picture.GetBestFitInfo(kView.width, kView.height);
        return {fit.bfx, fit.bfy, fit.bfx + fit.bfW, fit.bfy + fit.bfH};
    }
    const int width = std::min(picture.Width() * canvas.Zoom(), kView.width);
    const int height = std::min(picture.Height() * canvas.Zoom(), kView.height);
    const int left = (kView.width - width) / 2;
    const int top = (kView.height - height) / 2;
    return {left, top, left + width, top + height};
}

/// The picture's pixel that stands at a place of the view, along one axis.
int shownPixel(const ucCanvas& canvas, int at, int length, int side, int position) {
    if (!canvas.FitMode()) return (at + position) / canvas.Zoom();
    return static_cast<int>(((2 * std::int64_t{at} + 1) * side - 1) / (2 * length));
}

bool isPaintedRight(ucCanvas& canvas) {
    const cDIB& picture = canvas.DIB;
    const Rect place = placeIn(picture, canvas);
    const ucCanvas::ScrollInfo scroll = canvas.GetScrollInfo();
    DeviceContext image = *canvas.image();
    for (int y = place.top; y < place.bottom; ++y) {
        const std::uint8_t* line = picture.hDIBDC()->line(
            shownPixel(canvas, y - place.top, place.bottom - place.top, picture.Height(), scroll.lVPos));
        for (int x = place.left; x < place.right; ++x) {
            const int column =
                shownPixel(canvas, x - place.left, place.right - place.left, picture.Width(), scroll.lHPos);
            if (std::memcmp(image.line(y) + x * 4, line + column * 4, 4) != 0) return false;
        }
    }
    return true;
}

template <typename Work>
double microsecondsOf(Work work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - start).count();
}

/// Qt's paint of the same, on the same pixels turned top-down.
class QtView {
 public:
#ifdef MOBREL_BENCH_QT
    explicit QtView(const cDIB& picture)
        : m_picture(picture.Width(), picture.Height(), QImage::Format_RGB32),
          m_view(kView.width, kView.height, QImage::Format_RGB32) {
        for (int y = 0; y < picture.Height(); ++y) {
            std::memcpy(m_picture.scanLine(y), picture.hDIBDC()->line(y),
                        static_cast<std::size_t>(picture.BytesPerScanLine()));
        }
        m_view.fill(0);
    }

    std::optional<double> paint(const ucCanvas& canvas) {
        const auto [left, top, right, bottom] = placeIn(canvas.DIB, canvas);
        const QRectF place(left, top, right - left, bottom - top);
        QRectF part(m_picture.rect());
        if (!canvas.FitMode()) {
            const ucCanvas::ScrollInfo scroll = canvas.GetScrollInfo();
            const double zoom = canvas.Zoom();
            part =
                QRectF(scroll.lHPos / zoom, scroll.lVPos / zoom, place.width() / zoom, place.height() / zoom);
        }
        return microsecondsOf([&] {
            QPainter painter(&m_view);
            painter.drawImage(place, m_picture, part);
        });
    }

 private:
    QImage m_picture;
    QImage m_view;
#else
    explicit QtView(const cDIB&) {}
    static std::optional<double> paint(const ucCanvas&) {
        return std::nullopt;
    }
#endif
};

/// One row of the table. False when the pixels are wrong.
bool measure(ucCanvas& canvas, QtView& qt, const std::string& name, int rounds) {
    constexpr double kMost = std::numeric_limits<double>::max();
    std::vector<std::uint8_t> from(static_cast<std::size_t>(kView.pixels()) * 4, 1);
    std::vector<std::uint8_t> to(from.size());
    canvas.Resize();
    double leastPaint = kMost;
    double leastCopy = kMost;
    std::optional<double> leastQt;
    for (int round = 0; round < rounds; ++round) {
        leastPaint = std::min(leastPaint, microsecondsOf([&] { canvas.Repaint(); }));
        leastCopy =
            std::min(leastCopy, microsecondsOf([&] { std::copy(from.begin(), from.end(), to.begin()); }));
        if (const auto time = qt.paint(canvas)) leastQt = std::min(leastQt.value_or(kMost), *time);
    }
    const bool isRight = isPaintedRight(canvas);
    std::printf("%-26s %9.1f %9.1f %9.2f", name.c_str(), leastPaint, leastCopy, leastPaint / leastCopy);
    if (leastQt) std::printf(" %9.1f %9.2f", *leastQt, leastPaint / *leastQt);
    std::printf("%s\n", isRight ? "" : "  the pixels are wrong");
    return isRight;
}

bool measurePicture(const Size& size, int rounds) {
    const auto canvas = std::make_unique<ucCanvas>();
    if (!canvas->DIB.Create(size.width, size.height, 0)) {
        std::printf("%s: no memory\n", size.toString().c_str());
        return false;
    }
    paintPhoto(canvas->DIB);
    canvas->setSize(kView.width, kView.height, 1);
    QtView qt(canvas->DIB);
    bool allRight = true;
    for (const int zoom : {1, 3, 8, 40, kFit}) {
        canvas->setFitMode(zoom == kFit);
        canvas->setZoom(zoom);
        const std::string name = size.toString() + (zoom == kFit ? " fit" : " zoom " + std::to_string(zoom));
        allRight = measure(*canvas, qt, name, rounds) && allRight;
    }
    return allRight;
}

/// Nothing when an argument is not understood.
std::optional<Measure> planOf(int argc, char** argv) {
    constexpr int kRounds = 50;
    Measure plan{{}, kRounds};
    for (int i = 1; i < argc; ++i) {
        if (!takeArgument(argv[i], plan).value_or(false)) return std::nullopt;
    }
    if (plan.sizes.empty()) plan.sizes = {{4000, 3000}, {10000, 10000}};
    return plan;
}

}  // namespace
}  // namespace mobrel::bench

int main(int argc, char** argv) {
    const auto plan = mobrel::bench::planOf(argc, argv);
    if (!plan) {
        std::fputs(
            "usage: mobrel-bench-view [--size=WxH]... [--rounds=N]\n"
            "4000x3000 and 10000x10000 when none is named\n",
            stderr);
        return 2;
    }
    std::printf("%-26s %9s %9s %9s %9s %9s\n", "microseconds", "paint", "memcpy", "x memcpy", "Qt", "x Qt");
    bool allRight = true;
    for (const auto& size : plan->sizes) {
        allRight = mobrel::bench::measurePicture(size, plan->rounds) && allRight;
    }
    return allRight ? 0 : 1;
}
