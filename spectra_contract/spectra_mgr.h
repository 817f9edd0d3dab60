// SPDX-License-Identifier: GPL-3.0-or-later
// The analyses of one recording.
#pragma once

#include "spectra_contract/spect_macro_result.h"
#include "spectra_contract/spectra_types.h"

#include <list>
#include <memory>
#include <set>
#include <string>
#include <vector>

class EEGFileInfoType;
class GenericGUI;
class GenericProgress;

/// Owns the analyses of one recording and compares a main with a secondary one. GUI thread only. The
/// recording must outlive the manager.
class ORVANTA_API SpectraMgr {
public:
    using iterator = std::vector<SpectMacroResult*>::iterator;
    using const_iterator = std::vector<SpectMacroResult*>::const_iterator;

    /// Makes the recording's events the ones against which macros are checked when they are loaded; with
    /// several managers those of the one made last that still lives. The bands are those of SPECT::Globals,
    /// which the host fills with Globals::LoadInfo when it starts; the p threshold starts at 0.05 each time.
    /// \param gui not owned; may be null
    SpectraMgr(EEGFileInfoType* recording, const GenericGUI* gui);
    ~SpectraMgr();
    SpectraMgr(const SpectraMgr&) = delete;
    SpectraMgr& operator=(const SpectraMgr&) = delete;

    /// Where work on these analyses tells of progress and failures; null for nowhere.
    const GenericGUI* GetGUI() const;

    iterator begin();
    iterator end();
    const_iterator begin() const;
    const_iterator end() const;
    std::size_t Size() const;
    /// Appends and takes ownership; becomes main when there is none.
    void push_back(SpectMacroResult* analysis);
    /// Takes out and hands back to the caller, who destroys it. A removed secondary leaves none; a removed
    /// main is followed by the first remaining analysis.
    void Remove(SpectMacroResult* analysis);

    SpectMacroResult* GetMain() const;
    /// Clears a secondary that is the same analysis.
    void SetMain(SpectMacroResult* analysis);
    SpectMacroResult* GetSecondary() const;
    /// The main analysis, which is not compared with itself, leaves none.
    void SetSecondary(SpectMacroResult* analysis);

    /// 2 asks for the regression panel.
    int GetStatMode() const;
    void SetStatMode(int mode);

    /// p-value per bin of main against secondary, p/2 + 1 values; null when there is none: no secondary,
    /// other resolution or montage, the t-test switched off, or entity phase. Valid until an analysis or a
    /// setting changes.
    const double* GetP(const SensorType* sensor) const;
    const double* GetP(const ChnType* channel) const;
    /// Main mean / secondary mean per bin; null as above, with its own switch.
    const double* GetRatio(const SensorType* sensor) const;
    const double* GetRatio(const ChnType* channel) const;
    /// The p-value below which a bin counts as different, 0.05 at first; not stored with the settings.
    double GetPThreshold() const;
    void SetPThreshold(double threshold);
    bool GetShowTTest() const;
    void SetShowTTest(bool show);
    bool GetShowRatio() const;
    void SetShowRatio(bool show);

    /// Band \p index, 0 to 7, of the table in SPECT::Globals. \throws std::out_of_range
    SPECT::Band& GetBand(unsigned index) const;
    /// "Abs", "Mean", "Rel", "Peak F", "Mean F", "Peak", "SEF95", "CV"; empty beyond.
    std::string GetBandMeasName(unsigned measure) const;
    /// Unit of a measure in the current entity; empty beyond.
    std::string GetBandMeasUnit(unsigned measure) const;
    std::string GetBandMeasUnit(SPECT::Meas::Type measure) const;

    SPECT::Entity::Type GetMeasEntity() const;
    /// Sets it here and in SPECT::Globals. Ignored when it is none of the entities.
    void SetMeasEntity(SPECT::Entity::Type entity);
    unsigned GetMeasEntityCount() const;
    /// "Amplitude", "Power", "Coherence", "Phase"; empty beyond.
    std::string GetMeasEntityStr(SPECT::Entity::Type entity) const;
    std::string GetCurrMeasEntityStr() const;
    /// "µV/√Hz", "µV²/Hz", "" and "rad".
    std::string GetCurrEntityMeasUnit() const;

    /// True when the main or the secondary analysis needs it.
    bool IsRecomputingNeeded(const MontageType& montage, const XTimeList& events, double topFrequency) const;
    /// Computes every analysis that needs it, from \p recording (null for the manager's), its events and its
    /// montage; one computed from another recording needs it, too. True when all are up to date afterwards;
    /// false when cancelled. \p progress (may be null) shows nothing when nothing is needed.
    /// \throws std::exception as SpectMacroResult::Compute
    bool ReComputeFFT(EEGFileInfoType* recording, double topFrequency, const XTimeList& events,
                      GenericProgress* progress);
    /// Least-squares regression of the analyses' contrast values on log10 power of their epochs, per sensor
    /// and bin with low <= f <= high (Hz). 0, or -10 no observations, -20 no contrast values that differ, -30
    /// no sensor or bin, -40 low above high, -50 epochs that cannot be read again, -60 cancelled. \p results
    /// stays empty unless 0. \param progress may be null
    int ComputeBCIRegression(const std::list<SpectMacroResult*>& analyses, std::list<BCIReg>& results,
                             const std::set<const SensorType*>& sensors, int low, int high,
                             GenericProgress* progress = nullptr) const;

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};
