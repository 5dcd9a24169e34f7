// SPDX-License-Identifier: MIT
// Signals of Qt's controls, connected with the core: each handler runs behind the boundary of errors.
#pragma once

#include <QAbstractButton>
#include <QObject>
#include <utility>

#include "desktop/Boundary.hpp"

namespace mobrel {

/// The connection ends with the sender and with the receiver.
template <typename Sender, typename Signal, typename Handler>
void connectToCore(Sender* sender, Signal signal, QObject* receiver, Handler handler) {
    QObject::connect(sender, signal, receiver, [handler = std::move(handler)] { enterCore(handler); });
}

template <typename Handler>
void onClick(QAbstractButton* button, QObject* receiver, Handler handler) {
    connectToCore(button, &QAbstractButton::clicked, receiver, std::move(handler));
}

template <typename Handler>
void onToggle(QAbstractButton* button, QObject* receiver, Handler handler) {
    connectToCore(button, &QAbstractButton::toggled, receiver, std::move(handler));
}

}  // namespace mobrel
