// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/montage/montage_file.h"
#include "host/signal_base/recording.h"
#include "host/signal_base/recording_error.h"
#include "tests/support/memory_source.h"
#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace orvanta::signal {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const std::vector<std::string> kOldTenTwenty = {"Fp1", "Fp2", "F3", "F4", "C3", "C4", "P3", "P4", "O1", "O2",
                                                "F7",  "F8",  "T3", "T4", "T5", "T6", "Fz", "Cz", "Pz"};

std::unique_ptr<EEGFileInfoType> Open(const std::vector<std::string>& labels) {
    std::vector<test::MadeSignal> signals;
    for (const std::string& label : labels) {
        signals.push_back({label, 10, std::vector<double>(10)});
    }
    return MakeRecording(test::MakeData(signals));
}

std::vector<std::string> Channels(const MontageType* montage) {
    std::vector<std::string> names;
    if (montage != nullptr) {
        for (auto channel = montage->BeginChn(); channel != montage->EndChn(); ++channel) {
            names.push_back((*channel)->GetName());
        }
    }
    return names;
}

std::vector<std::string> Montages(const EEGFileInfoType& file) {
    std::vector<std::string> names;
    for (const auto& montage : *file.GetMontageList()) {
        names.push_back(montage->GetName());
    }
    return names;
}

TEST(Montages, AreListedInOneOrder) {
    EXPECT_THAT(Montages(*Open(kOldTenTwenty)),
                ElementsAre("As recorded", "Longitudinal bipolar", "Transverse bipolar", "Average reference",
                            "Reference Cz"));
}

TEST(Montages, RecordedEarsAndMastoidsGiveLinkedReferences) {
    const auto file = Open({"C3", "C4", "A1", "A2", "M1", "M2"});
    EXPECT_THAT(Channels(file->GetMontageList()->Find("linked ears")),
                ElementsAre("C3-A1A2", "C4-A1A2", "M1-A1A2", "M2-A1A2"));
    const ChnType& channel = *file->GetMontageList()->Find("Linked mastoids")->GetChn(0);
    const auto& sensors = file->GetRecording()->Sensors();
    EXPECT_THAT(channel.GetTerms(),
                ElementsAre(ChannelTerm{sensors[0].get(), 1}, ChannelTerm{sensors[4].get(), -0.5},
                            ChannelTerm{sensors[5].get(), -0.5}));
}

TEST(Montages, AnOpenedRecordingShowsItAsRecorded) {
    const auto file = Open(kOldTenTwenty);
    EXPECT_EQ(file->GetMontageList()->GetCurrentIndex(), 0U);
    EXPECT_EQ(file->GetTraceInfo()->GetMtg(), *file->GetMontageList()->GetUniMtg());
}

TEST(AsRecorded, HasEveryEegSensorWithItsReference) {
    const auto file = Open({"C3-M2", "C4-M1", "ECG", "EEG Cz-Ref"});
    EXPECT_THAT(Channels(file->GetMontageList()->GetUniMtg()), ElementsAre("C3-M2", "C4-M1", "Cz"));
    EXPECT_EQ(file->GetMontageList()->GetUniMtg()->GetChn(0)->GetLabelPos(), "C3");
}

TEST(Longitudinal, FollowsTheDoubleBananaWithTheNamesOfTheRecording) {
    EXPECT_THAT(Channels(Open(kOldTenTwenty)->GetMontageList()->Find("Longitudinal bipolar")),
                ElementsAre("Fp1-F7", "F7-T3", "T3-T5", "T5-O1", "Fp1-F3", "F3-C3", "C3-P3", "P3-O1", "Fz-Cz",
                            "Cz-Pz", "Fp2-F4", "F4-C4", "C4-P4", "P4-O2", "Fp2-F8", "F8-T4", "T4-T6",
                            "T6-O2"));
}

TEST(Longitudinal, LinksAcrossOneMissingElectrode) {
    EXPECT_THAT(
        Channels(Open({"Fp1", "T7", "O1", "C3", "Cz"})->GetMontageList()->Find("Longitudinal bipolar")),
        ElementsAre("Fp1-T7", "T7-O1", "Fp1-C3", "C3-O1"));
}

TEST(Longitudinal, EndsAChainAtALargerGap) {
    EXPECT_THAT(Channels(Open({"Fp1", "P7", "O1"})->GetMontageList()->Find("Longitudinal bipolar")),
                ElementsAre("P7-O1"));
}

