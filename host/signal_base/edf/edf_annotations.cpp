// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/edf/edf_annotations.h"

#include "host/signal_base/edf/annotation_list.h"
#include "host/signal_base/number_words.h"
#include "host/signal_base/text_encoding.h"

#include <algorithm>
#include <array>

namespace orvanta::signal {

namespace {

constexpr std::size_t kChunkBytes = std::size_t{1} << 20;
// Copying this many bytes takes about as long as one more call to the system.
constexpr std::size_t kCheapCopyBytes = 8192;
// More than any person or detector makes; a file that claims more is not read into memory without end.
constexpr std::size_t kMaxAnnotations = 1'000'000;
constexpr double kTimeRounding = 1e-6; // seconds

/// The annotation signals' bytes of one data record after the other.
class AnnotationBytes {
public:
    AnnotationBytes(const DataFile& file, const EdfHeader& header, std::uint64_t records)
        : file_(file), header_(header), records_(records) {
        first_ = header.record_bytes;
        for (const EdfSignal& signal : header.signals) {
            if (signal.header.annotations) {
                spans_.push_back({signal.layout.offset, signal.layout.samples * signal.layout.stride});
                first_ = std::min(first_, spans_.back().offset);
                last_ = spans_.back().offset + spans_.back().size;
            }
        }
        const bool whole = header.record_bytes <= kCheapCopyBytes || last_ - first_ > header.record_bytes / 4;
        recordsPerRead_ = whole ? std::max<std::size_t>(1, kChunkBytes / header.record_bytes) : 1;
    }

    std::size_t Signals() const { return spans_.size(); }

    /// Bytes of annotation signal \p signal in record \p record, valid until another record is asked for.
    std::string_view Of(std::uint64_t record, std::size_t signal) {
        if (record < bufferFirst_ || record >= bufferEnd_) {
            Fill(record);
        }
        const std::size_t at = static_cast<std::size_t>(record - bufferFirst_) * header_.record_bytes -
                               first_ + spans_[signal].offset;
        return {buffer_.data() + at, spans_[signal].size};
    }

private:
    struct Span {
        std::size_t offset, size;
    };

    /// From the first annotation byte of \p record to the last one of the records that are read with it.
    void Fill(std::uint64_t record) {
        const std::uint64_t count = std::min<std::uint64_t>(recordsPerRead_, records_ - record);
        buffer_.resize(static_cast<std::size_t>(count - 1) * header_.record_bytes + last_ - first_);
        file_.ReadAt(header_.first_byte + record * header_.record_bytes + first_, buffer_.size(),
                     reinterpret_cast<std::byte*>(buffer_.data()));
        bufferFirst_ = record;
        bufferEnd_ = record + count;
    }

    const DataFile& file_;
    const EdfHeader& header_;
    std::uint64_t records_;
    std::vector<Span> spans_;
    std::size_t first_ = 0;
    std::size_t last_ = 0;
    std::size_t recordsPerRead_ = 1;
    std::string buffer_;
    std::uint64_t bufferFirst_ = 0;
    std::uint64_t bufferEnd_ = 0;
};

/// How often something happened and in which data record first.
struct Finding {
    std::uint64_t count = 0;
    std::uint64_t firstRecord = 0;

    void Note(std::uint64_t record) { firstRecord = count++ == 0 ? record : firstRecord; }
    void Report(RepairList& repairs, const std::string& word, const std::string& what) const {
        if (count > 0) {
            repairs.Add("data record " + std::to_string(firstRecord + 1) +
                        (count > 1 ? " and others: " : ": ") + CountText(count, word) + " " + what);
        }
    }
};

struct Findings {
    Finding unterminated, comma, badOnset, badDuration, badText, tooMany;

