// SPDX-License-Identifier: GPL-3.0-or-later
// Progress of long work in a window, with Cancel.
#pragma once

#include "spectra_contract/platform.h"

#include <QProgressDialog>

#include <cstdint>

namespace orvanta::review {

/// Comes up when the work has lasted 300 ms, so that short work does not flicker. Until then the other
/// windows are repainted but take no input; from then on input goes here.
class ProgressBox final : public GenericProgress {
public:
    ProgressBox(const std::string& text, QWidget* parent);

    void SetText(const std::string& text) override;
    void SetPosition(double fraction) override;
    bool IsCancelled() const override;

    /// The window; hidden while the work is young, and once it is cancelled.
    QProgressDialog& Window() { return window_; }

private:
    QProgressDialog window_;
    std::int64_t started_; ///< ms of the clock
    std::int64_t served_;  ///< when events were processed last
};

} // namespace orvanta::review
