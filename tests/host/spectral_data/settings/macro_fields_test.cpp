// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/settings/macro_fields.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <stdexcept>

namespace orvanta::spectral {
namespace {

const MacroField& Field(const std::string& key) {
    const auto fields = MacroFields();
    return *std::find_if(fields.begin(), fields.end(),
                         [&](const MacroField& field) { return key == field.key; });
}

TEST(MacroFields, AreNamedInTheirOrder) {
    std::string keys;
    for (const MacroField& field : MacroFields()) {
        keys += std::string(field.key) + (field.IsList() ? "[] " : " ");
    }
    EXPECT_EQ(keys, "fft_seconds overlap window mode duration states[] spots[] reject[] pre_trigger_ms "
                    "trigger_duration_ms spot_steps spot_step_ms epochs_mode epochs_count contrast color ");
}

TEST(MacroFields, ScalarsReadBackAsTheSameText) {
    const std::pair<const char*, const char*> cases[] = {
        {"fft_seconds", "0.3"},   {"overlap", "0"},        {"window", "Blackman-Harris"},
        {"mode", "spots"},        {"duration", "3600"},    {"pre_trigger_ms", "-200"},
        {"spot_steps", "256"},    {"spot_step_ms", "250"}, {"trigger_duration_ms", "2000"},
        {"epochs_mode", "first"}, {"epochs_count", "25"},  {"contrast", "-1"},
        {"color", "0x000000FF"},
    };
    for (const auto& [key, text] : cases) {
        SpectraMacro macro;
        Field(key).set(macro, text);
        EXPECT_EQ(Field(key).get(macro), text) << key;
        EXPECT_FALSE(macro == SpectraMacro()) << key;
    }
}

TEST(MacroFields, ListsReadBackAsTheSameLabels) {
    const std::set<std::string> labels = {"a, b", "c"};
    for (const char* key : {"states", "spots", "reject"}) {
        SpectraMacro macro;
        Field(key).set_list(macro, labels);
        EXPECT_EQ(Field(key).get_list(macro), labels) << key;
    }
}

TEST(MacroFields, ModesAreFoundInAnyCase) {
    SpectraMacro macro;
    Field("mode").set(macro, " States ");
    EXPECT_EQ(macro.GetTimeIntervalSelectMode(), SpectraMacro::TimeIntervalSelectMode::ByStateEvents);
}

TEST(MacroFields, ColoursMayBeDecimal) {
    SpectraMacro macro;
    Field("color").set(macro, "255");
    EXPECT_EQ(macro.Color, 255u);
}

TEST(MacroFields, AWrongValueChangesNothing) {
    SpectraMacro macro;
    EXPECT_THROW(Field("overlap").set(macro, "120"), std::invalid_argument);
    EXPECT_THROW(Field("color").set(macro, "0x"), std::invalid_argument);
    EXPECT_THROW(Field("fft_seconds").set(macro, "0,5"), std::invalid_argument);
    EXPECT_TRUE(macro == SpectraMacro());
}

} // namespace
} // namespace orvanta::spectral