    void Report(RepairList& repairs) const {
        unterminated.Report(repairs, "annotation list",
                            "without an end mark, ended where the next one begins");
        comma.Report(repairs, "annotation list", "with a decimal comma, read as a point");
        badOnset.Report(repairs, "annotation list", "without a time, left out");
        badDuration.Report(repairs, "annotation duration", "that cannot be, left out");
        badText.Report(repairs, "annotation text",
                       "not in UTF-8, read as Latin-1 or with the bad bytes marked");
        tooMany.Report(repairs, "annotation",
                       "beyond the first " + std::to_string(kMaxAnnotations) + ", left out");
    }
};

/// Appends the texts of a list; onsets stay as in the file.
void AppendTexts(const AnnotationList& list, bool keepsTime, std::uint64_t record, Findings& findings,
                 std::vector<Annotation>& annotations) {
    for (std::size_t i = keepsTime ? 1 : 0; i < list.texts.size(); ++i) {
        if (list.texts[i].empty()) {
            continue;
        }
        if (annotations.size() == kMaxAnnotations) {
            findings.tooMany.Note(record);
            continue;
        }
        bool repaired = false;
        annotations.push_back({*list.onset_s, list.duration_s, ToUtf8(list.texts[i], &repaired)});
        if (repaired) {
            findings.badText.Note(record);
        }
    }
}

/// Half a sample of the fastest signal: a smaller step in time moves no sample.
double Tolerance(const EdfHeader& header) {
    std::uint32_t samples = 1;
    for (const EdfSignal& signal : header.signals) {
        samples = std::max(samples, signal.header.annotations ? 0 : signal.layout.samples);
    }
    return std::max(kTimeRounding, 0.5 * *header.record_seconds / samples);
}

void ReportOutside(const EdfAnnotations& result, RepairList& repairs) {
    const double end = result.clock.Duration() + kTimeRounding;
    std::uint64_t outside = 0;
    double first = 0;
    for (const Annotation& annotation : result.annotations) {
        if (annotation.onset_s < -kTimeRounding || annotation.onset_s > end) {
            first = outside++ == 0 ? annotation.onset_s : first;
        }
    }
    if (outside > 0) {
        repairs.Add("annotations: " + std::to_string(outside) + " outside the recording, the first at " +
                    SecondsText(first) + ", kept");
    }
}

} // namespace

EdfAnnotations ReadEdfAnnotations(const DataFile& file, const EdfHeader& header, std::uint64_t records,
                                  std::uint64_t declared, RepairList& repairs) {
    EdfAnnotations result{RecordClock(*header.record_seconds, Tolerance(header)), {}};
    AnnotationBytes bytes(file, header, records);
    Findings findings;
    std::vector<AnnotationList> lists;
    for (std::uint64_t record = 0; record < records; ++record) {
        SplitAnnotationLists(bytes.Of(record, 0), lists);
        const bool keepsTime = !lists.empty() && lists.front().KeepsTime();
        if (record >= declared && !keepsTime) {
            break;
        }
        result.clock.AddRecord(keepsTime ? lists.front().onset_s : std::nullopt);
        for (std::size_t signal = 0; signal < bytes.Signals(); ++signal) {
            if (signal > 0) {
                SplitAnnotationLists(bytes.Of(record, signal), lists);
            }
            for (const AnnotationList& list : lists) {
                if (!list.terminated) {
                    findings.unterminated.Note(record);
                }
                if (list.comma) {
                    findings.comma.Note(record);
                }
                if (list.bad_duration) {
                    findings.badDuration.Note(record);
                }
                if (!list.onset_s) {
                    findings.badOnset.Note(record);
                    continue;
                }
                AppendTexts(list, keepsTime && signal == 0 && &list == &lists.front(), record, findings,
                            result.annotations);
            }
        }
    }
    for (Annotation& annotation : result.annotations) {
        annotation.onset_s -= result.clock.FirstOnset();
    }
    std::stable_sort(result.annotations.begin(), result.annotations.end(),
                     [](const Annotation& a, const Annotation& b) { return a.onset_s < b.onset_s; });
    findings.Report(repairs);
    ReportOutside(result, repairs);
    return result;
}

std::optional<double> EdfRecordSpacing(const DataFile& file, const EdfHeader& header, std::uint64_t records) {
    if (records < 2) {
        return std::nullopt;
    }
    AnnotationBytes bytes(file, header, records);
    if (bytes.Signals() == 0) {
        return std::nullopt;
    }
    std::vector<AnnotationList> lists;
    std::array<double, 2> onsets{};
    for (std::size_t record = 0; record < onsets.size(); ++record) {
        SplitAnnotationLists(bytes.Of(record, 0), lists);
        if (lists.empty() || !lists.front().KeepsTime()) {
            return std::nullopt;
        }
        onsets[record] = *lists.front().onset_s;
    }
    return onsets[1] - onsets[0];
}

} // namespace orvanta::signal
