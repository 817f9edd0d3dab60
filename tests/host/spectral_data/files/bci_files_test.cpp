// SPDX-License-Identifier: GPL-3.0-or-later
// The bytes of a regression's files.
#include "host/signal_base/sensors/sensor_impl.h"
#include "host/spectral_data/files/bci_text.h"
#include "host/spectral_data/not_computable.h"
#include "spectra_contract/bci_regression.h"
#include "spectra_contract/spectra_mgr.h"
#include "tests/host/spectral_data/results/analysis_fixture.h"
#include "tests/support/failing_source.h"
#include "tests/support/known_slope.h"
#include "tests/support/memory_source.h"
#include "tests/support/recording_progress.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <stdexcept>

namespace {

using namespace orvanta;
using spectral::kNaN;

SensorType SensorNamed(const std::string& name) {
    auto impl = std::make_unique<SensorType::Impl>();
    impl->elect.Name = name;
    return SensorType(std::move(impl));
}

TEST(BCIRegressionsFile, HasALineOfNamesAndOneForEachResult) {
    const SensorType fp1 = SensorNamed("Fp1");
    const SensorType o2 = SensorNamed("O2");
    EXPECT_EQ(
        spectral::FormatBCIRegressions({{&fp1, 0.9765625, 0.5, -12.25, 1e-7, 118}, {&o2, 10, -1, 3, 0, 2}}),
        "sensor\tfreq_hz\tr\tk\tm\tcount\n"
        "Fp1\t0.9765625\t0.5\t-12.25\t1e-07\t118\n"
        "O2\t10\t-1\t3\t0\t2\n");
}

TEST(BCIRegressionsFile, SaysNotAvailableForWhatIsNotComputable) {
    const SensorType cz = SensorNamed("Cz");
    EXPECT_EQ(spectral::FormatBCIRegressions({{&cz, 1, kNaN, kNaN, kNaN, 0}}),
              "sensor\tfreq_hz\tr\tk\tm\tcount\nCz\t1\tn/a\tn/a\tn/a\t0\n");
}

TEST(BCIRegressionsFile, KeepsItsColumnsWhateverASensorIsCalled) {
    const SensorType odd = SensorNamed("a\tb\nc \"d\"");
    EXPECT_EQ(spectral::FormatBCIRegressions({{&odd, 1, 0, 0, 0, 2}}),
              "sensor\tfreq_hz\tr\tk\tm\tcount\n\"a b c \"\"d\"\"\"\t1\t0\t0\t0\t2\n");
}

TEST(BCIRegressionsFile, OfNoResultHasItsNames) {
    EXPECT_EQ(spectral::FormatBCIRegressions({}), "sensor\tfreq_hz\tr\tk\tm\tcount\n");
}

TEST(BCIRegressionsFile, IsWrittenWhole) {
    const test::TempFolder folder;
    const SensorType cz = SensorNamed("Cz");
    SaveBCIRegressions(folder.Path("regressions.txt"), {{&cz, 1, 0.25, 4, 5, 6}});
    EXPECT_EQ(folder.Read("regressions.txt"), "sensor\tfreq_hz\tr\tk\tm\tcount\nCz\t1\t0.25\t4\t5\t6\n");
}

TEST(BCIRegressionsFile, ThatCannotBeWrittenTellsPathReasonAndRemedy) {
    const test::TempFolder folder;
    try {
        SaveBCIRegressions(folder.Path("no/such/folder/out.txt"), {});
        FAIL() << "was written";
    } catch (const std::runtime_error& error) {
        EXPECT_EQ(error.what(),
                  folder.Path("no/such/folder/out.txt") +
                      ": cannot be written: No such file or directory (choose a folder that exists)");
    }
}

/// Two analyses of two epochs of 4 samples at 4 Hz: X[2] = ±4·a at the Nyquist frequency and 0 elsewhere, so
/// that the power there is (4a)²/(4·4) = a² µV²/Hz.
class FullSpectra : public testing::Test {
protected:
    FullSpectra() {
        Add("rest", 0);
        Add("task", 1);
        results = {{test::SensorOf(*recording, "O1"), 2, 1, 1, 0, 4},
                   {test::SensorOf(*recording, "Cz"), 1, kNaN, kNaN, kNaN, 0},
                   {test::SensorOf(*recording, "O1"), 1, kNaN, kNaN, kNaN, 0}};
    }
    static std::vector<double> Alternating(const std::vector<double>& ofSecond) {
        std::vector<double> values;
        for (const double a : ofSecond) {
            values.insert(values.end(), {a, -a, a, -a});
        }
        return values;
    }
    static signal::RecordingData Data() {
        return test::MakeData(
            {{"O1", 4, Alternating({1, 2, 3, 0.5})}, {"Cz", 4, std::vector<double>(16, 0.0)}},
            {{0, 2.0, "rest"}, {2, 2.0, "task"}});
    }
    void Add(const std::string& state, int contrast) {
        SpectraMacro macro = test::SmallMacro("Rectangular", 0);
        macro.SetTimeIntervalSelectMode(SpectraMacro::TimeIntervalSelectMode::ByStateEvents);
        macro.SetAcceptStateList({state});
        macro.SetContrastValue(contrast);
        ASSERT_EQ(macro.SaveAs(folder.Path(state + ".smx")), 0);
        auto* analysis = new SpectMacroResult(macro, recording.get(), nullptr);
        manager.push_back(analysis);
        analysis->SetComputeOptions(test::InDouble());
        analysis->Compute(nullptr);
        analyses.push_back(analysis);
    }
    std::string Saved() {
        EXPECT_TRUE(SaveBCIFullSpectra(folder.Path("full.txt"), results, analyses, nullptr));
        return folder.Read("full.txt");
    }

