// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/bridge/maps_drawing.h"

#include "host/chart_view/topography/head_picture.h"
#include "host/review/bridge/map_electrodes.h"
#include "host/review/bridge/maps_settings.h"
#include "host/toolkit/painter_dc.h"
#include "host/toolkit/qt_painting.h"
#include "spectra_contract/spectra_mgr.h"
#include "spectral_maps/spect_map.h"

#include <QImage>
#include <QPainter>

#include <algorithm>

namespace orvanta::review {

namespace {

chart::HeadView ViewFrom(HeadSide side) {
    switch (side) {
    case HeadSide::Front:
        return chart::kFrontView;
    case HeadSide::Left:
        return chart::kLeftView;
    case HeadSide::Right:
        return chart::kRightView;
    case HeadSide::Back:
        return chart::kBackView;
    case HeadSide::Top:
        break;
    }
    return chart::kTopView;
}

/// The view on white paper.
class PaperMaps {
public:
    PaperMaps(GlobalWindow& window, EEGFileInfoType& recording, SpectraMgr& manager, const MapsPage& page,
              const owl::TSize& size)
        : size_(size), view_((PutMapsSettings(window, page), window), &recording, &manager, page.threeD,
                             MapElectrodes(recording)) {
        QPalette paper = view_.palette();
        paper.setColor(QPalette::Window, Qt::white);
        paper.setColor(QPalette::WindowText, Qt::black);
        view_.setPalette(paper);
        view_.Create();
        view_.resize(size.cx, size.cy);
        for (std::size_t i = 0; i < view_.GetNumMaps(); ++i) {
            view_.GetMap(i)->SetView(ViewFrom(page.from));
        }
    }
    ~PaperMaps() { view_.Destroy(); }
    PaperMaps(const PaperMaps&) = delete;
    PaperMaps& operator=(const PaperMaps&) = delete;

    SpectMap& View() { return view_; }

    /// The first drawing only brings the values.
    void Fill() {
        QImage nowhere(1, 1, QImage::Format_RGB32);
        QPainter painter(&nowhere);
        owl::PainterDC dc(painter);
        owl::TRect all{0, 0, size_.cx, size_.cy};
        view_.Draw(dc, true, all);
    }

    std::vector<DrawnMap> Draw(std::size_t maps, owl::TDC& dc) {
        owl::TRect all{0, 0, size_.cx, size_.cy};
        view_.Draw(dc, true, all);
        std::vector<DrawnMap> drawn;
        for (std::size_t i = 0; i < std::min<std::size_t>(maps, view_.GetNumMaps()); ++i) {
            TMapWindow& map = *view_.GetMap(i);
            const owl::TRect place = map.isHidden() ? owl::TRect{} : owl::FromQRect(map.geometry());
            map.DrawInView(dc, view_.devicePixelRatioF());
            drawn.push_back({map.GetTitle(), place});
        }
        return drawn;
    }

private:
    owl::TSize size_;
    SpectMap view_;
};

/// Hands the analyses back to their manager.
class SetAside {
public:
    explicit SetAside(SpectraMgr& manager) : manager_(manager), main_(manager.GetMain()) {
        manager_.Remove(main_);
    }
    ~SetAside() { manager_.push_back(main_); }
    SetAside(const SetAside&) = delete;
    SetAside& operator=(const SetAside&) = delete;

private:
    SpectraMgr& manager_;
    SpectMacroResult* main_;
};

} // namespace

std::vector<DrawnMap> DrawMapsPage(GlobalWindow& window, EEGFileInfoType& recording, SpectraMgr& manager,
                                   const MapsPage& page, const owl::TSize& size, owl::TDC& dc) {
    PaperMaps maps(window, recording, manager, page, size);
    maps.Fill();
    return maps.Draw(page.maps.size(), dc);
}

void DrawMapsCartoon(GlobalWindow& window, EEGFileInfoType& recording, SpectraMgr& manager,
                     const MapsPage& page, const owl::TSize& size, const TakeFrame& take) {
    PaperMaps maps(window, recording, manager, page, size);
    SpectMap& view = maps.View();
    {
        // A cartoon that starts drops what is computed; this is computed for it.
        const SetAside computed(manager);
        view.SetCartoonMode(true);
    }
    if (auto* controls = view.findChild<QWidget*>("cartoonBar")) {
        controls->hide();
        view.SetWholeRect();
    }
    maps.Fill();
    const std::uint64_t steps = view.GetStepCount();
    const std::uint64_t seen = std::min<std::uint64_t>(steps, view.GetNumMaps());
    const std::uint64_t frames = steps == 0 ? 0 : steps - seen + 1;
    for (std::uint64_t frame = 0; frame < frames; ++frame) {
        view.ShowStep(frame);
        take(frame, frames, [&](owl::TDC& dc) { maps.Draw(seen, dc); });
    }
}

} // namespace orvanta::review
