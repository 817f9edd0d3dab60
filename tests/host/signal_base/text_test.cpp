// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/text.h"

#include "host/signal_base/text_encoding.h"
#include "host/signal_base/units.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace orvanta::signal {
namespace {

struct Encoded {
    std::string utf8;
    bool repaired = false;

    bool operator==(const Encoded&) const = default;
};

Encoded Decode(std::string_view bytes) {
    Encoded result;
    result.utf8 = ToUtf8(bytes, &result.repaired);
    return result;
}

TEST(ToUtf8, KeepsWellFormedText) {
    EXPECT_EQ(Decode("abc"), (Encoded{"abc", false}));
    EXPECT_EQ(Decode("\xC2\xB5V"), (Encoded{"µV", false}));
    EXPECT_EQ(Decode("\xF0\x9F\x98\x80"), (Encoded{"\U0001F600", false}));
    EXPECT_EQ(Decode(""), (Encoded{"", false}));
}

TEST(ToUtf8, DropsAByteOrderMark) {
    EXPECT_EQ(Decode("\xEF\xBB\xBF"
                     "abc"),
              (Encoded{"abc", false}));
}

TEST(ToUtf8, ReadsSingleBytesAsWindows1252) {
    EXPECT_EQ(Decode("\xB5V"), (Encoded{"µV", true}));
    EXPECT_EQ(Decode("M\xFCller"), (Encoded{"Müller", true}));
    EXPECT_EQ(Decode("10 \x80"), (Encoded{"10 €", true}));
    EXPECT_EQ(Decode("\x81"), (Encoded{"\uFFFD", true}));
}

TEST(ToUtf8, ReplacesMalformedBytesOfUtf8) {
    EXPECT_EQ(Decode("\xC3\xBC\xFF"), (Encoded{"ü\uFFFD", true}));
    EXPECT_EQ(Decode("\xC3\xBC\xC3"), (Encoded{"ü\uFFFD", true}));
}

TEST(IsUtf8, RefusesOverlongSurrogateAndTooLarge) {
    EXPECT_FALSE(IsUtf8("\xC0\x80"));
    EXPECT_FALSE(IsUtf8("\xE0\x80\x80"));
    EXPECT_FALSE(IsUtf8("\xED\xA0\x80"));
    EXPECT_FALSE(IsUtf8("\xF4\x90\x80\x80"));
    EXPECT_TRUE(IsUtf8("\xF4\x8F\xBF\xBF"));
}

TEST(Quoted, MakesOneShortLine) {
    EXPECT_EQ(Quoted("a\tb\n"), "\"a b \"");
    EXPECT_EQ(Quoted("\xB5V"), "\"µV\"");
    EXPECT_EQ(Quoted(std::string(41, 'x')), '"' + std::string(40, 'x') + "...\"");
    EXPECT_EQ(Quoted(std::string(39, 'x') + "µµ"), '"' + std::string(39, 'x') + "...\"");
}

TEST(Trim, TakesBlanksAndNulOffBothEnds) {
    using namespace std::string_view_literals;
    EXPECT_EQ(Trim("  a b\t\r\n"), "a b");
    EXPECT_EQ(Trim("Fp1\0\0\0"sv), "Fp1");
    EXPECT_EQ(Trim(" \0 "sv), "");
}

TEST(TakeLine, KnowsEveryLineEnd) {
    std::string_view text = "a\nb\r\nc\rd\n\ne";
    std::vector<std::string> lines;
    while (!text.empty()) {
        lines.emplace_back(TakeLine(text));
    }
    EXPECT_EQ(lines, (std::vector<std::string>{"a", "b", "c", "d", "", "e"}));
}

TEST(ParseNumber, ReadsDecimals) {
    EXPECT_EQ(ParseNumber(" 0.5 "), 0.5);
    EXPECT_EQ(ParseNumber("+1e-3"), 0.001);
    EXPECT_EQ(ParseNumber("-7"), -7.0);
}

TEST(ParseNumber, RefusesWhatIsNoFiniteNumber) {
    for (const char* text :
         {"", " ", "n/a", "1 2", "1,000.5", "1,2,3", "0,5", "nan", "inf", "1e999", "+-1", "++1", "0x10"}) {
        EXPECT_EQ(ParseNumber(text), std::nullopt) << text;
    }
}

TEST(ParseNumberOrComma, TellsWhetherThereWasAComma) {
    EXPECT_EQ(ParseNumberOrComma(" -0,5 ")->value, -0.5);
    EXPECT_TRUE(ParseNumberOrComma("0,5")->comma);
    EXPECT_EQ(ParseNumberOrComma("0.5")->value, 0.5);
    EXPECT_FALSE(ParseNumberOrComma("0.5")->comma);
    for (const char* text : {"", "1,000.5", "1,2,3", "a,b"}) {
        EXPECT_FALSE(ParseNumberOrComma(text)) << text;
    }
}

TEST(ParseWhole, RefusesFractionsAndOverflow) {
    EXPECT_EQ(ParseWhole(" +12 "), 12);
    EXPECT_EQ(ParseWhole("-1"), -1);
    for (const char* text : {"", "1.5", "99999999999999999999", "12a"}) {
        EXPECT_EQ(ParseWhole(text), std::nullopt) << text;
    }
}

TEST(NormalUnit, WritesEverySpellingOfMicrovoltOneWay) {
    for (const char* unit : {"uV", "UV", "uv", " µV ", "\u03BCV", "µv", "microvolt", "MicroVolts", "micro V",
                             "\u00C2\u00B5V", "\uFFFDV", "?V", "muV", "mcV", "mkV", "\u00E6V", "\u00C2V"}) {
        EXPECT_EQ(NormalUnit(unit), "\u00B5V") << unit;
    }
}

TEST(NormalUnit, KnowsTheOtherVoltages) {
    EXPECT_EQ(NormalUnit("V"), "V");
    EXPECT_EQ(NormalUnit("volts"), "V");
    EXPECT_EQ(NormalUnit("mv"), "mV");
    EXPECT_EQ(NormalUnit("MV"), "mV");
    EXPECT_EQ(NormalUnit("nV"), "nV");
}

TEST(NormalUnit, LeavesOtherUnitsAsTheyAre) {
    for (const char* unit : {"", "mmHg", "%", "µS", "C", "kV", "uV/Hz"}) {
        EXPECT_EQ(NormalUnit(unit), unit);
    }
}

TEST(MicrovoltsPer, KnowsVoltagesOnly) {
    EXPECT_EQ(MicrovoltsPer("V"), 1e6);
    EXPECT_EQ(MicrovoltsPer("mV"), 1e3);
    EXPECT_EQ(MicrovoltsPer("µV"), 1.0);
    EXPECT_EQ(MicrovoltsPer("nV"), 1e-3);
    EXPECT_EQ(MicrovoltsPer(""), std::nullopt);
    EXPECT_EQ(MicrovoltsPer("%"), std::nullopt);
}

} // namespace
} // namespace orvanta::signal