    test::GlobalsGuard guard;
    test::TempFolder folder;
    std::unique_ptr<EEGFileInfoType> recording = signal::MakeRecording(Data());
    SpectraMgr manager{recording.get(), nullptr};
    std::list<SpectMacroResult*> analyses;
    std::list<BCIReg> results;
};

constexpr const char* kFull = "analysis\tcontrast\tepoch\tbegin_s\tend_s\tsensor\t0\t1\t2\n"
                              "rest\t0\t1\t0\t1\tO1\t0\t0\t1\n"
                              "rest\t0\t1\t0\t1\tCz\t0\t0\t0\n"
                              "rest\t0\t2\t1\t2\tO1\t0\t0\t4\n"
                              "rest\t0\t2\t1\t2\tCz\t0\t0\t0\n"
                              "task\t1\t1\t2\t3\tO1\t0\t0\t9\n"
                              "task\t1\t1\t2\t3\tCz\t0\t0\t0\n"
                              "task\t1\t2\t3\t4\tO1\t0\t0\t0.25\n"
                              "task\t1\t2\t3\t4\tCz\t0\t0\t0\n";

TEST_F(FullSpectra, HaveALineForEachAnalysisEpochAndSensor) {
    EXPECT_EQ(Saved(), kFull);
}

TEST_F(FullSpectra, ArePowerInEveryEntity) {
    for (const auto entity : {SPECT::Entity::Type::Amplitude, SPECT::Entity::Type::Phase}) {
        SPECT::GetGlobals().SetMeasEntity(entity);
        EXPECT_EQ(Saved(), kFull);
    }
}

TEST_F(FullSpectra, OfEpochsThatWereNotKeptAreTheSame) {
    for (SpectMacroResult* analysis : analyses) {
        analysis->SetComputeOptions(test::WithoutMemory(test::InDouble()));
        analysis->Compute(nullptr);
    }
    EXPECT_EQ(Saved(), kFull);
}

TEST_F(FullSpectra, LeaveOutWhatTheRegressionLeavesOut) {
    SpectraMacro coarse = test::SmallMacro("Rectangular", 0);
    coarse.SetFFTSeconds(2);
    SpectMacroResult other(coarse, recording.get(), nullptr);
    other.Compute(nullptr);
    SpectMacroResult notComputed(coarse, recording.get(), nullptr);
    analyses.insert(std::next(analyses.begin()), {&other, nullptr, &notComputed});
    EXPECT_EQ(Saved(), kFull);
}

TEST_F(FullSpectra, TellHowFarTheyAre) {
    test::RecordingProgress progress;
    ASSERT_TRUE(SaveBCIFullSpectra(folder.Path("full.txt"), results, analyses, &progress));
    EXPECT_EQ(progress.Positions, (std::vector<double>{0.5, 1}));
}

TEST_F(FullSpectra, ThatAreCancelledLeaveTheEarlierFileAndNoOther) {
    const std::string path = folder.Write("out/full.txt", "earlier");
    test::RecordingProgress stop;
    stop.CancelAfter = 1;
    EXPECT_FALSE(SaveBCIFullSpectra(path, results, analyses, &stop));
    EXPECT_EQ(folder.Read("out/full.txt"), "earlier");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path("out")), {}), 1);
}

TEST_F(FullSpectra, ThatFailToBeReadLeaveTheEarlierFile) {
    signal::RecordingData data = Data();
    const auto source = std::make_shared<test::FailingSource>(data.source);
    data.source = source;
    const auto file = signal::MakeRecording(std::move(data));
    for (SpectMacroResult* analysis : analyses) {
        analysis->SetComputeOptions(test::WithoutMemory());
        ASSERT_TRUE(analysis->ComputeOf(file.get(), nullptr));
    }
    results = {{test::SensorOf(*file, "O1"), 2, 1, 1, 0, 4}};
    const std::string path = folder.Write("out/full.txt", "earlier");
    source->BeforeRead = [] { throw std::runtime_error("memory.edf: it went away (bring it back)"); };
    EXPECT_THROW(SaveBCIFullSpectra(path, results, analyses, nullptr), std::runtime_error);
    EXPECT_EQ(folder.Read("out/full.txt"), "earlier");
}

} // namespace
