// SPDX-License-Identifier: GPL-3.0-or-later
// A view of maps for tests: its values follow from map, epoch and electrode.
#pragma once

#include "host/chart_view/maps/cartoon_stat.h"
#include "tests/support/qt/fake_global_window.h"

#include <functional>
#include <stdexcept>

namespace orvanta::test {

/// As many epochs of one second each, from 0.
XTimeList Epochs(std::uint32_t count);

/// Epochs as a test sets them.
class EpochSource final : public chart::MapSource {
public:
    std::optional<XTimeList> Fetch() override {
        ++fetched;
        if (meanwhile) {
            meanwhile();
        }
        if (fails) {
            throw std::runtime_error("The disk is gone");
        }
        return epochs;
    }
    std::optional<chart::ValueRange> CartoonRange() override {
        if (whileAskedForRange) {
            whileAskedForRange();
        }
        return range;
    }

    std::optional<XTimeList> epochs = XTimeList();
    std::optional<chart::ValueRange> range;
    std::function<void()> meanwhile;
    std::function<void()> whileAskedForRange;
    bool fails = false;
    int fetched = 0;
};

/// Map k at epoch e has 100 e + 10 k + j at electrode j (outside the cartoon e is 0), and the title "Map k"
/// or "Epoch e".
class MapsView : public CartoonStat {
public:
    explicit MapsView(FakeGlobalWindow& window, bool threeD = false, std::size_t electrodes = 4);

    using CartoonStat::ClearFirstDraw;
    using CartoonStat::EnableCartoon;
    using CartoonStat::EpochOf;
    using CartoonStat::GetDisplay;
    using CartoonStat::IsFirstDraw;
    using CartoonStat::SetMap;
    using CartoonStat::SetMapsInUse;
    using CartoonStat::SetMapUnit;
    using CartoonStat::SetSource;
    using CartoonStat::SetTransparencySlider;
    using CartoonStat::ShowMaps;

    /// In the window, laid out and shown.
    void ShowAt(int width, int height);
    /// As typed on the keyboard while the view has the focus.
    void Press(Qt::Key key);
    /// Titles of the map windows.
    std::vector<std::string> Titles() const;

    void ResetAll() override {}

    EpochSource source;
    std::vector<XTimeList> updates; ///< the lists of UpdateMaps, in order
    std::vector<int> made;          ///< numbers of the maps that were made, in order
    int computed = 0;               ///< how often the maps' values were to be computed
    std::function<void()> whileUpdating;
    std::function<double(std::uint64_t epoch, std::size_t map, std::size_t electrode)> valueOf;
    bool autoScale = false;
    bool inCartoon = false;

protected:
    TMapWindow* CreateMap(int index) override;
    int ComputeAllMapsValues() override {
        ++computed;
        return -100;
    }
    void UpdateMaps(const XTimeList& list) override;
    void GetEventList(XTimeList& /*list*/) override {}
    bool SetRange() override;
    void DrawStatusBar() override {}
    void GetClipboardFirstRaw(std::string& row) override;

private:
    FakeGlobalWindow& window_;
};

} // namespace orvanta::test
