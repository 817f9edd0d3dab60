// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/edf/edf_write_header.h"

#include "host/signal_base/edf/edf_fields.h"
#include "host/signal_base/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <stdexcept>

namespace orvanta::signal {

namespace {

constexpr std::size_t kNumberWidth = 8;
constexpr double kLowest = -32768;
constexpr double kHighest = 32767;

void Append(std::string& bytes, const std::string& text, const EdfField& field) {
    const bool printable = std::all_of(text.begin(), text.end(), [](char c) { return c >= ' ' && c <= '~'; });
    if (!printable || text.size() > field.width) {
        throw std::invalid_argument(std::string(field.name) + " \"" + text +
                                    "\": not printable ASCII of at most " + std::to_string(field.width) +
                                    " characters");
    }
    bytes += text;
    bytes.append(field.width - text.size(), ' ');
}

/// As many digits as a field of eight characters has room for.
std::string NumberText(double value) {
    std::array<char, 32> text{};
    for (int digits = 17; digits > 0; --digits) {
        const auto [end, error] =
            std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::general, digits);
        if (error == std::errc{} && static_cast<std::size_t>(end - text.data()) <= kNumberWidth) {
            return {text.data(), end};
        }
    }
    throw std::invalid_argument("a physical range that no header can hold");
}

std::string TwoDigits(int value) {
    return (value < 10 ? "0" : "") + std::to_string(value);
}

std::string Triple(int a, int b, int c) {
    return TwoDigits(a) + '.' + TwoDigits(b) + '.' + TwoDigits(c);
}

std::string RecordingText(const EdfWriterHeader& header) {
    constexpr std::array<const char*, 12> kMonths = {"JAN", "FEB", "MAR", "APR", "MAY", "JUN",
                                                     "JUL", "AUG", "SEP", "OCT", "NOV", "DEC"};
    if (!header.start) {
        return "Startdate X " + header.recording;
    }
    const StartTime& start = *header.start;
    return "Startdate " + TwoDigits(start.day) + '-' + kMonths.at(static_cast<std::size_t>(start.month - 1)) +
           '-' + std::to_string(start.year) + ' ' + header.recording;
}

std::string UnitText(const std::string& unit) {
    return unit == "\u00B5V" ? "uV" : unit;
}

void Check(const EdfWriterHeader& header) {
    if (header.signals.empty() || header.signals.size() > 9998) {
        throw std::invalid_argument("an EDF+ file holds 1 to 9998 signals");
    }
    if (!(header.record_seconds > 0) || !std::isfinite(header.record_seconds)) {
        throw std::invalid_argument("a data record lasts longer than 0 s");
    }
    if (header.annotation_bytes < 32 || header.annotation_bytes % 2 != 0) {
        throw std::invalid_argument("annotation bytes are even and at least 32");
    }
    if (header.start && (header.start->year < 1985 || header.start->year > 2084 || header.start->month < 1 ||
                         header.start->month > 12)) {
        throw std::invalid_argument("an EDF+ file starts in the years 1985 to 2084");
    }
    for (const EdfWriterSignal& signal : header.signals) {
        if (signal.samples == 0) {
            throw std::invalid_argument("signal \"" + signal.label + "\": no samples in a data record");
        }
    }
}

EdfWriterSignal AnnotationSignalOf(const EdfWriterHeader& header) {
    EdfWriterSignal signal;
    signal.label = "EDF Annotations";
    signal.unit = "";
    signal.samples = static_cast<std::uint32_t>(header.annotation_bytes / 2);
    signal.physical_min = -1;
    signal.physical_max = 1;
    return signal;
}

} // namespace

std::vector<EdfScale> EdfScales(const EdfWriterHeader& header) {
    Check(header);
    std::vector<EdfScale> scales;
    for (const EdfWriterSignal& signal : header.signals) {
        const double low = ParseNumber(NumberText(signal.physical_min)).value_or(0);
        const double high = ParseNumber(NumberText(signal.physical_max)).value_or(0);
        if (!(low < high)) {
            throw std::invalid_argument("signal \"" + signal.label + "\": an empty physical range");
        }
        const double gain = (high - low) / (kHighest - kLowest);
        scales.push_back({gain, low - gain * kLowest});
    }
    return scales;
}

std::string EdfHeaderBytes(const EdfWriterHeader& header) {
    Check(header);
    std::vector<EdfWriterSignal> signals = header.signals;
    signals.push_back(AnnotationSignalOf(header));
    const StartTime start = header.start.value_or(StartTime{1985, 1, 1, 0, 0, 0, 0});

    std::string bytes;
    Append(bytes, "0", edf_field::kVersion);
    Append(bytes, header.patient, edf_field::kPatient);
    Append(bytes, RecordingText(header), edf_field::kRecording);
    Append(bytes, Triple(start.day, start.month, start.year % 100), edf_field::kStartDate);
    Append(bytes, Triple(start.hour, start.minute, start.second), edf_field::kStartTime);
    Append(bytes, std::to_string(kEdfHeaderUnit * (signals.size() + 1)), edf_field::kHeaderBytes);
    Append(bytes, "EDF+C", edf_field::kReserved);
    Append(bytes, std::to_string(header.record_count), edf_field::kRecords);
    Append(bytes, NumberText(header.record_seconds), edf_field::kDuration);
    Append(bytes, std::to_string(signals.size()), edf_field::kChannels);
    const auto column = [&](const EdfField& field, auto&& textOf) {
        for (const EdfWriterSignal& signal : signals) {
            Append(bytes, textOf(signal), field);
        }
    };
    using Signal = EdfWriterSignal;
    column(edf_field::kLabel, [](const Signal& s) { return s.label; });
    column(edf_field::kTransducer, [](const Signal& s) { return s.transducer; });
    column(edf_field::kUnit, [](const Signal& s) { return UnitText(s.unit); });
    column(edf_field::kPhysicalMin, [](const Signal& s) { return NumberText(s.physical_min); });
    column(edf_field::kPhysicalMax, [](const Signal& s) { return NumberText(s.physical_max); });
    column(edf_field::kDigitalMin, [](const Signal&) { return std::string("-32768"); });
    column(edf_field::kDigitalMax, [](const Signal&) { return std::string("32767"); });
    column(edf_field::kPrefilter, [](const Signal& s) { return s.prefilter; });
    column(edf_field::kSamples, [](const Signal& s) { return std::to_string(s.samples); });
    bytes.append(32 * signals.size(), ' ');
    return bytes;
}

std::string EdfTimeText(double seconds) {
    std::array<char, 64> text{};
    const auto [end, error] =
        std::to_chars(text.data(), text.data() + text.size(), seconds, std::chars_format::fixed, 6);
    if (error != std::errc{} || std::abs(seconds) > 1e9) {
        throw std::invalid_argument("a time further than 1e9 s from the start");
    }
    std::string digits(text.data(), end);
    digits.erase(digits.find_last_not_of('0') + 1);
    if (digits.back() == '.') {
        digits.pop_back();
    }
    return digits;
}

} // namespace orvanta::signal
