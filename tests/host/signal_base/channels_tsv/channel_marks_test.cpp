// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/channels_tsv/channel_marks.h"

#include "host/signal_base/recording.h"
#include "tests/support/edf_file.h"
#include "tests/support/small_recording.h"
#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

namespace orvanta::signal {
namespace {

using testing::Contains;
using testing::HasSubstr;

/// Fp1 and Fp2 on the disk.
class ChannelMarksFile : public testing::Test {
protected:
    std::unique_ptr<EEGFileInfoType> Open() {
        return OpenRecording(folder.Write("night_eeg.edf", test::PlainEdf(4).Bytes()));
    }
    std::string Table() const { return folder.Path("night_channels.tsv"); }

    test::TempFolder folder;
};

TEST_F(ChannelMarksFile, StandsBesideTheRecordingAsBidsNamesIt) {
    EXPECT_EQ(ChannelsTableOf("/data/sub-01_task-rest_eeg.edf"), "/data/sub-01_task-rest_channels.tsv");
    EXPECT_EQ(ChannelsTableOf("/data/night.bdf"), "/data/night_channels.tsv");
    EXPECT_EQ(ChannelsTableOf(""), "");
}

TEST_F(ChannelMarksFile, ComesBackWhenTheRecordingIsOpenedAgain) {
    const auto recording = Open();
    const ChannelMarks before = MarksOf(*recording);
    test::SensorOf(*recording, "Fp2")->SetBad(true);
    SaveChannelMarks(*recording, before);
    EXPECT_EQ(folder.Read("night_channels.tsv"), "name\ttype\tunits\tstatus\tstatus_description\n"
                                                 "Fp1\tEEG\tµV\tgood\tn/a\n"
                                                 "Fp2\tEEG\tµV\tbad\tn/a\n");
    const auto again = Open();
    EXPECT_TRUE(test::SensorOf(*again, "Fp2")->IsBad());
    EXPECT_FALSE(test::SensorOf(*again, "Fp1")->IsBad());
    EXPECT_THAT(again->GetRecording()->Repairs(), Contains("night_channels.tsv: bad and not analysed: Fp2"));
}

TEST_F(ChannelMarksFile, IsNotMadeWithoutAChange) {
    const auto recording = Open();
    SaveChannelMarks(*recording, MarksOf(*recording));
    EXPECT_FALSE(std::filesystem::exists(Table()));
}

TEST_F(ChannelMarksFile, KeepsWhatAnotherProgramMarkedMeanwhile) {
    const auto recording = Open();
    const ChannelMarks before = MarksOf(*recording);
    folder.Write("night_channels.tsv", "name\tstatus\nFp1\tbad\nFp2\tgood\n");
    test::SensorOf(*recording, "Fp2")->SetBad(true);
    SaveChannelMarks(*recording, before);
    EXPECT_EQ(folder.Read("night_channels.tsv"), "name\tstatus\nFp1\tbad\nFp2\tbad\n");
}

TEST_F(ChannelMarksFile, ThatMakesNoSenseIsToldAndNeverOverwritten) {
    folder.Write("night_channels.tsv", "this is a letter");
    const auto recording = Open();
    EXPECT_THAT(recording->GetRecording()->Repairs(), Contains(HasSubstr("channels table left out: ")));
    const ChannelMarks before = MarksOf(*recording);
    test::SensorOf(*recording, "Fp2")->SetBad(true);
    EXPECT_THROW(SaveChannelMarks(*recording, before), std::runtime_error);
    EXPECT_EQ(folder.Read("night_channels.tsv"), "this is a letter");
}

TEST_F(ChannelMarksFile, MarksByAnyNameOfAChannelAndLeavesOutOthers) {
    const auto recording = test::SmallRecording();
    const std::vector<ChannelMark> marks{
        {"fp1", true}, {"Cz", true}, {"Cz", false}, {"no such channel", true}};
    MarkChannels(*recording, marks);
    EXPECT_TRUE(test::SensorOf(*recording, "Fp1")->IsBad());
    EXPECT_FALSE(test::SensorOf(*recording, "F3")->IsBad());
    EXPECT_FALSE(test::SensorOf(*recording, "Cz")->IsBad());
}

TEST_F(ChannelMarksFile, TakesBadElectrodesOutOfTheAverageFromTheStart) {
    test::EdfFile file = test::PlainEdf(4);
    file.signals.push_back(file.signals[0]);
    file.signals.back().label = "Cz";
    folder.Write("three_channels.tsv", "name\tstatus\nCz\tbad\n");
    const auto recording = OpenRecording(folder.Write("three.edf", file.Bytes()));
    const MontageList& list = *recording->GetMontageList();
    const auto average = std::find_if(list.begin(), list.end(), [](const auto& montage) {
        return montage->GetKind() == MontageType::Kind::AverageReference;
    });
    ASSERT_NE(average, list.end());
    EXPECT_THAT((*average)->GetChn(0)->GetCommonAverage(),
                testing::ElementsAre(test::SensorOf(*recording, "Fp1"), test::SensorOf(*recording, "Fp2")));
}

} // namespace
} // namespace orvanta::signal
