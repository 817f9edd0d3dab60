// SPDX-License-Identifier: GPL-3.0-or-later
// An open recording, as the module and the host's views see it.
#pragma once

#include "spectra_contract/events.h"
#include "spectra_contract/montage.h"
#include "spectra_contract/sensor.h"
#include "spectra_contract/time.h"

#include <cstdint>
#include <memory>
#include <string>

namespace orvanta::signal {
class Recording;
}

namespace Sample {
/// What a sample number counts.
enum class Mode : int {
    File = 0,   ///< samples as stored, gaps not counted
    Memory = 1, ///< samples of elapsed time at the rate of the data in memory, gaps counted
};
} // namespace Sample

/// The sensors of a recording.
class ORVANTA_API TraceInfoType {
public:
    struct Impl;
    explicit TraceInfoType(std::unique_ptr<Impl> impl);
    virtual ~TraceInfoType();
    TraceInfoType(const TraceInfoType&) = delete;
    TraceInfoType& operator=(const TraceInfoType&) = delete;

    /// Appends the sensors of the class whose type belongs to the family \p mask, in recording order.
    void GetSensorsListOfType(SensorList& list, std::uint32_t mask, Sensor::Class sensorClass) const;
    /// Appends the sensors of the class, in recording order.
    void GetSensorsList(SensorList& list, Sensor::Class sensorClass) const;
    /// The sensor named \p name (case ignored), else the one recorded under that label, else the electrode
    /// of that old or new 10-20 name ("T3", "T7"); null when there is none.
    SensorType* FindSensor(const std::string& name) const;

protected:
    std::unique_ptr<Impl> impl_;
};

/// The sensors and the montage in use: one montage per recording.
class ORVANTA_API EEGTraceInfoType : public TraceInfoType {
public:
    EEGTraceInfoType(std::unique_ptr<Impl> impl, MontageType montage);

    const MontageType& GetMtg() const { return montage_; }
    void SetMtg(const MontageType& montage) { montage_ = montage; }

private:
    MontageType montage_;
};

/// The place in the recording that the traces show.
class ORVANTA_API TraceCursorType {
public:
    TraceCursorType(std::shared_ptr<const orvanta::signal::Recording> recording, EEGTraceInfoType* traceInfo);
    ~TraceCursorType();

    /// Rate in Hz of the data in memory: the highest among the EEG sensors, rounded; 0 when there is none.
    unsigned GetMemDataSR() const;
    /// Recording time of the first sample shown; valid until the cursor moves.
    const XTime* GetStartRecTime() const;
    /// Sample number of a time, rounded to nearest; 0 for null. Memory samples count at GetMemDataSR() and
    /// may lie outside the recording; file samples are kept inside. \p reserved is not used.
    std::int64_t GetSample(const XTime* time, Sample::Mode mode, int reserved) const;
    /// Text "hh:mm:ss.mmm" of a number of samples at \p rate Hz, with a leading "-" when negative; with
    /// ARMode::Clock counted from the recording's start time, with DTMode::DateTime headed by "yyyy-mm-dd ",
    /// the date at that sample. A recording without a start time has no date and counts from 0. File samples
    /// are placed behind the gaps that precede them.
    std::string GetTimeStrFromSmpl(Sample::Mode mode, unsigned rate, std::int64_t samples,
                                   XTime::DTMode dateTime, XTime::ARMode absolute) const;
    /// Moves to a memory sample, kept inside the recording.
    void SetPosition(std::int64_t sample);
    /// Set when SetPosition moved to another sample.
    ManagedFlag& GetPositionFlag() const;
    /// The montage in use (the recording's one).
    const MontageType& GetMtg() const;

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

/// One open recording. Not thread-safe; the sample data behind it are.
class ORVANTA_API EEGFileInfoType {
public:
    struct Impl;
    explicit EEGFileInfoType(std::unique_ptr<Impl> impl);
    ~EEGFileInfoType();
    EEGFileInfoType(const EEGFileInfoType&) = delete;
    EEGFileInfoType& operator=(const EEGFileInfoType&) = delete;

    EEGTraceInfoType* GetTraceInfo() const;
    EventsManager* GetEventsManager() const;
    TraceCursorType* GetTraceCursor() const;
    MontageList* GetMontageList() const;
    /// The patient or record label, path separators replaced by "-"; the file's stem when there is none.
    const std::string& GetLabel() const;
    /// The bare file name with extension.
    const std::string& GetFileNameText() const;
    /// Makes montage \p index of the list the current one. False, and nothing changes, when there is none.
    /// \param notify tell the listeners of GetMontageFlag
    /// \param replacement use this montage instead of the list's entry; null for the entry itself
    bool ChangeMntg(std::size_t index, bool notify, const MontageType* replacement = nullptr);
    /// From now on the average reference is the mean of these, in the list and where it is in use, which is
    /// told; none: of all. Those that are bad, or no electrode of that montage, take no part, and when fewer
    /// than two are left it is the mean of all.
    void SetAverageElectrodes(const SensorList& electrodes);
    /// Set when the montage changed and the change is to be told.
    ManagedFlag& GetMontageFlag() const;

    /// As long as the answer lives, samples that were read stay in memory, up to 256 MiB, so that several
    /// computations one after the other read the file once.
    [[nodiscard]] std::shared_ptr<const void> KeepSamples() const;

    /// The recording as opened: signals, timeline, repairs, sample source. Shared and immutable.
    const std::shared_ptr<const orvanta::signal::Recording>& GetRecording() const;

private:
    std::unique_ptr<Impl> impl_;
};
