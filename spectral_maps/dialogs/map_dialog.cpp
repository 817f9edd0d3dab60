// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectral_maps/dialogs/map_dialog.h"

#include "host/toolkit/form_texts.h"
#include "host/toolkit/modal_gateway.h"
#include "host/toolkit/window.h"
#include "side_bar/measure_names.h"
#include "side_bar/texts.h"
#include "spectra_contract/platform.h"
#include "spectra_contract/spectra_mgr.h"
#include "spectrum_view/dialogs/row_mark.h"
#include "spectrum_view/dialogs/typed_range.h"

#include <QLabel>
#include <QRadioButton>

#include <array>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <string>

namespace {

using namespace orvanta::spectrum_view;
using orvanta::side_bar::FillIn;

constexpr int kBands = static_cast<int>(SPECT::BandCount);
constexpr int kMeasures = static_cast<int>(SPECT::Meas::Count);

constexpr int kAutoScale = 101;
constexpr int kZeroMin = 102;
constexpr int kHighest = 105;
constexpr int kLowest = 106;
constexpr int kApplyToAll = 107;
constexpr int kBandBox = 201;
constexpr int kMeasureBox = 202;
constexpr int kHeading = 701;
// The first of a row of controls; the others follow.
constexpr int kFirstBand = 110;
constexpr int kFirstLow = 220;
constexpr int kFirstHigh = 230;
constexpr int kFirstMeasure = 521;
/// The one that is a share of the total: 0 to 100 %.
constexpr int kThirdMeasure = 523;

constexpr const char* kSection = "Spectrum";
constexpr int kFlagsKept = 7;

std::string LocalText(const GenericPlatform& platform, double value, int size) {
    std::array<char, 64> buffer{};
    platform.FloatToStrLoc(buffer.data(), size, value, 1);
    return buffer.data();
}

std::string StoredFlags(const GenericPlatform& platform, const char* key, const char* missing) {
    std::array<char, kFlagsKept + 1> buffer{};
    platform.ReadString(kSection, key, missing, buffer.data(), kFlagsKept);
    return buffer.data();
}

/// The ends of a scale as they are typed.
struct Ends {
    std::string lowText, highText;
    double low, high;

    explicit Ends(const owl::TDialog& dialog)
        : lowText(dialog.GetDlgItemText(kLowest, kNumberBytes)),
          highText(dialog.GetDlgItemText(kHighest, kNumberBytes)), low(std::atof(lowText.c_str())),
          high(std::atof(highText.c_str())) {}

    bool AreKept() const {
        constexpr double kLargest = std::numeric_limits<float>::max();
        return std::abs(low) < kLargest && high > low && std::abs(high) < kLargest;
    }
    bool AreWhole() const { return TypedNumber(lowText).whole && TypedNumber(highText).whole; }
};

/// The index of the last checked button of a row; \p none when there is none.
int LastChecked(const owl::TDialog& dialog, int first, int count, int none) {
    int checked = none;
    for (int i = 0; i < count; ++i) {
        if (dialog.IsDlgButtonChecked(first + i)) {
            checked = i;
        }
    }
    return checked;
}

} // namespace

Spect3DDlg::Spect3DDlg(owl::TWindow* parent, GenericPlatform* host, SpectraMgr* manager)
    : PDialog(HWND(parent), kNumber, PModule::Named("Orvanta")), spectraMgr(manager), platform(host) {
    OnClick(kThirdMeasure, [this] { EvClick(); });
    for (const int edit : {kLowest, kHighest}) {
        OnTextChange(edit, [this] { MarkScale(); });
    }
}

Spect3DDlg::~Spect3DDlg() = default;

