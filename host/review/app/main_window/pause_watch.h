// SPDX-License-Identifier: GPL-3.0-or-later
// The moments at which the user pauses.
#pragma once

#include <QObject>
#include <QTimer>

#include <chrono>
#include <functional>

namespace orvanta::review {

class WorkGui;

/// Tells once of each pause in what the user does with keys and mouse anywhere in the program: what takes a
/// moment then disturbs no one. Not while something is computed or a dialog is open; then a pause later.
/// GUI thread.
class PauseWatch final : public QObject {
public:
    /// \param gui must outlive this
    PauseWatch(const WorkGui& gui, std::chrono::milliseconds pause, std::function<void()> paused);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void Paused();

    const WorkGui& gui_;
    std::function<void()> paused_;
    QTimer timer_;
};

} // namespace orvanta::review
