// SPDX-License-Identifier: GPL-3.0-or-later
// A window with one topographic map, flat or on a head.
#pragma once

#include "host/chart_view/topography/head_picture.h"
#include "host/chart_view/topography/map_look.h"
#include "host/toolkit/window.h"
#include "spectra_contract/sensor.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

class GenericPlatform;

namespace orvanta::chart {

/// How the maps of a view are drawn; one for all of them.
struct MapDisplay {
    std::string palette = "viridis";
    bool electrodes = true; ///< dots
    bool names = false;     ///< beside the dots
    bool values = false;    ///< the same
    bool ownScale = true;   ///< a colour bar in each map; false when the view has one for all
    int contours = 6;       ///< lines between the ends of the scale, 0 to 20
    int opacity = 100;      ///< of a head, per cent: 100 hides what is behind
    owl::TFont font;
    MapFit fit; ///< what all maps of the view have room for

    bool operator==(const MapDisplay&) const = default;
};

/// Ends of the finite values.
struct ValueRange {
    double low = 0, high = 0;

    bool operator==(const ValueRange&) const = default;
};

} // namespace orvanta::chart

/// Draws one map from a value per electrode. An electrode without a known place, or whose value is not
/// finite, takes no part. GUI thread.
class ORVANTA_API TMapWindow : public owl::TWindow {
public:
    /// \param electrodes one for each value, in their order
    /// \param showElectrodes as in MapDisplay
    /// \param palette number among the palettes; others count as the first
    /// \param name of the view; with \p index it names the map's section of the settings
    /// \param index of the map in its view, from 0
    /// \param contours as in MapDisplay
    TMapWindow(owl::TWindow* parent, GenericPlatform* platform, const std::vector<ElectInfo>& electrodes,
               bool showElectrodes, bool threeD, int palette, const char* name, int index, int contours);
    ~TMapWindow() override;

    int GetIndex() const;
    bool IsThreeD() const;
    /// "NAME_Map_INDEX".
    const std::string& GetSection() const;

    /// Values beyond the electrodes are passed over, missing ones are not known.
    void SetValues(const std::vector<double>& values, const std::string& title, bool redraw);
    const std::vector<double>& GetValues() const;
    const std::string& GetTitle() const;
    void SetMeasureUnit(const std::string& unit);
    const std::string& GetMeasureUnit() const;
    /// Why the values say nothing and are not drawn; empty when they do.
    void SetMissing(const std::string& why);
    /// \param autoScale the scale follows the map's own finite values instead of \p low to \p high; it begins
    /// at 0 where \p low is 0
    /// \param zeroMin the scale begins at 0 in any case
    void SetRange(double low, double high, bool autoScale, bool zeroMin);
    /// The scale that is drawn now.
    orvanta::chart::ValueRange GetScale() const;

    void SetDisplay(const orvanta::chart::MapDisplay& display);
    const orvanta::chart::MapDisplay& GetDisplay() const;
    /// Of a head; nothing for a flat map.
    void SetView(const orvanta::chart::HeadView& view);
    orvanta::chart::HeadView GetView() const;
    /// Whether a cartoon plays: a head is then drawn as coarsely as while it is being turned.
    void SetPlaying(bool playing);
    /// Number of the electrode at a point of the window.
    std::optional<std::size_t> ElectrodeAt(const owl::TPoint& point) const;

    void Draw(owl::TDC& dc, bool erase, owl::TRect& rect) override;
    /// Draws the map where it stands in its view, whose surface this is; nothing while it is hidden.
    /// \param fineness pixels to a logical one
    void DrawInView(owl::TDC& dc, double fineness);
    const owl::TResponseEntry* Find(const owl::TEventKey& key) const override;

    /// The parent is told after the user turned the head, so that others may follow: first argument the
    /// index.
    static constexpr unsigned kTurned = 16334;
    /// The same for a click on an electrode: first argument the index, second the number of the electrode.
    static constexpr unsigned kElectrodeClicked = 16335;

protected:
    static const owl::TResponseTable __entries; // NOLINT(clang-diagnostic-reserved-identifier): the family's

    void SetupWindow() override;

    void EvSize(unsigned sizeType, const owl::TSize& size);
    void EvLButtonDown(unsigned modKeys, const owl::TPoint& point);
    void EvLButtonUp(unsigned modKeys, const owl::TPoint& point);
    void EvLButtonDblClk(unsigned modKeys, const owl::TPoint& point);
    void EvMouseMove(unsigned modKeys, const owl::TPoint& point);
    void changeEvent(QEvent* event) override;

private:
    void Describe();
    void EndPress();
    void ShowTip(const owl::TPoint& point);
    void TellParent(unsigned message, LPARAM second);

    struct Impl;
    std::unique_ptr<Impl> impl_;
};
