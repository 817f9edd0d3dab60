// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/files/spectra_file.h"

#include "tests/support/temp_folder.h"
#include "tests/support/xml_schema.h"

#include <cstring>
#include <gtest/gtest.h>
#include <limits>
#include <stdexcept>

namespace orvanta::spectral {
namespace {

const double kNaN = std::numeric_limits<double>::quiet_NaN();
const double kInfinity = std::numeric_limits<double>::infinity();

/// Two traces of three bins, one measure in each of two bands.
SpectraFileContent SmallContent() {
    SpectraFileContent content;
    content.recording_file = "demo.edf";
    content.recording_label = "P<1> & \"x\"";
    content.recording_format = "EDF+C";
    content.recording_start = "2026-01-02T03:04:05.5";
    content.recording_seconds = 600;
    content.montage = "As recorded";
    content.entity = "Power";
    content.unit = "µV²/Hz";
    content.rate_hz = 256;
    content.window_samples = 500;
    content.fft_samples = 512;
    content.resolution_hz = 0.5;
    content.epochs = {{0, 2}, {1, 3.0000001}};
    for (unsigned i = 0; i < SPECT::BandCount; ++i) {
        std::strcpy(content.bands[i].name, std::to_string(i).c_str());
        content.bands[i].lo = i;
        content.bands[i].hi = i + 0.5;
    }
    content.total_lo = 0.5;
    content.total_hi = 45;
    content.measure_names = {"Abs"};
    content.measure_units = {"µV²"};
    content.frequencies_hz = {0, 0.5, 1};
    content.traces = {{"sensor", "Fp1", {1, 0.1, 1e-20}, {kNaN, kNaN, kNaN}, {{2.5}, {kNaN}}},
                      {"channel", "Fp1-F3", {1e300, kInfinity, -0.5}, {1, 2, 3}, {{3}, {4}}}};
    content.repairs = {"header size corrected"};
    return content;
}

class SpectraFile : public testing::Test {
protected:
    /// The file as written, held against its schema.
    std::string Written(const SpectraFileContent& content) {
        const std::string path = folder_.Path("spectra.xml");
        WriteSpectraFile(path, content);
        EXPECT_TRUE(test::MatchesSchema(path, "spectra.xsd"));
        return folder_.Read("spectra.xml");
    }
    static void ExpectPart(const std::string& text, const std::string& part) {
        EXPECT_NE(text.find(part), std::string::npos) << part << "\nis missing in\n" << text;
    }

