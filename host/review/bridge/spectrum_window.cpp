// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/bridge/spectrum_window.h"

#include "host/review/app/plain_window.h"
#include "host/toolkit/event.h"
#include "spectra_contract/spectra_mgr.h"
#include "spectrum_view/spectrum.h"

#include <QCheckBox>
#include <QSplitter>
#include <QVBoxLayout>

namespace orvanta::review {

namespace {

/// Tool bar and panes of one view.
class ViewFrame final : public PlainWindow {
public:
    explicit ViewFrame(GenericPlatform& platform) : platform_(platform) {}

    GenericPlatform* GetPlatform() const override { return &platform_; }

    void Take(Spectrum& view) {
        auto* rows = new QVBoxLayout(this);
        rows->setContentsMargins(0, 0, 0, 0);
        rows->setSpacing(0);
        rows->addWidget(&view.GetToolBar());
        rows->addWidget(&view.Panes(), 1);
        view.GetToolBar().show();
    }

private:
    GenericPlatform& platform_;
};

} // namespace

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
