// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/bridge/gallery_pages.h"

#include "host/review/bridge/maps_window.h"
#include "host/review/bridge/spectrum_window.h"
#include "host/toolkit/gadget_bar.h"
#include "host/toolkit/table_window.h"
#include "host/toolkit/window.h"
#include "side_bar/export_form.h"
#include "side_bar/macro_selection_form.h"
#include "side_bar/regression_panel.h"
#include "side_bar/regression_results.h"
#include "side_bar/spectra_panel.h"
#include "side_bar/spectrum_macro_form.h"
#include "spectra_contract/bci_regression.h"
#include "spectra_contract/platform.h"
#include "spectra_contract/recording.h"
#include "spectra_contract/spectra_macro.h"
#include "spectra_contract/spectra_mgr.h"
#include "spectra_contract/spectra_types.h"
#include "spectral_maps/dialogs/electrodes_dialog.h"
#include "spectral_maps/dialogs/map_dialog.h"
#include "spectrum_view/dialogs/band_dialog.h"
#include "spectrum_view/dialogs/comments_dialog.h"
#include "spectrum_view/dialogs/info_dialog.h"
#include "spectrum_view/dialogs/measures_dialog.h"
#include "spectrum_view/dialogs/scale_dialog.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QMouseEvent>
#include <QVBoxLayout>

#include <iterator>