    test::TempFolder folder_;
};

TEST_F(SpectraFile, NamesTheSoftwareAndTheRecording) {
    ExpectPart(Written(SmallContent()), R"(<?xml version="1.0" encoding="UTF-8"?>
<spectra version="1">
  <software>Orvanta 0.1.0</software>
  <recording>
    <file>demo.edf</file>
    <label>P&lt;1&gt; &amp; "x"</label>
    <format>EDF+C</format>
    <start>2026-01-02T03:04:05.5</start>
    <duration_s>600</duration_s>
  </recording>
)");
}

TEST_F(SpectraFile, HasNoStartWhenTheRecordingHasNone) {
    SpectraFileContent content = SmallContent();
    content.recording_start.clear();
    EXPECT_EQ(Written(content).find("<start>"), std::string::npos);
}

TEST_F(SpectraFile, HoldsAllSettings) {
    SpectraFileContent content = SmallContent();
    content.macro.SetTimeIntervalSelectMode(SpectraMacro::TimeIntervalSelectMode::ByStateEvents);
    content.macro.SetAcceptStateList({"eyes closed", "eyes open"});
    ExpectPart(Written(content), R"(  <settings>
    <fft_seconds>2</fft_seconds>
    <overlap>50</overlap>
    <window>Hanning</window>
    <mode>states</mode>
    <duration>60</duration>
    <states>
      <label>eyes closed</label>
      <label>eyes open</label>
    </states>
    <spots>
    </spots>
    <reject>
    </reject>
    <pre_trigger_ms>0</pre_trigger_ms>
    <trigger_duration_ms>1000</trigger_duration_ms>
    <spot_steps>1</spot_steps>
    <spot_step_ms>1</spot_step_ms>
    <epochs_mode>all</epochs_mode>
    <epochs_count>10</epochs_count>
    <contrast>0</contrast>
    <color>0x00FF0000</color>
  </settings>
)");
}

TEST_F(SpectraFile, HoldsTheSevenComments) {
    const SpectralComments comments = {"Sleep", "2", "3", "A1", "B2", "", "two\nlines"};
    SpectraFileContent content = SmallContent();
    content.comments = &comments;
    ExpectPart(Written(content), R"(  <comments>
    <protocol1>Sleep</protocol1>
    <protocol2>2</protocol2>
    <protocol3>3</protocol3>
    <code1>A1</code1>
    <code2>B2</code2>
    <code3></code3>
    <comment>two
lines</comment>
  </comments>
)");
}

TEST_F(SpectraFile, HasNoCommentsWhenThereAreNone) {
    EXPECT_EQ(Written(SmallContent()).find("<comments>"), std::string::npos);
}

TEST_F(SpectraFile, HoldsTheAnalysisAndItsEpochs) {
    ExpectPart(Written(SmallContent()), R"(  <analysis>
    <montage>As recorded</montage>
    <entity>Power</entity>
    <unit>µV²/Hz</unit>
    <rate_hz>256</rate_hz>
    <window_samples>500</window_samples>
    <fft_samples>512</fft_samples>
    <resolution_hz>0.5</resolution_hz>
    <fft_count>2</fft_count>
  </analysis>
  <epochs>
    <epoch begin_s="0" end_s="2"></epoch>
    <epoch begin_s="1" end_s="3.0000001"></epoch>
  </epochs>
)");
}

TEST_F(SpectraFile, HoldsAllBandsAndTheTotalBand) {
    SpectraFileContent content = SmallContent();
    content.bands[7].selected = false;
    std::memset(content.bands[7].name, 'x', sizeof content.bands[7].name); // without a terminator
    const std::string text = Written(content);
    ExpectPart(text, R"(  <bands>
    <band index="0" selected="true">
      <name>0</name>
      <low_hz>0</low_hz>
      <high_hz>0.5</high_hz>
    </band>
)");
    ExpectPart(text, "    <band index=\"7\" selected=\"false\">\n      <name>" + std::string(64, 'x') +
                         "</name>\n      <low_hz>7</low_hz>\n      <high_hz>7.5</high_hz>\n    </band>\n"
                         "    <total_band>\n      <low_hz>0.5</low_hz>\n      <high_hz>45</high_hz>\n"
                         "    </total_band>\n  </bands>\n");
}

TEST_F(SpectraFile, HoldsTracesWithNotAvailableForWhatIsNotFinite) {
    ExpectPart(Written(SmallContent()), R"(  <frequencies_hz>0 0.5 1</frequencies_hz>
  <traces>
    <trace kind="sensor" name="Fp1">
      <mean>1 0.1 1e-20</mean>
      <sd>n/a n/a n/a</sd>
      <measures>
        <measure band="0" name="Abs" unit="µV²">2.5</measure>
        <measure band="1" name="Abs" unit="µV²">n/a</measure>
      </measures>
    </trace>
    <trace kind="channel" name="Fp1-F3">
      <mean>1e+300 n/a -0.5</mean>
      <sd>1 2 3</sd>
      <measures>
        <measure band="0" name="Abs" unit="µV²">3</measure>
        <measure band="1" name="Abs" unit="µV²">4</measure>
      </measures>
    </trace>
  </traces>
  <repairs>
    <repair>header size corrected</repair>
  </repairs>
</spectra>
)");
}

TEST_F(SpectraFile, MatchesTheSchemaWithNothingInIt) {
    ExpectPart(Written({}), "<traces>\n  </traces>");
}

TEST_F(SpectraFile, MatchesTheSchemaWithTextThatXmlCannotHold) {
    SpectraFileContent content = SmallContent();
    content.recording_label = std::string("\x01\x1F \xEF\xBF\xBF ") + '\0' + "\xC3(";
    content.traces[0].name = "a\"b<c\n\t\x02";
    ExpectPart(Written(content), "name=\"a&quot;b&lt;c&#10;&#9;\uFFFD\"");
}

TEST_F(SpectraFile, TheSchemaRefusesWhatIsNoNumber) {
    std::string text = FormatSpectraFile(SmallContent());
    text.replace(text.find("1e-20"), 5, "NaN  ");
    EXPECT_FALSE(test::MatchesSchema(folder_.Write("bad.xml", text), "spectra.xsd"));
}

TEST_F(SpectraFile, AFailedSaveLeavesTheOldFile) {
    folder_.Write("spectra.xml", "old");
    SpectraFileContent content = SmallContent();
    content.measure_names.clear();
    EXPECT_THROW(WriteSpectraFile(folder_.Path("spectra.xml"), content), std::out_of_range);
    EXPECT_EQ(folder_.Read("spectra.xml"), "old");
    EXPECT_THROW(WriteSpectraFile(folder_.Path("none/spectra.xml"), SmallContent()), std::runtime_error);
}

} // namespace
} // namespace orvanta::spectral
