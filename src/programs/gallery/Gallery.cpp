// SPDX-License-Identifier: MIT
#include "programs/gallery/Gallery.hpp"

#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QScrollArea>
#include <QVBoxLayout>

#include "programs/gallery/Sections.hpp"

namespace mobrel::gallery {

namespace {

QLabel* makeHeading(const QString& text) {
    auto* const heading = new QLabel(text);
    QFont font = heading->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * 1.3);
    heading->setFont(font);
    return heading;
}

QWidget* makeSection(void (*add)(QGridLayout& grid)) {
    auto* const section = new QWidget;
    section->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    auto* const grid = new QGridLayout(section);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(18);
    grid->setVerticalSpacing(12);
    add(*grid);
    grid->setColumnStretch(grid->columnCount(), 1);
    return section;
}

QWidget* makeContents() {
    auto* const contents = new QWidget;
    auto* const layout = new QVBoxLayout(contents);
    layout->setContentsMargins(18, 12, 18, 18);
    layout->setSpacing(6);
    const std::pair<const char*, void (*)(QGridLayout&)> sections[] = {
        {"List", addLists},     {"Slider", addSliders},  {"Progress bar", addProgressBars},
        {"Value tip", addTips}, {"Canvas", addCanvases}, {"Mouse pointers", addPointers},
    };
    for (const auto& [name, add] : sections) {
        if (layout->count() > 0) layout->addSpacing(14);
        layout->addWidget(makeHeading(name));
        layout->addWidget(makeSection(add));
    }
    layout->addStretch();
    return contents;
}

}  // namespace

Gallery::Gallery() {
    setWindowTitle("Mobrel gallery");
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    auto* const area = new QScrollArea;
    area->setWidget(makeContents());
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    layout->addWidget(area, 1);
    layout->addWidget(makeInfo());
    resize(860, 960);
}

void Gallery::closeEvent(QCloseEvent* event) {
    event->accept();
    QApplication::quit();
}

}  // namespace mobrel::gallery
