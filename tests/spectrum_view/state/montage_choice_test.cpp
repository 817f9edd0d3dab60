// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/state/montage_choice.h"

#include "spectra_contract/recording.h"
#include "tests/support/small_recording.h"

#include <gtest/gtest.h>

namespace {

using namespace orvanta;
using namespace orvanta::spectrum_view;
using Layout::Mode;
using SPECT::Entity::Type;

class MontageChoice : public testing::Test {
protected:
    void Use(const MontageType& montage) { recording->GetTraceInfo()->SetMtg(montage); }
    void UseBipolar() { Use(test::MontageOf(*recording, "A = +Fp1 -F3\nB = +F3 -Cz")); }
    Adjustment Of(Type entity, SPECT::Data::Mode mode = SPECT::Data::Mode::Mean,
                  Mode layout = Mode::Scalp) const {
        return AdjustmentOf(layout, entity, mode, *recording);
    }
    const MontageType* AsRecorded() const { return recording->GetMontageList()->GetUniMtg(); }
    const MontageType* Reference() const { return recording->GetMontageList()->GetRefMtg(); }

    std::unique_ptr<EEGFileInfoType> recording = test::SmallRecording();
};

TEST_F(MontageChoice, AmplitudeAndPowerOnTheScalpNeedAMappableMontage) {
    UseBipolar();
    EXPECT_EQ(Of(Type::Amplitude), (Adjustment{AsRecorded(), false}));
    EXPECT_EQ(Of(Type::Power), (Adjustment{AsRecorded(), false}));
    Use(*AsRecorded());
    EXPECT_FALSE(Of(Type::Power).IsNeeded());
    Use(*Reference()); // mappable, too
    EXPECT_FALSE(Of(Type::Power).IsNeeded());
}

TEST_F(MontageChoice, AmplitudeAndPowerKeepTheMode) {
    UseBipolar();
    EXPECT_FALSE(Of(Type::Power, SPECT::Data::Mode::CSA).toMean);
}

TEST_F(MontageChoice, CoherenceAndPhaseOnTheScalpNeedTheReferenceMontageAndTheMean) {
    Use(*AsRecorded());
    EXPECT_EQ(Of(Type::Coherence, SPECT::Data::Mode::CSA), (Adjustment{Reference(), true}));
    EXPECT_EQ(Of(Type::Phase), (Adjustment{Reference(), false}));
    Use(*Reference());
    EXPECT_FALSE(Of(Type::Phase).IsNeeded());
    EXPECT_EQ(Of(Type::Phase, SPECT::Data::Mode::TimeFrequency), (Adjustment{nullptr, true}));
}

TEST_F(MontageChoice, TheGridTakesAnyMontageAndMode) {
    UseBipolar();
    for (const Type entity : {Type::Amplitude, Type::Power, Type::Coherence, Type::Phase}) {
        EXPECT_FALSE(Of(entity, SPECT::Data::Mode::CSA, Mode::Grid).IsNeeded());
    }
}

TEST_F(MontageChoice, ComesToRestWhenNoMontageIsMappable) {
    recording = signal::MakeRecording(
        test::MakeData({{"Fp1-F3", 8, test::Fp1Values(40), "uV"}, {"F3-C3", 8, test::CzValues(40), "uV"}}));
    Use(*AsRecorded());
    ASSERT_FALSE(AsRecorded()->IsMappable());
    EXPECT_FALSE(Of(Type::Power).IsNeeded());
}

} // namespace
