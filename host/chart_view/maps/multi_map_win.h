// SPDX-License-Identifier: GPL-3.0-or-later
// A view of several topographic maps.
#pragma once

#include "host/chart_view/maps/map_array_layout.h"
#include "host/chart_view/maps/map_context_menu.h"
#include "host/chart_view/maps/map_window.h"
#include "host/chart_view/the_child.h"
#include "spectra_contract/time.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class QSlider;

namespace orvanta::chart {
struct ColorScale;
}

/// Maps in rows and columns, with shared palette, fonts, electrodes, turning, table and clipboard. What the
/// maps show is the derived view's business. GUI thread.
class ORVANTA_API MultiMapWin : public TheChild {
public:
    /// \param threeD maps on heads that can be turned
    MultiMapWin(GlobalWindow& window, bool threeD, const std::vector<ElectInfo>& electrodes, std::string name,
                PModule* module, const ChildResInfo& resources);
    ~MultiMapWin() override;

    bool IsThreeD() const;
    const std::vector<ElectInfo>& GetElectrodes() const;
    std::uint16_t GetNumMaps() const;
    /// Map windows across.
    std::uint16_t GetLayoutCount() const;
    /// Null for a number without a map.
    TMapWindow* GetMap(std::size_t index) const;
    bool IsLocked() const;
    bool AreElectrodesShown() const;
    bool IsSinglePalette() const;
    bool IsTableShown() const;
    const std::string& GetTitle() const;
    const std::string& GetMeasUnit() const;
    /// Over the finite values of all maps in use; nothing without any.
    std::optional<orvanta::chart::ValueRange> GetOverallRange() const;

    void SetTitle(const std::string& title);
    void SetMeasUnit(const std::string& unit);
    /// One colour bar beside the maps instead of one in each. \param single false for what the user wants
    void SetSinglePalette(bool single);
    /// Brings the maps' values to the screen. \param fetch ask for them anew, too
    virtual void SetMapValues(bool fetch);
    /// Lays the maps out anew.
    void SetWholeRect();
    /// As many maps in so many rows and columns, made anew where they are missing.
    virtual void ResetWindows(std::uint16_t rows, std::uint16_t columns);
    virtual void ResetAll() = 0;

    virtual void CmCopy2ClpBrd();
    virtual void CmChoosePalette();
    virtual void CmConfigureMap();
    virtual void CmSelectFont();
    virtual void CmElectrodes();
    /// Opens the picker for the number of rows and columns at the mouse.
    virtual void CmTable();
    virtual void CmLock();
    /// The transparency slider moved. \param position 0 to 100, 100 hides what is behind
    virtual LPARAM EvTransp(WPARAM position, LPARAM);
    /// The user picked a number of rows and columns.
    virtual LPARAM EvTable(WPARAM picked, LPARAM);

    void StoreUserSettings() const override;
    void Destroy(int retVal = 0) override;
    void Draw(owl::TDC& dc, bool erase, owl::TRect& rect) override;
    const owl::TResponseEntry* Find(const owl::TEventKey& key) const override;

protected:
    static const owl::TResponseTable __entries; // NOLINT(clang-diagnostic-reserved-identifier): the family's

    void SetupWindow() override;
    void LoadUserSettings() override;
    void EvSize(unsigned sizeType, const owl::TSize& size);
    LPARAM EvTurned(WPARAM index, LPARAM);
    /// One of the views from 14100.
    void CmHeadView(unsigned command);
    void CmNames();
    void CmValues();
    void CmSinglePalette();
    void CmValuesTable();

    void contextMenuEvent(QContextMenuEvent* event) override;
    void changeEvent(QEvent* event) override;

    void DrawAll(owl::TDC& dc, double fineness) override;

    // What a derived view supplies.
    /// A new map; the caller owns it as a widget of this window.
    virtual TMapWindow* CreateMap(int index) = 0;
    /// 0, or below 0 when there was nothing to compute.
    virtual int ComputeAllMapsValues() = 0;
    /// Fills titles, values and units of the maps for the epochs of the list, whose steps count from 0.
    virtual void UpdateMaps(const XTimeList& list) = 0;
    virtual void GetEventList(XTimeList& list) = 0;
    virtual bool SetRange() = 0;
    virtual void DrawStatusBar() = 0;
    /// False while all maps show what the first one is set to.
    virtual bool HaveMapsOwnOptions() const { return true; }
    /// The first row of the copied table, line end included.
    virtual void GetClipboardFirstRaw(std::string& row) = 0;

    /// What one map shows: remembered here, drawn by SetMapValues.
    void SetMap(std::size_t index, const std::string& title, const std::vector<double>& values);
    void SetMapUnit(std::size_t index, const std::string& unit);
    /// Set until the first drawing has begun.
    bool IsFirstDraw() const;
    void ClearFirstDraw();
    void ShowMaps(bool show);
    /// What new maps are made with.
    const orvanta::chart::MapDisplay& GetDisplay() const;
    int GetPaletteIndex() const;
    /// So many maps from the first show something, nothing for all of them; the others have no part in ranges
    /// and tables.
    void SetMapsInUse(std::optional<std::size_t> count);
    /// From now on the overall range is this one, whatever the maps show; nothing for that of the maps.
    void SetFixedRange(const std::optional<orvanta::chart::ValueRange>& range);
    /// UpdateMaps; when that throws, what is remembered of the maps is as it was.
    void UpdateMapsOrKeep(const XTimeList& list);
    /// What is remembered of the maps comes to the screen, with its ranges.
    void PushMaps();
    /// Controls below the maps, shown while they are not hidden; owned as a widget of this window.
    void SetLowerBar(QWidget* bar);
    /// Kept by the view for the transparency slider of its tool bar.
    void SetTransparencySlider(QSlider* slider);

private:
    struct Impl;

    void ApplyDisplay();
    /// What all maps have room for as they lie now.
    orvanta::chart::MapFit FitMaps(bool ownScales) const;
    void MakeMaps(const orvanta::chart::MapGrid& grid);
    orvanta::chart::MapArrayLayout Layout() const;
    /// What the one bar for all maps shows; nothing without one.
    std::optional<orvanta::chart::ColorScale> SharedScale() const;
    void LayOut();
    void ShareScale();
    void ShowTable(bool show);
    void FillTable();
    /// For which the menu offers to choose what they show. \param mouse on the screen: only the map there
    std::vector<orvanta::chart::MapToSet> MapsToSet(const std::optional<QPoint>& mouse) const;

    std::unique_ptr<Impl> impl_;
};
