// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/bridge/gallery_pages.h"

#include "side_bar/macro_selection_form.h"
#include "side_bar/spectrum_macro_form.h"
#include "spectra_contract/platform.h"
#include "spectra_contract/recording.h"
#include "spectra_contract/spectra_macro.h"
#include "spectra_contract/spectra_mgr.h"
#include "spectrum_view/dialogs/measures_dialog.h"

#include <QListWidget>

namespace orvanta::review {

namespace {

constexpr int kModeNewAnalysis = 1;
constexpr int kModeEdit = 2;

SensorList EegSensors(const EEGFileInfoType& recording) {
    SensorList sensors;
    recording.GetTraceInfo()->GetSensorsListOfType(sensors, Sensor::EegFamily, Sensor::Class::Eeg);
    return sensors;
}

void ShowMacroSelection(const GallerySample& sample, const TakePicture& take) {
    SpectraMacro macro;
    TFormMacroSpectra form(nullptr, nullptr, &macro, sample.recording.GetEventsManager(),
                           EegSensors(sample.recording), kModeNewAnalysis, &sample.platform);
    if (auto* macros = form.findChild<QListWidget*>("ListBoxMacro")) {
        macros->setCurrentRow(1);
    }
    take(form);
}

void ShowSettings(const GallerySample& sample, const TakePicture& take, const std::string& name, int mode) {
    SpectraMacro macro;
    macro.Load(sample.platform.GetAppFolder("MACRO") + name + ".smx");
    TFormSpectrumMacro form(nullptr, "", &macro, sample.recording.GetEventsManager(),
                            EegSensors(sample.recording), mode);
    take(form);
}

void ShowStateSettings(const GallerySample& sample, const TakePicture& take) {
    ShowSettings(sample, take, "Eyes closed", kModeEdit);
}

void ShowSpotSettings(const GallerySample& sample, const TakePicture& take) {
    ShowSettings(sample, take, "Around tones", kModeEdit);
}

void ShowMeasures(const GallerySample& sample, const TakePicture& take) {
    SpectraMgr manager(&sample.recording, sample.platform.GetGUI());
    SpectMeasDlg dialog(nullptr, &sample.platform, &manager);
    take(dialog);
}

} // namespace

std::vector<GalleryPage> MakeModulePages(const GallerySample& sample) {
    const auto page = [&sample](const char* name, void (*show)(const GallerySample&, const TakePicture&)) {
        return GalleryPage{name, [sample, show](const TakePicture& take) { show(sample, take); }};
    };
    return {page("macro-selection", ShowMacroSelection), page("settings-states", ShowStateSettings),
            page("settings-spots", ShowSpotSettings), page("measures", ShowMeasures)};
}

} // namespace orvanta::review
