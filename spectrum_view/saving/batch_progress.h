// SPDX-License-Identifier: GPL-3.0-or-later
// The one progress display of a batch of files.
#pragma once

#include "spectra_contract/platform.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <string>

class PModule;

namespace orvanta::spectrum_view {

/// Tells which of how many files is under way. Each file has the same share of the display, and what is
/// computed for it moves the display within that share.
class BatchProgress {
public:
    /// Makes a display headed by the text; may answer null.
    using MakeDisplay = std::function<std::unique_ptr<GenericProgress>(const std::string& text)>;

    /// \param make called for the first file; empty for no display
    /// \param messages may be null
    BatchProgress(MakeDisplay make, std::size_t files, const PModule* messages);
    BatchProgress(const BatchProgress&) = delete;
    BatchProgress& operator=(const BatchProgress&) = delete;

    /// The next file is under way: "Saving spectra: 3 of 60: NAME".
    void Next(const std::string& file);
    /// Shows how far the file's computation has come; null without a display. It takes no cancel: a file that
    /// was begun is finished, and the spectra shown are whole.
    GenericProgress* Computation();
    /// True when the user wants no further file.
    bool IsCancelled() const { return display_ != nullptr && display_->IsCancelled(); }

private:
    class Share final : public GenericProgress {
    public:
        explicit Share(BatchProgress& batch) : batch_(batch) {}
        void SetText(const std::string& /*text*/) override {}
        void SetPosition(double fraction) override { batch_.Show(fraction); }
        bool IsCancelled() const override { return false; }

    private:
        BatchProgress& batch_;
    };

    /// \param fraction done of the file under way
    void Show(double fraction);

    MakeDisplay make_;
    std::unique_ptr<GenericProgress> display_;
    std::size_t files_;
    std::size_t begun_ = 0;
    const PModule* messages_;
    Share share_{*this};
};

} // namespace orvanta::spectrum_view
