// SPDX-License-Identifier: GPL-3.0-or-later
// The text fields of an EDF or BDF header.
#pragma once

#include "host/signal_base/edf/repair_list.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace orvanta::signal {

constexpr std::size_t kEdfHeaderUnit = 256; ///< bytes of the fixed part and of each channel's part

/// A field of fixed width. `channel` is counted from 1; 0 for a field of the file.
struct EdfField {
    std::size_t offset = 0;
    std::size_t width = 0;
    const char* name = "";
    std::size_t channel = 0;
};

namespace edf_field {
constexpr EdfField kVersion{0, 8, "version"};
constexpr EdfField kPatient{8, 80, "patient"};
constexpr EdfField kRecording{88, 80, "recording"};
constexpr EdfField kStartDate{168, 8, "start date"};
constexpr EdfField kStartTime{176, 8, "start time"};
constexpr EdfField kHeaderBytes{184, 8, "header size"};
constexpr EdfField kReserved{192, 44, "format"};
constexpr EdfField kRecords{236, 8, "number of data records"};
constexpr EdfField kDuration{244, 8, "duration of a data record"};
constexpr EdfField kChannels{252, 4, "number of channels"};

// Columns: one value per channel, one column after the other; the offset counts the bytes of the columns
// before it for a single channel.
constexpr EdfField kLabel{0, 16, "label"};
constexpr EdfField kTransducer{16, 80, "transducer"};
constexpr EdfField kUnit{96, 8, "unit"};
constexpr EdfField kPhysicalMin{104, 8, "physical minimum"};
constexpr EdfField kPhysicalMax{112, 8, "physical maximum"};
constexpr EdfField kDigitalMin{120, 8, "digital minimum"};
constexpr EdfField kDigitalMax{128, 8, "digital maximum"};
constexpr EdfField kPrefilter{136, 80, "prefilter"};
constexpr EdfField kSamples{216, 8, "samples per data record"};
} // namespace edf_field

/// The field of channel \p channel (from 1) in a column of a header with \p channels channels.
EdfField InColumn(const EdfField& column, std::size_t channel, std::size_t channels);

/// "channel 3: " or "byte 252: ".
std::string PlaceOf(const EdfField& field);

/// Reads the fields of a header that is in memory as a whole, and lists what it had to repair in them.
class EdfFields {
public:
    EdfFields(std::string header, RepairList& repairs) : header_(std::move(header)), repairs_(&repairs) {}

    /// The bytes of a field without padding; what follows a NUL byte is padding.
    std::string_view Bytes(const EdfField& field);
    /// A field as UTF-8 without control characters.
    std::string Text(const EdfField& field);
    /// A field as a number, also with a decimal comma; none when it is no finite number.
    std::optional<double> Number(const EdfField& field);
    /// A field's bytes in quotes, fit for a message.
    std::string Quoted(const EdfField& field) const;
    /// Lists a repair of the field: its place, then \p text.
    void Repaired(const EdfField& field, const std::string& text);

private:
    std::string_view Raw(const EdfField& field) const;

    std::string header_;
    RepairList* repairs_;
};

} // namespace orvanta::signal