TEST(Transverse, RunsFromLeftToRight) {
    EXPECT_THAT(Channels(Open(kOldTenTwenty)->GetMontageList()->Find("Transverse bipolar")),
                ElementsAre("F7-Fp1", "Fp1-Fp2", "Fp2-F8", "F7-F3", "F3-Fz", "Fz-F4", "F4-F8", "T3-C3",
                            "C3-Cz", "Cz-C4", "C4-T4", "T5-P3", "P3-Pz", "Pz-P4", "P4-T6", "T5-O1", "O1-O2",
                            "O2-T6"));
}

TEST(Bipolar, IsLeftOutWithoutNeighbours) {
    EXPECT_THAT(Montages(*Open({"Foo", "Bar"})),
                ElementsAre("As recorded", "Average reference", "Reference Foo"));
}

TEST(AverageReference, SubtractsTheMeanOfAllElectrodes) {
    const auto file = Open({"C3", "ECG", "C4", "A1"});
    const MontageType& montage = *file->GetMontageList()->Find("Average reference");
    EXPECT_THAT(Channels(&montage), ElementsAre("C3-Avg", "C4-Avg", "A1-Avg"));
    const auto& sensors = file->GetRecording()->Sensors();
    EXPECT_THAT(montage.GetChn(0)->GetTerms(), ElementsAre(ChannelTerm{sensors[0].get(), 1}));
    EXPECT_THAT(montage.GetChn(0)->GetCommonAverage(),
                ElementsAre(sensors[0].get(), sensors[2].get(), sensors[3].get()));
    EXPECT_EQ(montage.GetChn(0)->GetElectrodes().first, nullptr);
}

TEST(AverageReference, LeavesBadElectrodesOutOnceItIsChosenAgain) {
    const auto file = Open({"C3", "C4", "Cz"});
    const auto& sensors = file->GetRecording()->Sensors();
    sensors[1]->SetBad(true);
    ASSERT_TRUE(file->ChangeMntg(2, true));
    const MontageType& montage = file->GetTraceInfo()->GetMtg();
    ASSERT_EQ(montage.GetName(), "Average reference");
    EXPECT_EQ(montage.GetNumTraces(), 3U);
    EXPECT_THAT(montage.GetChn(0)->GetCommonAverage(), ElementsAre(sensors[0].get(), sensors[2].get()));
}

/// Electrodes whose mean the first channel of the montage in use lacks.
std::vector<std::string> Averaged(const EEGFileInfoType& file) {
    std::vector<std::string> names;
    for (const SensorType* sensor : file.GetTraceInfo()->GetMtg().GetChn(0)->GetCommonAverage()) {
        names.push_back(sensor->GetName());
    }
    return names;
}

SensorList SensorsOf(const EEGFileInfoType& file, const std::vector<std::string>& names) {
    SensorList sensors;
    for (const std::string& name : names) {
        sensors.push_back(file.GetTraceInfo()->FindSensor(name));
    }
    return sensors;
}

TEST(AverageReference, IsThatOfTheChosenElectrodesInWhateverOrder) {
    const auto file = Open({"C3", "C4", "Cz", "ECG"});
    file->SetAverageElectrodes(SensorsOf(*file, {"Cz", "C3", "ECG"}));
    ASSERT_TRUE(file->ChangeMntg(2, true));
    EXPECT_THAT(Averaged(*file), ElementsAre("C3", "Cz"));
    EXPECT_THAT(Channels(&file->GetTraceInfo()->GetMtg()), ElementsAre("C3-Avg", "C4-Avg", "Cz-Avg"));
}

TEST(AverageReference, ChangesWhereItIsInUse) {
    const auto file = Open({"C3", "C4", "Cz"});
    file->ChangeMntg(2, false);
    const MontageType before = file->GetTraceInfo()->GetMtg();
    file->SetAverageElectrodes(SensorsOf(*file, {"C3", "C4"}));
    EXPECT_THAT(Averaged(*file), ElementsAre("C3", "C4"));
    EXPECT_FALSE(file->GetTraceInfo()->GetMtg() == before) << "or analyses would not notice";
    file->SetAverageElectrodes({});
    EXPECT_TRUE(file->GetTraceInfo()->GetMtg() == before);
}

TEST(AverageReference, LeavesAnotherMontageInUseAlone) {
    const auto file = Open({"C3", "C4", "Cz"});
    file->SetAverageElectrodes(SensorsOf(*file, {"C3", "C4"}));
    EXPECT_EQ(file->GetTraceInfo()->GetMtg().GetName(), "As recorded");
}

