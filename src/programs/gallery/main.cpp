// SPDX-License-Identifier: MIT
// Shows every control.
#include <QCommandLineParser>
#include <QPalette>

#include "desktop/Application.hpp"
#include "programs/gallery/Gallery.hpp"

namespace {

QPalette darkPalette() {
    QPalette palette(QColor(53, 55, 58), QColor(43, 45, 48));
    palette.setColor(QPalette::Base, QColor(32, 33, 36));
    palette.setColor(QPalette::ToolTipBase, QColor(70, 72, 60));
    palette.setColor(QPalette::ToolTipText, QColor(240, 240, 230));
    palette.setColor(QPalette::Highlight, QColor(70, 110, 170));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

}  // namespace

int main(int argc, char** argv) {
    mobrel::Application application(argc, argv);
    QCommandLineParser options;
    options.setApplicationDescription("Shows every control of Mobrel in every state.");
    options.addHelpOption();
    const QCommandLineOption dark("dark", "Light texts on a dark ground.");
    options.addOption(dark);
    options.process(application);
    if (options.isSet(dark)) mobrel::Application::setPalette(darkPalette());
    mobrel::gallery::Gallery gallery;
    gallery.show();
    return application.run();
}
