// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/files/xml_writer.h"

#include "host/signal_base/text_encoding.h"
#include "host/spectral_data/files/number_text.h"

namespace orvanta::spectral {

namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD"; // U+FFFD

/// What a byte becomes in text; empty when it stays. Line ends and tabs are escaped where a reader would
/// otherwise turn them into something else.
std::string_view Escape(char c, bool attribute) {
    switch (c) {
    case '&':
        return "&amp;";
    case '<':
        return "&lt;";
    case '>':
        return "&gt;";
    case '"':
        return attribute ? "&quot;" : "";
    case '\r':
        return "&#13;";
    case '\n':
        return attribute ? "&#10;" : "";
    case '\t':
        return attribute ? "&#9;" : "";
    default:
        return static_cast<unsigned char>(c) < 0x20 ? kReplacement : "";
    }
}

} // namespace

XmlWriter::XmlWriter() : text_("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n") {}

void XmlWriter::Open(std::string_view name, Attributes attributes) {
    Begin(name, attributes);
    text_ += '\n';
    open_.emplace_back(name);
}

void XmlWriter::Close() {
    const std::string name = std::move(open_.back());
    open_.pop_back();
    text_.append(2 * open_.size(), ' ');
    End(name);
}

void XmlWriter::Element(std::string_view name, std::string_view text, Attributes attributes) {
    Begin(name, attributes);
    AppendText(text, false);
    End(name);
}

void XmlWriter::Numbers(std::string_view name, std::span<const double> values) {
    Begin(name, {});
    const char* separator = "";
    for (const double value : values) {
        text_ += separator;
        AppendNumber(text_, value);
        separator = " ";
    }
    End(name);
}

std::string XmlWriter::Take() {
    return std::move(text_);
}

void XmlWriter::Begin(std::string_view name, Attributes attributes) {
    text_.append(2 * open_.size(), ' ');
    text_ += '<';
    text_ += name;
    for (const auto& [key, value] : attributes) {
        text_ += ' ';
        text_ += key;
        text_ += "=\"";
        AppendText(value, true);
        text_ += '"';
    }
    text_ += '>';
}

void XmlWriter::End(std::string_view name) {
    text_ += "</";
    text_ += name;
    text_ += ">\n";
}

void XmlWriter::AppendText(std::string_view text, bool attribute) {
    const std::string valid = signal::ToUtf8(text);
    for (std::size_t i = 0; i < valid.size(); ++i) {
        // U+FFFE and U+FFFF are UTF-8 but no characters of XML.
        if (valid.compare(i, 3, "\xEF\xBF\xBE") == 0 || valid.compare(i, 3, "\xEF\xBF\xBF") == 0) {
            text_ += kReplacement;
            i += 2;
            continue;
        }
        const std::string_view escaped = Escape(valid[i], attribute);
        if (escaped.empty()) {
            text_ += valid[i];
        } else {
            text_ += escaped;
        }
    }
}

} // namespace orvanta::spectral
