// SPDX-License-Identifier: GPL-3.0-or-later
// Several analyses of a recording whose samples are kept meanwhile.
#include "spectra_contract/spect_macro_result.h"
#include "tests/host/spectral_data/results/analysis_fixture.h"
#include "tests/support/counting_source.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace orvanta;
using testing::Each;

class KeptRecording : public testing::Test {
protected:
    KeptRecording() {
        signal::RecordingData data = test::SmallData(30);
        source = std::make_shared<test::CountingSource>(data.source);
        data.source = source;
        recording = signal::MakeRecording(std::move(data));
    }
    /// Mean power of Fp1 under 12 settings, one after the other.
    std::vector<std::vector<double>> PowersOf12Settings() {
        std::vector<std::vector<double>> powers;
        for (const double seconds : {1, 2, 4}) {
            for (const char* taper : {"Rectangular", "Hamming", "Hanning", "Triangular"}) {
                SpectraMacro macro = test::SmallMacro(taper);
                macro.SetFFTSeconds(seconds);
                SpectMacroResult result(macro, recording.get(), nullptr);
                result.Compute(nullptr);
                result.GetSpectrum(test::SensorOf(*recording, "Fp1"))->GetSpect(powers.emplace_back());
            }
        }
        return powers;
    }

    test::GlobalsGuard guard;
    std::shared_ptr<test::CountingSource> source;
    std::unique_ptr<EEGFileInfoType> recording;
};

TEST_F(KeptRecording, IsReadOnceForAllSettings) {
    const auto kept = recording->KeepSamples();
    PowersOf12Settings();
    EXPECT_THAT(source->Reads(), Each(1u));
}

TEST_F(KeptRecording, IsReadForEverySettingWhenItIsNotKept) {
    PowersOf12Settings();
    EXPECT_THAT(source->Reads(), Each(testing::Ge(12u)));
}

TEST_F(KeptRecording, HasTheSameSpectraToTheLastBit) {
    const auto fromFile = PowersOf12Settings();
    const auto kept = recording->KeepSamples();
    EXPECT_EQ(PowersOf12Settings(), fromFile);
}

TEST_F(KeptRecording, OfSeveralRatesIsResampledOnceForAllSettings) {
    // Cz comes at half the rate of the others and is brought to theirs.
    signal::RecordingData data = test::MakeData({{"Fp1", 16, test::Fp1Values(480), "uV"},
                                                 {"F3", 16, test::F3Values(480), "uV"},
                                                 {"Cz", 8, test::CzValues(240), "uV"}});
    source = std::make_shared<test::CountingSource>(data.source);
    data.source = source;
    recording = signal::MakeRecording(std::move(data));
    const auto kept = recording->KeepSamples();
    SpectMacroResult(test::SmallMacro(), recording.get(), nullptr).Compute(nullptr);
    const std::vector<unsigned> once = source->Reads();
    PowersOf12Settings();
    EXPECT_EQ(source->Reads(), once);
}

} // namespace
