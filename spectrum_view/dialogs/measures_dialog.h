// SPDX-License-Identifier: GPL-3.0-or-later
// Choice of the bands and measures that are copied to the clipboard.
#pragma once

#include "host/toolkit/dialog.h"
#include "spectra_contract/api.h"

class GenericPlatform;
class SpectraMgr;

namespace owl {
class TWindow;
}

/// Dialog 1628. OK sets the selections of the shared settings and stores them; the first band stays selected
/// when none is, and so does the first measure. GUI thread.
class ORVANTA_API SpectMeasDlg final : public PDialog {
public:
    static constexpr unsigned kNumber = 1628;

    /// \param parent may be null
    /// \param platform where the settings are stored
    /// \param manager with the bands; both must outlive the dialog
    SpectMeasDlg(owl::TWindow* parent, GenericPlatform* platform, SpectraMgr* manager);
    ~SpectMeasDlg() override;

    void Destroy(int retValue) override;

protected:
    void SetupWindow() override;

private:
    GenericPlatform* platform_;
    SpectraMgr* manager_;
};
