// SPDX-License-Identifier: GPL-3.0-or-later
// A recording, opened: signals, sources, time.
#pragma once

#include "host/signal_base/recording_data.h"
#include "host/signal_base/timeline.h"
#include "spectra_contract/api.h"
#include "spectra_contract/recording.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace orvanta::signal {

/// Samples of one EEG sensor in the source: value in µV = gain × stored value + offset.
struct SensorSamples {
    std::size_t signal = 0; ///< index in Source()
    double gain = 1;
    double offset = 0;
};

/// Bytes of samples that are kept in memory, at most. Twenty minutes of 32 channels of 16 bits at 512 Hz need
/// 40 MB.
constexpr std::uint64_t kKeptBytes = std::uint64_t{256} << 20;

/// What stays the same while a recording is open. Shared and immutable; safe from every thread.
class ORVANTA_API Recording {
public:
    /// Takes over what a reader found: classifies signals, converts units to µV, brings EEG sensors of lower
    /// rates to the highest one, lays out the timeline. \throws RecordingError
    explicit Recording(RecordingData data);
    ~Recording();
    Recording(const Recording&) = delete;
    Recording& operator=(const Recording&) = delete;

    /// The reader's view: header fields, annotations, repairs.
    const RecordingData& Data() const;
    /// The samples, all EEG sensors at Rate(); signal indices are those of Data().signals.
    const BlockSource& Source() const;
    /// As long as the answer, or another one given meanwhile, lives, samples that were read stay in memory
    /// and are not read again, so that computations one after the other read the file once. What does not fit
    /// \p limit bytes is read each time. A change of the file is noticed only where it is read.
    [[nodiscard]] std::shared_ptr<const void> KeepSamples(std::uint64_t limit = kKeptBytes) const;
    /// Rate in Hz at which EEG is analysed; 0 without EEG sensors.
    double Rate() const;
    /// Timeline at Rate(), or at the highest rate of any signal when there is no EEG.
    const Timeline& Time() const;
    /// Timeline of a signal as it lies in Source(), so at Rate() for every EEG sensor; empty for a signal
    /// without a rate. \throws std::out_of_range when there is no such signal
    Timeline TimeOf(std::size_t signal) const;
    /// Where an EEG sensor's samples are. \throws std::invalid_argument for a sensor of another kind
    SensorSamples Samples(const SensorType& sensor) const;
    /// Repairs of the file, of the labels and units, and of the events table, and remarks on what the numbers
    /// depend on: different references, resampled sensors.
    const std::vector<std::string>& Repairs() const;
    /// The sensors, in file order.
    const std::vector<std::shared_ptr<SensorType>>& Sensors() const;

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

/// Opens a recording of any supported format, chosen by content and then by extension, with the events table
/// beside it ("<stem>_events.tsv" for BIDS names "<stem>_eeg.<ext>", else "<stem>.events.tsv" or
/// "<stem>_events.tsv"). \throws RecordingError
ORVANTA_API std::unique_ptr<EEGFileInfoType> OpenRecording(const std::string& path);
/// Makes an open recording of data that are at hand (readers, tests, simulations). \throws RecordingError
ORVANTA_API std::unique_ptr<EEGFileInfoType> MakeRecording(RecordingData data);

/// Reads user montages from a text file: one channel a line, "label = +Fp1 -F3", weights allowed ("0.5*A1"),
/// "#" starts a comment, "[name]" starts a montage (default name: the file's stem).
/// \throws RecordingError that names the line
ORVANTA_API std::vector<MontageType> ReadMontageFile(const std::string& path, const TraceInfoType& sensors);

/// Standard 10-05 position of an electrode name (case ignored; T3, T4, T5, T6 as T7, T8, P7, P8), or Known
/// false.
ORVANTA_API ElectInfo StandardPosition(const std::string& name);

} // namespace orvanta::signal
