// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/host/chart_view/maps/maps_view.h"

#include "tests/host/chart_view/electrode_sets.h"

#include <QApplication>
#include <QSplitter>
#include <QTest>

namespace orvanta::test {

namespace {

std::vector<ElectInfo> Electrodes(std::size_t count) {
    const auto recording = RecordingOf(ElectrodeSet(count <= 21 ? 21 : count));
    std::vector<ElectInfo> electrodes;
    for (const SensorType* sensor : EegSensors(*recording)) {
        electrodes.push_back(sensor->GetElectInfo());
    }
    electrodes.resize(count);
    return electrodes;
}

} // namespace

XTimeList Epochs(std::uint32_t count) {
    XTimeList list;
    for (std::uint32_t i = 0; i < count; ++i) {
        list.push_back(XTimeInterval(XTime::FromSeconds(i), XTime::FromSeconds(i + 1)), i);
    }
    return list;
}

MapsView::MapsView(FakeGlobalWindow& window, bool threeD, std::size_t electrodes)
    : CartoonStat(window, threeD, Electrodes(electrodes), "Maps", nullptr, {1, 0, 2, 0, 0}), window_(window) {
    valueOf = [](std::uint64_t epoch, std::size_t map, std::size_t electrode) {
        return static_cast<double>(100 * epoch + 10 * map + electrode);
    };
    SetSource(&source);
}

void MapsView::ShowAt(int width, int height) {
    window_.resize(width, height);
    Panes().resize(width, height);
    window_.show();
    Panes().show();
    QApplication::processEvents();
}

void MapsView::Press(Qt::Key key) {
    QTest::keyClick(this, key);
}

std::vector<std::string> MapsView::Titles() const {
    std::vector<std::string> titles;
    for (std::size_t i = 0; i < GetNumMaps(); ++i) {
        titles.push_back(GetMap(i)->GetTitle());
    }
    return titles;
}

TMapWindow* MapsView::CreateMap(int index) {
    made.push_back(index);
    return new TMapWindow(this, GW().GetPlatform(), GetElectrodes(), AreElectrodesShown(), IsThreeD(),
                          GetPaletteIndex(), GetChildName().c_str(), index, GetDisplay().contours);
}

void MapsView::UpdateMaps(const XTimeList& list) {
    updates.push_back(list);
    std::uint64_t used = inCartoon ? 1 : GetNumMaps();
    for (const XTimeItem& item : list) {
        used = inCartoon ? std::max<std::uint64_t>(used, item.Step + 1) : used;
    }
    for (std::size_t k = 0; k < GetNumMaps(); ++k) {
        const std::uint64_t epoch = inCartoon ? EpochOf(k) : 0;
        std::vector<double> values(GetElectrodes().size());
        for (std::size_t j = 0; j < values.size(); ++j) {
            values[j] = k < used ? valueOf(epoch, inCartoon ? 0 : k, j) : 0;
        }
        const std::string title = inCartoon ? "Epoch " + std::to_string(epoch) : "Map " + std::to_string(k);
        SetMap(k, k < used ? title : "---", values);
        SetMapUnit(k, k < used ? "" : "++");
    }
    if (whileUpdating) {
        whileUpdating();
    }
    SetMeasUnit("µV²");
    SetRange();
}

bool MapsView::SetRange() {
    const auto range = GetOverallRange().value_or(chart::ValueRange{0, 1});
    for (std::size_t i = 0; i < GetNumMaps(); ++i) {
        GetMap(i)->SetRange(range.low, range.high, autoScale, false);
    }
    return true;
}

void MapsView::GetClipboardFirstRaw(std::string& row) {
    row = "Item";
    for (const ElectInfo& electrode : GetElectrodes()) {
        row += "\t" + electrode.Name;
    }
    row += "\r\n";
}

} // namespace orvanta::test