TEST(AverageReference, IsThatOfAllWhenFewerThanTwoOfTheChosenAreGood) {
    const auto file = Open({"C3", "C4", "Cz"});
    file->SetAverageElectrodes(SensorsOf(*file, {"C3", "C4"}));
    file->GetTraceInfo()->FindSensor("C3")->SetBad(true);
    file->ChangeMntg(2, false);
    EXPECT_THAT(Averaged(*file), ElementsAre("C4", "Cz"));
    file->GetTraceInfo()->FindSensor("C3")->SetBad(false);
    file->ChangeMntg(2, false);
    EXPECT_THAT(Averaged(*file), ElementsAre("C3", "C4")) << "the choice is not forgotten";
}

MontageType UserMontage(const EEGFileInfoType& file, const std::string& name, const std::string& channel) {
    const std::string text = "[" + name + "]\n" + channel + "\n";
    return MakeUserMontage(ParseMontages(text, "f").at(0), "f", *file.GetTraceInfo());
}

TEST(UserMontages, AreReplacedAllAtOnceBehindTheOthers) {
    const auto file = Open({"Foo", "Bar"});
    MontageList& list = *file->GetMontageList();
    list.Add(UserMontage(*file, "old", "a = Foo"));
    std::vector<MontageType> montages;
    montages.push_back(UserMontage(*file, "new", "a = Foo"));
    montages.push_back(UserMontage(*file, "as recorded", "b = Bar"));
    list.ReplaceUser(std::move(montages));
    EXPECT_THAT(Montages(*file), ElementsAre("As recorded", "Average reference", "Reference Foo", "new",
                                             "as recorded (user)"));
}

TEST(UserMontages, StayCurrentByTheirNameElseAsRecordedBecomesCurrent) {
    const auto file = Open({"Foo", "Bar"});
    MontageList& list = *file->GetMontageList();
    list.Add(UserMontage(*file, "one", "a = Foo"));
    list.SetCurrentIndex(list.Add(UserMontage(*file, "two", "a = Foo")));
    std::vector<MontageType> montages;
    montages.push_back(UserMontage(*file, "Two", "a = Bar"));
    list.ReplaceUser(std::move(montages));
    EXPECT_EQ(list.GetCurrentIndex(), 3U);
    EXPECT_EQ(list.Get(3)->GetName(), "Two");
    list.ReplaceUser({});
    EXPECT_EQ(list.GetCurrentIndex(), 0U);
    EXPECT_EQ(list.Size(), 3U);
}

TEST(UserMontages, AreWrittenAsTheyAreRead) {
    const auto file = Open({"Fp1", "A1", "A2", "EEG 1"});
    const std::string text = "Cz-A = +Fp1 -0.5*A1 -0.25*A2\nother = -\"EEG 1\" +2*A1\n";
    const MontageType montage = MakeUserMontage(ParseMontages(text, "f").at(0), "f", *file->GetTraceInfo());
    EXPECT_EQ(FormatMontage(montage), text);
}

TEST(Reference, SubtractsOneElectrodeFromEveryOther) {
    const auto file = Open({"C3", "Cz", "C4"});
    const MontageType& montage = *file->GetMontageList()->GetRefMtg();
    EXPECT_EQ(montage.GetName(), "Reference Cz");
    EXPECT_THAT(Channels(&montage), ElementsAre("C3-Cz", "C4-Cz"));
    const auto& sensors = file->GetRecording()->Sensors();
    EXPECT_EQ(montage.GetChn(1)->GetElectrodes(),
              (std::pair<const SensorType*, const SensorType*>(sensors[2].get(), sensors[1].get())));
}

TEST(Reference, PrefersTheScalpToAnEar) {
    EXPECT_EQ(Open({"A1", "O1", "O2"})->GetMontageList()->GetRefMtg()->GetName(), "Reference O1");
}

TEST(Reference, OneChannelHandedToAllMakesItsElectrodeTheReference) {
    const auto file = Open({"C3", "Cz", "C4", "Pz"});
    MontageType& montage = *file->GetMontageList()->GetRefMtg();
    const MontageType before = montage;
    for (std::size_t i = 0; i < montage.GetNumTraces(); ++i) {
        montage.GetChn(i)->AssignChannel(before.GetChn(0));
    }
    EXPECT_THAT(Channels(&montage), ElementsAre("Cz-C3", "C4-C3", "Pz-C3"));
    EXPECT_EQ(montage.GetName(), "Reference C3");
    EXPECT_EQ(montage.GetChn(0)->GetLabelPos(), "Cz");
    EXPECT_EQ(montage.GetNumBip(), 0U);
    EXPECT_EQ(before.GetName(), "Reference Cz");
}

