// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/channels_tsv/channels_table.h"

#include "host/signal_base/recording_error.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace orvanta::signal {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

std::vector<ChannelMark> Read(const std::string& text, std::vector<std::string>* repairs = nullptr) {
    std::vector<std::string> found;
    return ParseChannelsTable(text, "t_channels.tsv", repairs == nullptr ? found : *repairs);
}

std::string Write(const std::string& table, const std::vector<ChannelRow>& rows) {
    return WriteChannelsTable(table, "t_channels.tsv", rows);
}

const ChannelRow kFp1Bad{"EEG Fp1-Ref", "Fp1", "EEG", "uV", true, true};
const ChannelRow kCzGood{"EEG Cz-Ref", "Cz", "EEG", "uV", false, false};

TEST(ParseChannelsTable, FindsGoodAndBadWhateverTheOrderAndTheCase) {
    EXPECT_THAT(Read("STATUS\tname\nbad\tFp1\r\nGood\tF3\nn/a\tCz\n"),
                ElementsAre(ChannelMark{"Fp1", true}, ChannelMark{"F3", false}));
}

TEST(ParseChannelsTable, SaysNothingWithoutAStatus) {
    EXPECT_THAT(Read("name\ttype\nFp1\tEEG\n"), IsEmpty());
}

TEST(ParseChannelsTable, NamesAStatusThatIsNone) {
    std::vector<std::string> repairs;
    EXPECT_THAT(Read("name\tstatus\nFp1\tnoisy\nF3\tbad\n", &repairs), ElementsAre(ChannelMark{"F3", true}));
    EXPECT_THAT(repairs,
                ElementsAre("t_channels.tsv: line 2: status \"noisy\" is neither good nor bad, not used"));
}

TEST(ParseChannelsTable, RefusesWhatHasNoNames) {
    EXPECT_THROW(Read("channel\tstatus\nFp1\tbad\n"), RecordingError);
    EXPECT_THROW(Read(""), RecordingError);
}

TEST(WriteChannelsTable, MakesATableOfAllChannels) {
    EXPECT_EQ(Write("", {kFp1Bad, kCzGood, {"ECG", "ECG", "ECG", "", false, false}}),
              "name\ttype\tunits\tstatus\tstatus_description\n"
              "EEG Fp1-Ref\tEEG\tuV\tbad\tn/a\n"
              "EEG Cz-Ref\tEEG\tuV\tgood\tn/a\n"
              "ECG\tECG\tn/a\tgood\tn/a\n");
}

TEST(WriteChannelsTable, ChangesTheStatusAndNothingElse) {
    EXPECT_EQ(Write("\xEF\xBB\xBFname\tlow_cutoff\tstatus\tstatus_description\r\n"
                    "Cz\t0.1\tbad\tbroken lead\r\n"
                    "eeg fp1-ref\t0.5\tgood\tsweat \r\n"
                    "TRIG\tn/a\tbad\tstuck\tmore\r\n",
                    {kFp1Bad, kCzGood}),
              "\xEF\xBB\xBFname\tlow_cutoff\tstatus\tstatus_description\r\n"
              "Cz\t0.1\tbad\tbroken lead\r\n" // another program marked it meanwhile
              "eeg fp1-ref\t0.5\tbad\tsweat \r\n"
              "TRIG\tn/a\tbad\tstuck\tmore\r\n");
}

TEST(WriteChannelsTable, FindsTheRowByTheShortName) {
    EXPECT_EQ(Write("name\tstatus\nFp1\tgood\n", {kFp1Bad}), "name\tstatus\nFp1\tbad\n");
}

TEST(WriteChannelsTable, AddsTheColumnAndTheRowThatAreMissing) {
    EXPECT_EQ(Write("name\ttype\nCz\tEEG\nPz\n", {kFp1Bad, kCzGood}),
              "name\ttype\tstatus\nCz\tEEG\tn/a\nPz\tn/a\tn/a\nEEG Fp1-Ref\tEEG\tbad\n");
}

TEST(WriteChannelsTable, GivesBackATableInWhichNothingChanged) {
    const std::string table = "name\ttype\nCz\tEEG\n\nPz\n";
    EXPECT_EQ(Write(table, {kCzGood}), table);
}

TEST(WriteChannelsTable, RefusesToOverwriteWhatIsNoChannelsTable) {
    try {
        Write("onset\tduration\n1\t2\n", {kFp1Bad});
        FAIL() << "taken";
    } catch (const RecordingError& error) {
        EXPECT_THAT(error.what(), HasSubstr("no column named \"name\""));
    }
}

} // namespace
} // namespace orvanta::signal
