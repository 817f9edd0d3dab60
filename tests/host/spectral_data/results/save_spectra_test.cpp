// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/platform/host_platform.h"
#include "spectra_contract/spect_macro_result.h"
#include "tests/host/spectral_data/results/analysis_fixture.h"
#include "tests/support/failing_source.h"
#include "tests/support/recording_gui.h"
#include "tests/support/temp_folder.h"
#include "tests/support/xml_schema.h"

#include <gtest/gtest.h>
#include <pugixml.hpp>

#include <cstdlib>

namespace {

using namespace orvanta;

/// An analysis of 5 s with the channels Fp1-F3 and Cz.
class Saving : public testing::Test {
protected:
    Saving() {
        recording->GetTraceInfo()->SetMtg(test::MontageOf(*recording, "Fp1-F3 = +Fp1 -F3\nCz = +Cz"));
        result.SetComputeOptions(test::InDouble());
    }
    bool Save(const SpectralComments* comments = nullptr) {
        return result.SaveSpectra(&platform, recording.get(), file.c_str(), comments);
    }
    /// The root of the file as it is now.
    pugi::xml_node Root() {
        document.load_file(file.c_str());
        return document.child("spectra");
    }
    static double Number(const pugi::xml_node& numbers, int index) {
        const char* text = numbers.text().get();
        double value = 0;
        for (int i = 0; i <= index; ++i) {
            char* end = nullptr;
            value = std::strtod(text, &end);
            text = end;
        }
        return value;
    }

