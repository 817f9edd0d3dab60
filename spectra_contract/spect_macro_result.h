// SPDX-License-Identifier: GPL-3.0-or-later
// One analysis of a recording.
#pragma once

#include "spectra_contract/montage.h"
#include "spectra_contract/sensor.h"
#include "spectra_contract/spectra_macro.h"
#include "spectra_contract/spectrum.h"
#include "spectra_contract/time.h"

#include <cstdint>
#include <iosfwd>
#include <list>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

class EEGFileInfoType;
class GenericGUI;
class GenericPlatform;
class GenericProgress;

namespace orvanta::spectral {
struct ComputeOptions;
class Analysis;
} // namespace orvanta::spectral

/// One set of settings applied to one recording, with its spectra once they are computed. The recording must
/// outlive the analysis. Used on the GUI thread; computations spread over worker threads inside.
class ORVANTA_API SpectMacroResult {
public:
    /// Sensors in recording order.
    struct SensorOrder {
        bool operator()(const SensorType* a, const SensorType* b) const;
    };
    using SensorMap = std::map<const SensorType*, SpectrumSens, SensorOrder>;

    /// Copies the settings; computes nothing.
    SpectMacroResult(const SpectraMacro& macro, EEGFileInfoType* recording, const GenericGUI* gui);
    ~SpectMacroResult();
    SpectMacroResult(const SpectMacroResult&) = delete;
    SpectMacroResult& operator=(const SpectMacroResult&) = delete;

    /// Computes all spectra of \p recording (null for the one at hand), with progress through \p gui (may be
    /// null). Failures are told through \p gui and leave the analysis as it was, with the recording that it
    /// had; nothing is thrown.
    void ComputeFFT(EEGFileInfoType* recording, const GenericGUI* gui);
    /// As above with a progress display of the caller's (may be null). True when computed; false when
    /// cancelled. \throws std::exception when reading fails or nothing is computable; the earlier results
    /// then stay. \param topFrequency the highest frequency in Hz that the caller shows. All bins up to half
    /// the rate are computed in any case; a higher wish is remembered as met.
    bool Compute(GenericProgress* progress, double topFrequency = 0);
    /// The same of \p recording (null for the one at hand), which is kept once its spectra are computed.
    bool ComputeOf(EEGFileInfoType* recording, GenericProgress* progress, double topFrequency = 0);
    /// Drops the computed data.
    void ResetData();
    bool IsComputed() const;
    /// True when there are no data, or when montage, events, settings, file or a higher top frequency (Hz)
    /// than computed make them stale. \p events is the list the caller shows; an empty one is not compared.
    bool IsRecomputingNeeded(const MontageType& montage, const XTimeList& events, double topFrequency) const;

    /// The macro file's name without folder and extension, else "Spectrum n".
    std::string GetName() const;
    // Texts and geometry are those of the computed data, also when settings have changed since; before
    // computing, those that the data would have.

    /// "2 s, 50 %, Hanning, 118 epochs".
    void GetShortInfo(std::ostream& text) const;
    /// One "Name: value" per line.
    void GetLongInfo(std::ostream& text) const;
    /// Number of epochs and the time that they cover, "119 epochs, 120.0 s"; always terminated. What epochs
    /// share counts once.
    void GetProcDataString(char* buffer, std::size_t size) const;

    /// Transform length in samples, a power of two; needs no data.
    std::uint64_t GetFFTSamples() const;
    /// Rate of the transform's input in Hz.
    double GetFFTSR() const;
    /// Width of one bin in Hz.
    double GetResolutionHz() const;
    double GetFFTResolution() const { return GetResolutionHz(); }
    /// Epochs that entered the mean; before computing, those that would.
    std::uint64_t GetFFTCount() const;
    /// One text per epoch: begin padded to 14 characters, tab, end, as hh:mm:ss.mmm.
    std::list<std::string> GetFFTIntervalList() const;
    /// The nearest bin, at least 0 and at most p/2.
    std::uint64_t GetIndexFromFreq(double hz) const;
    double GetFreqFromIndex(std::uint64_t bin) const;
    double GetTrueFreqFromFreq(double hz) const;

    /// Mean spectrum, or null when there is none, as for a sensor that is not EEG. Owned by the analysis;
    /// valid until its generation changes.
    SpectrumSingle* GetSpectrum(const SensorType* sensor) const;
    SpectrumSingle* GetSpectrum(const ChnType* channel) const;
    /// Spectrum of one epoch, or null. Valid until another epoch is asked for or the generation changes.
    SpectrumSingle* GetSpeCartoon(std::uint64_t epoch, const SensorType* sensor) const;
    /// Fills the spectrum of one epoch of a channel; empty when there is none.
    void GetSpeCartoon(std::vector<double>& values, std::uint64_t epoch, const ChnType* channel) const;
    /// Smallest and largest finite measure of band \p band (0 to 7; -1 for the total band) among all epochs
    /// of these sensors, each as the spectrum of GetSpeCartoon tells it. Epochs that were not kept are
    /// computed again. Nothing when there is no such measure, when it was cancelled, or when the file cannot
    /// be read any more. \param progress may be null
    std::optional<std::pair<double, double>> GetCartoonRange(const SensorList& sensors, int band,
                                                             SPECT::Meas::Type measure,
                                                             GenericProgress* progress) const;
    /// Number of epochs of the per-epoch spectra, of sensors and channels.
    std::uint64_t GetSpeCartoonChnLen() const;
    /// Number of bipolar channels of the computed montage; 0 for a referential one.
    unsigned GetNumBip() const;
    /// Start of the first processed selection after \p time (the first of all for null), or null when
    /// there is none later. A selection without an epoch, too short or beyond the first N, is not processed.
    /// By duration, where the selection follows the cursor: \p time and one duration more. Valid until the
    /// next call.
    const XTime* GetNextSelectionStart(const XTime* time) const;
    /// Fills \p list with the epochs' intervals, step = epoch index.
    void GetEventList(EEGFileInfoType* recording, XTimeList& list, const GenericGUI* gui) const;

    std::string GetDSPWindowStr() const;
    void SetDSPWindowStr(const std::string& name);
    void SetFFTSeconds(double seconds);
    /// Writes the spectra file; atomic. Failures are told through the platform's GUI. True when written.
    /// \param recording not used: the file names the recording that was analysed
    bool SaveSpectra(GenericPlatform* platform, const EEGFileInfoType* recording, const char* fileName,
                     const SpectralComments* comments) const;

    SpectraMacro& GetMacro();
    const SpectraMacro& GetMacro() const;
    /// The montage of the computed data; before computing, the recording's current one.
    const MontageType& GetMontage() const;
    /// Mean spectra of all EEG sensors in recording order; empty before computing. Other signals have other
    /// rates and units, and no spectra.
    const SensorMap& GetSensorMap() const;
    /// The EEG sensors in recording order, of the computed data; before computing, the recording's.
    SensorList GetSensors() const;
    /// Changes with every reset and computation.
    std::uint64_t GetGeneration() const;

    /// How to compute: threads, precision, memory, which statistics. For programs that need less than a view.
    void SetComputeOptions(const orvanta::spectral::ComputeOptions& options);
    /// The computed data, for comparisons and exports inside the host; null before computing.
    std::shared_ptr<const orvanta::spectral::Analysis> GetAnalysis() const;

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};
