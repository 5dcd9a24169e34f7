// SPDX-License-Identifier: MIT
#include "dialogs/about/fAbout.hpp"

#include <QVBoxLayout>

namespace mobrel {

namespace {

constexpr int kParagraphSpace = 12;  // as between the paragraphs of a text

QString appText() {
    return QString("<big><b>Mobrel v%1.%2</b></big><br>The Mobrel maintainers")
        .arg(MOBREL_VERSION_MAJOR)
        .arg(MOBREL_VERSION_MINOR);
}

QString headedList(const QString& head, const QStringList& lines) {
    return "<p><b>" + head + "</b><br>" + lines.join("<br>") + "</p>";
}

QString creditsText() {
    return headedList("Thanks to:", {"Qt, for windows and dialogs", "zimg, for scaling pictures",
                                     "Google Highway, for many pixels at once"}) +
           headedList("Special thanks to:",
                      {"the authors of libpng", "the authors of libjpeg-turbo", "the authors of giflib",
                       "the authors of the XCB library", "the maintainers of the Debian packages"});
}

void setUpText(QLabel& label, const char* name, const QString& text) {
    label.setObjectName(name);
    label.setTextFormat(Qt::RichText);
    label.setText(text);
    label.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
}

}  // namespace

fAbout::fAbout(QWidget* owner) : QDialog(owner), cmdOK("OK") {
    setWindowTitle("About");
    setUpText(lblApp, "lblApp", appText());
    setUpText(lblCredits, "lblCredits", creditsText());
    cmdOK.setObjectName("cmdOK");
    cmdOK.setDefault(true);
    cmdOK.setFocus();
    connect(&cmdOK, &QPushButton::clicked, this, &QDialog::accept);

    auto* const rows = new QVBoxLayout(this);
    rows->setSpacing(kParagraphSpace);
    rows->setSizeConstraint(QLayout::SetFixedSize);
    rows->addWidget(&lblApp);
    rows->addWidget(&lblCredits);
    rows->addWidget(&cmdOK, 0, Qt::AlignRight);
}

}  // namespace mobrel
