// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/bridge/maps_drawing.h"

#include "host/chart_view/topography/head_picture.h"
#include "host/review/bridge/part_dc.h"
#include "host/toolkit/painter_dc.h"
#include "host/toolkit/qt_painting.h"
#include "spectra_contract/platform.h"
#include "spectra_contract/recording.h"
#include "spectra_contract/spectra_mgr.h"
#include "spectral_maps/spect_map.h"

#include <QImage>
#include <QPainter>

#include <algorithm>
#include <string>

namespace orvanta::review {

namespace {

constexpr const char* kView = "SpectMap";

void PutPlotSet(UserType& user, const std::string& section, const SPECT::PlotSet& map) {
    const char* name = section.c_str();
    user.PutInt(name, "SpectralBand", map.SpectralBand);
    user.PutInt(name, "SpectralMeas", map.SpectralMeas);
    user.PutInt(name, "bAutoScale", map.bAutoScale ? 1 : 0);
    user.PutInt(name, "bZeroMin", map.bZeroMin ? 1 : 0);
    user.PutDouble(name, "LoScale", map.LoScale);
    user.PutDouble(name, "HiScale", map.HiScale);
}

/// What the view reads when it is made.
void PutSettings(const GlobalWindow& window, const MapsPage& page) {
    UserType& user = *window.GetUser();
    user.PutInt(kView, "MapRows", page.rows);
    user.PutInt(kView, "MapColumns", page.columns);
    user.PutInt(kView, "MapContours", page.contours);
    user.PutInt(kView, "MapElectrodes", page.electrodes ? 1 : 0);
    user.PutInt(kView, "MapNames", page.names ? 1 : 0);
    user.PutInt(kView, "MapValues", page.values ? 1 : 0);
    user.PutInt(kView, "MapSinglePalette", page.commonScale ? 1 : 0);
    window.GetPlatform()->WriteString(kView, "MapPalette", page.palette.c_str());
    PutPlotSet(user, kView, page.maps.front());
    // Windows that are left over show what a map shows that is drawn, so that they bring in nothing new.
    for (int i = 0; i < page.rows * page.columns; ++i) {
        const auto map = std::min(static_cast<std::size_t>(i), page.maps.size() - 1);
        PutPlotSet(user, std::string(kView) + "_Map_" + std::to_string(i), page.maps[map]);
    }
}

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

std::vector<ElectInfo> ElectrodesOf(const EEGFileInfoType& recording) {
    SensorList sensors;
    recording.GetTraceInfo()->GetSensorsListOfType(sensors, Sensor::EegFamily, Sensor::Class::Eeg);
    std::vector<ElectInfo> electrodes;
    for (const SensorType* sensor : sensors) {
        electrodes.push_back(sensor->GetElectInfo());
    }
    return electrodes;
}

/// The view on white paper.
class PaperMaps {
public:
    PaperMaps(GlobalWindow& window, EEGFileInfoType& recording, SpectraMgr& manager, const MapsPage& page,
              const owl::TSize& size)
        : size_(size), page_(page), view_((PutSettings(window, page), window), &recording, &manager,
                                          page.threeD, ElectrodesOf(recording)) {
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
            if (!place.IsEmpty()) {
                PartDC part(dc, place);
                owl::TRect whole = map.GetClientRect();
                map.Draw(part, true, whole);
            }
            drawn.push_back({map.GetTitle(), place});
        }
        return drawn;
    }

private:
    owl::TSize size_;
    const MapsPage& page_;
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
