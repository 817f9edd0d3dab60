// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectral_maps/spect_map.h"

#include "host/chart_view/maps/plot_set_store.h"
#include "host/chart_view/side_bar_manager.h"
#include "host/toolkit/form_texts.h"
#include "spectra_contract/platform.h"
#include "spectra_contract/recording.h"
#include "spectra_contract/spectra_mgr.h"
#include "spectral_maps/command_ids.h"
#include "spectral_maps/menu_texts.h"
#include "spectral_maps/spectral_map_window.h"

#include <typeinfo>

using namespace orvanta::spectral_maps;

namespace {

constexpr unsigned kMenu = 8304;
constexpr unsigned kBitmap = 2328;
constexpr unsigned kIcon = 28785;
constexpr unsigned kSmallIcon = 28784;

/// The run-time type name without the digits of its length.
const std::string& ClassName() {
    static const std::string name = [] {
        const std::string whole = typeid(SpectMap).name();
        return whole.substr(whole.find_first_not_of("0123456789"));
    }();
    return name;
}

} // namespace

constinit const owl::TResponseTable SpectMap::__entries = {
    owl::Command<&SpectMap::CmConfigureMap>(kCmConfigure),
    owl::Command<&SpectMap::CmChoosePalette>(kCmPalette),
    owl::Command<&SpectMap::CmCopy2ClpBrd>(kCmCopy),
    owl::Command<&SpectMap::CmTable>(kCmTable),
    owl::CommandEnabler<&SpectMap::CeTable>(kCmTable),
    owl::Command<&SpectMap::CmRecompute>(kCmRecompute),
    owl::Command<&SpectMap::CmOptions>(kCmOptions),
    owl::Command<&SpectMap::CmElectrodes>(kCmElectrodes),
    owl::Command<&SpectMap::CmLock>(kCmLock),
    owl::Command<&SpectMap::CmSetBands>(kCmSetBands),
    owl::Command<&SpectMap::CmCartoonMode>(kCmCartoon),
    owl::CommandEnabler<&SpectMap::CeCartoonMode>(kCmCartoon),
    owl::Command<&SpectMap::CmNextSelection>(kCmNextSelection),
    owl::CommandEnabler<&SpectMap::CeNextSelection>(kCmNextSelection),
    owl::Command<&SpectMap::CmSpectraInfo>(kCmSpectraInfo),
    owl::Command<&SpectMap::CmSelectFont>(kCmSelectFont),
    owl::Message<&SpectMap::SetMapOptions>(kMapOptions),
    owl::Message<&SpectMap::EvTransp>(kTransparency),
    owl::Message<&SpectMap::EvTable>(kCmTable),
    owl::Message<&SpectMap::EvElectrodeClicked>(TMapWindow::kElectrodeClicked),
    owl::On<owl::WindowEvent::SetFocus, &SpectMap::EvSetFocus>(),
    owl::On<owl::WindowEvent::KillFocus, &SpectMap::EvKillFocus>(),
};

const owl::TResponseEntry* SpectMap::Find(const owl::TEventKey& key) const {
    return owl::FindFirst<CartoonStat>(__entries, *this, key);
}

SpectMap::SpectMap(GlobalWindow& window, EEGFileInfoType* recording, SpectraMgr* manager, bool threeD,
                   const std::vector<ElectInfo>& electrodes)
    : CartoonStat(window, threeD, electrodes, ClassName(), PModule::Named("Orvanta"),
                  {kCmView, DPI_AWARE_BMP_ID(kBitmap), kMenu, kIcon, kSmallIcon}),
      spectraMgr_(manager), fileInfo_(recording) {
    SetSource(this);
    setAccessibleName(QString::fromStdString(owl::TextOr(GetMessages(), "Maps", "View", "Spectral Maps")));
}

SpectMap::~SpectMap() = default;

void SpectMap::LoadUserSettings() {
    CartoonStat::LoadUserSettings();
    plotSet_ = orvanta::chart::LoadPlotSet(*GW().GetUser(), GetChildName());
}

void SpectMap::SetupWindow() {
    CartoonStat::SetupWindow();
    owl::TMenu& menu = *GW().GetMenu();
    TranslateMenu(menu, GetMessages());
    if (!IsThreeD()) {
        for (const unsigned item :
             {kCmLock, kCmTopView, kCmLeftView, kCmRightView, kCmBackView, kCmFrontView}) {
            menu.DeleteItem(item);
        }
    }
}

void SpectMap::Destroy(int retVal) {
    if (sideBarPanel_) {
        delete sideBarPanel_;
    }
    CartoonStat::Destroy(retVal);
}

void SpectMap::StoreUserSettings() const {
    CartoonStat::StoreUserSettings();
    orvanta::chart::SavePlotSet(*GW().GetUser(), GetChildName(), plotSet_);
}

void SpectMap::EvSetFocus(HWND lost) {
    CartoonStat::EvSetFocus(lost);
    SideBarManager& sideBar = GW().GetSideBar();
    if (sideBarPanel_) {
        sideBar.AddPanel(*sideBarPanel_, true, false);
    }
    sideBar.Update();
    Follow();
}

void SpectMap::EvKillFocus(HWND gets) {
    CartoonStat::EvKillFocus(gets);
    SideBarManager& sideBar = GW().GetSideBar();
    if (sideBarPanel_) {
        sideBar.RemovePanel(*sideBarPanel_);
    }
    sideBar.Update();
}

LPARAM SpectMap::EvElectrodeClicked(WPARAM mapIndex, LPARAM electrode) {
    const SensorList sensors = Sensors();
    if (electrode < 0 || static_cast<std::size_t>(electrode) >= sensors.size()) {
        return 0;
    }
    GW().PointAtChannel((*std::next(sensors.begin(), electrode))->GetName());
    if (cartoonMode_) {
        for (const XTimeItem& item : EventsOfMain()) {
            if (item.Step == EpochOf(mapIndex)) {
                GW().PointAtTime(*item.Interval.GetBeginPtr());
                break;
            }
        }
    }
    return 0;
}
