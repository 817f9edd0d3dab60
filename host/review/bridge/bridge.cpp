// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/module_bridge.h"

#include "host/review/bridge/gallery_pages.h"
#include "host/review/bridge/map_electrodes.h"
#include "host/review/bridge/maps_drawing.h"
#include "host/review/bridge/refresh_view.h"
#include "host/review/bridge/spectrum_choices.h"
#include "host/review/bridge/spectrum_drawing.h"
#include "host/toolkit/modal_gateway.h"
#include "host/toolkit/window.h"
#include "side_bar/macro_selection_form.h"
#include "side_bar/spectrum_macro_form.h"
#include "spectra_contract/api.h"
#include "spectra_contract/module_entry.h"
#include "spectra_contract/recording.h"
#include "spectral_maps/dialogs/electrodes_dialog.h"
#include "spectral_maps/spect_map.h"
#include "spectrum_view/spectrum.h"

namespace {

using namespace orvanta::review;

class Bridge final : public ModuleBridge {
public:
    void EditMacro(HWND parent, const std::string& folder, SpectraMacro& macro, EventsManager* events,
                   const SensorList& sensors, int mode) override {
        TFormSpectrumMacro(parent, folder.c_str(), &macro, events, sensors, mode).ShowModal();
    }

    std::int32_t SelectMacro(HWND parent, SpectraMacro& macro, EventsManager* events,
                             const SensorList& sensors, int mode, const GenericPlatform& platform) override {
        TFormMacroSpectra form(nullptr, parent, &macro, events, sensors, mode, &platform);
        form.ShowModal();
        return form.GetResult();
    }

    bool ChooseElectrodes(HWND parent, SensorList& selected, const SensorList& all) override {
        return CARElectSelDlg(dynamic_cast<owl::TWindow*>(parent.Widget()), selected, all).Execute() ==
               owl::kIdOk;
    }

    std::vector<DrawnPlot> DrawSpectrum(GlobalWindow& window, EEGFileInfoType& recording, SpectraMgr& manager,
                                        const SpectrumPage& page, const owl::TSize& size,
                                        owl::TDC& dc) override {
        return DrawSpectrumPage(window, recording, manager, page, size, dc);
    }

    std::vector<DrawnMap> DrawMaps(GlobalWindow& window, EEGFileInfoType& recording, SpectraMgr& manager,
                                   const MapsPage& page, const owl::TSize& size, owl::TDC& dc) override {
        return DrawMapsPage(window, recording, manager, page, size, dc);
    }

    void DrawCartoon(GlobalWindow& window, EEGFileInfoType& recording, SpectraMgr& manager,
                     const MapsPage& page, const owl::TSize& size, const TakeFrame& take) override {
        DrawMapsCartoon(window, recording, manager, page, size, take);
    }

    TheChild* MakeSpectrumView(GlobalWindow& window, EEGFileInfoType& recording,
                               SpectraMgr& manager) override {
        return new Spectrum(window, &recording, &manager, false);
    }

    TheChild* MakeMapsView(GlobalWindow& window, EEGFileInfoType& recording, SpectraMgr& manager,
                           bool threeD) override {
        return new SpectMap(window, &recording, &manager, threeD, MapElectrodes(recording));
    }

    void FollowMontage(TheChild& view, const EEGFileInfoType& recording) override {
        FollowRecordingMontage(view, recording);
    }

    SpectrumLook LookOf(const TheChild& view) override {
        return ::orvanta::review::LookOf(dynamic_cast<const Spectrum&>(view));
    }

    void Choose(TheChild& view, const SpectrumLook& look) override {
        ::orvanta::review::Choose(dynamic_cast<Spectrum&>(view), look);
    }

    void RefreshView(TheChild& view) override { RefreshAnalysisView(view); }

    void TellOfAnalysis(const TheChild& view) override {
        dynamic_cast<const Spectrum&>(view).DrawStatusBar();
    }

    std::int32_t CreateNewSpectrum(const GenericPlatform& platform, HWND parent, SpectraMgr& manager,
                                   EEGFileInfoType& recording) override {
        return ::CreateNewSpectrum(&platform, parent, manager, &recording);
    }

    void PerformComputation(const GenericPlatform& platform, HWND parent, SpectMacroResult& analysis,
                            EEGFileInfoType& recording) override {
        ::PerformComputation(&platform, parent, &analysis, &recording);
    }

    std::vector<GalleryPage> MakeGalleryPages(const GallerySample& sample) override {
        return MakeModulePages(sample);
    }
};

} // namespace

extern "C" ORVANTA_API ModuleBridge* OrvantaBridge() {
    static Bridge bridge;
    return &bridge;
}
