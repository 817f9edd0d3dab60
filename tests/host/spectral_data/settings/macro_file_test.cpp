// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/settings/event_context.h"
#include "host/spectral_data/settings/macro_file.h"
#include "spectra_contract/events.h"
#include "spectra_contract/spectra_macro.h"
#include "tests/support/temp_folder.h"
#include "tests/support/xml_schema.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace orvanta::spectral {
namespace {

using Mode = SpectraMacro::TimeIntervalSelectMode;
using EpochsMode = SpectraMacro::EpochsSelectionMode;

SpectraMacro EveryFieldChanged() {
    SpectraMacro macro;
    macro.SetFFTSeconds(0.1 + 0.2); // 0.30000000000000004 needs all its digits
    macro.SetOverlapPerc(75);
    macro.SetDSPWindowStr("Flat Top");
    macro.SetTimeIntervalSelectMode(Mode::BySpotEvents);
    macro.SetFixedDurationSec(4294967295u);
    macro.SetPreTriggerMS(-536870911);
    macro.SetTrgDurationMS(536870911);
    macro.SetAcceptStateList({"eyes closed", " ", "<&>\"'", "a\nb\r\tc"});
    macro.SetAcceptSpotList({"µ", "flash"});
    macro.SetRejectEventsList({"bad blink"});
    macro.SetEpochsSelMode(EpochsMode::RandomN);
    macro.SetNumEpochsToUse(1000000000000);
    macro.SetContrastValue(-2147483647 - 1);
    macro.SpotStepCount = 256;
    macro.SpotStepInc = 32000;
    macro.Color = 0x00123456;
    return macro;
}

/// A macro file with these elements.
std::string File(const std::string& elements) {
    return "<spectra_macro version=\"1\">\n" + elements + "\n</spectra_macro>\n";
}

/// Why the content is refused; empty when it is read.
std::string Refusal(const std::string& content) {
    try {
        ParseMacroFile("m.smx", content);
        return {};
    } catch (const std::runtime_error& error) {
        return error.what();
    }
}

TEST(MacroFile, HasOneElementPerField) {
    SpectraMacro macro;
    macro.SetAcceptStateList({"eyes closed"});
    EXPECT_EQ(FormatMacroFile(macro), R"(<?xml version="1.0" encoding="UTF-8"?>
<spectra_macro version="1">
  <fft_seconds>2</fft_seconds>
  <overlap>50</overlap>
  <window>Hanning</window>
  <mode>all</mode>
  <duration>60</duration>
  <states>
    <label>eyes closed</label>
  </states>
  <spots>
  </spots>
  <reject>
  </reject>
  <pre_trigger_ms>0</pre_trigger_ms>
  <trigger_duration_ms>1000</trigger_duration_ms>
  <spot_steps>1</spot_steps>
  <spot_step_ms>1</spot_step_ms>
  <epochs_mode>all</epochs_mode>
  <epochs_count>10</epochs_count>
  <contrast>0</contrast>
  <color>0x00FF0000</color>
</spectra_macro>
)");
}

TEST(MacroFile, ReadsBackEveryField) {
    const SpectraMacro macro = EveryFieldChanged();
    EXPECT_TRUE(ParseMacroFile("m.smx", FormatMacroFile(macro)) == macro);
}

TEST(MacroFile, MissingFieldsKeepTheirDefault) {
    SpectraMacro expected;
    expected.SetOverlapPerc(25);
    EXPECT_TRUE(ParseMacroFile("m.smx", File("<overlap>25</overlap>")) == expected);
}

TEST(MacroFile, UnknownElementsAreIgnored) {
    EXPECT_TRUE(ParseMacroFile("m.smx", File("<future><overlap>1</overlap></future><!-- x --><a/>")) ==
                SpectraMacro());
}

TEST(MacroFile, BlanksAroundAValueDoNotMatter) {
    EXPECT_EQ(ParseMacroFile("m.smx", File("<overlap>\n 25 </overlap>")).GetOverlapPerc(), 25u);
}

TEST(MacroFile, WritesStepsOutsideTheirRangeAsTheNearestInside) {
    SpectraMacro macro;
    macro.SpotStepCount = 0;
    macro.SpotStepInc = 4294967295u;
    const SpectraMacro read = ParseMacroFile("m.smx", FormatMacroFile(macro));
    EXPECT_EQ(read.SpotStepCount, 1u);
    EXPECT_EQ(read.SpotStepInc, 32000u);
}

TEST(MacroFile, LabelsThatXmlCannotHoldGetReplacementCharacters) {
    SpectraMacro macro;
    macro.SetRejectEventsList({std::string("a\x01") + "b", "bl\xE9 \xC3\xA9"});
    EXPECT_EQ(ParseMacroFile("m.smx", FormatMacroFile(macro)).GetRejectEventsList(),
              std::set<std::string>({"a\uFFFDb", "bl\uFFFD \u00E9"}));
}

TEST(MacroFile, RefusesWhatIsNoMacroFile) {
    const std::string remedy = " (restore the file from a copy or make a new one)";
    EXPECT_EQ(Refusal(""), "m.smx: line 1: no well-formed XML: No document element found" + remedy);
    EXPECT_EQ(Refusal("<spectra_macro version=\"1\">\n<overlap>"),
              "m.smx: line 2: no well-formed XML: Start-end tags mismatch" + remedy);
    EXPECT_EQ(Refusal("<settings/>"), "m.smx: no macro file (choose a file with the extension .smx)");
    EXPECT_EQ(Refusal("<spectra_macro/>"), "m.smx: line 1: no version" + remedy);
    EXPECT_EQ(Refusal("<spectra_macro version=\"x\"/>"), "m.smx: line 1: no version" + remedy);
    EXPECT_EQ(Refusal("<spectra_macro version=\"0\"/>"), "m.smx: line 1: no version" + remedy);
}

TEST(MacroFile, RefusesAFileFromANewerVersion) {
    EXPECT_EQ(Refusal("<spectra_macro version=\"2\"/>"),
              "m.smx: line 1: from a newer version (macro file version 2, known is 1) (update this program)");
}

TEST(MacroFile, RefusesAFieldThatIsThereTwice) {
    EXPECT_EQ(Refusal(File("<overlap>1</overlap>\n<overlap>2</overlap>")),
              "m.smx: line 3: overlap is there twice (remove one of them)");
}

TEST(MacroFile, RefusesValuesOutOfRangeAndNamesThem) {
    const std::pair<const char*, const char*> cases[] = {
        {"<fft_seconds>0</fft_seconds>", "fft_seconds: a number above 0 and at most 3600 is needed"},
        {"<fft_seconds>nan</fft_seconds>", "fft_seconds: a number above 0 and at most 3600 is needed"},
        {"<fft_seconds>1e9</fft_seconds>", "fft_seconds: a number above 0 and at most 3600 is needed"},
        {"<overlap>100</overlap>", "overlap: a whole number from 0 to 99 is needed"},
        {"<overlap>5 0</overlap>", "overlap: a whole number from 0 to 99 is needed"},
        {"<window> </window>", "window: the name of a window function is needed"},
        {"<mode>some</mode>", "mode: one of all, duration, states, spots is needed"},
        {"<duration>-1</duration>", "duration: a whole number from 0 to 4294967295 is needed"},
        {"<pre_trigger_ms>2147483648</pre_trigger_ms>",
         "pre_trigger_ms: a whole number from -2147483648 to 2147483647 is needed"},
        {"<trigger_duration_ms/>",
         "trigger_duration_ms: a whole number from -2147483648 to 2147483647 is needed"},
        {"<spot_steps>257</spot_steps>", "spot_steps: a whole number from 1 to 256 is needed"},
        {"<spot_step_ms>0</spot_step_ms>", "spot_step_ms: a whole number from 1 to 32000 is needed"},
        {"<epochs_mode>2</epochs_mode>", "epochs_mode: one of all, first, random is needed"},
        {"<epochs_count>0</epochs_count>", "epochs_count: a whole number from 1 to 1000000000000 is needed"},
        {"<contrast>1.5</contrast>", "contrast: a whole number from -2147483648 to 2147483647 is needed"},
        {"<color>0x01000000</color>", "color: a colour from 0x00000000 to 0x00FFFFFF (0x00BBGGRR) is needed"},
    };
    for (const auto& [element, reason] : cases) {
        EXPECT_EQ(Refusal(File(element)), std::string("m.smx: line 2: ") + reason + " (correct the value)");
    }
}

TEST(MacroFile, RefusesTooManyLabels) {
    std::string list;
    for (int i = 0; i <= 10000; ++i) {
        list += "<label>" + std::to_string(i) + "</label>";
    }
    EXPECT_EQ(Refusal(File("<states>" + list + "</states>")),
              "m.smx: line 2: more than 10000 labels (shorten the list)");
}

TEST(MacroFile, RefusesTooLongALabel) {
    EXPECT_EQ(Refusal(File("<spots><label>" + std::string(4097, 'x') + "</label></spots>")),
              "m.smx: line 2: a text of more than 4096 bytes (shorten it)");
}

TEST(MacroFile, EntitiesAreNotExpanded) {
    const std::string bomb = "<!DOCTYPE s [<!ENTITY a \"aaaaaaaaaa\"><!ENTITY b \"&a;&a;&a;\">]>\n";
    const SpectraMacro macro = ParseMacroFile("m.smx", bomb + File("<states><label>&b;</label></states>"));
    EXPECT_EQ(macro.GetAcceptStateList(), std::set<std::string>({"&b;"}));
}

class MacroLoading : public testing::Test {
protected:
    std::string SmxWith(const std::string& elements) { return folder_.Write("m.smx", File(elements)); }

