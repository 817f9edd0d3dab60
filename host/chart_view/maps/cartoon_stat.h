// SPDX-License-Identifier: GPL-3.0-or-later
// A view of maps that steps through time.
#pragma once

#include "host/chart_view/maps/multi_map_win.h"

#include <cstdint>
#include <memory>

namespace orvanta::chart {

/// Where the numbers of the maps come from.
class MapSource {
public:
    virtual ~MapSource() = default;
    /// Brings the data up to date when that is needed; meanwhile the view may end. \return the epochs, each
    /// with its number as step, empty when there are none; nothing when the user cancelled, and the maps keep
    /// what they show. \throws what the computation throws
    virtual std::optional<XTimeList> Fetch() = 0;
    /// Over all steps of the cartoon, so that the scale stands still while it plays; nothing when not known.
    /// Asked after Fetch; the view may end meanwhile, too.
    virtual std::optional<ValueRange> CartoonRange() = 0;
};

} // namespace orvanta::chart

/// Plays, pauses, steps and scrubs through epochs: the maps show a stretch of them, one epoch each. A bar
/// below the maps has the buttons and a slider; Space plays and pauses, Left and Right step by one, Page Up
/// and Page Down by a windowful, Home and End go to the ends. GUI thread.
class ORVANTA_API CartoonStat : public MultiMapWin {
public:
    CartoonStat(GlobalWindow& window, bool threeD, const std::vector<ElectInfo>& electrodes, std::string name,
                PModule* module, const ChildResInfo& resources);
    ~CartoonStat() override;

    /// Epochs to step through; 0 outside the cartoon.
    std::uint64_t GetStepCount() const;
    /// The epoch of the first map.
    std::uint64_t GetFirstStep() const;
    void ShowStep(std::uint64_t step);
    bool IsPlaying() const;
    void Play();
    void Pause();

    void SetMapValues(bool fetch) override;
    void ResetWindows(std::uint16_t rows, std::uint16_t columns) override;

    void StoreUserSettings() const override;
    void Destroy(int retVal = 0) override;
    const owl::TResponseEntry* Find(const owl::TEventKey& key) const override;

protected:
    static const owl::TResponseTable __entries; // NOLINT(clang-diagnostic-reserved-identifier): the family's

    void LoadUserSettings() override;
    void customEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    bool HaveMapsOwnOptions() const override;
    void EvSetFocus(HWND lost);
    void EvKeyDown(unsigned key, unsigned repeat, unsigned flags);

    /// Not owned; null for none, then maps keep what they have.
    void SetSource(orvanta::chart::MapSource* source);
    /// Shows the bar of the cartoon, or hides it.
    void EnableCartoon(bool on);
    /// The epoch that the map of this step shows: the list that UpdateMaps gets counts from the first map.
    std::uint64_t EpochOf(std::uint64_t step) const { return GetFirstStep() + step; }

private:
    struct Impl;

    void MoveTo(std::uint64_t step);
    void UpdateStretch();
    void StepTo(std::uint64_t step);
    void StepBy(std::int64_t steps);
    void HurryMaps();
    void AwaitStep();
    void Tick();
    void ShowState();

    std::unique_ptr<Impl> impl_;
};
