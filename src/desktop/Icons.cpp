// SPDX-License-Identifier: MIT
#include "desktop/Icons.hpp"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QSvgRenderer>
#include <memory>
#include <utility>

namespace mobrel {

namespace {

QColor textColor(QIcon::Mode mode) {
    const QPalette palette = QGuiApplication::palette();
    if (mode == QIcon::Disabled) return palette.color(QPalette::Disabled, QPalette::ButtonText);
    if (mode == QIcon::Selected) return palette.color(QPalette::Active, QPalette::HighlightedText);
    return palette.color(QPalette::Active, QPalette::ButtonText);
}

class DrawnIconEngine final : public QIconEngine {
 public:
    explicit DrawnIconEngine(std::shared_ptr<QSvgRenderer> drawing) : m_drawing(std::move(drawing)) {}

    QIconEngine* clone() const override { return new DrawnIconEngine(m_drawing); }
    QString key() const override { return "mobrel-drawn-icon"; }

    /// Of a size in device pixels.
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State /*state*/) override {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        m_drawing->render(&painter);
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(picture.rect(), textColor(mode));
        return picture;
    }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
        const QSizeF devicePixels = QSizeF(rect.size()) * painter->device()->devicePixelRatioF();
        painter->drawPixmap(rect, pixmap(devicePixels.toSize(), mode, state));
    }

 private:
    std::shared_ptr<QSvgRenderer> m_drawing;  // which copies of the icon share
};

}  // namespace

QIcon drawnIcon(const QString& name) {
    const QString file = ":/mobrel/icons/" + name + ".svg";
    if (!QFile::exists(file)) return {};
    const auto drawing = std::make_shared<QSvgRenderer>(file);
    drawing->setAspectRatioMode(Qt::KeepAspectRatio);
    return QIcon(new DrawnIconEngine(drawing));
}

}  // namespace mobrel
