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
/// stored. Numbers are shown with the decimal sign of the C locale and read with "."; a text that is no
/// number counts as 0, "nan" lies in no order. Rows that are not stored or read otherwise than they look are
/// marked while the user types. GUI thread.
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
    // Rows 0 to 7 are the bands, row 8 the total band.
    void NameForScreenReaders();
    void KeepNamesStorable();
    void MarkRowOf(int row);
    void ShowFirstRemark();
    QString CaptionOf(int row) const;

    GenericPlatform* platform_;
    SpectraMgr* manager_;
};