TEST(Reference, NoChannelChangesNothing) {
    const auto file = Open({"C3", "Cz"});
    ChnType& channel = *file->GetMontageList()->GetRefMtg()->GetChn(0);
    channel.AssignChannel(nullptr);
    EXPECT_EQ(channel.GetName(), "C3-Cz");
}

struct Shape {
    const char* montage;
    bool mappable;
    unsigned bipolar;
};

TEST(Montages, TellWhetherTheyCanBeMapped) {
    const auto file = Open(kOldTenTwenty);
    for (const Shape& shape :
         {Shape{"As recorded", true, 0}, Shape{"Reference Cz", true, 0}, Shape{"Average reference", true, 0},
          Shape{"Longitudinal bipolar", false, 18}, Shape{"Transverse bipolar", false, 18}}) {
        const MontageType* montage = file->GetMontageList()->Find(shape.montage);
        ASSERT_NE(montage, nullptr) << shape.montage;
        EXPECT_EQ(montage->IsMappable(), shape.mappable) << shape.montage;
        EXPECT_EQ(montage->GetNumBip(), shape.bipolar) << shape.montage;
    }
}

TEST(Montages, RecordedDifferencesAreBipolar) {
    const auto file = Open({"FP1-F7", "F7-T7", "T7-P7", "P7-O1"});
    EXPECT_THAT(Montages(*file), ElementsAre("As recorded"));
    EXPECT_EQ(file->GetMontageList()->GetUniMtg()->GetNumBip(), 4U);
    EXPECT_FALSE(file->GetMontageList()->GetUniMtg()->IsMappable());
    EXPECT_EQ(file->GetMontageList()->GetRefMtg(), file->GetMontageList()->GetUniMtg());
}

TEST(Montages, WithoutEegThereIsOnlyAsRecorded) {
    const auto file = Open({"ECG", "EMG chin"});
    EXPECT_THAT(Montages(*file), ElementsAre("As recorded"));
    EXPECT_EQ(file->GetMontageList()->GetRefMtg(), file->GetMontageList()->GetUniMtg());
}

TEST(Montages, CombineNoElectrodesOfDifferentReferences) {
    const auto file = Open({"C3-A2", "C4-A1", "O1-A2", "O2-A1", "P3-A2", "P4-A1"});
    EXPECT_THAT(Montages(*file), ElementsAre("As recorded", "Longitudinal bipolar", "Reference C3"));
    EXPECT_THAT(Channels(file->GetMontageList()->Get(1)), ElementsAre("C3-P3", "P3-O1", "C4-P4", "P4-O2"));
    EXPECT_THAT(Channels(file->GetMontageList()->Get(2)), ElementsAre("O1-C3", "P3-C3"));
}

TEST(AverageReference, LeavesElectrodesOfAnotherReferenceOut) {
    const auto file = Open({"Cz-A1", "C3-A2", "C4-A2", "P3-A2"});
    EXPECT_THAT(Channels(file->GetMontageList()->Find("Average reference")),
                ElementsAre("C3-Avg", "C4-Avg", "P3-Avg"));
    EXPECT_EQ(file->GetMontageList()->GetRefMtg()->GetName(), "Reference C3");
}

TEST(AverageReference, LeavesRawValuesOut) {
    const std::vector<double> values(10);
    RecordingData data = test::MakeData({{"Cz", 10, values}, {"C3", 10, values}, {"C4", 10, values}});
    data.signals[0].calibrated = false;
    const auto file = MakeRecording(std::move(data));
    EXPECT_THAT(Channels(file->GetMontageList()->Find("Average reference")), ElementsAre("C3-Avg", "C4-Avg"));
    EXPECT_THAT(Channels(file->GetMontageList()->GetRefMtg()), ElementsAre("C4-C3"));
    EXPECT_THAT(Channels(file->GetMontageList()->GetUniMtg()), ElementsAre("Cz", "C3", "C4"));
}

TEST(Montages, CopiesCompareByContentAndAreIndependent) {
    const auto file = Open({"C3", "Cz", "C4"});
    const MontageType& reference = *file->GetMontageList()->GetRefMtg();
    MontageType copy = reference;
    EXPECT_EQ(copy, reference);
    copy.GetChn(0)->AssignChannel(reference.GetChn(1));
    EXPECT_FALSE(copy == reference);
    EXPECT_EQ(reference.GetChn(0)->GetName(), "C3-Cz");
}

