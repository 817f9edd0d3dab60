// SPDX-License-Identifier: GPL-3.0-or-later
// The view's tool bar.
#include "host/toolkit/form_texts.h"
#include "spectral_maps/command_ids.h"
#include "spectral_maps/gadget_keys.h"
#include "spectral_maps/spect_map.h"

#include <QSlider>

using namespace orvanta::spectral_maps;

void SpectMap::CreateGadgets() {
    CartoonStat::CreateGadgets();
    owl::GadgetBar& bar = GetToolBar();
    const auto tipOf = [this](const char* key, const char* builtIn) {
        return owl::TextOr(GetMessages(), "MENU", key, builtIn);
    };
    const auto addButton = [&](int key, unsigned command, unsigned bitmap, const std::string& tip) {
        SetGadget(key, bar.AddButton(command, DPI_AWARE_BMP_ID(bitmap), tip));
    };
    const auto addTwoState = [&](int key, unsigned command, unsigned up, unsigned down, bool pressed,
                                 const std::string& tip) {
        SetGadget(key, bar.AddTwoStateButton(command, DPI_AWARE_BMP_ID(up), DPI_AWARE_BMP_ID(down), tip));
        PressToolBtn(key, pressed);
    };
    addButton(0, kCmOptions, 2070, tipOf("CM_MAP_3D_MACRO_OPTIONS.tip", "Computation settings"));
    addButton(1, kCmRecompute, 2071, tipOf("CM_MAP_3D_RECOMPUTE.tip", "Compute the spectra again"));
    SetGadget(2, bar.AddGap());
    addButton(3, kCmPalette, 2072, tipOf("CM_MAP_3D_PALETTE.tip", "Choose the colour palette"));
    SetGadget(4, bar.AddGap());
    if (IsThreeD()) {
        addTwoState(kLockGadget, kCmLock, 2069, 2068, IsLocked(),
                    tipOf("CM_MAP_3D_LOCK.tip", "Turn all maps together"));
        SetGadget(8, bar.AddGap());
        addButton(9, kCmLeftView, 2082, tipOf("CM_MAP_3D_LEFT.tip", "View from the left"));
        addButton(10, kCmFrontView, 2081, tipOf("CM_MAP_3D_FRONT.tip", "View from the front"));
        addButton(11, kCmTopView, 2084, tipOf("CM_MAP_3D_TOP.tip", "View from above"));
        addButton(12, kCmRightView, 2083, tipOf("CM_MAP_3D_RIGHT.tip", "View from the right"));
        addButton(13, kCmBackView, 2080, tipOf("CM_MAP_3D_BACK.tip", "View from the back"));
        SetGadget(14, bar.AddGap());
        constexpr int kOpaque = 100;
        QSlider* slider =
            bar.AddSlider(kTransparency, kOpaque, tipOf("CM_MAP_3D_TRANSPARENCY.tip", "Opacity of the maps"));
        SetGadget(15, slider);
        SetTransparencySlider(slider);
    }
    addTwoState(kElectrodesGadget, kCmElectrodes, 2079, 2079, AreElectrodesShown(),
                tipOf("CM_MAP_3D_ELECTRODES.tip", "Show or hide the electrodes"));
    SetGadget(17, bar.AddGap());
    addButton(18, kCmCopy, 2059, tipOf("CM_MAP_3D_COPY.tip", "Copy the measures to the clipboard"));
    SetGadget(19, bar.AddGap());
}
