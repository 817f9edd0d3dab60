// SPDX-License-Identifier: GPL-3.0-or-later
// The frequency bands and the total band.
#pragma once

#include "host/toolkit/dialog.h"
#include "spectra_contract/api.h"

class GenericPlatform;
class SpectraMgr;

namespace owl {
class TWindow;
}

/// Dialog 1625. OK sets name, lower and upper frequency (Hz) of every band for which 0 <= lower <= upper;
/// another row keeps all three. So does the total band, and only when it is set are the shared settings
/// stored. Numbers are shown with the user's decimal sign and read with ".". GUI thread.
class ORVANTA_API SpectrumBandDlg final : public PDialog {
public:
    static constexpr unsigned kNumber = 1625;

    /// \param parent may be null
    /// \param platform where the settings are stored
    /// \param manager with the bands; both must outlive the dialog
    SpectrumBandDlg(owl::TWindow* parent, GenericPlatform* platform, SpectraMgr* manager);
    ~SpectrumBandDlg() override;

    void Destroy(int retValue) override;

protected:
    void SetupWindow() override;

private:
    GenericPlatform* platform_;
    SpectraMgr* manager_;
};
