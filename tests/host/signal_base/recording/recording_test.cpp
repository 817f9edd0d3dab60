// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/recording.h"

#include "host/signal_base/recording_error.h"
#include "tests/support/memory_source.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace orvanta::signal {
namespace {

using test::MadeSignal;
using test::MakeData;
using testing::ElementsAre;
using testing::HasSubstr;

const std::vector<double> kOneSecond(100, 1.0);

std::vector<std::string> NamesOf(const SensorList& sensors) {
    std::vector<std::string> names;
    for (const SensorType* sensor : sensors) {
        names.push_back(sensor->GetName());
    }
    return names;
}

TEST(Recording, ListsEegSensorsInFileOrder) {
    const auto file = MakeRecording(
        MakeData({{"O1", 100, kOneSecond}, {"ECG", 100, kOneSecond}, {"FP1", 100, kOneSecond}}));
    SensorList list;
    file->GetTraceInfo()->GetSensorsListOfType(list, Sensor::EegFamily, Sensor::Class::Eeg);
    EXPECT_THAT(NamesOf(list), ElementsAre("O1", "Fp1"));
}

TEST(Recording, AcquiredClassListsEverySignal) {
    RecordingData data =
        MakeData({{"O1", 100, kOneSecond}, {"ECG", 100, kOneSecond}, {"Status", 100, kOneSecond}});
    data.signals[2].status = true;
    const auto file = MakeRecording(std::move(data));
    SensorList list;
    file->GetTraceInfo()->GetSensorsList(list, Sensor::Class::Acquired);
    EXPECT_THAT(NamesOf(list), ElementsAre("O1", "ECG"));
}

TEST(Recording, FindsASensorByNameLabelAndOldName) {
    const auto file = MakeRecording(MakeData({{"EEG T3-Ref", 100, kOneSecond}, {"ECG", 100, kOneSecond}}));
    const SensorType* t3 = file->GetRecording()->Sensors()[0].get();
    EXPECT_EQ(file->GetTraceInfo()->FindSensor("t3"), t3);
    EXPECT_EQ(file->GetTraceInfo()->FindSensor("EEG T3-REF"), t3);
    EXPECT_EQ(file->GetTraceInfo()->FindSensor("T7"), t3);
    EXPECT_EQ(file->GetTraceInfo()->FindSensor("T4"), nullptr);
}

TEST(Recording, TellsWhichSensorsWereResampled) {
    const auto file = MakeRecording(MakeData({{"F3", 128, std::vector<double>(128)},
                                              {"Cz", 512, std::vector<double>(512)},
                                              {"F4", 128, std::vector<double>(128)},
                                              {"ECG", 64, std::vector<double>(64)}}));
    EXPECT_THAT(file->GetRecording()->Repairs(),
                ElementsAre("F3, F4: 128 Hz resampled to 512 Hz; bins above 64 Hz are empty"));
    EXPECT_EQ(file->GetRecording()->Sensors()[0]->GetRateHz(), 128);
}

TEST(Recording, ScalesEveryVoltageToMicrovolts) {
    RecordingData data = MakeData({{"C3", 100, kOneSecond, "V"},
                                   {"C4", 100, kOneSecond, "mV"},
                                   {"Cz", 100, kOneSecond, "uV"},
                                   {"Pz", 100, kOneSecond, "nV"}});
    for (SignalHeader& header : data.signals) {
        header.gain = 2;
        header.offset = 3;
    }
    const auto file = MakeRecording(std::move(data));
    const double expected[] = {1e6, 1e3, 1, 1e-3};
    for (std::size_t i = 0; i < 4; ++i) {
        const SensorType& sensor = *file->GetRecording()->Sensors()[i];
        const SensorSamples samples = file->GetRecording()->Samples(sensor);
        EXPECT_EQ(samples.signal, i);
        EXPECT_DOUBLE_EQ(samples.gain, 2 * expected[i]);
        EXPECT_DOUBLE_EQ(samples.offset, 3 * expected[i]);
        EXPECT_EQ(sensor.GetUnit(), "\u00B5V");
    }
}

TEST(Recording, GivesNoSamplesOfASensorThatIsNoEeg) {
    const auto file = MakeRecording(MakeData({{"C3", 100, kOneSecond}, {"ECG", 100, kOneSecond}}));
    EXPECT_THROW(file->GetRecording()->Samples(*file->GetRecording()->Sensors()[1]), std::invalid_argument);
}

TEST(Recording, RateIsTheHighestAmongEegSensors) {
    const auto file = MakeRecording(MakeData({{"C3", 100, kOneSecond},
                                              {"C4", 200, std::vector<double>(200)},
                                              {"ECG", 1000, std::vector<double>(1000)}}));
    EXPECT_EQ(file->GetRecording()->Rate(), 200);
    EXPECT_EQ(file->GetTraceCursor()->GetMemDataSR(), 200U);
    EXPECT_EQ(file->GetRecording()->Sensors()[0]->GetAcqSR(), 100U);
}

TEST(Recording, AuxiliarySignalsKeepTheirRate) {
    const auto file = MakeRecording(
        MakeData({{"C4", 200, std::vector<double>(200)}, {"ECG", 100, kOneSecond}, {"C3", 100, kOneSecond}}));
    const BlockSource& source = file->GetRecording()->Source();
    EXPECT_EQ(source.Layout(1).samples, 100U);
    EXPECT_EQ(source.Layout(2).samples, 200U);
    EXPECT_EQ(source.SampleCount(2), 200U);
}

TEST(Recording, WithoutEegTimeRunsAtTheFastestSignal) {
    const auto file = MakeRecording(
        MakeData({{"ECG", 50, std::vector<double>(100)}, {"Resp", 10, std::vector<double>(20)}}));
    EXPECT_EQ(file->GetRecording()->Rate(), 0);
    EXPECT_EQ(file->GetRecording()->Time().Rate(), 50);
    EXPECT_DOUBLE_EQ(file->GetRecording()->Time().Duration(), 2);
    EXPECT_EQ(file->GetTraceCursor()->GetMemDataSR(), 0U);
    EXPECT_EQ(file->GetMontageList()->GetUniMtg()->GetNumTraces(), 0U);
    EXPECT_EQ(file->GetMontageList()->GetRefMtg()->GetNumTraces(), 0U);
}

TEST(Recording, OpensWithoutSignals) {
    const auto file = MakeRecording(MakeData({}));
    EXPECT_TRUE(file->GetRecording()->Sensors().empty());
    EXPECT_EQ(file->GetRecording()->Time().Duration(), 0);
    file->GetTraceCursor()->SetPosition(10);
    EXPECT_EQ(*file->GetTraceCursor()->GetStartRecTime(), XTime());
}

TEST(Recording, OpensWithoutData) {
    const auto file = MakeRecording(MakeData({{"C3", 100, {}}}));
    EXPECT_EQ(file->GetRecording()->Rate(), 100);
    EXPECT_EQ(file->GetRecording()->Time().SampleCount(), 0);
}

TEST(Recording, TimelineHasTheGapsOfTheFile) {
    const auto file =
        MakeRecording(MakeData({{"C3", 100, std::vector<double>(350)}}, {}, {{.block = 2, .gap_s = 10}}));
    const std::vector<Segment> expected = {{0, 200, 0}, {200, 150, 12}};
    EXPECT_EQ(file->GetRecording()->Time().Segments(), expected);
    EXPECT_DOUBLE_EQ(file->GetRecording()->Time().Duration(), 13.5);
}

TEST(Recording, RefusesChannelsWithoutSamples) {
    RecordingData data = MakeData({{"C3", 100, kOneSecond}});
    data.signals.emplace_back();
    EXPECT_THROW(MakeRecording(std::move(data)), RecordingError);
}

TEST(Recording, LabelIsThePatientWithoutPathSeparators) {
    RecordingData data = MakeData({{"C3", 100, kOneSecond}});
    data.patient = "12/34 F\\x";
    EXPECT_EQ(MakeRecording(std::move(data))->GetLabel(), "12-34 F-x");
}

TEST(Recording, LabelLeavesOutWhatIsNotKnownOfThePatient) {
    const std::pair<const char*, const char*> labels[] = {
        {"X X X Demo", "Demo"},
        {"MCH-0234567 F 02-MAY-1951 Haagse_Harry", "MCH-0234567 F 02-MAY-1951 Haagse_Harry"},
        {"MCH-7 X  X X", "MCH-7"},
        {"X M X Doe left X", "M Doe left X"}, // what follows the subfields is free text
        {"x F x Max", "x F x Max"},           // not the placeholder, which is a capital
        {"Malcolm X", "Malcolm X"}};          // not of EDF+, which has four subfields
    for (const auto& [patient, label] : labels) {
        RecordingData data = MakeData({{"C3", 100, kOneSecond}});
        data.patient = patient;
        EXPECT_EQ(MakeRecording(std::move(data))->GetLabel(), label);
    }
}

TEST(Recording, LabelIsTheRecordWhenThePatientIsAnonymous) {
    RecordingData data = MakeData({{"C3", 100, kOneSecond}});
    data.patient = "X X X X";
    data.record = "Startdate 02-MAR-2002 PSG-7 NN X";
    EXPECT_EQ(MakeRecording(std::move(data))->GetLabel(), "Startdate 02-MAR-2002 PSG-7 NN X");
}

TEST(Recording, LabelIsTheFileStemWhenTheFieldsSayNothing) {
    RecordingData data = MakeData({{"C3", 100, kOneSecond}});
    data.path = "/data/night one.edf";
    data.record = "Startdate 02-MAR-2002 X X X";
    EXPECT_EQ(MakeRecording(std::move(data))->GetLabel(), "night one");
}

TEST(Recording, FileNameTextHasTheExtension) {
    RecordingData data = MakeData({{"C3", 100, kOneSecond}});
    data.path = "/data/a_rec.edf";
    EXPECT_EQ(MakeRecording(std::move(data))->GetFileNameText(), "a_rec.edf");
}

TEST(Recording, AnnotationsBecomeEvents) {
    const auto file = MakeRecording(
        MakeData({{"C3", 100, kOneSecond}}, {{0.5, std::nullopt, "blink"}, {0.1, 0.3, "eyes"}}));
    const std::vector<EventRecord> expected = {
        {"eyes", EventClass::State, {XTime::FromSeconds(0.1), XTime::FromSeconds(0.4)}},
        {"blink", EventClass::Spot, {XTime::FromSeconds(0.5), XTime::FromSeconds(0.5)}}};
    EXPECT_EQ(file->GetEventsManager()->GetEvents(), expected);
    EXPECT_EQ(file->GetEventsManager()->GetEventsSR(), 100U);
}

TEST(Recording, NamesAnnotationsThatItCannotPlace) {
    const auto file = MakeRecording(MakeData({{"C3", 100, kOneSecond}}, {{1e300, 1.0, "far"}, {1, 2.0, ""}}));
    EXPECT_TRUE(file->GetEventsManager()->GetEvents().empty());
    EXPECT_THAT(file->GetRecording()->Repairs(), ElementsAre(HasSubstr("2 annotations")));
}

TEST(Recording, ChangingTheMontageTellsListeners) {
    struct Counter : FlagListener {
        using FlagListener::FlagListener;
        void PerformAction() override { ++count; }
        int count = 0;
    };
    const auto file = MakeRecording(MakeData({{"C3", 100, kOneSecond}, {"C4", 100, kOneSecond}}));
    Counter counter("view", file->GetMontageFlag());
    EXPECT_TRUE(file->ChangeMntg(1, true));
    EXPECT_TRUE(file->ChangeMntg(0, false));
    EXPECT_FALSE(file->ChangeMntg(99, true));
    EXPECT_EQ(counter.count, 1);
    EXPECT_EQ(file->GetMontageList()->GetCurrentIndex(), 0U);
    EXPECT_EQ(file->GetTraceInfo()->GetMtg(), *file->GetMontageList()->GetUniMtg());
}

TEST(Recording, CursorAndTraceInfoShareOneMontage) {
    const auto file = MakeRecording(MakeData({{"C3", 100, kOneSecond}, {"C4", 100, kOneSecond}}));
    EXPECT_EQ(&file->GetTraceCursor()->GetMtg(), &file->GetTraceInfo()->GetMtg());
}

} // namespace
} // namespace orvanta::signal
