// SPDX-License-Identifier: MIT
// Qt's application object with what the core stands on in windows.
#pragma once

#include <QApplication>

#include "desktop/FontText.hpp"
#include "desktop/PaletteColors.hpp"

namespace mobrel {

/// While it lives, texts and system colours are those of the user's desktop, and controls can be reached by
/// assistive programs. Closing the last window ends nothing. To be made on the main thread.
class Application : public QApplication {
 public:
    Application(int& argc, char** argv);
    ~Application() override;

    /// The event loop; what quit or exit said.
    int run();

 private:
    PaletteColors m_colors;
    FontText m_text;
};

}  // namespace mobrel
