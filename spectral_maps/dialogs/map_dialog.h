// SPDX-License-Identifier: GPL-3.0-or-later
// What one map shows.
#pragma once

#include "host/toolkit/dialog.h"
#include "spectra_contract/api.h"
#include "spectra_contract/spectra_types.h"

class GenericPlatform;
class SpectraMgr;

namespace owl {
class TWindow;
}

/// Dialog 1626. Before it is run the caller fills the members; after OK they are what the user chose, after
/// Cancel what they were. The scale's ends are kept unless both are finite in single precision and the
/// maximum is above the minimum; what will not be kept is marked while the user types. They are shown and
/// read with the decimal sign of the C locale; a text that is no number counts as 0. Choosing the third
/// measure proposes 0 to 100. There is no button for the eighth measure: it stays until another is chosen.
/// GUI thread.
class ORVANTA_API Spect3DDlg final : public PDialog {
public:
    static constexpr unsigned kNumber = 1626;

    /// \param parent may be null
    /// \param platform with the text settings: a stored selection of bands without any becomes that of the
    /// first when the dialog comes up
    /// \param spectraMgr with the names of bands and measures; both must outlive the dialog
    Spect3DDlg(owl::TWindow* parent, GenericPlatform* platform, SpectraMgr* spectraMgr);
    ~Spect3DDlg() override;

    void Destroy(int retVal) override;

    SPECT::PlotSet plotSet;
    bool applyToAll = false;       ///< measure and scale are for all maps
    bool applyToAllLocked = false; ///< the user cannot change that
    SpectraMgr* spectraMgr;
    GenericPlatform* platform;

protected:
    void SetupWindow() override;

private:
    void EvClick();
    void ShowBands();
    void RepairStoredSelection();
    void MarkScale();
};
