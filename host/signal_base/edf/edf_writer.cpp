// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/edf/edf_writer.h"

#include "host/platform/atomic_file.h"
#include "host/signal_base/edf/edf_write_header.h"

#include <algorithm>
#include <cmath>
#include <deque>
#include <stdexcept>

namespace orvanta::signal {

namespace {

constexpr char kTextMark = '\x14';
constexpr char kDurationMark = '\x15';

std::string Signed(double seconds) {
    return (seconds < 0 ? "" : "+") + EdfTimeText(seconds);
}

/// The list of one annotation, with its end mark. Marks inside the text would end it and become blanks.
std::string ListOf(const Annotation& annotation) {
    std::string text = annotation.text;
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c == '\0' || c == kTextMark || c == kDurationMark; },
        ' ');
    std::string list = Signed(annotation.onset_s);
    if (annotation.duration_s) {
        list += kDurationMark + EdfTimeText(*annotation.duration_s);
    }
    return list + kTextMark + text + kTextMark + '\0';
}

} // namespace

struct EdfWriter::Impl {
    Impl(const std::string& path, const EdfWriterHeader& description)
        : header(description), scales(EdfScales(header)), file(path) {
        file.Write(EdfHeaderBytes(header));
    }

    void AppendSamples(const std::vector<double>& samples, std::size_t signal) {
        if (samples.size() != header.signals[signal].samples) {
            throw std::invalid_argument("signal " + std::to_string(signal + 1) + ": " +
                                        std::to_string(samples.size()) + " samples for a data record of " +
                                        std::to_string(header.signals[signal].samples));
        }
        for (const double sample : samples) {
            if (std::isnan(sample)) {
                throw std::invalid_argument("signal " + std::to_string(signal + 1) +
                                            ": a sample is no number");
            }
            const EdfScale& scale = scales[signal];
            const double step = std::round((sample - scale.offset) / scale.gain);
            const auto stored =
                static_cast<std::uint16_t>(static_cast<std::int16_t>(std::clamp(step, -32768.0, 32767.0)));
            record += static_cast<char>(stored & 0xFF);
            record += static_cast<char>(stored >> 8);
        }
    }

    void AppendAnnotations() {
        std::string bytes =
            Signed(static_cast<double>(written) * header.record_seconds) + kTextMark + kTextMark + '\0';
        while (!waiting.empty() && bytes.size() + waiting.front().size() <= header.annotation_bytes) {
            bytes += waiting.front();
            waiting.pop_front();
        }
        bytes.resize(header.annotation_bytes, '\0');
        record += bytes;
    }

    EdfWriterHeader header;
    std::vector<EdfScale> scales;
    platform::AtomicFile file;
    std::uint64_t written = 0;
    std::deque<std::string> waiting; ///< lists that found no room yet
    std::string record;
};

EdfWriter::EdfWriter(const std::string& path, const EdfWriterHeader& header)
    : impl_(std::make_unique<Impl>(path, header)) {}

EdfWriter::~EdfWriter() = default;

void EdfWriter::WriteRecord(std::span<const std::vector<double>> samples,
                            const std::vector<Annotation>& annotations) {
    Impl& impl = *impl_;
    if (samples.size() != impl.header.signals.size()) {
        throw std::invalid_argument(std::to_string(samples.size()) + " signals in a data record of " +
                                    std::to_string(impl.header.signals.size()));
    }
    if (impl.written == impl.header.record_count) {
        throw std::invalid_argument("more data records than the announced " +
                                    std::to_string(impl.header.record_count));
    }
    for (const Annotation& annotation : annotations) {
        std::string list = ListOf(annotation);
        // The time of the data record stands before it.
        if (list.size() + kEdfTimeKeepingBytes > impl.header.annotation_bytes) {
            throw std::invalid_argument("annotation \"" + annotation.text + "\": too long for a data record");
        }
        impl.waiting.push_back(std::move(list));
    }
    impl.record.clear();
    for (std::size_t signal = 0; signal < samples.size(); ++signal) {
        impl.AppendSamples(samples[signal], signal);
    }
    impl.AppendAnnotations();
    impl.file.Write(impl.record);
    ++impl.written;
}

void EdfWriter::Finish() {
    if (impl_->written != impl_->header.record_count) {
        throw std::invalid_argument(std::to_string(impl_->written) + " of " +
                                    std::to_string(impl_->header.record_count) +
                                    " data records were written");
    }
    if (!impl_->waiting.empty()) {
        throw std::invalid_argument(std::to_string(impl_->waiting.size()) +
                                    " annotations found no room; give data records more annotation bytes");
    }
    impl_->file.Commit();
}

} // namespace orvanta::signal
