// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/bridge/spectrum_window.h"

#include "host/review/app/gallery/view_frame.h"
#include "host/toolkit/event.h"
#include "spectra_contract/spectra_mgr.h"
#include "spectrum_view/spectrum.h"

#include <QCheckBox>

namespace orvanta::review {

void ShowSpectrumWindow(const GallerySample& sample, SpectraMgr& manager, const QSize& size,
                        const TakePicture& take) {
    ViewFrame window(sample.platform);
    auto* view = new Spectrum(window, &sample.recording, &manager, false);
    window.Take(*view);
    window.resize(size);
    view->ChangeViewMode(Layout::Mode::Scalp);
    view->Create();
    // The side bar comes with the first focus.
    view->Dispatch({{owl::EventKind::Window, static_cast<unsigned>(owl::WindowEvent::SetFocus)},
                    owl::FocusArgs{nullptr}});
    window.findChild<QCheckBox*>("cbSpectRatio")->setChecked(true);
    take(window);
    view->Destroy();
}

} // namespace orvanta::review
