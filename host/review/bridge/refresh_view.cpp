// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/bridge/refresh_view.h"

#include "side_bar/form_listener.h"
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

void RefreshAnalysisView(TheChild& view) {
    const QPointer<TheChild> alive(&view);
    if (auto* spectrum = dynamic_cast<Spectrum*>(&view)) {
        spectrum->CheckAndRecompute(spectrum->GW().IsQuiet());
    } else if (auto* maps = dynamic_cast<SpectMap*>(&view)) {
        maps->CmRecompute();
    }
    if (alive && alive->IsCreated()) {
        view.Invalidate();
        RefreshPanels(view);
    }
}

} // namespace orvanta::review
