// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/edf/edf_fields.h"

#include "host/signal_base/text.h"
#include "host/signal_base/text_encoding.h"

#include <algorithm>

namespace orvanta::signal {

namespace {

bool IsControl(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte < 0x20 || byte == 0x7F;
}

/// Without padding: blanks at both ends and everything from the first NUL byte after the content's start.
std::string_view Content(std::string_view raw) {
    raw = Trim(raw);
    return Trim(raw.substr(0, raw.find('\0')));
}

/// UTF-8 in which control characters are blanks.
std::string Readable(std::string_view bytes) {
    std::string text(bytes);
    std::replace_if(text.begin(), text.end(), IsControl, ' ');
    return ToUtf8(text);
}

} // namespace

EdfField InColumn(const EdfField& column, std::size_t channel, std::size_t channels) {
    return {kEdfHeaderUnit + channels * column.offset + (channel - 1) * column.width, column.width,
            column.name, channel};
}

std::string PlaceOf(const EdfField& field) {
    return (field.channel == 0 ? "byte " + std::to_string(field.offset)
                               : "channel " + std::to_string(field.channel)) +
           ": ";
}

std::string_view EdfFields::Raw(const EdfField& field) const {
    return std::string_view(header_).substr(field.offset, field.width);
}

std::string_view EdfFields::Bytes(const EdfField& field) {
    const std::string_view raw = Raw(field);
    if (raw.find('\0') != std::string_view::npos) {
        if (field.channel == 0) {
            repairs_->Add("header: NUL bytes in the file's fields taken as blanks");
        } else {
            repairs_->AddChannel(field.channel, "NUL bytes in the header fields taken as blanks");
        }
    }
    return Content(raw);
}

std::string EdfFields::Text(const EdfField& field) {
    const std::string_view bytes = Bytes(field);
    if (std::any_of(bytes.begin(), bytes.end(),
                    [](char c) { return static_cast<unsigned char>(c) >= 0x80; })) {
        Repaired(field, std::string("the ") + field.name + " is not plain ASCII, read as " +
                            (IsUtf8(bytes) ? "UTF-8" : "Latin-1"));
    }
    if (std::any_of(bytes.begin(), bytes.end(), IsControl)) {
        Repaired(field, std::string("control characters in the ") + field.name + " taken as blanks");
    }
    return Readable(bytes);
}

std::optional<double> EdfFields::Number(const EdfField& field) {
    const std::string_view bytes = Bytes(field);
    const std::optional<RepairedNumber> number = ParseNumberOrComma(bytes);
    if (!number) {
        return std::nullopt;
    }
    if (number->comma) {
        Repaired(field, std::string("decimal comma in the ") + field.name + " read as a point");
    }
    return number->value;
}

std::string EdfFields::Quoted(const EdfField& field) const {
    return '"' + Readable(Content(Raw(field))) + '"';
}

void EdfFields::Repaired(const EdfField& field, const std::string& text) {
    if (field.channel == 0) {
        repairs_->Add(PlaceOf(field) + text);
    } else {
        repairs_->AddChannel(field.channel, text);
    }
}

} // namespace orvanta::signal
