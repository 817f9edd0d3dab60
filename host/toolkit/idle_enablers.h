// SPDX-License-Identifier: GPL-3.0-or-later
// Tool buttons that follow their commands' enablers.
#pragma once

#include "host/toolkit/export.h"

#include <QObject>
#include <QPointer>

#include <vector>

class QAbstractButton;

namespace owl {

class TEventHandler;

/// Runs the enablers of its buttons whenever the event loop has nothing left to do. GUI thread.
class ORVANTA_TOOLKIT_API IdleEnablers final : public QObject {
public:
    /// \param handler must outlive this
    explicit IdleEnablers(TEventHandler& handler, QObject* parent = nullptr);

    /// A button may go at any time.
    void Add(unsigned id, QAbstractButton& button);

private:
    struct Entry {
        unsigned id;
        QPointer<QAbstractButton> button;
    };

    void Run();

    TEventHandler& handler_;
    std::vector<Entry> entries_;
};

} // namespace owl
