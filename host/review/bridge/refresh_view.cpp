// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/bridge/refresh_view.h"

#include "side_bar/form_listener.h"
#include "spectra_contract/recording.h"
#include "spectral_maps/spect_map.h"
#include "spectrum_view/spectrum.h"

#include <QSplitter>

namespace orvanta::review {

namespace {

void RefreshPanels(TheChild& view) {
    for (QObject* panel : view.Panes().findChildren<QWidget*>()) {
        if (auto* listener = dynamic_cast<TFormListener*>(panel)) {
            listener->SomethingChanged();
        }
    }
}

} // namespace

void FollowRecordingMontage(TheChild& view, const EEGFileInfoType& recording) {
    auto* spectrum = dynamic_cast<Spectrum*>(&view);
    if (spectrum == nullptr) {
        return;
    }
    const MontageType& montage = recording.GetTraceInfo()->GetMtg();
    if (!montage.IsMappable()) {
        spectrum->ChangeViewMode(Layout::Mode::Grid);
    } else if (montage.GetNumBip() == 0) {
        spectrum->ChangeViewMode(Layout::Mode::Scalp);
    }
    spectrum->FillMontages();
}

void RefreshAnalysisView(TheChild& view) {
    const QPointer<TheChild> alive(&view);
    if (auto* spectrum = dynamic_cast<Spectrum*>(&view)) {
        spectrum->CheckAndRecompute(spectrum->GW().IsQuiet());
    } else if (auto* maps = dynamic_cast<SpectMap*>(&view)) {
        maps->SetMapValues(true);
    }
    if (alive && alive->IsCreated()) {
        if (auto* spectrum = dynamic_cast<Spectrum*>(&view)) {
            spectrum->CreateSideBar(); // before the first focus, too
            spectrum->DrawStatusBar(); // what was said of the analysis before is not true any more
        }
        view.Invalidate();
        RefreshPanels(view);
    }
}

} // namespace orvanta::review
