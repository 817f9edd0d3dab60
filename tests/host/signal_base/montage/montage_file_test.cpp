// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/montage/montage_file.h"

#include "host/signal_base/recording_error.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace orvanta::signal {
namespace {

using Terms = std::vector<MontageTerm>;

std::vector<MontageText> Parse(const std::string& text) {
    return ParseMontages(text, "folder/mine.mtg");
}

/// Terms of the only channel.
Terms TermsOf(const std::string& rightSide) {
    return Parse("a = " + rightSide).at(0).channels.at(0).terms;
}

std::string ReasonOf(const std::string& text) {
    try {
        Parse(text);
    } catch (const RecordingError& error) {
        EXPECT_EQ(error.File(), "folder/mine.mtg");
        return error.Reason();
    }
    return "accepted";
}

TEST(ParseMontages, ReadsOneChannelALine) {
    const std::vector<MontageText> expected = {
        {"mine", {{"Fp1-F3", {{1, "Fp1"}, {-1, "F3"}}, 1}, {"F3-C3", {{1, "F3"}, {-1, "C3"}}, 2}}}};
    EXPECT_EQ(Parse("Fp1-F3 = +Fp1 -F3\nF3-C3 = +F3 -C3\n"), expected);
}

TEST(ParseMontages, NamesTheLineOfAnError) {
    struct Case {
        const char* text;
        std::size_t line;
    };
    for (const Case& wrong : {Case{"a = +Fp1\nb = +Fp1 F3\n", 2}, Case{"\n\nc\n", 3},
                              Case{"a = Fp1\n[b]\n\n[c]\nd = Fp1\n", 2}}) {
        try {
            Parse(wrong.text);
            ADD_FAILURE() << wrong.text;
        } catch (const MontageError& error) {
            EXPECT_EQ(error.Line(), wrong.line) << error.what();
        }
    }
}

TEST(ParseMontages, ReadsWeights) {
    EXPECT_EQ(TermsOf("+Cz -0.5*A1 -0.5*A2"), (Terms{{1, "Cz"}, {-0.5, "A1"}, {-0.5, "A2"}}));
    EXPECT_EQ(TermsOf("2 * Cz - 1e-1 * A1"), (Terms{{2, "Cz"}, {-0.1, "A1"}}));
    EXPECT_THROW(TermsOf("0,25*Cz"), RecordingError);
}

TEST(ParseMontages, TakesTheFirstTermWithoutASign) {
    EXPECT_EQ(TermsOf("Fp1 -F3"), (Terms{{1, "Fp1"}, {-1, "F3"}}));
}

TEST(ParseMontages, AllowsBlanksAfterASign) {
    EXPECT_EQ(TermsOf("+ Fp1\t- F3"), (Terms{{1, "Fp1"}, {-1, "F3"}}));
}

TEST(ParseMontages, KeepsSignsInsideNames) {
    EXPECT_EQ(TermsOf("+Fp1-Ref -EEG-2"), (Terms{{1, "Fp1-Ref"}, {-1, "EEG-2"}}));
}

TEST(ParseMontages, TakesNamesWithBlanksInQuotes) {
    EXPECT_EQ(TermsOf("+\"EEG 001\" -0.5*\"a # b\""), (Terms{{1, "EEG 001"}, {-0.5, "a # b"}}));
}

TEST(ParseMontages, TakesNumbersAsNamesWithoutAStar) {
    EXPECT_EQ(TermsOf("+1 -2"), (Terms{{1, "1"}, {-1, "2"}}));
}

TEST(ParseMontages, LeavesOutCommentsAndBlankLines) {
    const auto montages = Parse("# head\n\n a = +Fp1 # tail\n   # more\nb#1 = +Fp2");
    ASSERT_EQ(montages.at(0).channels.size(), 2u);
    EXPECT_EQ(montages[0].channels[0], (MontageLine{"a", {{1, "Fp1"}}, 3}));
    EXPECT_EQ(montages[0].channels[1], (MontageLine{"b#1", {{1, "Fp2"}}, 5}));
}

TEST(ParseMontages, StartsAMontageAtEachName) {
    const auto montages = Parse("x = +Cz\n[ Left side ]\na = +C3\n[right]\na = +C4\n");
    ASSERT_EQ(montages.size(), 3u);
    EXPECT_EQ(montages[0].name, "mine");
    EXPECT_EQ(montages[1].name, "Left side");
    EXPECT_EQ(montages[2], (MontageText{"right", {{"a", {{1, "C4"}}, 5}}}));
}

TEST(ParseMontages, ReadsCrLfByteOrderMarkAndLatin1) {
    const auto montages = Parse("\xEF\xBB\xBF[m]\r\na = +Fp1\r\n");
    EXPECT_EQ(montages.at(0), (MontageText{"m", {{"a", {{1, "Fp1"}}, 2}}}));
    EXPECT_EQ(Parse("\xE4 = +Fp1").at(0).channels.at(0).label, "ä");
}

TEST(ParseMontages, NamesTheLineOfAFault) {
    EXPECT_EQ(ReasonOf("a = +Fp1\nFp1-F3\n"), "line 2: is no channel");
    EXPECT_EQ(ReasonOf("\n= +Fp1\n"), "line 2: is no channel");
    EXPECT_EQ(ReasonOf("a =\n"), "line 1: the channel has no sensor");
    EXPECT_EQ(ReasonOf("a = +Fp1 F3"), "line 1: no sign before \"F3\"");
    EXPECT_EQ(ReasonOf("a = +"), "line 1: a sensor name is missing");
    EXPECT_EQ(ReasonOf("a = +0.5*"), "line 1: a sensor name is missing");
    EXPECT_EQ(ReasonOf("a = +\"\""), "line 1: a sensor name is missing");
    EXPECT_EQ(ReasonOf("a = +half*A1"), "line 1: \"half\" is no weight");
    EXPECT_EQ(ReasonOf("a = +0*A1"), "line 1: \"0\" is no weight");
    EXPECT_EQ(ReasonOf("a = +nan*A1"), "line 1: \"nan\" is no weight");
    EXPECT_EQ(ReasonOf("a = +\"EEG 001"), "line 1: a quote is not closed");
    EXPECT_EQ(ReasonOf("a = +A1 -A1"), "line 1: sensor \"A1\" occurs twice");
    EXPECT_EQ(ReasonOf("a = +A1\na = +A2"), "line 2: channel \"a\" occurs twice");
}

TEST(ParseMontages, NamesTheLineOfABadMontageName) {
    EXPECT_EQ(ReasonOf("[left\na = +A1"), "line 1: a montage name is missing or not closed");
    EXPECT_EQ(ReasonOf("[]\na = +A1"), "line 1: a montage name is missing or not closed");
    EXPECT_EQ(ReasonOf("["), "line 1: a montage name is missing or not closed");
    EXPECT_EQ(ReasonOf("[x]\na = +A1\n[x]\nb = +A2"), "line 3: montage \"x\" occurs twice");
}

TEST(ParseMontages, RefusesAMontageWithoutChannels) {
    EXPECT_EQ(ReasonOf("a = +A1\n[x]\n[y]\nb = +A2"), "line 2: montage \"x\" has no channel");
    EXPECT_EQ(ReasonOf("[x]\n"), "line 1: montage \"x\" has no channel");
    EXPECT_EQ(ReasonOf(""), "has no channel");
    EXPECT_EQ(ReasonOf("# nothing\n"), "has no channel");
}

} // namespace
} // namespace orvanta::signal
