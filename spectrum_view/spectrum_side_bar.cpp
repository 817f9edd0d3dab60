// SPDX-License-Identifier: GPL-3.0-or-later
// What stands beside the view.
#include "side_bar/regression_panel.h"
#include "side_bar/side_bar_form.h"
#include "side_bar/spectra_panel.h"
#include "spectra_contract/spectra_mgr.h"
#include "spectrum_view/spectrum.h"

#include <QScopeGuard>
#include <QSplitter>

#include <algorithm>

namespace {

/// Puts the side bar before the view, as wide as it wants to be but no wider than the view. Panes that nobody
/// has seen get these widths when they are shown. \param panes of the view alone
void DockBefore(QSplitter& panes, TSideBarFormBase& sideBar, QWidget& view) {
    constexpr int kHandle = 7; // wide enough to be caught with the mouse
    const int room = view.width();
    panes.setHandleWidth(kHandle);
    panes.insertWidget(panes.indexOf(&view), &sideBar);
    panes.setStretchFactor(panes.indexOf(&sideBar), 0);
    panes.setStretchFactor(panes.indexOf(&view), 1);
    sideBar.show();
    if (panes.isVisible() && room > 0) {
        const auto ratio = static_cast<float>(sideBar.sizeHint().width()) / static_cast<float>(room);
        const int width = static_cast<int>(std::min(ratio, 0.5F) * static_cast<float>(room));
        panes.setSizes({width, room - width});
    }
}

} // namespace

void Spectrum::CreateSideBar() {
    if (sideBar_ != nullptr) {
        return;
    }
    Panes().setUpdatesEnabled(false);
    const auto redraw = qScopeGuard([this] { Panes().setUpdatesEnabled(true); });
    sideBar_ = new TSideBarFormBase(GetHandle());
    if (spectraPanel_ == nullptr) {
        spectraPanel_ = new TFormListenerSpectra1(GetHandle(), GW().GetPlatform(), recording_, manager_);
        sideBar_->AddPage(spectraPanel_);
    }
    constexpr int kWithRegression = 2;
    if (regressionPanel_ == nullptr && manager_->GetStatMode() == kWithRegression) {
        regressionPanel_ = new TFormListenerSpectraBCI(GetHandle(), GW().GetPlatform(), recording_, manager_);
        sideBar_->AddPage(regressionPanel_);
    }
    DockBefore(Panes(), *sideBar_, *this);
    sideBar_->SetActivePage(0);
}

void Spectrum::RemoveSideBar() {
    if (sideBar_ != nullptr) {
        // Out of the splitter, but not destroyed before the view: one of its panels may be in the middle of
        // what ended the view.
        sideBar_->setParent(this);
    }
    sideBar_ = nullptr;
    spectraPanel_ = nullptr;
    regressionPanel_ = nullptr;
}

void Spectrum::NotifyPanels() {
    for (TFormListener* panel : {spectraPanel_.data(), regressionPanel_.data()}) {
        if (panel != nullptr) {
            panel->SomethingChanged();
        }
    }
}
