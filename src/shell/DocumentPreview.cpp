// SPDX-License-Identifier: MIT
#include "shell/DocumentPreview.hpp"

#include "platform/base/ScopedValue.hpp"
#include "shell/fMain.hpp"

namespace mobrel {

namespace {

void load(cDIB& target, const cDIB& source) {
    if (source.hDIBDC() != nullptr) target.LoadBlt(*source.hDIBDC());
}

}  // namespace

void DocumentPreview::takeDocument() {
    const cDIB& document = m_main.Canvas.DIB;
    m_before.Create(document.Width(), document.Height(), 0);
    acceptDocument();
}

void DocumentPreview::acceptDocument() {
    load(m_before, m_main.Canvas.DIB);
}

void DocumentPreview::restoreDocument() {
    load(m_main.Canvas.DIB, m_before);
    m_main.Canvas.Repaint();
    m_main.Views.tell(&DocumentView::pictureChanged);
}

void DocumentPreview::tryOnDocument(const Change& change) {
    const ScopedValue running(m_isRunning, true);
    load(m_main.Canvas.DIB, m_before);
    change(m_main.Canvas.DIB);
    m_main.Canvas.Repaint();
}

void DocumentPreview::fitAfter(int paneWidth, int paneHeight) {
    const BestFitInfo fit = m_before.GetBestFitInfo(paneWidth, paneHeight);
    m_afterLeft = fit.bfx;
    m_afterTop = fit.bfy;
    m_after.Create(fit.bfW, fit.bfH, 0);
}

void DocumentPreview::makeAfter(const Change& change) {
    m_after.LoadDIBBlt(m_before);
    change(m_after);
}

void DocumentPreview::release() {
    m_before.Destroy();
    m_after.Destroy();
}

}  // namespace mobrel