namespace orvanta::review {

namespace {

constexpr int kModeNewAnalysis = 1;
constexpr int kModeEdit = 2;
constexpr int kBarWidth = 900;

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

/// The macros' analyses, computed; the first is the main one, the second the secondary.
void AddAnalyses(const GallerySample& sample, SpectraMgr& manager,
                 std::initializer_list<const char*> macros) {
    for (const char* name : macros) {
        SpectraMacro macro;
        macro.Load(sample.platform.GetAppFolder("MACRO") + name + ".smx");
        auto* analysis = new SpectMacroResult(macro, &sample.recording, sample.platform.GetGUI());
        manager.push_back(analysis);
        analysis->Compute(nullptr);
    }
    manager.SetMain(*manager.begin());
    manager.SetSecondary(*(manager.begin() + 1));
}

/// As it stands beside a view on a small screen.
void ShowSpectraPanel(const GallerySample& sample, const TakePicture& take) {
    constexpr QSize kSize(300, 620);
    SpectraMgr manager(&sample.recording, sample.platform.GetGUI());
    AddAnalyses(sample, manager, {"Eyes closed", "Eyes open", "Around tones", "Whole recording"});
    TFormListenerSpectra1 panel(nullptr, &sample.platform, &sample.recording, &manager);
    panel.resize(kSize);
    take(panel);
}

/// Eyes closed against eyes open.
void AddContrast(const GallerySample& sample, SpectraMgr& manager) {
    AddAnalyses(sample, manager, {"Eyes closed", "Eyes open", "Whole recording"});
    manager.GetMain()->GetMacro().SetContrastValue(1);
}

void ShowRegressionPanel(const GallerySample& sample, const TakePicture& take) {
    constexpr QSize kSize(300, 620);
    SpectraMgr manager(&sample.recording, sample.platform.GetGUI());
    AddContrast(sample, manager);
    TFormListenerSpectraBCI panel(nullptr, &sample.platform, &sample.recording, &manager);
    panel.resize(kSize);
    take(panel);
}

void ShowRegressionResults(const GallerySample& sample, const TakePicture& take) {
    SpectraMgr manager(&sample.recording, sample.platform.GetGUI());
    AddContrast(sample, manager);
    const std::list<SpectMacroResult*> analyses = {manager.GetMain(), manager.GetSecondary()};
    std::list<BCIReg> results;
    manager.ComputeBCIRegression(analyses, results, GetBCISensors(*manager.GetMain()), 1, 32);
    TFormBCIResults form(nullptr, results, analyses, &sample.platform);
    take(form);
}

void ShowExport(const GallerySample& sample, const TakePicture& take) {
    SpectraMgr manager(&sample.recording, sample.platform.GetGUI());
    AddAnalyses(sample, manager, {"Eyes closed", "Eyes open", "Around tones", "Whole recording"});
    TSpectraExportForm form(nullptr, &manager);
    take(form);
}

void ShowView(const GallerySample& sample, const TakePicture& take, const QSize& size, int statMode) {
    SpectraMgr manager(&sample.recording, sample.platform.GetGUI());
    AddAnalyses(sample, manager, {"Eyes closed", "Eyes open", "Whole recording"});
    manager.SetStatMode(statMode);
    ShowSpectrumWindow(sample, manager, size, take);
}

/// As large as it can be on a small screen, with both panels.
void ShowSpectrumView(const GallerySample& sample, const TakePicture& take) {
    ShowView(sample, take, {1366, 700}, 2);
}

void ShowSmallSpectrumView(const GallerySample& sample, const TakePicture& take) {
    ShowView(sample, take, {640, 420}, 0);
}

void ShowMeasures(const GallerySample& sample, const TakePicture& take) {
    SpectraMgr manager(&sample.recording, sample.platform.GetGUI());
    SpectMeasDlg dialog(nullptr, &sample.platform, &manager);
    take(dialog);
}

void ShowComments(const GallerySample& /*sample*/, const TakePicture& take) {
    SpectralComments comments;
    SpectralCommentsDlg dialog(nullptr, &comments);
    dialog.ensurePolished(); // what others have typed comes first
    dialog.SetDlgItemText(105, "Vigilance");
    dialog.SetDlgItemText(106, "Eyes closed");
    dialog.SetDlgItemText(111, "VIG-2");
    dialog.SetDlgItemText(101, "Second recording of the day. Drowsy from minute 12 on.");
    take(dialog);
}

void ShowBands(const GallerySample& sample, const TakePicture& take) {
    SpectraMgr manager(&sample.recording, sample.platform.GetGUI());
    SpectrumBandDlg dialog(nullptr, &sample.platform, &manager);
    take(dialog);
}

/// Rows that will not be stored, or not as they look.
void ShowBandsBeingTyped(const GallerySample& sample, const TakePicture& take) {
    SpectraMgr manager(&sample.recording, sample.platform.GetGUI());
    SpectrumBandDlg dialog(nullptr, &sample.platform, &manager);
    dialog.ensurePolished();
    dialog.SetDlgItemText(303, "18.0");
    dialog.SetDlgItemText(404, "25,5");
    take(dialog);
}

void ShowScale(const GallerySample& /*sample*/, const TakePicture& take) {
    SpectrumScaleDlg dialog(nullptr, "Power", "µV²/Hz", 128);
    dialog.SetScale({0, 40, 0, 30, false});
    take(dialog);
}

void ShowScaleBeingTyped(const GallerySample& /*sample*/, const TakePicture& take) {
    SpectrumScaleDlg dialog(nullptr, "Amplitude", "µV/√Hz", 128);
    dialog.SetScale({0, 40, 0, 300, true});
    take(dialog);
}

void ShowInfo(const GallerySample& sample, const TakePicture& take) {
    SpectraMacro macro;
    macro.Load(sample.platform.GetAppFolder("MACRO") + "Eyes closed.smx");
    SpectMacroResult result(macro, &sample.recording, sample.platform.GetGUI());
    SpectrumInfoDlg dialog(nullptr, &result);
    take(dialog);
}

void ShowMapDialog(const GallerySample& sample, const TakePicture& take) {
    SpectraMgr manager(&sample.recording, sample.platform.GetGUI());
    Spect3DDlg dialog(nullptr, &sample.platform, &manager);
    dialog.plotSet = {2, 2, 0, 60, false, true};
    take(dialog);
}

void ShowMaps(const GallerySample& sample, const TakePicture& take, MapsKind kind) {
    SpectraMgr manager(&sample.recording, sample.platform.GetGUI());
    AddAnalyses(sample, manager, {"Eyes closed", "Eyes open"});
    ShowMapsWindow(sample, manager, {1100, 700}, kind, take);
}

void ShowFlatMaps(const GallerySample& sample, const TakePicture& take) {
    ShowMaps(sample, take, MapsKind::Flat);
}

void ShowHeads(const GallerySample& sample, const TakePicture& take) {
    ShowMaps(sample, take, MapsKind::Heads);
}

void ShowCartoon(const GallerySample& sample, const TakePicture& take) {
    ShowMaps(sample, take, MapsKind::Cartoon);
}

/// A scale that will not be taken.
void ShowMapDialogBeingTyped(const GallerySample& sample, const TakePicture& take) {
    SpectraMgr manager(&sample.recording, sample.platform.GetGUI());
    Spect3DDlg dialog(nullptr, &sample.platform, &manager);
    dialog.applyToAllLocked = true;
    dialog.ensurePolished();
    dialog.SetDlgItemText(106, "60");
    take(dialog);
}

void ShowElectrodes(const GallerySample& sample, const TakePicture& take) {
    const SensorList sensors = EegSensors(sample.recording);
    SensorList selected(sensors.begin(), std::next(sensors.begin(), 7));
    CARElectSelDlg dialog(nullptr, selected, sensors);
    take(dialog);
}

/// A bar with every kind of gadget.
void ShowGadgetBar(const GallerySample& /*sample*/, const TakePicture& take) {
    owl::TEventHandler handler;
    QWidget window;
    owl::GadgetBar bar(handler);
    (new QVBoxLayout(&window))->addWidget(&bar);
    bar.AddButton(14416, 2064, "");
    bar.AddButton(14417, 2065, "");
    bar.AddGap();
    QComboBox* montages = bar.AddComboBox(14537, "");
    montages->addItems({"Bipolar", "Average reference"});
    bar.AddGap();
    for (const unsigned button : {14447U, 14376U, 14437U, 14439U}) {
        bar.AddButton(button, button, "");
    }
    bar.AddGap();
    bar.AddTwoStateButton(14150, 2069, 2068, "")->Press(true);
    bar.AddSlider(16329, 60, "");
    bar.AddText(7)->setText("Power");
    bar.AddText(5)->setText("Hz");
    bar.AddText(9)->setText("Vert : µV²/Hz");
    window.resize(kBarWidth, window.sizeHint().height());
    take(window);
}

void ShowGridPicker(const GallerySample& /*sample*/, const TakePicture& take) {
    owl::TWindow view;
    TTableWnd picker(view, {0, 0}, 10, 10, 10, 10, 14539, view.logicalDpiX());
    const QPointF place = picker.CellRect(3, 1).center();
    QMouseEvent mark(QEvent::MouseMove, place, place, Qt::NoButton, Qt::NoButton, {});
    QCoreApplication::sendEvent(&picker, &mark);
    take(picker);
}

} // namespace

std::vector<GalleryPage> MakeModulePages(const GallerySample& sample) {
    const auto page = [&sample](const char* name, void (*show)(const GallerySample&, const TakePicture&)) {
        return GalleryPage{name, [sample, show](const TakePicture& take) { show(sample, take); }};
    };
    return {page("macro-selection", ShowMacroSelection),
            page("settings-states", ShowStateSettings),
            page("settings-spots", ShowSpotSettings),
            page("measures", ShowMeasures),
            page("comments", ShowComments),
            page("bands", ShowBands),
            page("bands-typed", ShowBandsBeingTyped),
            page("axis-ranges", ShowScale),
            page("axis-ranges-typed", ShowScaleBeingTyped),
            page("spectra-info", ShowInfo),
            page("map-options", ShowMapDialog),
            page("map-options-typed", ShowMapDialogBeingTyped),
            page("electrodes", ShowElectrodes),
            page("maps-view", ShowFlatMaps),
            page("maps-view-heads", ShowHeads),
            page("maps-view-cartoon", ShowCartoon),
            page("spectrum-view", ShowSpectrumView),
            page("spectrum-view-small", ShowSmallSpectrumView),
            page("spectra-panel", ShowSpectraPanel),
            page("bci-panel", ShowRegressionPanel),
            page("bci-results", ShowRegressionResults),
            page("spectra-export", ShowExport),
            page("gadget-bar", ShowGadgetBar),
            page("grid-picker", ShowGridPicker)};
}

} // namespace orvanta::review
