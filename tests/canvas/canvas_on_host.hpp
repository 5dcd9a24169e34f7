// SPDX-License-Identifier: MIT
// A canvas with a picture in a window that is not there, and a log of its events.
#pragma once

#include <cstdint>
#include <cstring>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "canvas/ucCanvas.hpp"
#include "support/FakeHost.hpp"
#include "support/PictureGrid.hpp"
#include "support/PrintRect.hpp"

namespace mobrel {

/// How a failed comparison shows it.
inline void PrintTo(const ucCanvas::ScrollInfo& info, std::ostream* out) {
    *out << "max " << info.lHMax << ' ' << info.lVMax << " pos " << info.lHPos << ' ' << info.lVPos;
}

namespace test {

constexpr std::uint32_t kMarginPixel = 0x00808080;

/// Pixel (x, y) of the picture that tests show: no two alike, none like the margin.
constexpr std::uint32_t picturePixel(int x, int y) {
    return 0x00400000U + static_cast<std::uint32_t>(y * 1000 + x);
}

inline void fillPicture(cDIB& dib, int width, int height) {
    dib.Create(width, height, 0);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const std::uint32_t pixel = picturePixel(x, y);
            std::memcpy(dib.hDIBDC()->line(y) + x * 4, &pixel, 4);
        }
    }
}

class CanvasOnHost {
 public:
    CanvasOnHost(int width, int height, int pictureWidth, int pictureHeight, int zoom = 1)
        : host(canvas, width, height) {
        if (pictureWidth > 0) fillPicture(canvas.DIB, pictureWidth, pictureHeight);
        canvas.setZoom(zoom);
        canvas.Resize();
        listen();
        host.shown.clear();
    }

    /// The events since the last call.
    std::vector<std::string> events() { return std::exchange(m_events, {}); }

    void press(float x, float y, std::int16_t button = MouseButton::kLeft) {
        canvas.pointerPressed({button, 0, x, y});
    }
    void move(float x, float y, std::int16_t button = MouseButton::kLeft) {
        canvas.pointerMoved({button, 0, x, y});
    }
    void release(float x, float y, std::int16_t button = MouseButton::kLeft) {
        canvas.pointerReleased({button, 0, x, y});
    }
    void drag(float x1, float y1, float x2, float y2) {
        press(x1, y1);
        move(x2, y2);
        release(x2, y2);
    }

    ucCanvas canvas;
    FakeHost host;

 private:
    void listen() {
        const auto note = [this](const std::string& name, const auto&... numbers) {
            m_events.push_back((name + ... + (' ' + std::to_string(numbers))));
        };
        const auto noteAs = [=](const char* name) { return [=](const auto&... all) { note(name, all...); }; };
        canvas.MouseDown.connect(noteAs("down"));
        canvas.MouseMove.connect(noteAs("move"));
        canvas.MouseUp.connect(noteAs("up"));
        canvas.KeyDown.connect(noteAs("key"));
        canvas.Scroll.connect(noteAs("scroll"));
        canvas.Resized.connect(noteAs("resize"));
        canvas.CropDone.connect(noteAs("cropped"));
        canvas.ZoomChanged.connect(noteAs("zoom"));
    }

    std::vector<std::string> m_events;
};

using Events = std::vector<std::string>;

}  // namespace test
}  // namespace mobrel
