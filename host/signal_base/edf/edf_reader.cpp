// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/edf/edf_annotations.h"
#include "host/signal_base/edf/edf_header.h"
#include "host/signal_base/edf/edf_source.h"
#include "host/signal_base/edf/edf_start.h"
#include "host/signal_base/edf/range_check.h"
#include "host/signal_base/number_words.h"
#include "host/signal_base/unique_labels.h"

#include <algorithm>
#include <limits>

namespace orvanta::signal {

namespace {

// Signals faster than this do not exist; a header that says so has a wrong duration of its data records.
constexpr double kFastestHz = 1e6;

bool IsAnnotations(const EdfSignal& signal) {
    return signal.header.annotations;
}

bool AllAnnotations(const EdfHeader& header) {
    return std::all_of(header.signals.begin(), header.signals.end(), IsAnnotations);
}

bool AnyAnnotations(const EdfHeader& header) {
    return std::any_of(header.signals.begin(), header.signals.end(), IsAnnotations);
}

/// Samples of the fastest signal in a data record.
double MostSamples(const EdfHeader& header) {
    double most = 0;
    for (const EdfSignal& signal : header.signals) {
        most = std::max(most, signal.header.annotations ? 0.0 : signal.layout.samples);
    }
    return most;
}

bool Plausible(const EdfHeader& header, std::optional<double> recordSeconds) {
    return recordSeconds && *recordSeconds > 0 && MostSamples(header) / *recordSeconds <= kFastestHz;
}

void SettleDuration(const DataFile& file, std::uint64_t records, EdfHeader& header, RepairList& repairs) {
    if (Plausible(header, header.record_seconds)) {
        return;
    }
    if (AllAnnotations(header)) {
        header.record_seconds = 1; // no signal depends on it; such files may say 0
        return;
    }
    const std::optional<double> spacing = EdfRecordSpacing(file, header, records);
    const bool known = Plausible(header, spacing);
    header.record_seconds = known ? *spacing : 1.0;
    repairs.Add("byte 244: the duration of a data record is given as " + header.seconds_text + ", " +
                SecondsText(*header.record_seconds) +
                (known ? " used as the times of the data records say" : " assumed"));
}

void ReportRecords(const DataFile& file, const EdfHeader& header, std::uint64_t records,
                   RepairList& repairs) {
    if (header.record_count != records) {
        repairs.Add("byte 236: the number of data records is given as " + header.record_count_text +
                    ", the file has " + std::to_string(records) + ", which are used");
    }
    const std::uint64_t end = header.first_byte + records * header.record_bytes;
    const std::uint64_t rest = file.Size() - end;
    if (rest == 0) {
        return;
    }
    // More records were promised, or the writer did not count them: then what is left is one that was cut.
    const bool cut = rest < header.record_bytes && (!header.record_count || *header.record_count > records);
    repairs.Add("byte " + std::to_string(end) + ": " +
                (cut ? "the last data record is cut, its " + CountText(rest, "byte") + " left out"
                     : CountText(rest, "byte") + " behind the last data record left out"));
}

void ReportClock(const EdfHeader& header, const RecordClock& clock, RepairList& repairs) {
    if (clock.RecordsWithoutTime() > 0) {
        repairs.Add("annotations: " + CountText(clock.RecordsWithoutTime(), "data record") +
                    " without a time, taken to follow the one before");
    }
    if (clock.Overlaps() > 0) {
        repairs.Add("annotations: records overlap, " + CountText(clock.Overlaps(), "data record") +
                    " placed behind the one before, no epoch crosses from one to the other");
    }
    if (clock.Gaps() > 0) {
        repairs.Add("annotations: " + CountText(clock.Gaps(), "break") + " with " +
                    SecondsText(clock.GapSeconds()) + " missing in all" +
                    (header.discontinuous ? "" : ", though the file is marked as continuous") +
                    ", no epoch crosses them");
    }
}

void TakeSignals(const EdfHeader& header, RecordingData& data, RepairList& repairs) {
    for (const EdfSignal& signal : header.signals) {
        data.signals.push_back(signal.header);
        data.signals.back().rate_hz = signal.layout.samples / *header.record_seconds;
    }
    for (const std::size_t index : MakeLabelsUnique(data.signals)) {
        // Several annotation signals are usual and carry the same label by rule.
        if (!data.signals[index].annotations) {
            repairs.AddChannel(header.signals[index].channel, "the label is taken, a number was added");
        }
    }
}

} // namespace

RecordingData ReadEdf(const std::string& path) {
    const auto file = std::make_shared<const DataFile>(path);
    RepairList repairs;
    EdfHeader header = ReadEdfHeader(*file, repairs);
    const bool annotated = AnyAnnotations(header);
    if (annotated && !header.plus) {
        header.plus = true;
        repairs.Add("byte 192: the file has annotations but is not marked as EDF+ or BDF+, read as such");
    }

    std::uint64_t records = (file->Size() - header.first_byte) / header.record_bytes;
    SettleDuration(*file, records, header, repairs);
    RecordingData data;
    if (annotated) {
        const std::uint64_t declared =
            header.record_count.value_or(std::numeric_limits<std::uint64_t>::max());
        EdfAnnotations found = ReadEdfAnnotations(*file, header, records, declared, repairs);
        records = found.clock.Records();
        data.annotations = std::move(found.annotations);
        if (header.start) {
            header.start = Moved(*header.start, found.clock.FirstOnset());
        }
        if (!AllAnnotations(header)) {
            data.segments = found.clock.Segments();
            ReportClock(header, found.clock, repairs);
        }
    } else {
        if (header.discontinuous) {
            repairs.Add("byte 192: marked as having gaps, but no signal gives the times of the data records, "
                        "read as continuous");
        }
        if (records > 0) {
            data.segments = {{0, records, 0}};
        }
    }
    ReportRecords(*file, header, records, repairs);

    data.path = path;
    data.files = {path};
    data.format = header.FormatName();
    data.patient = header.patient;
    data.record = header.record;
    data.start = header.start;
    data.block_seconds = *header.record_seconds;
    data.source = MakeEdfSource(file, header, records);
    TakeSignals(header, data, repairs);
    CheckEdfRanges(header, *data.source, repairs);
    data.repairs = repairs.Lines();
    return data;
}

} // namespace orvanta::signal
