// SPDX-License-Identifier: GPL-3.0-or-later
// How an analysis was computed, and from which epochs.
#pragma once

#include "host/toolkit/dialog.h"
#include "spectra_contract/api.h"

class SpectMacroResult;

namespace owl {
class TWindow;
}

/// Dialog 1627. Its text can be selected and copied; it is empty for an analysis without epochs. GUI thread.
class ORVANTA_API SpectrumInfoDlg final : public PDialog {
public:
    static constexpr unsigned kNumber = 1627;

    /// \param parent may be null
    /// \param result may be null; must outlive the dialog
    SpectrumInfoDlg(owl::TWindow* parent, SpectMacroResult* result);
    ~SpectrumInfoDlg() override;

protected:
    void SetupWindow() override;

private:
    SpectMacroResult* result_;
};
