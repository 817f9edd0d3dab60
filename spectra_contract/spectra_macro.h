// SPDX-License-Identifier: GPL-3.0-or-later
// The settings of one analysis ("macro").
#pragma once

#include "spectra_contract/api.h"

#include <cstdint>
#include <iosfwd>
#include <memory>
#include <set>
#include <sstream>
#include <string>

/// Settings of a spectral analysis, storable in a file with the extension ".smx".
class ORVANTA_API SpectraMacro {
public:
    enum class TimeIntervalSelectMode : int {
        AllRecording = 0,
        ByDuration = 1,
        ByStateEvents = 2,
        BySpotEvents = 3
    };
    enum class EpochsSelectionMode : int { All = 0, FirstN = 1, RandomN = 2 };

    /// 2 s, 50 %, Hanning, all recording, 60 s, 0 ms, 1000 ms, 1 step of 1 ms, no lists, all epochs, N 10,
    /// contrast 0, blue.
    SpectraMacro();
    ~SpectraMacro();
    SpectraMacro(const SpectraMacro&);
    SpectraMacro& operator=(const SpectraMacro&);
    /// Equal settings; the file name does not count.
    bool operator==(const SpectraMacro& other) const;

    /// Reads a macro file. 0: read. 1: read, but none of the selected event labels exists in the recording at
    /// hand (modes 2 and 3), and all of the recording is selected instead. 2: not readable;
    /// GetLastError says why, the settings stay, and the macro has no file until it is saved under a name.
    int Load(const std::string& path);
    /// Writes the file that was loaded or saved last. 0: written. Non-zero without a file or when writing
    /// failed; the old file is then whole.
    int Save();
    /// Writes \p path, which becomes the macro's file. 0: written.
    int SaveAs(const std::string& path);
    /// Why the last Load, Save or SaveAs failed, in one line; empty after success.
    const std::string& GetLastError() const;
    /// The file of the macro; empty when it has none.
    const std::string& GetFileName() const;

    /// Window length in seconds, above 0 and at most 3600. Larger values are kept at 3600; 0, negative values
    /// and values that are not finite change nothing.
    double GetFFTSeconds() const;
    void SetFFTSeconds(double seconds);
    /// Overlap of successive windows in percent, 0 to 99; larger values are kept at 99.
    unsigned GetOverlapPerc() const;
    void SetOverlapPerc(unsigned percent);
    /// Name of the taper, as of a ".wnd" file; case ignored.
    std::string GetDSPWindowStr() const;
    void SetDSPWindowStr(const std::string& name);
    /// A value that is none of the modes changes nothing; the same holds for the epochs selection mode.
    TimeIntervalSelectMode GetTimeIntervalSelectMode() const;
    void SetTimeIntervalSelectMode(TimeIntervalSelectMode mode);
    /// Length in seconds for the by-duration mode.
    unsigned GetFixedDurationSec() const;
    void SetFixedDurationSec(unsigned seconds);
    /// Start of a segment against its spot event, ms: the segment starts at event + this.
    int GetPreTriggerMS() const;
    void SetPreTriggerMS(int ms);
    /// Length of a segment, ms.
    int GetTrgDurationMS() const;
    void SetTrgDurationMS(int ms);
    std::set<std::string> GetAcceptStateList() const;
    void SetAcceptStateList(const std::set<std::string>& labels);
    std::set<std::string> GetAcceptSpotList() const;
    void SetAcceptSpotList(const std::set<std::string>& labels);
    std::set<std::string> GetRejectEventsList() const;
    void SetRejectEventsList(const std::set<std::string>& labels);
    EpochsSelectionMode GetEpochsSelMode() const;
    void SetEpochsSelMode(EpochsSelectionMode mode);
    /// Number of epochs for the modes FirstN and RandomN, 1 to 10¹²; values outside are kept at the nearest.
    std::uint64_t GetNumEpochsToUse() const;
    void SetNumEpochsToUse(std::uint64_t count);
    /// Class value attached to the analysis, for regressions and exports.
    int GetContrastValue() const;
    void SetContrastValue(int value);

    /// Names the processed events, fit for a file name: "All", "60s", or the labels joined with "+"
    /// ("None" without labels); characters that no file name may hold become "-".
    std::string GetProcEventString() const;
    /// Writes one "Name: value" per line.
    void GetLongDescrStr(std::ostringstream& text) const;

    std::uint32_t SpotStepCount = 1;  ///< segments per spot event, 1 to 256; used as the nearest of these
    std::uint32_t SpotStepInc = 1;    ///< ms from one segment to the next, 1 to 32000; likewise
    std::uint32_t Color = 0x00FF0000; ///< 0x00BBGGRR

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};
