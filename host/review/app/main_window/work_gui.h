// SPDX-License-Identifier: GPL-3.0-or-later
// Messages and progress in windows, and whether work is going on.
#pragma once

#include "host/review/app/gui.h"
#include "spectra_contract/platform.h"

#include <QObject>

#include <functional>

namespace orvanta::review {

/// Counts the progress displays that are there, so that what would end windows can wait for the work in which
/// it happens. GUI thread.
class WorkGui final : public GenericGUI {
public:
    WorkGui() = default;

    void ShowError(const std::string& text) const override;
    void ShowWarning(const std::string& text) const override;
    /// What it makes must not outlive this.
    std::unique_ptr<GenericProgress> CreateProgress(const std::string& text) const override;

    bool IsBusy() const { return running_ > 0; }
    /// Runs it now, telling its failure; while work goes on, cancels that, tells no failures any more, and
    /// runs it from the event loop when all is done. Only the last one given is run. Nothing is run while a
    /// dialog waits for the user, as what it is about must not go: what has waited for work waits for a
    /// dialog that comes up then, too, and anything else is dropped.
    void WhenIdle(std::function<void()> action);

private:
    class Tracked;

    void Ended() const;
    void RunWaiting();
    void RunDue();

    Gui gui_;
    mutable int running_ = 0;
    std::function<void()> waiting_; ///< while it is set, work is to end
    std::function<void()> due_;     ///< what has waited for work that is done
    mutable QObject queue_;         ///< takes its queued calls with it
};

} // namespace orvanta::review
