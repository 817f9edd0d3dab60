// SPDX-License-Identifier: GPL-3.0-or-later
// Which spectra a view shows, and where.
#pragma once

#include "host/toolkit/geometry.h"
#include "spectrum_view/state/grid_size.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

class EEGFileInfoType;
class SpectraMgr;
class SpectrumSingle;

namespace orvanta::spectrum_view {

/// One plot. The spectra belong to the analyses.
struct TraceEntry {
    SpectrumSingle* main = nullptr;
    SpectrumSingle* secondary = nullptr;
    owl::TRect rectangle; ///< empty when the trace has no place
};

/// The plots in display order. The spectra live until their analysis is computed anew, reset or destroyed, so
/// the entries are handed out only while the manager's main and secondary analysis are the ones, and in the
/// state, that the list was made of.
class TraceList {
public:
    TraceList() = default;
    TraceList(const SpectraMgr& manager, std::vector<TraceEntry> entries);

    std::size_t Size() const { return entries_.size(); }
    bool IsCurrent(const SpectraMgr& manager) const;
    /// All entries; none when the list is not current.
    std::span<const TraceEntry> Entries(const SpectraMgr& manager) const;
    std::span<TraceEntry> Entries(const SpectraMgr& manager);

private:
    /// Numbers of the states of both analyses; 0 for none.
    struct Generations {
        std::uint64_t main = 0;
        std::uint64_t secondary = 0;

        bool operator==(const Generations&) const = default;
    };
    static Generations Of(const SpectraMgr& manager);

    std::vector<TraceEntry> entries_;
    Generations generations_;
};

/// For a mappable montage its channels that have a spectrum and accept it, in montage order; else one entry
/// per EEG sensor, with or without spectrum. Nothing when there is no main analysis: the old list then stays.
std::optional<TraceList> CephalicList(const SpectraMgr& manager, const EEGFileInfoType& recording);

/// One page of the current montage's channels, rows × columns entries from \p firstTrace on; those beyond the
/// computed bipolar channels or without a channel are empty slots. Empty without main analysis or cells.
TraceList BipolarList(const SpectraMgr& manager, const EEGFileInfoType& recording, std::uint64_t firstTrace,
                      const GridSize& grid);

/// Name of the position at which a spectrum stands on the scalp: its own, in a mappable montage the position
/// label of its channel.
/// \param mappable whether the current montage is
const std::string& PositionName(const SpectrumSingle& spectrum, bool mappable);

/// p-value and ratio per bin of main against secondary for the trace of \p spectrum; null when there are
/// none, and for a null spectrum.
const double* PValuesOf(const SpectraMgr& manager, const SpectrumSingle* spectrum);
const double* RatioOf(const SpectraMgr& manager, const SpectrumSingle* spectrum);

} // namespace orvanta::spectrum_view