    test::TempFolder folder_;
    SpectraMacro macro_;
};

TEST_F(MacroLoading, SaveAsAndLoadGiveTheSameSettings) {
    SpectraMacro original = EveryFieldChanged();
    EXPECT_EQ(original.SaveAs(folder_.Path("a.smx")), 0);
    EXPECT_TRUE(test::MatchesSchema(folder_.Path("a.smx"), "macro.xsd"));
    EXPECT_EQ(macro_.Load(folder_.Path("a.smx")), 0);
    EXPECT_TRUE(macro_ == original);
    EXPECT_EQ(macro_.GetFileName(), folder_.Path("a.smx"));
    EXPECT_EQ(macro_.GetLastError(), "");
}

TEST_F(MacroLoading, TheDefaultsMatchTheSchema) {
    EXPECT_EQ(macro_.SaveAs(folder_.Path("a.smx")), 0);
    EXPECT_TRUE(test::MatchesSchema(folder_.Path("a.smx"), "macro.xsd"));
}

TEST_F(MacroLoading, TheSchemaRefusesWhatLoadingRefuses) {
    for (const char* element :
         {"<overlap>100</overlap>", "<mode>some</mode>", "<color>1</color>", "<fft_seconds>NaN</fft_seconds>",
          "<contrast>1</contrast><contrast>1</contrast>"}) {
        EXPECT_FALSE(test::MatchesSchema(SmxWith(element), "macro.xsd")) << element;
    }
}

TEST_F(MacroLoading, SaveWritesTheFileOfTheLastSaveOrLoad) {
    EXPECT_EQ(macro_.SaveAs(folder_.Path("a.smx")), 0);
    macro_.SetOverlapPerc(10);
    EXPECT_EQ(macro_.Save(), 0);
    SpectraMacro other;
    EXPECT_EQ(other.Load(folder_.Path("a.smx")), 0);
    EXPECT_EQ(other.GetOverlapPerc(), 10u);
    other.SetOverlapPerc(20);
    EXPECT_EQ(other.Save(), 0);
    EXPECT_EQ(macro_.Load(folder_.Path("a.smx")), 0);
    EXPECT_EQ(macro_.GetOverlapPerc(), 20u);
}

TEST_F(MacroLoading, SaveWithoutAFileDoesNothing) {
    EXPECT_NE(macro_.Save(), 0);
    EXPECT_EQ(macro_.GetLastError(), "the settings have no file yet (save them under a name)");
}

TEST_F(MacroLoading, AFailedSaveAsKeepsTheFileName) {
    EXPECT_EQ(macro_.SaveAs(folder_.Path("a.smx")), 0);
    EXPECT_NE(macro_.SaveAs(folder_.Path("none/b.smx")), 0);
    EXPECT_EQ(macro_.GetLastError(), folder_.Path("none/b.smx") +
                                         ": cannot be written: No such file or directory (choose a folder "
                                         "that exists)");
    EXPECT_EQ(macro_.GetFileName(), folder_.Path("a.smx"));
}

TEST_F(MacroLoading, WhatCouldNotBeReadAgainIsNotSaved) {
    EXPECT_EQ(macro_.SaveAs(folder_.Path("a.smx")), 0);
    const std::string before = folder_.Read("a.smx");
    macro_.SetRejectEventsList({std::string(5000, 'x')});
    EXPECT_NE(macro_.Save(), 0);
    EXPECT_EQ(folder_.Read("a.smx"), before);
}

TEST_F(MacroLoading, AFailedLoadLeavesNoFileToSaveInto) {
    EXPECT_EQ(macro_.SaveAs(folder_.Path("a.smx")), 0);
    const std::string before = folder_.Read("a.smx");
    EXPECT_EQ(macro_.Load(folder_.Path("none.smx")), 2);
    macro_.SetOverlapPerc(10);
    EXPECT_NE(macro_.Save(), 0);
    EXPECT_EQ(folder_.Read("a.smx"), before);
}

TEST_F(MacroLoading, UnreadableFilesChangeNoSettings) {
    macro_.SetOverlapPerc(33);
    EXPECT_EQ(macro_.SaveAs(folder_.Path("a.smx")), 0);
    EXPECT_EQ(macro_.Load(SmxWith("<overlap>10</overlap><color>red</color>")), 2);
    EXPECT_EQ(macro_.GetOverlapPerc(), 33u);
    EXPECT_EQ(macro_.GetFileName(), "");
    EXPECT_EQ(macro_.GetLastError(),
              folder_.Path("m.smx") +
                  ": line 2: color: a colour from 0x00000000 to 0x00FFFFFF (0x00BBGGRR) is needed "
                  "(correct the value)");
    EXPECT_EQ(macro_.Load(folder_.Path("none.smx")), 2);
    EXPECT_EQ(macro_.Load(folder_.Path("")), 2);
    EXPECT_EQ(macro_.Load(""), 2);
}

TEST_F(MacroLoading, AHugeFileIsRefusedWithoutReadingIt) {
    const std::string path = folder_.Write("huge.smx", "");
    std::filesystem::resize_file(path, std::uintmax_t{1} << 40);
    EXPECT_EQ(macro_.Load(path), 2);
    EXPECT_EQ(macro_.GetLastError().find('\n'), std::string::npos);
    EXPECT_TRUE(macro_.GetLastError().starts_with(path + ": "));
}

TEST_F(MacroLoading, SelectionsThatMatchNoEventFallBackToAllOfTheRecording) {
    EventsManager events(256);
    events.Add({"eyes closed", EventClass::State, {XTime::FromSeconds(1), XTime::FromSeconds(2)}});
    events.Add({"flash", EventClass::Spot, {XTime::FromSeconds(1), XTime::FromSeconds(1)}});
    const MacroEventContext context(&events);
    struct Case {
        const char* elements;
        int result;
        Mode mode;
    };
    const Case cases[] = {
        {"<mode>states</mode><states><label>eyes closed</label><label>x</label></states>", 0,
         Mode::ByStateEvents},
        {"<mode>states</mode><states><label>eyes open</label></states>", 1, Mode::AllRecording},
        {"<mode>states</mode><states><label>flash</label></states>", 1, Mode::AllRecording},
        {"<mode>states</mode>", 1, Mode::AllRecording},
        {"<mode>spots</mode><spots><label>flash</label></spots>", 0, Mode::BySpotEvents},
        {"<mode>spots</mode><spots><label>Flash</label></spots>", 1, Mode::AllRecording},
        {"<mode>duration</mode><states><label>eyes open</label></states>", 0, Mode::ByDuration},
    };
    for (const Case& item : cases) {
        EXPECT_EQ(macro_.Load(SmxWith(item.elements)), item.result) << item.elements;
        EXPECT_EQ(macro_.GetTimeIntervalSelectMode(), item.mode) << item.elements;
        EXPECT_EQ(macro_.GetLastError(), "") << item.elements;
    }
}

TEST_F(MacroLoading, WithoutARecordingNoSelectionIsChecked) {
    EXPECT_EQ(macro_.Load(SmxWith("<mode>states</mode><states><label>eyes open</label></states>")), 0);
    EXPECT_EQ(macro_.GetTimeIntervalSelectMode(), Mode::ByStateEvents);
}

TEST_F(MacroLoading, TheContextIsWhatWasOfferedLastOfTheLiving) {
    const EventsManager first(1);
    const EventsManager second(1);
    {
        const MacroEventContext early(&first);
        {
            const MacroEventContext late(&second);
            const MacroEventContext nothing(nullptr);
            EXPECT_EQ(GetMacroEventContext(), &second);
        }
        EXPECT_EQ(GetMacroEventContext(), &first);
    }
    EXPECT_EQ(GetMacroEventContext(), nullptr);
}

} // namespace
} // namespace orvanta::spectral
