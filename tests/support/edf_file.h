// SPDX-License-Identifier: GPL-3.0-or-later
// EDF and BDF files made on the spot, with any field as wrong as a test wants it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace orvanta::test {

/// A channel: header fields as text, and its samples or its annotation bytes.
struct EdfFileSignal {
    std::string label = "Fp1";
    std::string transducer;
    std::string unit = "uV";
    std::string physical_min = "-3276.8"; ///< with the digital range a tenth of a µV per step
    std::string physical_max = "3276.7";
    std::string digital_min = "-32768";
    std::string digital_max = "32767";
    std::string prefilter;
    std::size_t samples = 4;                 ///< per data record, as the data are laid out
    std::optional<std::string> samples_text; ///< as the header says, when that differs
    std::vector<std::int32_t> values;        ///< all data records; what is missing is 0
    std::vector<std::string> texts;          ///< bytes per data record, instead of values
};

/// A file. Fields that are not set say what is right.
struct EdfFile {
    bool bdf = false;
    std::optional<std::string> version;
    std::string patient = "X X X X";
    std::string recording = "Startdate 02-MAR-2002 X X X";
    std::string date = "02.03.02";
    std::string time = "10.20.30";
    std::optional<std::string> header_bytes;
    std::string reserved;
    std::optional<std::string> records;
    std::string duration = "1";
    std::optional<std::string> channels;
    std::vector<EdfFileSignal> signals;
    std::size_t record_count = 1; ///< data records that are really there
    char padding = ' ';           ///< of the header fields
    std::string trailer;          ///< bytes behind the last data record

    std::size_t HeaderBytes() const { return 256 * (signals.size() + 1); }
    std::size_t RecordBytes() const;
    std::string Bytes() const;
};

/// An annotation signal of \p samples samples with these bytes in each data record.
EdfFileSignal AnnotationSignal(std::vector<std::string> texts, std::size_t samples = 32, bool bdf = false);
/// The list that gives a data record its time: "+ONSET" and three end marks.
std::string TimeKeeping(const std::string& onset);
/// A list "+ONSET [0x15 DURATION] 0x14 TEXT 0x14 0x00".
std::string AnnotationBytes(const std::string& onset, const std::string& duration, const std::string& text);

/// Two channels, Fp1 and Fp2, of 4 samples per record of one second, and \p records data records: Fp1 counts
/// 0, 1, 2, ..., Fp2 counts down.
EdfFile PlainEdf(std::size_t records = 3);
/// The same in EDF+C with an annotation signal that keeps the time.
EdfFile PlusEdf(std::size_t records = 3);
/// The same as BDF with 24-bit values (counting in steps of 500000).
EdfFile PlainBdf(std::size_t records = 3);

} // namespace orvanta::test
