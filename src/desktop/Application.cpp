// SPDX-License-Identifier: MIT
#include "desktop/Application.hpp"

#include <QImageReader>

#include "desktop/ControlAccessible.hpp"
#include "desktop/RunningEvents.hpp"

namespace mobrel {

Application::Application(int& argc, char** argv) : QApplication(argc, argv) {
    setApplicationDisplayName("Mobrel");
    setQuitOnLastWindowClosed(false);
    QImageReader::setAllocationLimit(0);  // of pictures that are pasted; Qt's is 128 MB
    setSystemColors(&m_colors);
    setTextService(&m_text);
    installControlAccessibility();
}

Application::~Application() {
    setTextService(nullptr);
    setSystemColors(nullptr);
}

int Application::run() {
    const RunningEvents running;
    return exec();
}

}  // namespace mobrel
