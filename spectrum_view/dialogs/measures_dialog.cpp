// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/dialogs/measures_dialog.h"

#include "host/toolkit/form_texts.h"
#include "host/toolkit/modal_gateway.h"
#include "host/toolkit/window.h"
#include "side_bar/measure_names.h"
#include "spectra_contract/platform.h"
#include "spectra_contract/spect_globals.h"
#include "spectra_contract/spectra_mgr.h"

#include <QCheckBox>

#include <array>

namespace {

// The first check boxes of the bands and of the measures; the others follow.
constexpr int kFirstBand = 103;
constexpr int kFirstMeasure = 113;

/// Where a band lies, for those whose name does not tell.
std::string TipOf(const SPECT::Band& band, const GenericPlatform& platform, const PModule* module) {
    if (!band.IsDefined()) {
        return owl::TextOr(module, "DIALOG_1628", "undefined", "This band is not defined");
    }
    const auto text = [&platform](double value) {
        std::array<char, 128> buffer{};
        platform.FloatToStrLoc(buffer.data(), buffer.size(), value, 1);
        return std::string(buffer.data());
    };
    return text(band.lo) + " – " + text(band.hi) + " Hz";
}

} // namespace

SpectMeasDlg::SpectMeasDlg(owl::TWindow* parent, GenericPlatform* platform, SpectraMgr* manager)
    : PDialog(HWND(parent), kNumber, PModule::Named("Orvanta")), platform_(platform), manager_(manager) {}

SpectMeasDlg::~SpectMeasDlg() = default;

void SpectMeasDlg::SetupWindow() {
    PDialog::SetupWindow();
    const int rowHeight = QCheckBox("Band").sizeHint().height();
    for (unsigned i = 0; i < SPECT::BandCount; ++i) {
        const SPECT::Band& band = manager_->GetBand(i);
        const int control = kFirstBand + static_cast<int>(i);
        SetDlgItemText(control, band.name);
        CheckDlgButton(control, band.selected);
        if (QWidget* box = GetDlgItem(control)) {
            box->setToolTip(QString::fromStdString(TipOf(band, *platform_, GetModule())));
            // Without a caption it would be lower than its neighbours.
            box->setMinimumHeight(rowHeight);
        }
    }
    for (unsigned i = 0; i < SPECT::Meas::Count; ++i) {
        const int control = kFirstMeasure + static_cast<int>(i);
        SetDlgItemText(control, orvanta::side_bar::MeasureName(*manager_, i));
        CheckDlgButton(control, SPECT::GetGlobals().MeasSelected[i]);
    }
}

void SpectMeasDlg::Destroy(int retValue) {
    PDialog::Destroy(retValue);
    if (retValue != owl::kIdOk) {
        return;
    }
    bool any = false;
    for (unsigned i = 0; i < SPECT::BandCount; ++i) {
        const bool checked = IsDlgButtonChecked(kFirstBand + static_cast<int>(i));
        manager_->GetBand(i).selected = checked;
        any = any || checked;
    }
    manager_->GetBand(0).selected |= !any;
    any = false;
    SPECT::Globals& globals = SPECT::GetGlobals();
    for (unsigned i = 0; i < SPECT::Meas::Count; ++i) {
        globals.MeasSelected[i] = IsDlgButtonChecked(kFirstMeasure + static_cast<int>(i));
        any = any || globals.MeasSelected[i];
    }
    globals.MeasSelected[0] |= !any;
    globals.SaveInfo(platform_);
}
