// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/host/chart_view/maps/map_case.h"

#include "tests/host/chart_view/electrode_sets.h"

#include <QApplication>

#include <algorithm>

namespace orvanta::test {

constinit const owl::TResponseTable MapParent::__entries = {
    owl::Message<&MapParent::OnTurned>(TMapWindow::kTurned),
    owl::Message<&MapParent::OnClicked>(TMapWindow::kElectrodeClicked),
};

const owl::TResponseEntry* MapParent::Find(const owl::TEventKey& key) const {
    return owl::FindFirst<owl::TWindow>(__entries, *this, key);
}

std::vector<ElectInfo> ElectrodesNamed(const std::vector<std::string>& names) {
    const auto recording = RecordingOf(names);
    std::vector<ElectInfo> electrodes;
    for (const std::string& name : names) {
        electrodes.push_back({name, {}, false});
        for (const SensorType* sensor : EegSensors(*recording)) {
            if (sensor->GetName() == name) {
                electrodes.back() = sensor->GetElectInfo();
            }
        }
    }
    return electrodes;
}

std::vector<ElectInfo> TwentyOneElectrodes() {
    return ElectrodesNamed(ElectrodeSet(21));
}

MapCase::MapCase(const std::vector<ElectInfo>& electrodes, bool threeD, int width, int height)
    : electrodes_(electrodes),
      map_(new TMapWindow(&parent_, &platform, electrodes, true, threeD, 0, "Test", 3, 0)) {
    parent_.resize(width, height);
    map_->resize(width, height);
    parent_.show();
    QApplication::processEvents();
}

QImage MapCase::Picture() {
    map_->Invalidate();
    map_->UpdateWindow();
    return map_->grab().toImage();
}

owl::TPoint MapCase::PlaceOf(const std::string& electrode) {
    map_->UpdateWindow();
    owl::TPoint sum;
    int count = 0;
    for (int y = 0; y < map_->height(); ++y) {
        for (int x = 0; x < map_->width(); ++x) {
            const auto hit = map_->ElectrodeAt({x, y});
            if (hit && electrodes_[*hit].Name == electrode) {
                sum = {sum.x + x, sum.y + y};
                ++count;
            }
        }
    }
    return count == 0 ? owl::TPoint{-1, -1}
                      : owl::TPoint{static_cast<int>(std::lround(1.0 * sum.x / count)),
                                    static_cast<int>(std::lround(1.0 * sum.y / count))};
}

bool MapCase::Shows(const std::string& electrode) {
    return PlaceOf(electrode).x >= 0;
}

void MapCase::SetField(const std::function<double(const HeadPosition&)>& field) {
    std::vector<double> values;
    std::transform(electrodes_.begin(), electrodes_.end(), std::back_inserter(values),
                   [&field](const ElectInfo& electrode) { return field(electrode.Position); });
    SetValues(values);
}

void MapCase::ChangeDisplay(const std::function<void(chart::MapDisplay&)>& change) {
    chart::MapDisplay display = map_->GetDisplay();
    change(display);
    map_->SetDisplay(display);
}

} // namespace orvanta::test
