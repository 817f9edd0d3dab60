// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/traces/epoch_rows.h"

#include "tests/spectrum_view/traces/trace_fixture.h"

#include <cmath>

namespace {

using namespace orvanta;
using namespace orvanta::spectrum_view;
using Span = SpectraOverTime::Span;
using Groups = std::vector<EpochGroup>;

std::vector<Span> Seconds(std::initializer_list<double> begins) {
    std::vector<Span> spans;
    for (const double begin : begins) {
        spans.push_back({begin, begin + 1});
    }
    return spans;
}

TEST(EpochGroups, EachEpochStandsAloneWhereThereIsRoom) {
    EXPECT_EQ(GroupEpochs(Seconds({0, 1, 2}), 3), (Groups{{0, 1, {0, 1}}, {1, 2, {1, 2}}, {2, 3, {2, 3}}}));
    EXPECT_EQ(GroupEpochs(Seconds({0, 1, 2}), 1000).size(), 3u);
}

TEST(EpochGroups, NeighboursShareARowWhereThereIsNot) {
    EXPECT_EQ(GroupEpochs(Seconds({0, 1, 2, 3}), 2), (Groups{{0, 2, {0, 2}}, {2, 4, {2, 4}}}));
    EXPECT_EQ(GroupEpochs(Seconds({0, 1, 2, 3}), 1), (Groups{{0, 4, {0, 4}}}));
}

TEST(EpochGroups, AGapHasNoRow) {
    EXPECT_EQ(GroupEpochs(Seconds({0, 1, 8, 9}), 5), (Groups{{0, 2, {0, 2}}, {2, 4, {8, 10}}}));
}

TEST(EpochGroups, AreNeverMoreThanAskedFor) {
    std::vector<Span> epochs;
    for (int i = 0; i < 57600; ++i) { // 8 h of 1 s, half overlapping
        epochs.push_back({i * 0.5, i * 0.5 + 1});
    }
    const Groups groups = GroupEpochs(epochs, 350);
    EXPECT_EQ(groups.size(), 350u);
    EXPECT_EQ(groups.front().first, 0u);
    EXPECT_EQ(groups.back().end, 57600u);
    for (std::size_t i = 1; i < groups.size(); ++i) {
        EXPECT_EQ(groups[i].first, groups[i - 1].end) << i;
    }
}

TEST(EpochGroups, OfNothingAreNone) {
    EXPECT_TRUE(GroupEpochs({}, 5).empty());
    EXPECT_TRUE(GroupEpochs(Seconds({0}), 0).empty());
}

/// Five epochs of 1 s without overlap.
class EpochRows : public test::TraceFixture {
protected:
    EpochRows() {
        Use("A = +Fp1 -F3");
        auto* made = new SpectMacroResult(test::SmallMacro("Hanning", 0), recording.get(), nullptr);
        made->Compute(nullptr);
        manager.push_back(made);
        analysis = made;
    }
    std::vector<double> Epoch(std::size_t index) const {
        std::vector<double> values;
        analysis->GetSpeCartoon(values, index, Channel(0));
        return values;
    }

    SpectMacroResult* analysis = nullptr;
};

TEST_F(EpochRows, EpochsLieWhereTheyWereTaken) {
    const auto spans = EpochSpans(*analysis, *recording);
    ASSERT_EQ(spans.size(), 5u);
    EXPECT_EQ(spans[3].begin_s, 3);
    EXPECT_EQ(spans[3].end_s, 4);
}

TEST_F(EpochRows, ARowOfOneEpochIsItsSpectrum) {
    const SpectraOverTime spectra =
        SpectraOf(*analysis, *analysis->GetSpectrum(Channel(0)), {{3, 4, {3, 4}}});
    EXPECT_EQ(spectra.bins, 5u);
    ASSERT_EQ(spectra.rows.size(), 1u);
    EXPECT_EQ(spectra.rows[0].begin_s, 3);
    for (std::size_t bin = 0; bin < 5; ++bin) {
        EXPECT_EQ(spectra.Row(0)[bin], static_cast<float>(Epoch(3)[bin])) << bin;
    }
}

TEST_F(EpochRows, ARowOfSeveralIsTheirMean) {
    const SpectraOverTime spectra =
        SpectraOf(*analysis, *analysis->GetSpectrum(Channel(0)), {{0, 2, {0, 2}}, {2, 5, {2, 5}}});
    ASSERT_EQ(spectra.rows.size(), 2u);
    for (std::size_t bin = 0; bin < 5; ++bin) {
        EXPECT_FLOAT_EQ(spectra.Row(0)[bin], static_cast<float>((Epoch(0)[bin] + Epoch(1)[bin]) / 2)) << bin;
        EXPECT_FLOAT_EQ(spectra.Row(1)[bin],
                        static_cast<float>((Epoch(2)[bin] + Epoch(3)[bin] + Epoch(4)[bin]) / 3))
            << bin;
    }
}

TEST_F(EpochRows, ASensorsRowsAreItsOwn) {
    const SensorType* sensor = test::SensorOf(*recording, "Cz");
    const SpectraOverTime spectra = SpectraOf(*analysis, *analysis->GetSpectrum(sensor), {{1, 2, {1, 2}}});
    EXPECT_EQ(spectra.Row(0)[2], static_cast<float>(analysis->GetSpeCartoon(1, sensor)->GetValue(2)));
}

TEST_F(EpochRows, WhatIsNotComputableIsNoNumber) {
    using SPECT::Entity::Type;
    for (const Type entity : {Type::Coherence, Type::Phase}) { // of a single epoch there is none
        manager.SetMeasEntity(entity);
        const SpectraOverTime spectra =
            SpectraOf(*analysis, *analysis->GetSpectrum(Channel(0)), {{0, 5, {0, 5}}});
        ASSERT_EQ(spectra.Row(0).size(), 5u);
        for (const float value : spectra.Row(0)) {
            EXPECT_TRUE(std::isnan(value));
        }
    }
}

} // namespace
