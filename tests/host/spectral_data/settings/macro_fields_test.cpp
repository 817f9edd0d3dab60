// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/settings/macro_fields.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace orvanta::spectral {
namespace {

std::string Refusal(const char* key, const char* text) {
    SpectraMacro macro;
    try {
        SetMacroField(macro, key, text);
        return {};
    } catch (const std::invalid_argument& error) {
        EXPECT_TRUE(macro == SpectraMacro());
        return error.what();
    }
}

TEST(MacroFields, AreNamedInTheirOrder) {
    std::string keys;
    for (const MacroField& field : MacroFields()) {
        keys += std::string(field.key) + " ";
    }
    EXPECT_EQ(keys, "fft_seconds overlap window mode duration states spots reject pre_trigger_ms "
                    "trigger_duration_ms spot_steps spot_step_ms epochs_mode epochs_count contrast color ");
}

TEST(MacroFields, TextsReadBackAsTheSameText) {
    const std::pair<const char*, const char*> cases[] = {
        {"fft_seconds", "0.3"},   {"overlap", "0"},        {"window", "Blackman-Harris"},
        {"mode", "spots"},        {"duration", "3600"},    {"states", "eyes closed,eyes open"},
        {"spots", "flash"},       {"reject", ""},          {"pre_trigger_ms", "-200"},
        {"spot_steps", "256"},    {"spot_step_ms", "250"}, {"trigger_duration_ms", "2000"},
        {"epochs_mode", "first"}, {"epochs_count", "25"},  {"contrast", "-1"},
        {"color", "0x000000FF"},
    };
    for (const auto& [key, text] : cases) {
        SpectraMacro macro;
        SetMacroField(macro, key, text);
        EXPECT_EQ(GetMacroField(macro, key), text) << key;
    }
}

TEST(MacroFields, ListsAreTrimmedAndUnique) {
    SpectraMacro macro;
    SetMacroField(macro, "states", " b , a,,a ,");
    EXPECT_EQ(macro.GetAcceptStateList(), std::set<std::string>({"a", "b"}));
}

TEST(MacroFields, ModesAreFoundInAnyCase) {
    SpectraMacro macro;
    SetMacroField(macro, "mode", " States ");
    EXPECT_EQ(macro.GetTimeIntervalSelectMode(), SpectraMacro::TimeIntervalSelectMode::ByStateEvents);
}

TEST(MacroFields, ColoursMayBeDecimal) {
    SpectraMacro macro;
    SetMacroField(macro, "color", "255");
    EXPECT_EQ(macro.Color, 255u);
}

TEST(MacroFields, AWrongValueIsNamedAndChangesNothing) {
    EXPECT_EQ(Refusal("overlap", "120"),
              "overlap: \"120\" is no value; a whole number from 0 to 99 is needed");
    EXPECT_EQ(Refusal("color", "0x"),
              "color: \"0x\" is no value; a colour from 0x00000000 to 0x00FFFFFF (0x00BBGGRR) is needed");
}

TEST(MacroFields, AnUnknownKeyIsAnsweredWithTheKnownOnes) {
    EXPECT_TRUE(
        Refusal("overlop", "1")
            .starts_with("there is no setting \"overlop\"; the settings are fft_seconds overlap window"));
    EXPECT_THROW(GetMacroField(SpectraMacro(), "x"), std::invalid_argument);
}

} // namespace
} // namespace orvanta::spectral
