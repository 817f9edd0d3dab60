// SPDX-License-Identifier: GPL-3.0-or-later
// Progress of long work in a window, with Cancel.
#pragma once

#include "spectra_contract/platform.h"

#include <QPointer>
#include <QProgressDialog>

#include <cstdint>

namespace orvanta::review {

/// Comes up when the work has lasted 300 ms, so that short work does not flicker. Until then the other
/// windows are repainted but take no input; from then on input goes here. So the user closes no window while
/// the work lasts; one that the program deletes meanwhile does no harm.
class ProgressBox final : public GenericProgress {
public:
    /// \param over the window to stand over; may be null
    ProgressBox(const std::string& text, QWidget* over);

    void SetText(const std::string& text) override;
    void SetPosition(double fraction) override;
    bool IsCancelled() const override;

    /// The window; hidden while the work is young, and once it is cancelled.
    QProgressDialog& Window() { return window_; }

private:
    void Show();

    QProgressDialog
        window_; ///< belongs to no window, with which it would be deleted in the middle of the work
    QPointer<QWidget> over_;
    std::int64_t started_; ///< ms of the clock
    std::int64_t served_;  ///< when events were processed last
};

} // namespace orvanta::review
