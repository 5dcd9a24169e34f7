// SPDX-License-Identifier: MIT
// The view of one surface: zoom, scrolling, the crop frame and the gestures that work on them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>

#include "canvas/cFrame.hpp"
#include "canvas/ucCanvas_axis.hpp"
#include "imaging/cDIB.hpp"
#include "platform/base/Event.hpp"
#include "platform/control/Control.hpp"
#include "platform/control/WheelTurns.hpp"
#include "platform/drawing/PixelBuffer.hpp"
#include "platform/drawing/SystemColors.hpp"
#include "platform/screen/Desktop.hpp"

namespace mobrel {

/// Owns the surface it shows. The owner of the control changes the surface directly, and then calls Repaint,
/// or Resize when its size has changed. The picture stands in `iCanvas`, a place inside the control; one
/// picture pixel at zoom 1 is one device pixel.
class ucCanvas : public Control {
 public:
    /// What the left button does.
    enum Mode : std::int32_t { kScrollMode = 0, kCropMode = 1, kPickColorMode = 2 };

    /// Screen pixels.
    struct ScrollInfo {
        std::int32_t lHMax = 0;
        std::int32_t lVMax = 0;
        std::int32_t lHPos = 0;
        std::int32_t lVPos = 0;

        bool operator==(const ScrollInfo&) const = default;
    };

    /// Button, keys held, and the place in the picture.
    using MouseEvent = Event<std::int16_t, std::int16_t, std::int32_t, std::int32_t>;

    ucCanvas();

    cDIB DIB;

    /// Progress and end of the surface's own long operations.
    Event<std::int32_t> DIBProgress;
    Event<> DIBProgressEnd;
    /// After the control has handled a press or release, and after each move over the picture.
    MouseEvent MouseDown;
    MouseEvent MouseMove;
    MouseEvent MouseUp;
    /// Key code and keys held; not during a gesture.
    Event<std::int16_t, std::int16_t> KeyDown;
    /// The user has scrolled.
    Event<> Scroll;
    /// A picture has been laid out: the event of Resize, whose name the operation has.
    Event<> Resized;
    /// The picture has been cut to the frame.
    Event<> CropDone;
    /// The user has changed the zoom, which is laid out already.
    Event<> ZoomChanged;

    /// Paints the picture at once.
    void Repaint();
    /// Lays the picture out in the control and paints all. Called after a change of surface, Zoom or FitMode.
    void Resize();

    ScrollInfo GetScrollInfo() const;
    /// Goes to a place, or as near as there is picture, and paints. No Scroll event.
    void SetScrollInfo(std::int32_t lHPos, std::int32_t lVPos);
    /// The part of the picture in view, in picture pixels; FitMode is not looked at.
    Rect GetVisibleRect() const;
    /// Removes the crop frame, without a paint.
    void RemoveCropRectangle() { m_frame.Clear(); }
    /// Reserved: gives nothing and has no effect.
    std::monostate GetPic() const { return {}; }

    /// A colour or a system colour. It fills the margin until the next layout.
    std::uint32_t BackColor() const noexcept { return m_backColor; }
    void setBackColor(std::uint32_t value);
    /// Screen pixels a picture pixel, at least 1. Nothing is laid out.
    std::int32_t Zoom() const noexcept { return m_zoom; }
    void setZoom(std::int32_t value) noexcept { m_zoom = value < 1 ? 1 : value; }
    /// One of Mode, or any other value, in which the buttons do nothing. Mode 0 removes the crop frame.
    std::int32_t WorkMode() const noexcept { return m_workMode; }
    void setWorkMode(std::int32_t value);
    /// The whole picture in the control, never enlarged. Nothing is laid out.
    bool FitMode() const noexcept { return m_fitMode; }
    void setFitMode(bool value) noexcept { m_fitMode = value; }
    /// The zoom at which the wheel stops; 100 unless an owner stops elsewhere.
    void setLargestWheelZoom(std::int32_t value) noexcept { m_largestWheelZoom = value; }
    /// A disabled control takes no input, apart from the end of a gesture.
    bool Enabled() const noexcept { return m_isEnabled; }
    void setEnabled(bool value) noexcept { m_isEnabled = value; }
    /// Where Copy puts the framed part; nowhere when null.
    void setClipboard(Clipboard* clipboard) noexcept { m_clipboard = clipboard; }

    /// The menu on the crop frame: 0 cuts the picture to the frame, 1 copies the framed part, 3 removes the
    /// frame. Others do nothing.
    void mnuCrop(int Index);

