// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectra_contract/spectra_macro.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace {

using Mode = SpectraMacro::TimeIntervalSelectMode;
using EpochsMode = SpectraMacro::EpochsSelectionMode;
using Labels = std::set<std::string>;

std::string LongDescription(const SpectraMacro& macro) {
    std::ostringstream text;
    macro.GetLongDescrStr(text);
    return text.str();
}

TEST(SpectraMacro, StartsWithTheDefaults) {
    const SpectraMacro macro;
    EXPECT_EQ(macro.GetFFTSeconds(), 2.0);
    EXPECT_EQ(macro.GetOverlapPerc(), 50u);
    EXPECT_EQ(macro.GetDSPWindowStr(), "Hanning");
    EXPECT_EQ(macro.GetTimeIntervalSelectMode(), Mode::AllRecording);
    EXPECT_EQ(macro.GetFixedDurationSec(), 60u);
    EXPECT_EQ(macro.GetPreTriggerMS(), 0);
    EXPECT_EQ(macro.GetTrgDurationMS(), 1000);
    EXPECT_TRUE(macro.GetAcceptStateList().empty());
    EXPECT_TRUE(macro.GetAcceptSpotList().empty());
    EXPECT_TRUE(macro.GetRejectEventsList().empty());
    EXPECT_EQ(macro.GetEpochsSelMode(), EpochsMode::All);
    EXPECT_EQ(macro.GetNumEpochsToUse(), 10u);
    EXPECT_EQ(macro.GetContrastValue(), 0);
    EXPECT_EQ(macro.SpotStepCount, 1u);
    EXPECT_EQ(macro.SpotStepInc, 1u);
    EXPECT_EQ(macro.Color, 0x00FF0000u);
    EXPECT_EQ(macro.GetFileName(), "");
}

TEST(SpectraMacro, KeepsWhatIsSet) {
    SpectraMacro macro;
    macro.SetFFTSeconds(0.5);
    macro.SetOverlapPerc(75);
    macro.SetDSPWindowStr("Flat Top");
    macro.SetTimeIntervalSelectMode(Mode::BySpotEvents);
    macro.SetFixedDurationSec(3600);
    macro.SetPreTriggerMS(-536870911);
    macro.SetTrgDurationMS(536870911);
    macro.SetAcceptStateList({"eyes closed"});
    macro.SetAcceptSpotList({"flash", "beep"});
    macro.SetRejectEventsList({"bad blink"});
    macro.SetEpochsSelMode(EpochsMode::RandomN);
    macro.SetNumEpochsToUse(25);
    macro.SetContrastValue(-32767);
    EXPECT_EQ(macro.GetFFTSeconds(), 0.5);
    EXPECT_EQ(macro.GetOverlapPerc(), 75u);
    EXPECT_EQ(macro.GetDSPWindowStr(), "Flat Top");
    EXPECT_EQ(macro.GetTimeIntervalSelectMode(), Mode::BySpotEvents);
    EXPECT_EQ(macro.GetFixedDurationSec(), 3600u);
    EXPECT_EQ(macro.GetPreTriggerMS(), -536870911);
    EXPECT_EQ(macro.GetTrgDurationMS(), 536870911);
    EXPECT_EQ(macro.GetAcceptStateList(), Labels({"eyes closed"}));
    EXPECT_EQ(macro.GetAcceptSpotList(), Labels({"beep", "flash"}));
    EXPECT_EQ(macro.GetRejectEventsList(), Labels({"bad blink"}));
    EXPECT_EQ(macro.GetEpochsSelMode(), EpochsMode::RandomN);
    EXPECT_EQ(macro.GetNumEpochsToUse(), 25u);
    EXPECT_EQ(macro.GetContrastValue(), -32767);
}

TEST(SpectraMacro, WindowLengthsThatAreNoneChangeNothing) {
    SpectraMacro macro;
    for (const double seconds : {0.0, -1.0, std::nan(""), std::numeric_limits<double>::infinity()}) {
        macro.SetFFTSeconds(seconds);
        EXPECT_EQ(macro.GetFFTSeconds(), 2.0) << seconds;
    }
}

TEST(SpectraMacro, WindowLengthStopsAtAnHour) {
    SpectraMacro macro;
    macro.SetFFTSeconds(3600.5);
    EXPECT_EQ(macro.GetFFTSeconds(), 3600.0);
}

TEST(SpectraMacro, OverlapStopsAt99) {
    SpectraMacro macro;
    macro.SetOverlapPerc(100);
    EXPECT_EQ(macro.GetOverlapPerc(), 99u);
}

TEST(SpectraMacro, NumberOfEpochsIsAtLeastOne) {
    SpectraMacro macro;
    macro.SetNumEpochsToUse(0);
    EXPECT_EQ(macro.GetNumEpochsToUse(), 1u);
}

TEST(SpectraMacro, ModesThatAreNoneChangeNothing) {
    SpectraMacro macro;
    macro.SetTimeIntervalSelectMode(static_cast<Mode>(4));
    macro.SetEpochsSelMode(static_cast<EpochsMode>(-1));
    EXPECT_EQ(macro.GetTimeIntervalSelectMode(), Mode::AllRecording);
    EXPECT_EQ(macro.GetEpochsSelMode(), EpochsMode::All);
}

TEST(SpectraMacro, CopiesAreEqualAndIndependent) {
    SpectraMacro macro;
    macro.SetContrastValue(7);
    SpectraMacro copy = macro;
    EXPECT_TRUE(copy == macro);
    copy.SetContrastValue(8);
    EXPECT_FALSE(copy == macro);
    EXPECT_EQ(macro.GetContrastValue(), 7);
    copy = macro;
    EXPECT_TRUE(copy == macro);
}

