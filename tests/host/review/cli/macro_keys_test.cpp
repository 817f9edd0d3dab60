// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/cli/macro_keys.h"

#include "host/review/cli/exit_status.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace orvanta::cli {
namespace {

std::string Refusal(const std::string& assignment) {
    SpectraMacro macro;
    try {
        SetKey(macro, assignment);
    } catch (const UsageError& error) {
        return error.what();
    }
    return "accepted";
}

std::string After(const std::string& assignment, const std::string& key) {
    SpectraMacro macro;
    SetKey(macro, assignment);
    for (const std::string& line : KeysToText(macro)) {
        if (line.starts_with(key + "=")) {
            return line;
        }
    }
    return "no such key";
}

TEST(MacroKeys, AreTheSixteenInOrder) {
    EXPECT_EQ(KeyHelp(),
              "fft_seconds, overlap, window, mode, duration, states, spots, reject, pre_trigger_ms, "
              "trigger_duration_ms, spot_steps, spot_step_ms, epochs_mode, epochs_count, contrast, color");
}

TEST(MacroKeys, DefaultsAreThoseOfANewMacro) {
    const std::vector<std::string> expected = {
        "fft_seconds=2", "overlap=50",     "window=Hanning",  "mode=all",         "duration=60",
        "states=",       "spots=",         "reject=",         "pre_trigger_ms=0", "trigger_duration_ms=1000",
        "spot_steps=1",  "spot_step_ms=1", "epochs_mode=all", "epochs_count=10",  "contrast=0",
        "color=#0000FF"};
    EXPECT_EQ(KeysToText(SpectraMacro()), expected);
}

TEST(MacroKeys, SecondsTakeFractions) {
    EXPECT_EQ(After("fft_seconds=0.5", "fft_seconds"), "fft_seconds=0.5");
}
TEST(MacroKeys, WindowIsFoundWithoutRegardToCase) {
    EXPECT_EQ(After("window=hamming", "window"), "window=Hamming");
}
TEST(MacroKeys, ModeIsTakenByName) {
    EXPECT_EQ(After("mode=spots", "mode"), "mode=spots");
}
TEST(MacroKeys, EpochsModeIsTakenByName) {
    EXPECT_EQ(After("epochs_mode=random", "epochs_mode"), "epochs_mode=random");
}
TEST(MacroKeys, LabelsAreSplitAtCommas) {
    EXPECT_EQ(After("states=b,a", "states"), "states=a,b");
}
TEST(MacroKeys, LabelsKeepTheirBlanks) {
    EXPECT_EQ(After("states=eyes closed", "states"), "states=eyes closed");
}
TEST(MacroKeys, ACommaInALabelIsEscaped) {
    EXPECT_EQ(After("reject=a\\,b,c", "reject"), "reject=a\\,b,c");
}
TEST(MacroKeys, AnEmptyListClears) {
    EXPECT_EQ(After("spots=", "spots"), "spots=");
}
TEST(MacroKeys, NegativePreTriggerIsTaken) {
    EXPECT_EQ(After("pre_trigger_ms=-200", "pre_trigger_ms"), "pre_trigger_ms=-200");
}

TEST(MacroKeys, ColourIsStoredBlueFirst) {
    SpectraMacro macro;
    SetKey(macro, "color=#102030");
    EXPECT_EQ(macro.Color, 0x00302010u);
}

TEST(MacroKeys, JsonHasListsAsArrays) {
    SpectraMacro macro;
    SetKey(macro, "states=b,a");
    EXPECT_EQ(KeysToJson(macro)["states"].dump(), R"(["a","b"])");
}

TEST(MacroKeys, UnknownKeyIsRefusedWithTheList) {
    EXPECT_EQ(Refusal("fft=2").substr(0, 27), "fft=2: no such key (one of ");
}
TEST(MacroKeys, MissingValueIsRefused) {
    EXPECT_EQ(
        Refusal("overlap"),
        "overlap: the value is missing (write overlap=VALUE: of successive windows, percent (0 to 99))");
}
TEST(MacroKeys, OverlapOf100IsRefused) {
    EXPECT_EQ(Refusal("overlap=100"), "overlap=100: not a value of this key (a whole number from 0 to 99)");
}
TEST(MacroKeys, TrailingTextIsRefused) {
    EXPECT_EQ(Refusal("fft_seconds=2s"),
              "fft_seconds=2s: not a value of this key (seconds, a number above 0 such as 2 or 0.5)");
}
TEST(MacroKeys, NaNSecondsAreRefused) {
    EXPECT_EQ(Refusal("fft_seconds=nan"),
              "fft_seconds=nan: not a value of this key (seconds, a number above 0 such as 2 or 0.5)");
}
TEST(MacroKeys, UnknownModeIsRefusedWithTheNames) {
    EXPECT_EQ(Refusal("mode=some"), "mode=some: not a value of this key (one of all duration states spots)");
}
TEST(MacroKeys, ColourOfWrongLengthIsRefused) {
    EXPECT_EQ(
        Refusal("color=#12345"),
        "color=#12345: not a value of this key (a colour as RRGGBB in hexadecimal digits, such as #0000FF)");
}

} // namespace
} // namespace orvanta::cli
