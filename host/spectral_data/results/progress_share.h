// SPDX-License-Identifier: GPL-3.0-or-later
// One progress display for several pieces of work.
#pragma once

#include "spectra_contract/platform.h"

#include <cstddef>

namespace orvanta::spectral {

/// The part of a progress display that belongs to piece \p index of \p count equal ones.
class ProgressShare final : public GenericProgress {
public:
    ProgressShare(GenericProgress* whole, std::size_t index, std::size_t count)
        : whole_(whole), index_(static_cast<double>(index)), count_(static_cast<double>(count)) {}

    void SetText(const std::string& text) override { whole_->SetText(text); }
    void SetPosition(double fraction) override { whole_->SetPosition((index_ + fraction) / count_); }
    bool IsCancelled() const override { return whole_->IsCancelled(); }

private:
    GenericProgress* whole_;
    double index_;
    double count_;
};

} // namespace orvanta::spectral
