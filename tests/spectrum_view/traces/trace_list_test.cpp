// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/spectrum_view/traces/trace_fixture.h"

namespace {

using namespace orvanta;
using namespace orvanta::spectrum_view;
using Names = std::vector<std::string>;

// --- channels and sensors

class Cephalic : public test::TraceFixture {};

TEST_F(Cephalic, AMappableMontageShowsItsChannelsInMontageOrder) {
    Use("Cz = +Cz\nFp1 = +Fp1");
    const SpectMacroResult* main = Add();
    const auto list = CephalicList(manager, *recording);
    ASSERT_TRUE(list);
    EXPECT_EQ(NamesOf(*list), (Names{"Cz", "Fp1"}));
    EXPECT_EQ(list->Entries(manager)[0].main, main->GetSpectrum(Channel(0)));
    EXPECT_EQ(list->Entries(manager)[0].secondary, nullptr);
}

TEST_F(Cephalic, AChannelWithoutASpectrumIsLeftOut) {
    Use("Cz = +Cz\nFp1 = +Fp1");
    Add();
    Use("F3 = +F3\nFp1 = +Fp1"); // F3 was not a channel when the spectra were computed
    EXPECT_EQ(NamesOf(*CephalicList(manager, *recording)), Names{"Fp1"});
}

TEST_F(Cephalic, AMontageThatIsNotMappableShowsTheSensors) {
    UseFiveBipolarChannels();
    const SpectMacroResult* main = Add();
    const auto list = CephalicList(manager, *recording);
    EXPECT_EQ(NamesOf(*list), (Names{"Fp1", "F3", "Cz"}));
    EXPECT_EQ(list->Entries(manager)[1].main, main->GetSpectrum(test::SensorOf(*recording, "F3")));
}

TEST_F(Cephalic, SensorsWithoutASpectrumAreKept) {
    UseFiveBipolarChannels();
    Add(false);
    EXPECT_EQ(NamesOf(*CephalicList(manager, *recording)), (Names{"-", "-", "-"}));
}

TEST_F(Cephalic, ChannelsOfWhatIsNotComputedAreNot) {
    Use("Cz = +Cz\nFp1 = +Fp1");
    Add(false);
    EXPECT_EQ(CephalicList(manager, *recording)->Size(), 0u);
}

TEST_F(Cephalic, TheSecondaryAnalysisGivesItsSpectraOfTheSameTraces) {
    Use("Cz = +Cz\nFp1 = +Fp1");
    Add();
    SpectMacroResult* secondary = Add();
    manager.SetSecondary(secondary);
    const auto list = CephalicList(manager, *recording);
    EXPECT_EQ(list->Entries(manager)[1].secondary, secondary->GetSpectrum(Channel(1)));
    UseFiveBipolarChannels();
    EXPECT_EQ(CephalicList(manager, *recording)->Entries(manager)[2].secondary,
              secondary->GetSpectrum(test::SensorOf(*recording, "Cz")));
}

TEST_F(Cephalic, WithoutAMainAnalysisThereIsNoNewList) {
    EXPECT_FALSE(CephalicList(manager, *recording).has_value());
}

// --- pages of bipolar channels

class Bipolar : public test::TraceFixture {};

TEST_F(Bipolar, APageHasAnEntryForEveryCell) {
    UseFiveBipolarChannels();
    const SpectMacroResult* main = Add();
    const TraceList list = BipolarList(manager, *recording, 0, {2, 2});
    EXPECT_EQ(NamesOf(list), (Names{"A", "B", "C", "D"}));
    EXPECT_EQ(list.Entries(manager)[3].main, main->GetSpectrum(Channel(3)));
}

TEST_F(Bipolar, CellsBeyondTheLastChannelAreEmpty) {
    UseFiveBipolarChannels();
    Add();
    EXPECT_EQ(NamesOf(BipolarList(manager, *recording, 4, {2, 2})), (Names{"E", "-", "-", "-"}));
    EXPECT_EQ(NamesOf(BipolarList(manager, *recording, 99, {1, 2})), (Names{"-", "-"}));
}

TEST_F(Bipolar, TheSecondaryAnalysisGivesItsSpectraOfTheSameChannels) {
    UseFiveBipolarChannels();
    Add();
    SpectMacroResult* secondary = Add();
    manager.SetSecondary(secondary);
    const TraceList list = BipolarList(manager, *recording, 3, {1, 3});
    EXPECT_EQ(list.Entries(manager)[1].secondary, secondary->GetSpectrum(Channel(4)));
    EXPECT_EQ(list.Entries(manager)[2].secondary, nullptr);
}

TEST_F(Bipolar, AReferentialMontageHasOnlyEmptyCells) {
    Use("Fp1 = +Fp1\nF3 = +F3");
    Add();
    EXPECT_EQ(NamesOf(BipolarList(manager, *recording, 0, {1, 2})), (Names{"-", "-"}));
}

TEST_F(Bipolar, AChannelThatTheCurrentMontageLacksIsAnEmptyCell) {
    UseFiveBipolarChannels();
    Add();
    Use("A = +Fp1 -F3\nB = +F3 -Cz"); // five were computed
    EXPECT_EQ(NamesOf(BipolarList(manager, *recording, 1, {1, 3})), (Names{"B", "-", "-"}));
}

TEST_F(Bipolar, WithoutAMainAnalysisOrCellsThereIsNothing) {
    EXPECT_EQ(BipolarList(manager, *recording, 0, {2, 2}).Size(), 0u);
    UseFiveBipolarChannels();
    Add();
    EXPECT_EQ(BipolarList(manager, *recording, 0, {0, 4}).Size(), 0u);
    EXPECT_EQ(BipolarList(manager, *recording, 0, {4, 0}).Size(), 0u);
}

// --- lists that spectra outlived

class Stale : public test::TraceFixture {
protected:
    Stale() {
        UseFiveBipolarChannels();
        main = Add();
        list = BipolarList(manager, *recording, 0, {2, 2});
    }
    SpectMacroResult* main = nullptr;
    TraceList list;
};

TEST_F(Stale, ANewListIsCurrent) {
    EXPECT_TRUE(list.IsCurrent(manager));
    EXPECT_EQ(list.Entries(manager).size(), 4u);
}

TEST_F(Stale, AResetHidesTheEntries) {
    main->ResetData();
    EXPECT_FALSE(list.IsCurrent(manager));
    EXPECT_TRUE(list.Entries(manager).empty());
    EXPECT_EQ(list.Size(), 4u);
}

TEST_F(Stale, ANewComputationHidesTheEntries) {
    main->Compute(nullptr);
    EXPECT_TRUE(list.Entries(manager).empty());
}

TEST_F(Stale, ARemovedMainHidesTheEntriesEvenWithANewOne) {
    manager.Remove(main);
    delete main;
    EXPECT_TRUE(list.Entries(manager).empty());
    Add();
    EXPECT_TRUE(list.Entries(manager).empty());
}

TEST_F(Stale, AnotherSecondaryOrItsResetHidesTheEntries) {
    SpectMacroResult* secondary = Add();
    EXPECT_TRUE(list.IsCurrent(manager)); // not yet compared
    manager.SetSecondary(secondary);
    EXPECT_FALSE(list.IsCurrent(manager));
    list = BipolarList(manager, *recording, 0, {2, 2});
    EXPECT_TRUE(list.IsCurrent(manager));
    secondary->ResetData();
    EXPECT_TRUE(list.Entries(manager).empty());
}

TEST_F(Stale, AnEmptyListIsNeverCurrentWithoutAMain) {
    manager.SetMain(nullptr);
    EXPECT_FALSE(list.IsCurrent(manager));
    EXPECT_FALSE(BipolarList(manager, *recording, 0, {2, 2}).IsCurrent(manager));
}

TEST_F(Stale, AnotherEntityLeavesTheEntries) {
    manager.SetMeasEntity(SPECT::Entity::Type::Coherence);
    EXPECT_TRUE(list.IsCurrent(manager));
}

// --- what belongs to a trace

class OfATrace : public test::TraceFixture {};

TEST_F(OfATrace, ThePositionOfAChannelIsItsFirstElectrode) {
    Use("left = +Fp1\nmiddle = +Cz");
    const SpectMacroResult* main = Add();
    EXPECT_EQ(PositionName(*main->GetSpectrum(Channel(0)), true), "Fp1");
}

TEST_F(OfATrace, ThePositionOfASensorOrABipolarChannelIsItsName) {
    UseFiveBipolarChannels();
    const SpectMacroResult* main = Add();
    EXPECT_EQ(PositionName(*main->GetSpectrum(Channel(0)), false), "A");
    const SpectrumSingle& ofSensor = *main->GetSpectrum(test::SensorOf(*recording, "Cz"));
    EXPECT_EQ(PositionName(ofSensor, false), "Cz");
    EXPECT_EQ(PositionName(ofSensor, true), "Cz");
}

TEST_F(OfATrace, ComparisonsAreThoseOfItsChannelOrSensor) {
    UseFiveBipolarChannels();
    const SpectMacroResult* main = Add();
    manager.SetSecondary(Add());
    manager.SetShowTTest(true);
    manager.SetShowRatio(true);
    const SpectrumSingle* ofChannel = main->GetSpectrum(Channel(2));
    const SensorType* sensor = test::SensorOf(*recording, "F3");
    const SpectrumSingle* ofSensor = main->GetSpectrum(sensor);
    ASSERT_NE(PValuesOf(manager, ofChannel), nullptr);
    EXPECT_EQ(PValuesOf(manager, ofChannel), manager.GetP(Channel(2)));
    EXPECT_EQ(PValuesOf(manager, ofSensor), manager.GetP(sensor));
    EXPECT_EQ(RatioOf(manager, ofChannel), manager.GetRatio(Channel(2)));
    EXPECT_EQ(RatioOf(manager, ofSensor), manager.GetRatio(sensor));
    EXPECT_EQ(RatioOf(manager, ofSensor)[1], 1); // compared with its like
}

TEST_F(OfATrace, WithoutASpectrumThereIsNoComparison) {
    EXPECT_EQ(PValuesOf(manager, nullptr), nullptr);
    EXPECT_EQ(RatioOf(manager, nullptr), nullptr);
}

} // namespace