    test::GlobalsGuard guard;
    test::TempFolder folder;
    std::string file = folder.Path("spectra.xml");
    test::RecordingGui gui;
    platform::HostPlatform platform{gui, folder.Path("settings.ini"), folder.Path("data")};
    std::unique_ptr<EEGFileInfoType> recording = test::SmallRecording();
    SpectMacroResult result{test::SmallMacro(), recording.get(), nullptr};
    pugi::xml_document document;
};

TEST_F(Saving, WritesWhatTheSchemaDescribes) {
    result.Compute(nullptr);
    const SpectralComments comments{"p1", "p2", "p3", "c1", "c2", "c3", "all of it"};
    ASSERT_TRUE(Save(&comments));
    EXPECT_TRUE(test::MatchesSchema(file, "spectra.xsd"));
    EXPECT_STREQ(Root().child("comments").child_value("code2"), "c2");
    EXPECT_TRUE(gui.Errors().empty());
}

TEST_F(Saving, SaysWhatWasAnalysedAndHow) {
    result.Compute(nullptr);
    ASSERT_TRUE(Save());
    const pugi::xml_node analysis = Root().child("analysis");
    EXPECT_STREQ(analysis.child_value("entity"), "Power");
    EXPECT_STREQ(analysis.child_value("unit"), "µV²/Hz");
    EXPECT_STREQ(analysis.child_value("rate_hz"), "8");
    EXPECT_STREQ(analysis.child_value("fft_samples"), "8");
    EXPECT_STREQ(analysis.child_value("resolution_hz"), "1");
    EXPECT_STREQ(analysis.child_value("fft_count"), "9");
    EXPECT_STREQ(Root().child("recording").child_value("file"), "memory.edf");
    EXPECT_STREQ(Root().child("recording").child_value("duration_s"), "5");
    EXPECT_FALSE(Root().child("comments"));
    const pugi::xml_node second = Root().child("epochs").first_child().next_sibling();
    EXPECT_STREQ(second.attribute("begin_s").value(), "0.5");
    EXPECT_STREQ(second.attribute("end_s").value(), "1.5");
}

TEST_F(Saving, WritesEverySensorThenEveryChannel) {
    result.Compute(nullptr);
    ASSERT_TRUE(Save());
    std::string traces;
    for (const pugi::xml_node trace : Root().child("traces")) {
        traces += std::string(trace.attribute("kind").value()) + ' ' + trace.attribute("name").value() + "; ";
    }
    EXPECT_EQ(traces, "sensor Fp1; sensor F3; sensor Cz; channel Fp1-F3; channel Cz; ");
}

TEST_F(Saving, NumbersAreThoseOfTheSpectra) {
    SPECT::GetGlobals().Bands[0].lo = 1;
    SPECT::GetGlobals().Bands[0].hi = 3;
    result.Compute(nullptr);
    ASSERT_TRUE(Save());
    const pugi::xml_node fp1 = Root().child("traces").first_child();
    EXPECT_NEAR(Number(fp1.child("mean"), 1), 7.105665785957, 1e-10);
    EXPECT_NEAR(Number(fp1.child("sd"), 1), 3.878020194618, 1e-10);
    const pugi::xml_node abs = fp1.child("measures").first_child();
    EXPECT_STREQ(abs.attribute("name").value(), "Abs");
    EXPECT_STREQ(abs.attribute("unit").value(), "µV²");
    EXPECT_NEAR(abs.text().as_double(), 15.62991589396239, 1e-10);
    EXPECT_EQ(Number(Root().child("frequencies_hz"), 3), 3.0);
}

TEST_F(Saving, WhatIsNotComputableIsSaid) {
    SPECT::GetGlobals().SetMeasEntity(SPECT::Entity::Type::Coherence);
    result.Compute(nullptr);
    ASSERT_TRUE(Save());
    EXPECT_TRUE(test::MatchesSchema(file, "spectra.xsd"));
    EXPECT_EQ(std::string(Root().child("traces").first_child().child_value("mean")).substr(0, 3), "n/a");
}

TEST_F(Saving, StaleSpectraAreSavedWithTheSettingsThatMadeThem) {
    result.Compute(nullptr);
    result.SetFFTSeconds(2);
    result.GetMacro().SetContrastValue(4);
    ASSERT_TRUE(Save());
    EXPECT_STREQ(Root().child("analysis").child_value("fft_samples"), "8");
    EXPECT_STREQ(Root().child("settings").child_value("fft_seconds"), "1");
    EXPECT_STREQ(Root().child("settings").child_value("contrast"), "4");
}

TEST_F(Saving, NamesTheRecordingThatWasAnalysed) {
    result.Compute(nullptr);
    signal::RecordingData data = test::SmallData(7);
    data.path = "other.edf";
    const auto other = signal::MakeRecording(std::move(data));
    ASSERT_TRUE(result.SaveSpectra(&platform, other.get(), file.c_str(), nullptr));
    EXPECT_STREQ(Root().child("recording").child_value("file"), "memory.edf");
    EXPECT_STREQ(Root().child("recording").child_value("duration_s"), "5");
    result.ComputeFFT(other.get(), nullptr);
    ASSERT_TRUE(Save());
    EXPECT_STREQ(Root().child("recording").child_value("file"), "other.edf");
    EXPECT_STREQ(Root().child("recording").child_value("duration_s"), "7");
}

TEST_F(Saving, MemoryThatRunsOutIsToldWithItsRemedy) {
    signal::RecordingData data = test::SmallData();
    const auto source = std::make_shared<test::FailingSource>(data.source);
    data.source = source;
    const auto big = signal::MakeRecording(std::move(data));
    result.SetComputeOptions(test::WithoutMemory(test::InDouble()));
    SPECT::GetGlobals().Bands[0] = {1, 3, "", true};
    SPECT::GetGlobals().SetMeasEntity(SPECT::Entity::Type::Amplitude); // CV reads the epochs again
    ASSERT_TRUE(result.ComputeOf(big.get(), nullptr));
    source->BeforeRead = [] { throw std::bad_alloc(); };
    EXPECT_FALSE(Save());
    EXPECT_EQ(gui.Errors(),
              std::vector<std::string>{"not enough memory for the spectra (choose a shorter FFT window)"});
    result.ComputeFFT(nullptr, &gui);
    ASSERT_EQ(gui.Errors().size(), 2u);
    EXPECT_EQ(gui.Errors()[1], gui.Errors()[0]);
}

TEST_F(Saving, WithoutSpectraIsRefused) {
    EXPECT_FALSE(Save());
    ASSERT_EQ(gui.Errors().size(), 1u);
    EXPECT_EQ(gui.Errors()[0],
              "the spectra of " + result.GetName() + " are not computed (compute them, then save)");
    EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(Saving, AFolderThatIsMissingIsTold) {
    result.Compute(nullptr);
    file = folder.Path("missing/spectra.xml");
    EXPECT_FALSE(Save());
    ASSERT_EQ(gui.Errors().size(), 1u);
    EXPECT_NE(gui.Errors()[0].find("spectra.xml"), std::string::npos) << gui.Errors()[0];
}

TEST_F(Saving, WithoutANameOrAPlatformNothingIsWritten) {
    EXPECT_FALSE(result.SaveSpectra(nullptr, recording.get(), file.c_str(), nullptr));
    result.Compute(nullptr);
    EXPECT_FALSE(result.SaveSpectra(&platform, recording.get(), nullptr, nullptr));
    EXPECT_FALSE(result.SaveSpectra(&platform, recording.get(), "", nullptr));
    EXPECT_EQ(gui.Errors().size(), 2u);
}

} // namespace
