// SPDX-License-Identifier: GPL-3.0-or-later
// Progress on a terminal and the wish to stop, for work that takes a while.
#pragma once

#include "host/platform/console_gui.h"
#include "spectra_contract/platform.h"

#include <memory>
#include <stdexcept>
#include <string>

namespace orvanta::cli {

/// The user asked to stop before the work was done.
class Interrupted : public std::runtime_error {
public:
    Interrupted() : std::runtime_error("interrupted (nothing was written)") {}
};

/// Shows progress when standard error is a terminal and the text is wanted, and tells of interrupts in any
/// case.
class Watch final : public GenericProgress {
public:
    /// \param minutes of recording that the work comprises, for the rate
    Watch(const std::string& title, double minutes, bool quiet);
    ~Watch() override;

    void SetText(const std::string& text) override;
    void SetPosition(double fraction) override;
    bool IsCancelled() const override;

private:
    platform::ConsoleGui gui_;
    std::unique_ptr<GenericProgress> shown_;
};

} // namespace orvanta::cli
