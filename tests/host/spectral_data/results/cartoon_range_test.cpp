// SPDX-License-Identifier: GPL-3.0-or-later
// The ends of a measure over all epochs.
#include "host/spectral_data/results/analysis.h"
#include "spectra_contract/spect_macro_result.h"
#include "tests/host/spectral_data/results/analysis_fixture.h"
#include "tests/support/failing_source.h"
#include "tests/support/recording_gui.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using namespace orvanta;
using Measure = SPECT::Meas::Type;
using Range = std::optional<std::pair<double, double>>;

/// Fp1, F3 and Cz at 8 Hz for 10 s: 19 epochs with bins of 1 Hz.
class CartoonRange : public testing::Test {
protected:
    CartoonRange() {
        SPECT::GetGlobals().Bands[2] = {1, 3, "Middle"};
        result.Compute(nullptr);
    }
    SensorList Sensors() const { return result.GetSensors(); }
    /// From the epochs' spectra one by one.
    Range OneByOne(int band, Measure measure) const {
        double low = std::numeric_limits<double>::infinity();
        double high = -low;
        for (std::uint64_t epoch = 0; epoch < result.GetFFTCount(); ++epoch) {
            for (const SensorType* sensor : Sensors()) {
                const double value = result.GetSpeCartoon(epoch, sensor)->GetMeasure(band, measure);
                if (std::isfinite(value)) {
                    low = std::min(low, value);
                    high = std::max(high, value);
                }
            }
        }
        return low <= high ? Range(std::pair(low, high)) : std::nullopt;
    }

    test::GlobalsGuard guard;
    std::unique_ptr<EEGFileInfoType> recording = test::SmallRecording(10);
    SpectMacroResult result{test::SmallMacro(), recording.get(), nullptr};
};

TEST_F(CartoonRange, IsThatOfTheEpochsOneByOne) {
    for (const SPECT::Entity::Type entity : {SPECT::Entity::Type::Power, SPECT::Entity::Type::Amplitude}) {
        SPECT::GetGlobals().SetMeasEntity(entity);
        for (unsigned measure = 0; measure < SPECT::Meas::Count; ++measure) {
            for (const int band : {-1, 0, 2}) {
                const auto kind = static_cast<Measure>(measure);
                EXPECT_EQ(result.GetCartoonRange(Sensors(), band, kind, nullptr), OneByOne(band, kind))
                    << "entity " << static_cast<int>(entity) << " measure " << measure << " band " << band;
            }
        }
    }
}

TEST_F(CartoonRange, IsTheSameOfEpochsThatWereNotKept) {
    const Range kept = result.GetCartoonRange(Sensors(), 2, Measure::Abs, nullptr);
    ASSERT_TRUE(kept);
    result.SetComputeOptions(test::WithoutMemory());
    result.Compute(nullptr);
    ASSERT_FALSE(result.GetAnalysis()->Epochs().IsStored());

    EXPECT_EQ(result.GetCartoonRange(Sensors(), 2, Measure::Abs, nullptr), kept);
}

TEST_F(CartoonRange, IsOfTheSensorsAskedFor) {
    const SensorList cz{test::SensorOf(*recording, "Cz")};
    const SensorList fp1{test::SensorOf(*recording, "Fp1")};

    const Range ofCz = result.GetCartoonRange(cz, 2, Measure::Abs, nullptr);
    const Range ofFp1 = result.GetCartoonRange(fp1, 2, Measure::Abs, nullptr);
    const Range ofAll = result.GetCartoonRange(Sensors(), 2, Measure::Abs, nullptr);

    ASSERT_TRUE(ofCz && ofFp1 && ofAll);
    EXPECT_NE(ofCz, ofFp1);
    EXPECT_LE(ofAll->first, std::min(ofCz->first, ofFp1->first));
    EXPECT_GE(ofAll->second, std::max(ofCz->second, ofFp1->second));
}

TEST_F(CartoonRange, IsNoneWithoutAnythingToMeasure) {
    EXPECT_FALSE(result.GetCartoonRange({}, 2, Measure::Abs, nullptr)) << "no sensors";
    EXPECT_FALSE(result.GetCartoonRange(Sensors(), 7, Measure::Abs, nullptr)) << "band not defined";
    EXPECT_FALSE(result.GetCartoonRange(Sensors(), 8, Measure::Abs, nullptr)) << "no such band";
    EXPECT_FALSE(result.GetCartoonRange(Sensors(), -2, Measure::Abs, nullptr)) << "no such band";
    EXPECT_FALSE(result.GetCartoonRange(Sensors(), 2, Measure::CV, nullptr)) << "an epoch has no spread";
    SPECT::GetGlobals().SetMeasEntity(SPECT::Entity::Type::Coherence);
    EXPECT_FALSE(result.GetCartoonRange(Sensors(), 2, Measure::Abs, nullptr)) << "nor a coherence";
    result.ResetData();
    EXPECT_FALSE(result.GetCartoonRange({test::SensorOf(*recording, "Cz")}, 2, Measure::Abs, nullptr));
}

TEST_F(CartoonRange, TellsItsProgress) {
    const test::RecordingGui gui;
    result.GetCartoonRange(Sensors(), 2, Measure::Abs, gui.CreateProgress("Scaling").get());

    ASSERT_FALSE(gui.Positions().empty());
    EXPECT_EQ(gui.Positions().back(), 1.0);
}

TEST_F(CartoonRange, IsNoneWhenCancelled) {
    test::RecordingGui gui;
    gui.Cancelled = true;

    EXPECT_FALSE(result.GetCartoonRange(Sensors(), 2, Measure::Abs, gui.CreateProgress("Scaling").get()));
}

} // namespace
