// SPDX-License-Identifier: MIT
#include "programs/gallery/Sections.hpp"

#include <QGridLayout>
#include <QLabel>
#include <array>

#include "canvas/ucCanvas.hpp"
#include "controls/frmValueTip.hpp"
#include "controls/ucInfo.hpp"
#include "controls/ucProgress.hpp"
#include "controls/zenSlider.hpp"
#include "desktop/Cursors.hpp"
#include "desktop/OwningControlWidget.hpp"
#include "programs/gallery/Layout.hpp"
#include "programs/gallery/Pictures.hpp"

namespace mobrel::gallery {

namespace {

OwningControlWidget<zenSlider>* makeSlider(SliderOrientation orientation, SliderRail rail) {
    auto* const widget = new OwningControlWidget<zenSlider>;
    const bool isHorizontal = orientation == SliderOrientation::Horizontal;
    zenSlider& slider = widget->owned();
    slider.setOrientation(orientation);
    if (isHorizontal) {
        widget->setFixedWidth(150);
        slider.setRailPicture(railPicture(146, 8));
    } else {
        widget->setFixedHeight(100);
        slider.setRailPicture(railPicture(8, 96));
    }
    slider.setRailStyle(rail);
    slider.setMax(20);
    slider.setValue(8);
    return widget;
}

OwningControlWidget<ucCanvas>* makeEmptyCanvas() {
    auto* const widget = new OwningControlWidget<ucCanvas>;
    widget->setFixedSize(240, 180);
    return widget;
}

OwningControlWidget<ucCanvas>* makeCanvas(int zoom) {
    auto* const widget = makeEmptyCanvas();
    ucCanvas& canvas = widget->owned();
    drawLandscape(canvas.DIB, 1);
    canvas.setZoom(zoom);
    canvas.Resize();
    return widget;
}

OwningControlWidget<ucCanvas>* makeFittedCanvas() {
    auto* const widget = makeEmptyCanvas();
    ucCanvas& canvas = widget->owned();
    drawLandscape(canvas.DIB, 5);
    canvas.setFitMode(true);
    canvas.Resize();
    return widget;
}

/// Draws a crop frame as a user does, once the window stands.
void drawFrameLater(OwningControlWidget<ucCanvas>* widget) {
    later(*widget, 0, [widget] {
        ucCanvas& canvas = widget->owned();
        canvas.setWorkMode(ucCanvas::kCropMode);
        const auto place = [&](double x, double y) {
            return PointerInput{MouseButton::kLeft, 0, static_cast<float>(x * canvas.width()),
                                static_cast<float>(y * canvas.height())};
        };
        canvas.pointerPressed(place(0.25, 0.3));
        canvas.pointerMoved(place(0.7, 0.75));
        canvas.pointerReleased(place(0.7, 0.75));
    });
}

}  // namespace

void addSliders(QGridLayout& grid) {
    constexpr std::array kRails = {std::pair("Sunken", SliderRail::Sunken),
                                   std::pair("Raised", SliderRail::Raised),
                                   std::pair("Sunken, thin", SliderRail::SunkenOuter),
                                   std::pair("Raised, thin", SliderRail::RaisedInner),
                                   std::pair("No edge", SliderRail::NoEdge),
                                   std::pair("Picture", SliderRail::Picture)};
    int place = 0;
    for (const auto& [name, rail] : kRails) {
        auto* const horizontal = makeSlider(SliderOrientation::Horizontal, rail);
        auto* const vertical = makeSlider(SliderOrientation::Vertical, rail);
        if (rail == SliderRail::Raised) showFocused(*horizontal, horizontal->owned());
        grid.addWidget(captioned(name, horizontal), place / 2, place % 2);
        grid.addWidget(captioned(name, vertical), 0, 2 + place, 3, 1);
        ++place;
    }
}

void addProgressBars(QGridLayout& grid) {
    constexpr std::array kBorders = {"No border", "Thin", "Sunken"};
    for (int border = 0; border < 3; ++border) {
        for (const int value : {0, 40, 100}) {
            auto* const widget = new OwningControlWidget<ucProgress>;
            widget->setFixedSize(200, 16);
            widget->owned().setBorderStyle(static_cast<ProgressBorder>(border));
            widget->owned().setValue(value);
            const QString name =
                QString("%1, %2 %").arg(kBorders[static_cast<std::size_t>(border)]).arg(value);
            grid.addWidget(captioned(name, widget), border, value / 40);
        }
    }
}

void addCanvases(QGridLayout& grid) {
    grid.addWidget(captioned("Zoom 1", makeCanvas(1)), 0, 0);
    grid.addWidget(captioned("Zoom 3", makeCanvas(3)), 0, 1);
    auto* const framed = makeFittedCanvas();
    grid.addWidget(captioned("Fit mode, with a frame", framed), 0, 2);
    drawFrameLater(framed);
    auto* const enlarged = makeCanvas(8);
    grid.addWidget(captioned("Zoom 8, with a frame", enlarged), 1, 0);
    drawFrameLater(enlarged);
    auto* const picking = makeCanvas(2);
    picking->owned().setWorkMode(ucCanvas::kPickColorMode);
    grid.addWidget(captioned("Zoom 2, picks a colour", picking), 1, 1);
    grid.addWidget(captioned("No picture", makeEmptyCanvas()), 1, 2);
}

void addTips(QGridLayout& grid) {
    int column = 0;
    for (const char* const text : {"0", "-12", "100 %", "A longer tip"}) {
        auto* const tip = new OwningControlWidget<frmValueTip>;
        tip->owned().setLblTip(text);
        tip->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
        tip->setAccessibleName(text);
        grid.addWidget(tip, 0, column++, Qt::AlignLeft);
    }
}

void addPointers(QGridLayout& grid) {
    constexpr std::array kPointers = {std::pair("Over a picture to drag", Cursor::HandOver),
                                      std::pair("Dragging", Cursor::HandCatch),
                                      std::pair("Picking a colour", Cursor::PickColor)};
    int column = 0;
    for (const auto& [name, cursor] : kPointers) {
        auto* const picture = new QLabel;
        picture->setCursor(qtCursor(cursor, picture->devicePixelRatioF()));
        picture->setPixmap(picture->cursor().pixmap());
        grid.addWidget(captioned(name, picture), 0, column++);
    }
}

QWidget* makeInfo() {
    auto* const info = new OwningControlWidget<ucInfo>;
    info->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    info->setAccessibleName("Status");
    info->owned().setTextFile("/home/user/Pictures/harbour.bmp");
    info->owned().setTextInfo("4000x3000x24bpp");
    info->owned().setTextZoom("100%");
    return info;
}

}  // namespace mobrel::gallery
