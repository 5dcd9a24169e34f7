// SPDX-License-Identifier: MIT
// What a person does with a dialog while its own loop runs.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QPointer>
#include <QTimer>
#include <functional>

namespace mobrel::test {

/// To be called before the dialog is shown. It is closed after `act`, where that has not been done there.
template <typename Dialog>
void whenOpen(const std::function<void(Dialog&)>& act) {
    constexpr int kLookAgain = 5;  // milliseconds
    constexpr int kPatience = 20'000;
    auto* const timer = new QTimer(qApp);
    QElapsedTimer waited;
    waited.start();
    QObject::connect(timer, &QTimer::timeout, [=] {
        const QPointer<QWidget> shown = QApplication::activeModalWidget();
        const bool isThere = shown && shown->isVisible();
        if (!isThere && waited.elapsed() < kPatience) return;
        timer->stop();
        timer->deleteLater();
        auto* const dialog = dynamic_cast<Dialog*>(shown.get());
        if (dialog != nullptr) {
            act(*dialog);
        } else {
            ADD_FAILURE() << "no such dialog";
        }
        if (shown) shown->close();
    });
    timer->start(kLookAgain);
}

}  // namespace mobrel::test
