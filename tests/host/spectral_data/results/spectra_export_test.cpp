// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectra_contract/spectra_export.h"

#include "spectra_contract/spect_globals.h"
#include "spectra_contract/spect_macro_result.h"
#include "tests/host/spectral_data/results/analysis_fixture.h"
#include "tests/support/comma_numerals.h"
#include "tests/support/failing_source.h"
#include "tests/support/file_limit.h"
#include "tests/support/recording_progress.h"
#include "tests/support/temp_folder.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <iterator>

namespace {

using namespace orvanta;

// Of SmallRecording(2) in windows of 8 samples by 4, worked out with a plain Fourier sum in another language.
constexpr const char* kHeader = "Fp1(1)\tFp1(2)\tFp1(3)\tF3(1)\tF3(2)\tF3(3)\tCz(1)\tCz(2)\tCz(3)\t\n";
constexpr const char* kFirst =
    "7.21466\t2.21201\t3.60376\t14.024\t2.77374\t4.49608\t6.94286\t16.2423\t10.6533\t\n";
constexpr const char* kSecond =
    "4.61576\t2.08333\t7.82853\t16.5711\t3.1803\t4.1657\t4.18513\t4.10769\t7.69965\t\n";
constexpr const char* kThird =
    "11.6252\t2.21201\t3.60376\t1.58878\t7.66315\t26.6706\t0.339308\t3.74995\t3.33057\t\n";
constexpr const char* kFirstAmplitude =
    "2.68601\t1.48728\t1.89836\t3.74487\t1.66546\t2.1204\t2.63493\t4.03017\t3.26394\t\n";
constexpr const char* kOneEpochOf16 =
    "26.6213\t20.5533\t0.0938675\t5.26654\t8.1506\t10.9483\t1.16662\t9.98192\t24.4845\t12.4102\t1.24598\t"
    "2.08941\t14.5865\t2.45605\t2.87216\t3.35234\t3.4957\t0.789828\t7.28483\t8.3046\t7.56945\t\n";

std::string Before(const char* start, std::initializer_list<const char*> lines) {
    std::string text;
    for (const char* line : lines) {
        text.append(start).append(line);
    }
    return text;
}

/// Analyses of 2 s of Fp1, F3 and Cz at 8 Hz.
class Exporting : public testing::Test {
protected:
    using Analysis = std::unique_ptr<SpectMacroResult>;

    SpectraMacro Macro(const std::string& name, int contrast, double seconds = 1) const {
        SpectraMacro macro = test::SmallMacro();
        macro.SetFFTSeconds(seconds);
        macro.SetContrastValue(contrast);
        macro.SaveAs(folder.Path(name + ".smx"));
        return macro;
    }
    Analysis Uncomputed(const SpectraMacro& macro) const {
        auto analysis = std::make_unique<SpectMacroResult>(macro, recording.get(), nullptr);
        analysis->SetComputeOptions(test::InDouble());
        return analysis;
    }
    Analysis Computed(const SpectraMacro& macro) const {
        Analysis analysis = Uncomputed(macro);
        analysis->Compute(nullptr);
        return analysis;
    }
    /// The text of an export that succeeds.
    std::string TextOf(const SpectraExport& what) const {
        EXPECT_TRUE(WriteSpectraExport(file, what, nullptr));
        return folder.Read("out.txt");
    }
    /// The values of one analysis alone.
    static SpectraExport ValuesOf(const Analysis& analysis) {
        return {analysis.get(), {analysis.get()}, false, false, false};
    }
    /// What failed.
    std::string FailureOf(const SpectraExport& what) const {
        try {
            WriteSpectraExport(file, what, nullptr);
        } catch (const std::runtime_error& error) {
            return error.what();
        }
        return "";
    }
    std::ptrdiff_t Entries() const {
        return std::distance(std::filesystem::directory_iterator(target.Path("")), {});
    }

