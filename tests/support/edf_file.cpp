// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/edf_file.h"

namespace orvanta::test {

namespace {

void Append(std::string& bytes, std::string text, std::size_t width, char padding) {
    text.resize(width, padding);
    bytes += text;
}

void AppendRecord(std::string& bytes, const EdfFileSignal& signal, std::size_t width, std::size_t record) {
    if (!signal.texts.empty()) {
        Append(bytes, record < signal.texts.size() ? signal.texts[record] : "", signal.samples * width, '\0');
        return;
    }
    for (std::size_t i = 0; i < signal.samples; ++i) {
        const std::size_t at = record * signal.samples + i;
        const auto value = static_cast<std::uint32_t>(at < signal.values.size() ? signal.values[at] : 0);
        for (std::size_t byte = 0; byte < width; ++byte) {
            bytes += static_cast<char>(value >> 8 * byte & 0xFF);
        }
    }
}

} // namespace

std::size_t EdfFile::RecordBytes() const {
    std::size_t samples = 0;
    for (const EdfFileSignal& signal : signals) {
        samples += signal.samples;
    }
    return samples * (bdf ? 3 : 2);
}

std::string EdfFile::Bytes() const {
    std::string bytes;
    Append(bytes,
           version.value_or(bdf ? "\xFF"
                                  "BIOSEMI"
                                : "0"),
           8, padding);
    Append(bytes, patient, 80, padding);
    Append(bytes, recording, 80, padding);
    Append(bytes, date, 8, padding);
    Append(bytes, time, 8, padding);
    Append(bytes, header_bytes.value_or(std::to_string(HeaderBytes())), 8, padding);
    Append(bytes, reserved, 44, padding);
    Append(bytes, records.value_or(std::to_string(record_count)), 8, padding);
    Append(bytes, duration, 8, padding);
    Append(bytes, channels.value_or(std::to_string(signals.size())), 4, padding);
    const auto column = [&](std::size_t width, auto&& text) {
        for (const EdfFileSignal& signal : signals) {
            Append(bytes, text(signal), width, padding);
        }
    };
    column(16, [](const EdfFileSignal& s) { return s.label; });
    column(80, [](const EdfFileSignal& s) { return s.transducer; });
    column(8, [](const EdfFileSignal& s) { return s.unit; });
    column(8, [](const EdfFileSignal& s) { return s.physical_min; });
    column(8, [](const EdfFileSignal& s) { return s.physical_max; });
    column(8, [](const EdfFileSignal& s) { return s.digital_min; });
    column(8, [](const EdfFileSignal& s) { return s.digital_max; });
    column(80, [](const EdfFileSignal& s) { return s.prefilter; });
    column(8, [](const EdfFileSignal& s) { return s.samples_text.value_or(std::to_string(s.samples)); });
    column(32, [](const EdfFileSignal&) { return std::string(); });
    for (std::size_t record = 0; record < record_count; ++record) {
        for (const EdfFileSignal& signal : signals) {
            AppendRecord(bytes, signal, bdf ? 3 : 2, record);
        }
    }
    return bytes + trailer;
}

EdfFileSignal AnnotationSignal(std::vector<std::string> texts, std::size_t samples, bool bdf) {
    EdfFileSignal signal;
    signal.label = bdf ? "BDF Annotations" : "EDF Annotations";
    signal.unit.clear();
    signal.physical_min = "-1";
    signal.physical_max = "1";
    signal.digital_min = bdf ? "-8388608" : "-32768";
    signal.digital_max = bdf ? "8388607" : "32767";
    signal.samples = samples;
    signal.texts = std::move(texts);
    return signal;
}

std::string TimeKeeping(const std::string& onset) {
    return '+' + onset + std::string("\x14\x14\0", 3);
}

std::string AnnotationBytes(const std::string& onset, const std::string& duration, const std::string& text) {
    return '+' + onset + (duration.empty() ? "" : '\x15' + duration) + '\x14' + text +
           std::string("\x14\0", 2);
}

EdfFile PlainEdf(std::size_t records) {
    EdfFile file;
    file.record_count = records;
    file.signals.resize(2);
    file.signals[1].label = "Fp2";
    for (std::size_t i = 0; i < 4 * records; ++i) {
        file.signals[0].values.push_back(static_cast<std::int32_t>(i));
        file.signals[1].values.push_back(-static_cast<std::int32_t>(i));
    }
    return file;
}

EdfFile PlusEdf(std::size_t records) {
    EdfFile file = PlainEdf(records);
    file.reserved = "EDF+C";
    std::vector<std::string> times;
    for (std::size_t record = 0; record < records; ++record) {
        times.push_back(TimeKeeping(std::to_string(record)));
    }
    file.signals.push_back(AnnotationSignal(times));
    return file;
}

EdfFile PlainBdf(std::size_t records) {
    EdfFile file = PlainEdf(records);
    file.bdf = true;
    file.reserved = "24BIT";
    for (EdfFileSignal& signal : file.signals) {
        signal.physical_min = "-838861";
        signal.physical_max = "838861";
        signal.digital_min = "-8388608";
        signal.digital_max = "8388607";
        for (std::int32_t& value : signal.values) {
            value *= 500'000;
        }
    }
    return file;
}

} // namespace orvanta::test
