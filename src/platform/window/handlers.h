// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Connecting events to procedures. No failure may cross the event loop: each handler runs through
// `runHandler`.

#include "platform/core/regime.h"

#include <QObject>

#include <functional>
#include <utility>

namespace platform {

/// Connects a signal to a body that takes the signal's arguments or none; the body lives as long as
/// `context`.
template <typename Sender, typename SenderClass, typename... SignalArgs, typename Body>
QMetaObject::Connection handle(Sender* sender, void (SenderClass::*signal)(SignalArgs...), QObject* context,
                               Body body)
{
    return QObject::connect(sender, signal, context, [body = std::move(body)](SignalArgs... args) {
        runHandler([&] {
            if constexpr (std::is_invocable_v<const Body&, SignalArgs...>)
                std::invoke(body, args...);
            else
                std::invoke(body);
        });
    });
}

} // namespace platform