    test::GlobalsGuard guard;
    test::TempFolder folder;
    test::TempFolder target;
    std::string file = folder.Path("out.txt");
    std::unique_ptr<EEGFileInfoType> recording = test::SmallRecording(2);
};

TEST_F(Exporting, WritesALineForEveryEpochOfEveryAnalysis) {
    const Analysis rest = Computed(Macro("Rest", 1));
    const Analysis task = Computed(Macro("Task", -2));
    EXPECT_EQ(TextOf({rest.get(), {task.get(), rest.get()}}),
              "Macro\tContrast\t" + std::string(kHeader) + Before("Task\t-2\t", {kFirst, kSecond, kThird}) +
                  Before("Rest\t1\t", {kFirst, kSecond, kThird}));
}

TEST_F(Exporting, StartsWithTheFirstEpochWhenThereIsNoHeader) {
    const Analysis rest = Computed(Macro("Rest", 1));
    EXPECT_EQ(TextOf({rest.get(), {rest.get()}, false}), Before("Rest\t1\t", {kFirst, kSecond, kThird}));
}

TEST_F(Exporting, LeavesOutTheColumnsThatAreNotWanted) {
    const Analysis rest = Computed(Macro("Rest", 1));
    EXPECT_EQ(TextOf({rest.get(), {rest.get()}, true, false, true}),
              "Macro\t" + std::string(kHeader) + Before("Rest\t", {kFirst, kSecond, kThird}));
    EXPECT_EQ(TextOf({rest.get(), {rest.get()}, true, true, false}),
              "Contrast\t" + std::string(kHeader) + Before("1\t", {kFirst, kSecond, kThird}));
    EXPECT_EQ(TextOf({rest.get(), {rest.get()}, true, false, false}),
              kHeader + Before("", {kFirst, kSecond, kThird}));
}

TEST_F(Exporting, WritesTheHeaderAloneWithoutAnalyses) {
    const Analysis rest = Computed(Macro("Rest", 1));
    EXPECT_EQ(TextOf({rest.get(), {}}), "Macro\tContrast\t" + std::string(kHeader));
    EXPECT_EQ(TextOf({rest.get(), {}, false}), "");
}

TEST_F(Exporting, HasNoColumnsOfSensorsWithoutTheAnalysisThatNamesThem) {
    EXPECT_EQ(TextOf({nullptr, {}}), "Macro\tContrast\t\n");
}

TEST_F(Exporting, HasAFieldForEachSensorAndBinBetweenTheFirstAndTheLast) {
    const std::vector<double> values(512, 1);
    recording = signal::MakeRecording(test::MakeData({{"C3", 256, values, "uV"}, {"C4", 256, values, "uV"}}));
    const Analysis rest = Uncomputed(Macro("Rest", 1));
    ASSERT_EQ(rest->GetFFTSamples(), 256);
    ASSERT_EQ(rest->GetResolutionHz(), 1);
    const std::string header = TextOf({rest.get(), {}});
    EXPECT_EQ(std::count(header.begin(), header.end(), '\t'), 2 + 2 * 127);
    EXPECT_TRUE(header.starts_with("Macro\tContrast\tC3(1)\tC3(2)\t")) << header;
    EXPECT_NE(header.find("\tC3(127)\tC4(1)\t"), std::string::npos);
    EXPECT_TRUE(header.ends_with("\tC4(127)\t\n"));
}

TEST_F(Exporting, HasNoColumnsOfWhatIsNoSignal) {
    const std::vector<double> values(16, 1);
    recording = signal::MakeRecording(
        test::MakeData({{"C3", 8, values, "uV"}, {"Status", 8, values, ""}, {"ECG", 8, values, "uV"}}));
    EXPECT_EQ(TextOf({Uncomputed(Macro("Rest", 1)).get(), {}, true, false, false}),
              "C3(1)\tC3(2)\tC3(3)\t\n");
}

TEST_F(Exporting, GivesFrequenciesSixDigits) {
    const std::vector<double> values(8, 1);
    recording = signal::MakeRecording(test::MakeData({{"C3", 7, values, "uV"}}));
    EXPECT_EQ(TextOf({Uncomputed(Macro("Rest", 1)).get(), {}, true, false, false}),
              "C3(0.875)\tC3(1.75)\tC3(2.625)\t\n");
    recording = signal::MakeRecording(test::MakeData({{"C3", 1001, values, "uV"}}));
    const std::string header = TextOf({Uncomputed(Macro("Rest", 1)).get(), {}, true, false, false});
    EXPECT_TRUE(header.ends_with("C3(498.545)\tC3(499.522)\t\n")) << header.substr(header.size() - 40);
}

TEST_F(Exporting, WritesTheCurrentEntity) {
    const Analysis rest = Computed(Macro("Rest", 1));
    SPECT::GetGlobals().SetMeasEntity(SPECT::Entity::Type::Amplitude);
    const std::string text = TextOf(ValuesOf(rest));
    EXPECT_EQ(text.substr(0, text.find('\n') + 1), kFirstAmplitude);
}

TEST_F(Exporting, SaysWhereSingleEpochsHaveNoValue) {
    const Analysis rest = Computed(Macro("Rest", 1));
    SPECT::GetGlobals().SetMeasEntity(SPECT::Entity::Type::Coherence);
    const std::string text = TextOf(ValuesOf(rest));
    EXPECT_EQ(text.substr(0, text.find('\n') + 1), "n/a\tn/a\tn/a\tn/a\tn/a\tn/a\tn/a\tn/a\tn/a\t\n");
}

TEST_F(Exporting, WritesNothingOfAnAnalysisThatIsNotComputed) {
    const Analysis rest = Computed(Macro("Rest", 1));
    const Analysis later = Uncomputed(Macro("Later", 2));
    EXPECT_EQ(TextOf({rest.get(), {later.get(), rest.get()}}),
              "Macro\tContrast\t" + std::string(kHeader) + Before("Rest\t1\t", {kFirst, kSecond, kThird}));
    EXPECT_EQ(TextOf({later.get(), {rest.get()}}),
              "Macro\tContrast\t" + std::string(kHeader) + Before("Rest\t1\t", {kFirst, kSecond, kThird}));
}

TEST_F(Exporting, GivesAnAnalysisOfOtherBinsLinesOfItsOwnWidth) {
    const Analysis one = Computed(Macro("One", 1));
    const Analysis two = Computed(Macro("Two", 2, 2));
    EXPECT_EQ(TextOf({one.get(), {two.get(), one.get()}}), "Macro\tContrast\t" + std::string(kHeader) +
                                                               "Two\t2\t" + kOneEpochOf16 +
                                                               Before("One\t1\t", {kFirst, kSecond, kThird}));
}

TEST_F(Exporting, FollowsTheEpochsOfEachAnalysis) {
    SpectraMacro start = Macro("Start", 3);
    start.SetEpochsSelMode(SpectraMacro::EpochsSelectionMode::FirstN);
    start.SetNumEpochsToUse(1);
    const Analysis whole = Computed(Macro("Whole", 1));
    const Analysis first = Computed(start);
    EXPECT_EQ(TextOf({whole.get(), {first.get(), whole.get()}, false}),
              Before("Start\t3\t", {kFirst}) + Before("Whole\t1\t", {kFirst, kSecond, kThird}));
}

TEST_F(Exporting, LeavesTheFieldsOfSensorsEmptyThatAnAnalysisHasNoSpectraOf) {
    const auto other = test::SmallRecording(2);
    SpectMacroResult elsewhere(Macro("Elsewhere", 1), other.get(), nullptr);
    const Analysis rest = Computed(Macro("Rest", 1));
    EXPECT_EQ(TextOf({&elsewhere, {rest.get()}, false, false, true}),
              Before("Rest\t", {"\t\t\t\t\t\t\t\t\t\n", "\t\t\t\t\t\t\t\t\t\n", "\t\t\t\t\t\t\t\t\t\n"}));
}

TEST_F(Exporting, HasNoBinsWhenAWindowIsTooShortForOne) {
    // One sample, and two.
    for (const double seconds : {0.125, 0.25}) {
        SpectraMacro macro = Macro("Short", 1, seconds);
        macro.SetOverlapPerc(0);
        macro.SetEpochsSelMode(SpectraMacro::EpochsSelectionMode::FirstN);
        macro.SetNumEpochsToUse(2);
        const Analysis tiny = Computed(macro);
        EXPECT_EQ(TextOf({tiny.get(), {tiny.get()}}), "Macro\tContrast\t\nShort\t1\t\nShort\t1\t\n");
    }
}

TEST_F(Exporting, WritesTheSameWhetherEpochsWereKeptOrNot) {
    recording = test::SmallRecording(60);
    const Analysis kept = Computed(Macro("Kept", 1));
    const Analysis again = Uncomputed(Macro("Again", 1));
    again->SetComputeOptions(test::WithoutMemory(test::InDouble()));
    again->Compute(nullptr);
    EXPECT_EQ(TextOf(ValuesOf(kept)), TextOf(ValuesOf(again)));
}

TEST_F(Exporting, HasPointsWhereTheUserWritesCommas) {
    const Analysis rest = Computed(Macro("Rest", 1));
    const test::CommaNumerals comma;
    const std::string text = TextOf({rest.get(), {rest.get()}});
    EXPECT_EQ(text.find(','), std::string::npos);
    EXPECT_NE(text.find("7.21466"), std::string::npos);
}

TEST_F(Exporting, TellsOfProgressUpToTheEnd) {
    const Analysis rest = Computed(Macro("Rest", 1));
    const Analysis task = Computed(Macro("Task", 2));
    test::RecordingProgress progress;
    EXPECT_TRUE(WriteSpectraExport(file, {rest.get(), {rest.get(), task.get()}}, &progress));
    EXPECT_EQ(progress.Positions, (std::vector<double>{0.5, 1}));
}

TEST_F(Exporting, LeavesWhatWasThereWhenCancelled) {
    const Analysis rest = Computed(Macro("Rest", 1));
    file = target.Write("out.txt", "old");
    for (const std::size_t after : {0U, 1U}) {
        test::RecordingProgress progress;
        progress.CancelAfter = after;
        EXPECT_FALSE(WriteSpectraExport(file, {rest.get(), {rest.get(), rest.get()}}, &progress));
        EXPECT_EQ(progress.Positions.size(), 1);
        EXPECT_EQ(target.Read("out.txt"), "old");
        EXPECT_EQ(Entries(), 1);
    }
}

TEST_F(Exporting, IsRefusedWhereTheFileCannotBeOpened) {
    const Analysis rest = Computed(Macro("Rest", 1));
    file = target.Path("no folder/out.txt");
    EXPECT_THROW(WriteSpectraExport(file, ValuesOf(rest), nullptr), ExportNotOpened);
    EXPECT_EQ(FailureOf(ValuesOf(rest)),
              file + ": cannot be written: No such file or directory (choose a folder that exists)");
    file = target.Path("");
    EXPECT_THROW(WriteSpectraExport(file, ValuesOf(rest), nullptr), ExportNotOpened);
    EXPECT_EQ(Entries(), 0);
}

TEST_F(Exporting, LeavesWhatWasThereWhenTheDiskIsFull) {
    const Analysis rest = Computed(Macro("Rest", 1));
    file = target.Write("out.txt", "old");
    std::string failure;
    {
        const test::FileLimit limit(100);
        failure = FailureOf(ValuesOf(rest));
    }
    EXPECT_EQ(failure, file + ": cannot be written: File too large (try again or save elsewhere)");
    EXPECT_EQ(target.Read("out.txt"), "old");
    EXPECT_EQ(Entries(), 1);
}

TEST_F(Exporting, IsRefusedWhenTheRecordingCannotBeReadAgain) {
    signal::RecordingData data = test::SmallData(2);
    auto source = std::make_shared<test::FailingSource>(data.source);
    data.source = source;
    recording = signal::MakeRecording(std::move(data));
    const Analysis rest = Uncomputed(Macro("Rest", 1));
    rest->SetComputeOptions(test::WithoutMemory());
    rest->Compute(nullptr);
    file = target.Write("out.txt", "old");
    source->BeforeRead = [] { throw std::runtime_error("the file is gone"); };
    EXPECT_EQ(FailureOf(ValuesOf(rest)), "the file is gone");
    EXPECT_EQ(target.Read("out.txt"), "old");
    EXPECT_EQ(Entries(), 1);
}

TEST_F(Exporting, IsAboutAsLongAsEstimated) {
    recording = test::SmallRecording(60);
    const Analysis rest = Computed(Macro("Rest", 1));
    const SpectraExport all{rest.get(), {rest.get(), rest.get()}};
    const auto size = static_cast<double>(TextOf(all).size());
    EXPECT_NEAR(static_cast<double>(EstimateSpectraExport(all)) / size, 1, 0.15);
    EXPECT_EQ(EstimateSpectraExport({rest.get(), {}, false}), 0);
    EXPECT_EQ(EstimateSpectraExport({nullptr, {}, true}), 16); // "Macro", "Contrast", their tabs, line feed
}

} // namespace
