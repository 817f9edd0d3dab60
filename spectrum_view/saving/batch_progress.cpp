// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/saving/batch_progress.h"

#include "host/toolkit/form_texts.h"
#include "side_bar/texts.h"

namespace orvanta::spectrum_view {

BatchProgress::BatchProgress(MakeDisplay make, std::size_t files, const PModule* messages)
    : make_(std::move(make)), files_(files), messages_(messages) {}

void BatchProgress::Next(const std::string& file) {
    ++begun_;
    const std::string format =
        owl::TextOr(messages_, "Spectrum", "SavingSpectra", "Saving spectra: %d of %d: %s");
    const std::string text = side_bar::FillIn(format, {std::to_string(begun_), std::to_string(files_), file});
    if (begun_ == 1 && make_) {
        display_ = make_(text);
    } else if (display_ != nullptr) {
        display_->SetText(text);
        Show(0);
    }
}

GenericProgress* BatchProgress::Computation() {
    return display_ != nullptr ? &share_ : nullptr;
}

void BatchProgress::Show(double fraction) {
    display_->SetPosition((static_cast<double>(begun_ - 1) + fraction) / static_cast<double>(files_));
}

} // namespace orvanta::spectrum_view