    void pointerPressed(const PointerInput& input) override;
    void pointerMoved(const PointerInput& input) override;
    void pointerReleased(const PointerInput& input) override;
    void pointerDoubleClicked(const PointerInput& input) override;
    /// Scrolls by 3 lines of 16 design pixels a notch, with Shift sideways; with Control it zooms
    /// about the picture pixel under the pointer, a level a notch. Not in FitMode, which has neither zoom nor
    /// place, and not during a gesture, which keeps its own.
    void wheelTurned(const WheelInput& input) override;
    /// The arrows and the numeric plus and minus are the canvas's own.
    bool keyPressed(const KeyInput& input) override;
    void appearanceChanged() override;

    AccessibleRole accessibleRole() const override { return AccessibleRole::Graphic; }
    /// As in "4000 x 3000, 300 %".
    std::string accessibleValue() const override;

 protected:
    void hostChanged() override;
    void sizeChanged() override { Resize(); }

 private:
    struct Point {
        std::int32_t x;
        std::int32_t y;
    };
    /// A pointer's place counted from the corner of iCanvas, as it comes.
    struct ViewPlace {
        double x;
        double y;
    };
    static constexpr Rect kNowhere{-1, -1, -1, -1};

    // Layout
    bool hasPicture() const { return DIB.hDIB() != nullptr; }
    void placeView();
    void placeScrolledView();
    void placeFittedView();
    void showLayout();
    void fillMargin(Color color);
    void paintAll();

    // Mapping
    std::int32_t offsetX() const { return m_fitMode ? 0 : m_horizontal.position(); }
    std::int32_t offsetY() const { return m_fitMode ? 0 : m_vertical.position(); }
    static Point rounded(const ViewPlace& place);
    Point toImage(const Point& view) const;
    Rect FrameToView(const Rect& scaledFrame) const;

    // Paint
    std::optional<DeviceContext> viewTarget();
    PaintSpan paintSpan(const ScrollAxis& axis, int view, int side) const;
    void paint();
    void paintPicture(DeviceContext& target);
    void paintFrame(DeviceContext& target);
    void showInView(const Rect& rect);
    void scrollTo(std::int32_t x, std::int32_t y);

    // Gestures
    bool isHandOffered() const;
    void setMouseIcon(Cursor cursor);
    void refreshMouseIcon();
    void showCursor();
    bool isOverView(const PointerInput& input) const;
    ViewPlace placeInView(const PointerInput& input) const;
    void catchPointer(std::int16_t button);
    void press(std::int16_t button, std::int16_t shift, const ViewPlace& place);
    void pressPicture(std::int16_t button, const Point& view, const Point& inPicture);
    void move(const PointerInput& input);
    void movePicture(const ViewPlace& place);
    void release(const PointerInput& input);
    void dragByHand(const ViewPlace& place);
    void raiseMouse(const MouseEvent& event, std::int16_t button, std::int16_t shift, const ViewPlace& place);

    // Wheel
    void scrollByWheel(const WheelInput& input);
    void zoomByWheel(const WheelInput& input);
    void zoomAbout(std::int32_t zoom, int x, int y);

    // Crop frame
    bool hasRubberBand() const { return m_rubberRect != kNowhere; }
    void drawRubberBand(DeviceContext& target);
    void dragFrame(const ViewPlace& place);
    void eraseRubberBand();
    void finishFrame();
    void showCropMenu(const Point& view);
    void cropPicture();
    void copyFrame();
    std::optional<PixelBuffer> framedPart() const;

    cFrame m_frame;
    std::int32_t m_zoom = 1;
    std::int32_t m_workMode = kScrollMode;
    bool m_fitMode = false;
    ScrollAxis m_horizontal;
    ScrollAxis m_vertical;
    bool m_mouseIsDown = false;
    std::int32_t m_lastX = 0;
    std::int32_t m_lastY = 0;
    /// The dotted rectangle that is on the image now, in view pixels.
    Rect m_rubberRect = kNowhere;

    Rect m_iCanvas = kNowhere;
    Cursor m_mouseIcon = Cursor::Default;
    std::optional<Cursor> m_shownCursor;
    bool m_isPointerOverView = true;
    int m_buttonsDown = 0;
    bool m_isEnabled = true;
    std::uint32_t m_backColor = systemColorValue(SystemColor::ButtonFace);
    Clipboard* m_clipboard = nullptr;
    std::int32_t m_largestWheelZoom = 100;
    WheelTurns m_horizontalTurns;
    WheelTurns m_verticalTurns;
    WheelTurns m_zoomTurns;
};

}  // namespace mobrel
