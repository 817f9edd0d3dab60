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
TEST(MacroKeys, BlanksAroundLabelsDoNotCount) {
    EXPECT_EQ(After("states= a , b", "states"), "states=a,b");
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

TEST(MacroKeys, JsonHasNumbersAsNumbers) {
    EXPECT_EQ(KeysToJson(SpectraMacro())["overlap"].dump(), "50");
}

TEST(MacroKeys, HelpExplainsEveryKeyWithItsDefault) {
    for (const std::string& line : KeysToText(SpectraMacro())) {
        const std::size_t at = KeyHelp().find("\n  " + line + ' ');
        ASSERT_NE(at, std::string::npos) << line;
        EXPECT_GT(KeyHelp().find('\n', at + 1) - at, 30U) << line;
    }
}

TEST(MacroKeys, RefusalsSayWhatIsAllowed) {
    const std::vector<std::pair<std::string, std::string>> refusals = {
        {"fft=2", "fft=2: no such key (orvanta macro new --help lists them)"},
        {"overlap", "overlap: the value is missing (write overlap=VALUE)"},
        {"overlap=100", "overlap=100: not a value of this key (a whole number from 0 to 99 is needed)"},
        {"fft_seconds=2s",
         "fft_seconds=2s: not a value of this key (a number above 0 and at most 3600 is needed)"},
        {"fft_seconds=nan",
         "fft_seconds=nan: not a value of this key (a number above 0 and at most 3600 is needed)"},
        {"mode=some", "mode=some: not a value of this key (one of all, duration, states, spots is needed)"},
        {"color=#12345",
         "color=#12345: not a value of this key (a colour such as #0000FF (#RRGGBB) is needed)"},
        {"color=0000FF",
         "color=0000FF: not a value of this key (a colour such as #0000FF (#RRGGBB) is needed)"},
    };
    for (const auto& [assignment, text] : refusals) {
        EXPECT_EQ(Refusal(assignment), text);
    }
}

} // namespace
} // namespace orvanta::cli
