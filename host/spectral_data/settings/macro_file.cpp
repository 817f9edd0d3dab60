// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/settings/macro_file.h"

#include "host/signal_base/recording_error.h"
#include "host/signal_base/text.h"
#include "host/spectral_data/settings/macro_fields.h"
#include "host/spectral_data/settings/macro_limits.h"

#include <algorithm>
#include <pugixml.hpp>
#include <stdexcept>

namespace orvanta::spectral {

namespace {

constexpr const char* kRoot = "spectra_macro";
constexpr const char* kLabel = "label";
constexpr int kVersion = 1;
constexpr const char* kDamaged = "restore the file from a copy or make a new one";

/// Reads the fields of one file; its messages name the place.
class MacroReader {
public:
    MacroReader(const std::string& file, std::string_view content) : file_(file), content_(content) {}

    SpectraMacro Read() {
        if (content_.size() > kMaxMacroBytes) {
            throw signal::RecordingError(file_, "larger than " + std::to_string(kMaxMacroBytes) + " bytes",
                                         "choose a macro file");
        }
        // Labels may consist of blanks only.
        const pugi::xml_parse_result parsed =
            document_.load_buffer(content_.data(), content_.size(),
                                  pugi::parse_default | pugi::parse_ws_pcdata_single, pugi::encoding_utf8);
        if (!parsed) {
            Fail(parsed.offset, std::string("no well-formed XML: ") + parsed.description(), kDamaged);
        }
        const pugi::xml_node root = document_.child(kRoot);
        if (!root) {
            throw signal::RecordingError(file_, "no macro file", "choose a file with the extension .smx");
        }
        CheckVersion(root);
        SpectraMacro macro;
        for (const MacroField& field : MacroFields()) {
            ReadField(root, field, macro);
        }
        return macro;
    }

private:
    [[noreturn]] void Fail(std::ptrdiff_t offset, const std::string& reason,
                           const std::string& remedy) const {
        const std::size_t end =
            std::min(static_cast<std::size_t>(std::max<std::ptrdiff_t>(offset, 0)), content_.size());
        const auto line =
            1 + std::count(content_.begin(), content_.begin() + static_cast<std::ptrdiff_t>(end), '\n');
        throw signal::RecordingError(file_, "line " + std::to_string(line) + ": " + reason, remedy);
    }

    void CheckVersion(const pugi::xml_node& root) const {
        const std::optional<std::int64_t> version = signal::ParseWhole(root.attribute("version").value());
        if (!version || *version < 1) {
            Fail(root.offset_debug(), "no version", kDamaged);
        }
        if (*version > kVersion) {
            Fail(root.offset_debug(),
                 "from a newer version (macro file version " + std::to_string(*version) + ", known is " +
                     std::to_string(kVersion) + ")",
                 "update this program");
        }
    }

    void ReadField(const pugi::xml_node& root, const MacroField& field, SpectraMacro& macro) const {
        const pugi::xml_node node = root.child(field.key);
        if (!node) {
            return;
        }
        if (const pugi::xml_node second = node.next_sibling(field.key)) {
            Fail(second.offset_debug(), std::string(field.key) + " is there twice", "remove one of them");
        }
        if (field.IsList()) {
            field.set_list(macro, ReadLabels(node));
            return;
        }
        try {
            field.set(macro, Text(node));
        } catch (const std::invalid_argument& error) {
            Fail(node.offset_debug(), std::string(field.key) + ": " + error.what(), "correct the value");
        }
    }

    std::set<std::string> ReadLabels(const pugi::xml_node& list) const {
        std::set<std::string> labels;
        for (const pugi::xml_node& node : list.children(kLabel)) {
            labels.insert(Text(node));
            if (labels.size() > kMaxLabels) {
                Fail(node.offset_debug(), "more than " + std::to_string(kMaxLabels) + " labels",
                     "shorten the list");
            }
        }
        return labels;
    }

    std::string Text(const pugi::xml_node& node) const {
        std::string text = node.text().get();
        if (text.size() > kMaxTextBytes) {
            Fail(node.offset_debug(), "a text of more than " + std::to_string(kMaxTextBytes) + " bytes",
                 "shorten it");
        }
        return text;
    }

    const std::string& file_;
    std::string_view content_;
    pugi::xml_document document_;
};

} // namespace

void WriteMacroFields(XmlWriter& xml, const SpectraMacro& macro) {
    for (const MacroField& field : MacroFields()) {
        if (!field.IsList()) {
            xml.Element(field.key, field.get(macro));
            continue;
        }
        xml.Open(field.key);
        for (const std::string& label : field.get_list(macro)) {
            xml.Element(kLabel, label);
        }
        xml.Close();
    }
}

std::string FormatMacroFile(const SpectraMacro& macro) {
    XmlWriter xml;
    xml.Open(kRoot, {{"version", std::to_string(kVersion)}});
    WriteMacroFields(xml, macro);
    xml.Close();
    return xml.Take();
}

SpectraMacro ParseMacroFile(const std::string& file, std::string_view content) {
    return MacroReader(file, content).Read();
}

} // namespace orvanta::spectral
