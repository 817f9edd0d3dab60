// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/files/spectra_file.h"

#include "host/platform/atomic_file.h"
#include "host/spectral_data/files/number_text.h"
#include "host/spectral_data/files/xml_writer.h"
#include "host/spectral_data/settings/macro_file.h"

#include <cstring>

namespace orvanta::spectral {

namespace {

constexpr const char* kVersion = "1";
constexpr const char* kSoftware = "Orvanta " ORVANTA_VERSION;

void WriteRecording(XmlWriter& xml, const SpectraFileContent& content) {
    xml.Open("recording");
    xml.Element("file", content.recording_file);
    xml.Element("label", content.recording_label);
    xml.Element("format", content.recording_format);
    if (!content.recording_start.empty()) {
        xml.Element("start", content.recording_start);
    }
    xml.Element("duration_s", NumberText(content.recording_seconds));
    xml.Close();
}

void WriteComments(XmlWriter& xml, const SpectralComments& comments) {
    xml.Open("comments");
    xml.Element("protocol1", comments.protocol1);
    xml.Element("protocol2", comments.protocol2);
    xml.Element("protocol3", comments.protocol3);
    xml.Element("code1", comments.code1);
    xml.Element("code2", comments.code2);
    xml.Element("code3", comments.code3);
    xml.Element("comment", comments.comment);
    xml.Close();
}

void WriteAnalysis(XmlWriter& xml, const SpectraFileContent& content) {
    xml.Open("analysis");
    xml.Element("montage", content.montage);
    xml.Element("entity", content.entity);
    xml.Element("unit", content.unit);
    xml.Element("rate_hz", NumberText(content.rate_hz));
    xml.Element("window_samples", std::to_string(content.window_samples));
    xml.Element("fft_samples", std::to_string(content.fft_samples));
    xml.Element("resolution_hz", NumberText(content.resolution_hz));
    xml.Element("fft_count", std::to_string(content.epochs.size()));
    xml.Close();
    xml.Open("epochs");
    for (const SpectraFileContent::Epoch& epoch : content.epochs) {
        xml.Element("epoch", "",
                    {{"begin_s", NumberText(epoch.begin_s)}, {"end_s", NumberText(epoch.end_s)}});
    }
    xml.Close();
}

void WriteRange(XmlWriter& xml, double low, double high) {
    xml.Element("low_hz", NumberText(low));
    xml.Element("high_hz", NumberText(high));
}

void WriteBands(XmlWriter& xml, const SpectraFileContent& content) {
    xml.Open("bands");
    std::size_t index = 0;
    for (const SPECT::Band& band : content.bands) {
        xml.Open("band",
                 {{"index", std::to_string(index++)}, {"selected", band.selected ? "true" : "false"}});
        xml.Element("name", {band.name, ::strnlen(band.name, sizeof band.name)});
        WriteRange(xml, band.lo, band.hi);
        xml.Close();
    }
    xml.Open("total_band");
    WriteRange(xml, content.total_lo, content.total_hi);
    xml.Close();
    xml.Close();
}

void WriteTrace(XmlWriter& xml, const SpectraFileContent& content, const SpectraFileTrace& trace) {
    xml.Open("trace", {{"kind", trace.kind}, {"name", trace.name}});
    xml.Numbers("mean", trace.mean);
    xml.Numbers("sd", trace.sd);
    xml.Open("measures");
    for (std::size_t band = 0; band < trace.measures.size(); ++band) {
        for (std::size_t i = 0; i < trace.measures[band].size(); ++i) {
            xml.Element("measure", NumberText(trace.measures[band][i]),
                        {{"band", std::to_string(band)},
                         {"name", content.measure_names.at(i)},
                         {"unit", content.measure_units.at(i)}});
        }
    }
    xml.Close();
    xml.Close();
}

} // namespace

std::string FormatSpectraFile(const SpectraFileContent& content) {
    XmlWriter xml;
    xml.Open("spectra", {{"version", kVersion}});
    xml.Element("software", kSoftware);
    WriteRecording(xml, content);
    xml.Open("settings");
    WriteMacroFields(xml, content.macro);
    xml.Close();
    if (content.comments != nullptr) {
        WriteComments(xml, *content.comments);
    }
    WriteAnalysis(xml, content);
    WriteBands(xml, content);
    xml.Numbers("frequencies_hz", content.frequencies_hz);
    xml.Open("traces");
    for (const SpectraFileTrace& trace : content.traces) {
        WriteTrace(xml, content, trace);
    }
    xml.Close();
    xml.Open("repairs");
    for (const std::string& repair : content.repairs) {
        xml.Element("repair", repair);
    }
    xml.Close();
    xml.Close();
    return xml.Take();
}

void WriteSpectraFile(const std::string& path, const SpectraFileContent& content) {
    platform::WriteFileAtomically(path, FormatSpectraFile(content));
}

} // namespace orvanta::spectral