void Spect3DDlg::SetupWindow() {
    PDialog::SetupWindow();
    SetDlgItemMsg("IDS3D_GB_SPECTRALDATA", kBandBox);
    SetDlgItemMsg("IDS3D_ST_SELECTION", kHeading);
    SetDlgItemMsg("IDS3D_GB_SPECTRALMEASURES", kMeasureBox);
    CheckRadioButton(kFirstBand, kFirstBand + kBands - 1, kFirstBand + plotSet.SpectralBand);
    CheckRadioButton(kFirstMeasure, kFirstMeasure + kMeasures - 1, kFirstMeasure + plotSet.SpectralMeas);
    ShowBands();
    // One more than there are buttons: the eighth name has no place.
    for (int i = 0; i < kMeasures; ++i) {
        SetDlgItemText(kFirstMeasure + i,
                       orvanta::side_bar::MeasureName(*spectraMgr, static_cast<unsigned>(i)));
    }
    CheckDlgButton(kAutoScale, plotSet.bAutoScale);
    CheckDlgButton(kZeroMin, plotSet.bZeroMin);
    CheckDlgButton(kApplyToAll, applyToAll);
    EnableDlgItem(kApplyToAll, !applyToAllLocked);
    RepairStoredSelection();
    SetDlgItemText(kLowest, LocalText(*platform, plotSet.LoScale, 64));
    SetDlgItemText(kHighest, LocalText(*platform, plotSet.HiScale, 64));
}

void Spect3DDlg::ShowBands() {
    const int rowHeight = QRadioButton("Band").sizeHint().height();
    for (int i = 0; i < kBands; ++i) {
        const SPECT::Band& band = spectraMgr->GetBand(static_cast<unsigned>(i));
        SetDlgItemText(kFirstBand + i, band.name);
        SetDlgItemText(kFirstLow + i, LocalText(*platform, band.lo, 32));
        SetDlgItemText(kFirstHigh + i, LocalText(*platform, band.hi, 32));
        QWidget* button = GetDlgItem(kFirstBand + i);
        if (button != nullptr && band.name[0] == '\0') {
            // Without a caption it would be lower than its neighbours.
            button->setMinimumHeight(rowHeight);
            const std::string nameless = owl::TextOr(GetModule(), "DIALOG_1626", "nameless", "Band %s");
            button->setAccessibleName(QString::fromStdString(FillIn(nameless, {std::to_string(i + 1)})));
        }
    }
}

/// The spectrum view's selections, of which the last flag is not looked at.
void Spect3DDlg::RepairStoredSelection() {
    const std::string bands = StoredFlags(*platform, "BandSelect", "00000000");
    const std::string measures = StoredFlags(*platform, "MeasureSelect", "0000000");
    if (bands.find('1') == std::string::npos) {
        platform->WriteString(kSection, "BandSelect", "10000000");
    }
}

void Spect3DDlg::EvClick() {
    SetDlgItemText(kLowest, "0.0");
    SetDlgItemText(kHighest, "100.0");
    CheckDlgButton(kAutoScale, false);
    CheckDlgButton(kZeroMin, true);
}

void Spect3DDlg::Destroy(int retVal) {
    PDialog::Destroy(retVal);
    if (retVal != owl::kIdOk) {
        return;
    }
    plotSet.SpectralBand = LastChecked(*this, kFirstBand, kBands, plotSet.SpectralBand);
    plotSet.SpectralMeas = LastChecked(*this, kFirstMeasure, kMeasures, plotSet.SpectralMeas);
    plotSet.bAutoScale = IsDlgButtonChecked(kAutoScale);
    plotSet.bZeroMin = IsDlgButtonChecked(kZeroMin);
    applyToAll = IsDlgButtonChecked(kApplyToAll);
    const Ends ends(*this);
    if (ends.AreKept()) {
        plotSet.LoScale = ends.low;
        plotSet.HiScale = ends.high;
    }
}

void Spect3DDlg::MarkScale() {
    const Ends ends(*this);
    std::string remark;
    if (!ends.AreKept()) {
        remark = owl::TextOr(GetModule(), "DIALOG_1626", "kept",
                             "Maximum not above minimum: the scale stays as it was");
    } else if (!ends.AreWhole()) {
        remark = FillIn(owl::TextOr(GetModule(), "DIALOG_1626", "readAs", "Read as %s - %s"),
                        {ShortText(ends.low), ShortText(ends.high)});
    }
    MarkRow(findChild<QLabel*>("mark"), {GetDlgItem(kLowest), GetDlgItem(kHighest)},
            ends.AreKept() ? MarkKind::Note : MarkKind::Warning, QString::fromStdString(remark));
    if (auto* line = findChild<QLabel*>("remark")) {
        line->setText(QString::fromStdString(remark));
    }
}
