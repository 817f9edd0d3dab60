// SPDX-License-Identifier: GPL-3.0-or-later
// What the user does with keys, wheel, mouse and montage box, and how the focus comes and goes.
#include "host/chart_view/side_bar_manager.h"
#include "host/toolkit/services.h"
#include "side_bar/form_listener.h"
#include "side_bar/side_bar_form.h"
#include "spectra_contract/recording.h"
#include "spectra_contract/spectra_mgr.h"
#include "spectrum_view/spectrum.h"

#include <QComboBox>

#include <utility>

using namespace orvanta::spectrum_view;

namespace {

constexpr unsigned kVkUp = 0x26;
constexpr unsigned kVkDown = 0x28;
constexpr double kGainStep = 1.5;

/// Measures every electrode of the montage against the one at which the channel stands.
void TakeAsReference(const MontageType& montage, const ChnType* channel) {
    for (std::size_t i = 0; i < montage.GetNumTraces(); ++i) {
        montage.GetChn(i)->AssignChannel(channel);
    }
}

} // namespace

void Spectrum::EvKeyDown(unsigned key, unsigned repeat, unsigned flags) {
    TheChild::EvKeyDown(key, repeat, flags);
    if (manager_->GetMain() == nullptr) {
        return;
    }
    const owl::KeyState& keys = *owl::CurrentServices().keys;
    if (keys.IsDown(owl::kVkControl) && keys.IsDown(owl::kVkShift)) {
        SaveBatch(key);
        return;
    }
    if (key == kVkDown) {
        SetGain(Display().gain * kGainStep);
    } else if (key == kVkUp) {
        SetGain(Display().gain / kGainStep);
    }
}

void Spectrum::SetGain(double gain) {
    Display().gain = gain;
    Invalidate();
}

void Spectrum::EvMouseWheel(unsigned modKeys, int delta, const owl::TPoint& point) {
    TheChild::EvMouseWheel(modKeys, delta, point);
    if (state_.layout == Layout::Mode::Scalp) {
        return;
    }
    if (delta < 0) {
        CmNextTrace();
    } else if (delta > 0) {
        CmPreviousTrace();
    }
}

std::string Spectrum::TraceAt(const owl::TPoint& point) const {
    for (const TraceEntry& entry : GetTraces()) {
        if (entry.main != nullptr && entry.rectangle.Contains(point)) {
            return entry.main->GetName();
        }
    }
    return {};
}

void Spectrum::EvLButtonDown(unsigned modKeys, const owl::TPoint& point) {
    TheChild::EvLButtonDown(modKeys, point);
    pressed_ = TraceAt(point);
}

void Spectrum::EvLButtonUp(unsigned modKeys, const owl::TPoint& point) {
    TheChild::EvLButtonUp(modKeys, point);
    const std::string pressed = std::exchange(pressed_, {});
    if (!pressed.empty() && pressed == TraceAt(point)) {
        GW().PointAtChannel(pressed);
    }
}

void Spectrum::EvLButtonDblClk(unsigned modKeys, const owl::TPoint& point) {
    TheChild::EvLButtonDblClk(modKeys, point);
    const MontageType& reference = *recording_->GetMontageList()->GetRefMtg();
    // Where no reference can be chosen, the list has the recorded montage in its place.
    if (reference.GetKind() != MontageType::Kind::Reference ||
        reference != recording_->GetTraceInfo()->GetMtg()) {
        return;
    }
    for (const TraceEntry& entry : GetTraces()) {
        const auto* spectrum = dynamic_cast<const SpectrumChn*>(entry.main);
        if (spectrum != nullptr && entry.rectangle.Contains(point)) {
            TakeAsReference(reference, spectrum->GetChn());
        }
    }
    recording_->GetTraceInfo()->SetMtg(reference); // the one in use is a copy
    FillMontages();                                // its name tells the reference
    CmRecompute();
}

LPARAM Spectrum::EvCbMontage(WPARAM index, LPARAM /*unused*/) {
    const int selected = montages_ != nullptr ? montages_->currentIndex() : -1;
    recording_->ChangeMntg(selected >= 0 ? static_cast<std::size_t>(selected) : index, true);
    state_.firstTrace = 0;
    const QPointer<Spectrum> alive(this);
    CmRecompute();
    if (alive) {
        NotifyPanels();
    }
    return 0;
}

void Spectrum::FillMontages() {
    if (montages_ == nullptr) {
        return;
    }
    montages_->clear();
    const MontageList& list = *recording_->GetMontageList();
    for (const auto& montage : list) {
        montages_->addItem(QString::fromStdString(montage->GetName()));
    }
    const std::size_t current = list.GetCurrentIndex();
    montages_->setCurrentIndex(current < list.Size() ? static_cast<int>(current) : 0);
}

std::vector<QWidget*> Spectrum::Panels() const {
    std::vector<QWidget*> panels{spectraPanel_, regressionPanel_, extraPanel_};
    std::erase(panels, nullptr);
    return panels;
}

void Spectrum::EvSetFocus(HWND lost) {
    TheChild::EvSetFocus(lost);
    if (asking_) {
        return;
    }
    DrawStatusBar();
    SideBarManager& sideBar = GW().GetSideBar();
    for (QWidget* panel : Panels()) {
        sideBar.AddPanel(*panel, true, false);
    }
    sideBar.Update();
    if (manager_->GetMain() == nullptr) {
        const QPointer<Spectrum> alive(this);
        CmNewSpectrum();
        if (!alive || !IsCreated()) {
            return;
        }
        SetFocus();
    }
    FillMontages();
    CreateSideBar();
}

void Spectrum::EvKillFocus(HWND gets) {
    TheChild::EvKillFocus(gets);
    TakePanelsBack();
}

void Spectrum::TakePanelsBack() {
    SideBarManager& sideBar = GW().GetSideBar();
    for (QWidget* panel : Panels()) {
        sideBar.RemovePanel(*panel);
    }
    sideBar.Update();
}