TEST(Montages, ThereIsNoChannelBeyondTheLast) {
    const auto file = Open({"C3"});
    EXPECT_EQ(file->GetMontageList()->GetUniMtg()->GetChn(1), nullptr);
    EXPECT_EQ(file->GetMontageList()->Get(99), nullptr);
    EXPECT_EQ(file->GetMontageList()->Find("none"), nullptr);
}

class UserMontage : public testing::Test {
protected:
    std::vector<MontageType> Read(const std::string& text) {
        return ReadMontageFile(folder_.Write("mine.mtg", text), *file_->GetTraceInfo());
    }
    std::string RefusalOf(const std::string& text) {
        try {
            Read(text);
        } catch (const RecordingError& error) {
            return error.what();
        }
        return {};
    }

    test::TempFolder folder_;
    std::unique_ptr<EEGFileInfoType> file_ = Open({"Fp1", "F3", "T3", "A1", "A2", "ECG"});
};

TEST_F(UserMontage, FindsTheSensorsOfItsNames) {
    const std::vector<MontageType> montages = Read("front = +FP1 -F3\ntemp = T7 -0.5*A1 -0.5*A2\n");
    ASSERT_EQ(montages.size(), 1U);
    EXPECT_EQ(montages[0].GetName(), "mine");
    EXPECT_EQ(montages[0].GetNumBip(), 2U);
    EXPECT_FALSE(montages[0].IsMappable());
    const auto& sensors = file_->GetRecording()->Sensors();
    EXPECT_THAT(montages[0].GetChn(1)->GetTerms(),
                ElementsAre(ChannelTerm{sensors[2].get(), 1}, ChannelTerm{sensors[3].get(), -0.5},
                            ChannelTerm{sensors[4].get(), -0.5}));
    EXPECT_EQ(montages[0].GetChn(0)->GetLabelPos(), "Fp1");
}

TEST_F(UserMontage, WithOneReferenceCanBeMapped) {
    const std::vector<MontageType> montages = Read("a = Fp1 -A1\nb = F3 -A1\n");
    EXPECT_TRUE(montages.at(0).IsMappable());
    EXPECT_EQ(montages.at(0).GetNumBip(), 0U);
}

TEST_F(UserMontage, RefusesNamesOfNoSensor) {
    EXPECT_THAT(RefusalOf("a = Fp1 -F3\nb = Fp1 -X9\n"),
                HasSubstr("line 2: the recording has no channel \"X9\""));
}

TEST_F(UserMontage, SaysThatSignsNeedBlanksBefore) {
    EXPECT_THAT(RefusalOf("a = Fp1-F3\n"),
                HasSubstr("blanks before the sign of the next one (+Fp1 -F3) or quotes"));
}

TEST_F(UserMontage, SaysWhichFileIsWanted) {
    try {
        ReadMontageFile(folder_.Path(""), *file_->GetTraceInfo());
        FAIL() << "read a folder";
    } catch (const RecordingError& error) {
        EXPECT_EQ(error.Reason(), "is a folder");
        EXPECT_EQ(error.Remedy(), "choose a montage file");
    }
}

TEST_F(UserMontage, RefusesWhatIsNoEeg) {
    EXPECT_THAT(RefusalOf("a = Fp1 -ECG\n"), HasSubstr("line 1: channel \"ECG\" is no EEG"));
}

TEST_F(UserMontage, RefusesOneSensorUnderTwoNames) {
    EXPECT_THAT(RefusalOf("a = T3 -T7\n"), HasSubstr("line 1: channel \"T3\" stands in it twice"));
}

TEST_F(UserMontage, ReplacesTheUserMontageOfItsName) {
    MontageList& list = *file_->GetMontageList();
    const std::size_t size = list.Size();
    EXPECT_EQ(list.Add(Read("a = Fp1\n").at(0)), size);
    EXPECT_EQ(list.Add(Read("b = F3\n").at(0)), size);
    EXPECT_THAT(Channels(list.Find("mine")), ElementsAre("b"));
}

TEST_F(UserMontage, ReplacesNoStandardMontage) {
    MontageList& list = *file_->GetMontageList();
    const std::size_t index = list.Add(Read("[as recorded]\na = Fp1\n").at(0));
    EXPECT_EQ(list.Get(index)->GetName(), "as recorded (user)");
    EXPECT_EQ(list.GetUniMtg()->GetNumTraces(), 5U);
}

} // namespace
} // namespace orvanta::signal
