// SPDX-License-Identifier: GPL-3.0-or-later
// The view's trace list, its layout and its drawing.
#include "host/toolkit/qt_painting.h"
#include "spectra_contract/recording.h"
#include "spectra_contract/spectra_mgr.h"
#include "spectrum_view/page.h"
#include "spectrum_view/spectrum.h"
#include "spectrum_view/traces/view_coords.h"

using namespace orvanta::spectrum_view;

std::span<const TraceEntry> Spectrum::GetTraces() const {
    return traces_.Entries(*manager_);
}

void Spectrum::SetCephalicList() {
    if (std::optional<TraceList> list = CephalicList(*manager_, *recording_)) {
        traces_ = std::move(*list);
        SetViewCoords();
    }
}

void Spectrum::SetBipolarList() {
    traces_ = BipolarList(*manager_, *recording_, state_.firstTrace, state_.grid);
}

void Spectrum::SetViewCoords() {
    const std::span<TraceEntry> entries = traces_.Entries(*manager_);
    if (state_.layout == Layout::Mode::Grid) {
        SetGridCoords(entries, GetClientRect(), GetViewFont().height, state_.grid);
    } else {
        SetScalpCoords(entries, GetClientRect(), *recording_);
    }
}

void Spectrum::EvSize(unsigned sizeType, const owl::TSize& size) {
    if (sizeType != owl::kSizeMinimized) {
        TheChild::EvSize(sizeType, size);
        SetViewCoords();
        Invalidate();
    }
}

void Spectrum::Draw(owl::TDC& dc, bool erase, owl::TRect& rect) {
    const QPointer<Spectrum> alive(this);
    TheChild::Draw(dc, erase, rect);
    AdjustSpectraOptions();
    if (!alive || !IsCreated()) {
        return; // ended while the progress was shown
    }
    if (state_.layout == Layout::Mode::Grid) {
        SetBipolarList();
    } else {
        SetCephalicList();
    }
    SetViewCoords();
    const Page page{*manager_,
                    *recording_,
                    state_,
                    Display(),
                    *GW().GetPlatform(),
                    GetMessages(),
                    GetViewFont(),
                    GetClientRect(),
                    owl::FromQColor(palette().color(QPalette::WindowText)),
                    owl::FromQColor(palette().color(QPalette::Mid))};
    PaintPage(dc, page, GetTraces(), overTime_, rect);
}
