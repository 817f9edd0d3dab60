// SPDX-License-Identifier: GPL-3.0-or-later
// The ranges of the axes of one measured quantity.
#pragma once

#include "host/toolkit/dialog.h"
#include "spectra_contract/api.h"
#include "spectra_contract/spectra_types.h"

#include <string>

namespace owl {
class TWindow;
}

/// Dialog 1631. OK takes the amplitudes as they are typed. A frequency minimum that is negative or above the
/// maximum becomes 0; then a maximum above the limit becomes the limit. Numbers are shown with one decimal,
/// and shown and read with the decimal sign of the C locale; a text that is no number counts as 0. What will
/// be changed or read otherwise than it looks is marked while the user types. GUI thread.
class ORVANTA_API SpectrumScaleDlg final : public PDialog {
public:
    static constexpr unsigned kNumber = 1631;

    /// \param parent may be null
    /// \param entityName what is measured
    /// \param unit its unit, may be empty
    /// \param frequencyLimit the highest frequency that the data have, in Hz
    SpectrumScaleDlg(owl::TWindow* parent, const std::string& entityName, const std::string& unit,
                     double frequencyLimit);
    ~SpectrumScaleDlg() override;

    /// The record to edit, to be set before Execute.
    void SetScale(const SPECT::Scale& scale) { scale_ = scale; }
    /// The record, edited after OK, else as it was set.
    const SPECT::Scale& GetScale() const { return scale_; }

    void Destroy(int retValue) override;

protected:
    void SetupWindow() override;

private:
    void MarkRows();

    std::string entityName_;
    std::string unit_;
    double frequencyLimit_;
    SPECT::Scale scale_;
};