TEST(SpectraMacro, EveryFieldCountsForEquality) {
    const auto differs = [](auto change) {
        SpectraMacro macro;
        change(macro);
        return !(macro == SpectraMacro());
    };
    EXPECT_TRUE(differs([](SpectraMacro& m) { m.SetFFTSeconds(1); }));
    EXPECT_TRUE(differs([](SpectraMacro& m) { m.SetOverlapPerc(0); }));
    EXPECT_TRUE(differs([](SpectraMacro& m) { m.SetDSPWindowStr("Hamming"); }));
    EXPECT_TRUE(differs([](SpectraMacro& m) { m.SetTimeIntervalSelectMode(Mode::ByDuration); }));
    EXPECT_TRUE(differs([](SpectraMacro& m) { m.SetFixedDurationSec(61); }));
    EXPECT_TRUE(differs([](SpectraMacro& m) { m.SetPreTriggerMS(-1); }));
    EXPECT_TRUE(differs([](SpectraMacro& m) { m.SetTrgDurationMS(999); }));
    EXPECT_TRUE(differs([](SpectraMacro& m) { m.SetAcceptStateList({"a"}); }));
    EXPECT_TRUE(differs([](SpectraMacro& m) { m.SetAcceptSpotList({"a"}); }));
    EXPECT_TRUE(differs([](SpectraMacro& m) { m.SetRejectEventsList({"a"}); }));
    EXPECT_TRUE(differs([](SpectraMacro& m) { m.SetEpochsSelMode(EpochsMode::FirstN); }));
    EXPECT_TRUE(differs([](SpectraMacro& m) { m.SetNumEpochsToUse(11); }));
    EXPECT_TRUE(differs([](SpectraMacro& m) { m.SetContrastValue(1); }));
    EXPECT_TRUE(differs([](SpectraMacro& m) { m.SpotStepCount = 2; }));
    EXPECT_TRUE(differs([](SpectraMacro& m) { m.SpotStepInc = 2; }));
    EXPECT_TRUE(differs([](SpectraMacro& m) { m.Color = 0; }));
}

TEST(SpectraMacro, NamesTheProcessedEventsForAFileName) {
    SpectraMacro macro;
    EXPECT_EQ(macro.GetProcEventString(), "All");
    macro.SetTimeIntervalSelectMode(Mode::ByDuration);
    EXPECT_EQ(macro.GetProcEventString(), "60s");
    macro.SetTimeIntervalSelectMode(Mode::ByStateEvents);
    EXPECT_EQ(macro.GetProcEventString(), "None");
    macro.SetAcceptStateList({"eyes open", "eyes closed"});
    EXPECT_EQ(macro.GetProcEventString(), "eyes closed+eyes open");
    macro.SetTimeIntervalSelectMode(Mode::BySpotEvents);
    macro.SetAcceptSpotList({"a/b\\c:d*e?f\"g<h>i|j\tk", "flash 5 Hz, µV"});
    EXPECT_EQ(macro.GetProcEventString(), "a-b-c-d-e-f-g-h-i-j-k+flash 5 Hz, µV");
}

TEST(SpectraMacro, DescribesTheDefaults) {
    EXPECT_EQ(LongDescription(SpectraMacro()), "FFT window: 2 s\n"
                                               "Overlap: 50 %\n"
                                               "Windowing: Hanning\n"
                                               "Interval: All recording\n"
                                               "Events to exclude: None\n"
                                               "Epochs: All\n"
                                               "Contrast value: 0\n");
}

TEST(SpectraMacro, DescribesDuration) {
    SpectraMacro macro;
    macro.SetFFTSeconds(0.1);
    macro.SetTimeIntervalSelectMode(Mode::ByDuration);
    macro.SetFixedDurationSec(3600);
    macro.SetRejectEventsList({"bad blink", "artefact"});
    macro.SetEpochsSelMode(EpochsMode::FirstN);
    EXPECT_EQ(LongDescription(macro), "FFT window: 0.1 s\n"
                                      "Overlap: 50 %\n"
                                      "Windowing: Hanning\n"
                                      "Interval: By duration\n"
                                      "Duration: 3600 s\n"
                                      "Events to exclude: artefact, bad blink\n"
                                      "Epochs: First 10\n"
                                      "Contrast value: 0\n");
}

TEST(SpectraMacro, DescribesSpotEvents) {
    SpectraMacro macro;
    macro.SetTimeIntervalSelectMode(Mode::BySpotEvents);
    macro.SetAcceptSpotList({"flash"});
    macro.SetPreTriggerMS(-200);
    macro.SpotStepCount = 3;
    macro.SpotStepInc = 500;
    macro.SetEpochsSelMode(EpochsMode::RandomN);
    EXPECT_EQ(LongDescription(macro), "FFT window: 2 s\n"
                                      "Overlap: 50 %\n"
                                      "Windowing: Hanning\n"
                                      "Interval: By spot events\n"
                                      "Spot events: flash\n"
                                      "Pre-trigger: -200 ms\n"
                                      "Segment duration: 1000 ms\n"
                                      "Steps: 3 x 500 ms\n"
                                      "Events to exclude: None\n"
                                      "Epochs: Random 10 in time order\n"
                                      "Contrast value: 0\n");
}

TEST(SpectraMacro, DescribesStateEvents) {
    SpectraMacro macro;
    macro.SetTimeIntervalSelectMode(Mode::ByStateEvents);
    macro.SetAcceptStateList({"eyes closed", "eyes open"});
    EXPECT_NE(
        LongDescription(macro).find("Interval: By state events\nState events: eyes closed, eyes open\n"),
        std::string::npos);
}

} // namespace
