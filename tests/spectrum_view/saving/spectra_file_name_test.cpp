// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/saving/spectra_file_name.h"

#include "spectra_contract/recording.h"
#include "spectra_contract/spect_macro_result.h"
#include "tests/support/small_recording.h"

#include <gtest/gtest.h>

namespace {

using namespace orvanta;
using namespace orvanta::spectrum_view;

/// An analysis of "/data/night.edf" of the patient "P 7"; nothing is computed.
class SpectraFileName : public testing::Test {
protected:
    SpectraFileName() { Use("P 7", "/data/night.edf"); }

    void Use(const std::string& patient, const std::string& path) {
        signal::RecordingData data = test::SmallData();
        data.patient = patient;
        data.path = path;
        recording = signal::MakeRecording(std::move(data));
        analysis = std::make_unique<SpectMacroResult>(test::SmallMacro(), recording.get(), nullptr);
    }
    std::string Suggested() const { return SuggestedFileName(*analysis, *recording); }
    std::string Batch(const std::string& folder) const {
        return BatchFileName(folder, *analysis, *recording);
    }
    SpectraMacro& Macro() const { return analysis->GetMacro(); }

    std::unique_ptr<EEGFileInfoType> recording;
    std::unique_ptr<SpectMacroResult> analysis;
};

TEST_F(SpectraFileName, SaysWhatWasAnalysedAndHow) {
    EXPECT_EQ(Suggested(), "All_P 7_Hanning_1_50_night.xml");
}

TEST_F(SpectraFileName, FollowsTheSettings) {
    Macro().SetTimeIntervalSelectMode(SpectraMacro::TimeIntervalSelectMode::ByStateEvents);
    Macro().SetAcceptStateList({"REM", "N2"});
    Macro().SetDSPWindowStr("Triangular");
    Macro().SetFFTSeconds(16);
    Macro().SetOverlapPerc(0);
    EXPECT_EQ(Suggested(), "N2+REM_P 7_Triangular_16_0_night.xml");
}

TEST_F(SpectraFileName, HasTheWholeSecondsOnly) {
    Macro().SetFFTSeconds(2.5);
    EXPECT_EQ(Suggested(), "All_P 7_Hanning_2_50_night.xml");
    Macro().SetFFTSeconds(0.5);
    EXPECT_EQ(Suggested(), "All_P 7_Hanning_0_50_night.xml");
}

TEST_F(SpectraFileName, LeavesTheExtensionOfTheRecordingToTheBatch) {
    EXPECT_EQ(Suggested(), "All_P 7_Hanning_1_50_night.xml");
    EXPECT_EQ(Batch("/spectra/"), "/spectra/All_P 7_Hanning_1_50_night.edf.xml");
}

TEST_F(SpectraFileName, OfABatchWithoutFolderIsThatInTheCurrentFolder) {
    EXPECT_EQ(Batch(""), "All_P 7_Hanning_1_50_night.edf.xml");
}

TEST_F(SpectraFileName, LosesOnlyTheLastExtensionOfTheRecording) {
    Use("P 7", "/data/night.part 2.edf");
    EXPECT_EQ(Suggested(), "All_P 7_Hanning_1_50_night.part 2.xml");
}

TEST_F(SpectraFileName, IsNeverInAnotherFolderForItsLabel) {
    Use("a/b\\c", "/data/night.edf");
    EXPECT_EQ(Suggested(), "All_a-b-c_Hanning_1_50_night.xml");
}

TEST_F(SpectraFileName, IsCutAt258CharactersWhenSuggested) {
    // "All_", the label, "_Hanning_1_50_night.xml"
    Use(std::string(231, 'p'), "/data/night.edf");
    EXPECT_EQ(Suggested(), "All_" + std::string(231, 'p') + "_Hanning_1_50_night.xml");
    EXPECT_EQ(Suggested().size(), 258u);
    Use(std::string(232, 'p'), "/data/night.edf");
    EXPECT_EQ(Suggested(), "All_" + std::string(232, 'p') + "_Hanning_1_50_night.xm");
}

TEST_F(SpectraFileName, IsCutBetweenCharacters) {
    Use(std::string(253, 'p') + "ü", "/data/night.edf");
    EXPECT_EQ(Suggested(), "All_" + std::string(253, 'p'));
}

TEST_F(SpectraFileName, OfABatchHasAnyLength) {
    Use(std::string(400, 'p'), "/data/night.edf");
    EXPECT_EQ(Batch("/spectra/"), "/spectra/All_" + std::string(400, 'p') + "_Hanning_1_50_night.edf.xml");
}

} // namespace
