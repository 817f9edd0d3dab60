// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/module_bridge.h"

#include "host/review/bridge/gallery_pages.h"
#include "host/review/bridge/spectrum_drawing.h"
#include "side_bar/macro_selection_form.h"
#include "side_bar/spectrum_macro_form.h"
#include "spectra_contract/api.h"

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

    std::vector<DrawnPlot> DrawSpectrum(GlobalWindow& window, EEGFileInfoType& recording, SpectraMgr& manager,
                                        const SpectrumPage& page, const owl::TSize& size,
                                        owl::TDC& dc) override {
        return DrawSpectrumPage(window, recording, manager, page, size, dc);
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
