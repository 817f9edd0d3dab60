// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/recording.h"
#include "tests/support/memory_source.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace orvanta::signal {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

struct Labelled {
    std::string label;
    std::string unit = "uV";
};

std::unique_ptr<EEGFileInfoType> Open(const std::vector<Labelled>& signals) {
    std::vector<test::MadeSignal> made;
    for (const Labelled& signal : signals) {
        made.push_back({signal.label, 10, std::vector<double>(10), signal.unit});
    }
    return MakeRecording(test::MakeData(made));
}

std::vector<Labelled> Row(const std::string& stem, int count) {
    std::vector<Labelled> row;
    for (int i = 1; i <= count; ++i) {
        row.push_back({stem + std::to_string(i)});
    }
    return row;
}

std::vector<std::uint32_t> TypesOf(const EEGFileInfoType& file) {
    std::vector<std::uint32_t> types;
    for (const auto& sensor : file.GetRecording()->Sensors()) {
        types.push_back(sensor->GetType());
    }
    return types;
}

std::vector<std::string> NamesOf(const EEGFileInfoType& file) {
    std::vector<std::string> names;
    for (const auto& sensor : file.GetRecording()->Sensors()) {
        names.push_back(sensor->GetName());
    }
    return names;
}

TEST(Sensors, KnownLabelsAreTyped) {
    EXPECT_THAT(
        TypesOf(*Open({{"EEG Fp1-Ref"}, {"EOG left"}, {"ECG"}, {"EMG chin"}, {"Resp"}, {"SaO2", "%"}})),
        ElementsAre(Sensor::ScalpEeg, Sensor::Eog, Sensor::Ecg, Sensor::Emg, Sensor::Respiration,
                    Sensor::OtherSignal));
}

TEST(Sensors, StatusAndAnnotationsAreNoSignals) {
    test::MadeSignal signal{"C3", 10, std::vector<double>(10)};
    RecordingData data = test::MakeData({signal, signal, signal});
    data.signals[1].status = true;
    data.signals[2].annotations = true;
    const auto file = MakeRecording(std::move(data));
    EXPECT_THAT(TypesOf(*file), ElementsAre(Sensor::ScalpEeg, Sensor::Status, Sensor::Annotations));
    EXPECT_FALSE(file->GetRecording()->Sensors()[1]->IsSignal());
    EXPECT_FALSE(file->GetRecording()->Sensors()[2]->IsSignal());
}

TEST(Sensors, UnknownLabelsBesideKnownOnesAreOtherSignals) {
    EXPECT_THAT(TypesOf(*Open({{"C3"}, {"Foo"}})), ElementsAre(Sensor::ScalpEeg, Sensor::OtherSignal));
}

TEST(Sensors, WhenNoLabelIsKnownVoltagesAreEeg) {
    EXPECT_THAT(TypesOf(*Open({{"Foo", "mV"}, {"Bar", "mmHg"}, {"Baz", "uV"}})),
                ElementsAre(Sensor::UnplacedEeg, Sensor::OtherSignal, Sensor::UnplacedEeg));
}

TEST(Sensors, WhenNothingIsKnownSignalsWithoutUnitAreEeg) {
    const auto file = Open({{"Foo", ""}, {"Bar", "mmHg"}});
    EXPECT_THAT(TypesOf(*file), ElementsAre(Sensor::UnplacedEeg, Sensor::OtherSignal));
    EXPECT_THAT(file->GetRecording()->Repairs(), ElementsAre(HasSubstr("\"Foo\" has no unit of voltage")));
}

TEST(Sensors, ElectrodeWithoutUnitIsTakenAsMicrovolts) {
    const auto file = Open({{"C3", ""}});
    EXPECT_THAT(TypesOf(*file), ElementsAre(Sensor::ScalpEeg));
    EXPECT_EQ(file->GetRecording()->Samples(*file->GetRecording()->Sensors()[0]).gain, 1);
    EXPECT_EQ(file->GetRecording()->Sensors()[0]->GetUnit(), "\u00B5V");
}

TEST(Sensors, PressureThatIsNamedAsAnElectrodeIsNoEeg) {
    const auto file = Open({{"C3"}, {"P3", "mmHg"}});
    EXPECT_THAT(TypesOf(*file), ElementsAre(Sensor::ScalpEeg, Sensor::OtherSignal));
    EXPECT_EQ(file->GetRecording()->Sensors()[1]->GetUnit(), "mmHg");
    EXPECT_THAT(file->GetRecording()->Repairs(),
                ElementsAre(HasSubstr("\"P3\" is named as EEG but in mmHg")));
}

TEST(Sensors, ElectrodeInAnUnknownUnitIsTakenAsMicrovolts) {
    const auto file = Open({{"C3", "xyz"}, {"C4"}});
    EXPECT_THAT(TypesOf(*file), Each(Sensor::ScalpEeg));
    EXPECT_EQ(file->GetRecording()->Sensors()[0]->GetUnit(), "\u00B5V");
    EXPECT_THAT(file->GetRecording()->Repairs(),
                ElementsAre(HasSubstr("\"C3\" has no unit of voltage (\"xyz\")")));
}

TEST(Sensors, ContactsAreEegBesideAHeartAndAScalpElectrode) {
    for (const char* other : {"ECG", "Cz"}) {
        const auto file = Open({{"LA1"}, {"LH1", "mV"}, {"GRID1"}, {"POL LAH2-Ref"}, {"LA2-LA3"}, {other}});
        std::vector<std::uint32_t> types = TypesOf(*file);
        types.pop_back();
        EXPECT_THAT(types, Each(Sensor::IntracranialEeg)) << other;
        EXPECT_EQ(file->GetRecording()->Sensors()[4]->GetElectrode(), "") << other;
    }
}

TEST(Sensors, NumberedInputsAndOtherUnitsAreNoContacts) {
    EXPECT_THAT(TypesOf(*Open({{"Cz"}, {"DC1"}, {"AUX1"}, {"Ch1"}, {"LA1", "%"}, {"LA2", ""}})),
                ElementsAre(Sensor::ScalpEeg, Sensor::OtherSignal, Sensor::OtherSignal, Sensor::OtherSignal,
                            Sensor::OtherSignal, Sensor::OtherSignal));
}

TEST(Sensors, ANetMayCountFromZeroAndLackSensors) {
    EXPECT_THAT(TypesOf(*Open({{"E0"}, {"E1"}, {"E3"}, {"E511"}, {"Cz"}})),
                ElementsAre(Sensor::UnplacedEeg, Sensor::UnplacedEeg, Sensor::UnplacedEeg,
                            Sensor::UnplacedEeg, Sensor::ScalpEeg));
}

TEST(Sensors, ValuesWithoutCalibrationAreRaw) {
    RecordingData data = test::MakeData({{"C3", 10, std::vector<double>(10), "mV"}});
    data.signals[0].calibrated = false;
    const auto file = MakeRecording(std::move(data));
    const SensorType& sensor = *file->GetRecording()->Sensors()[0];
    EXPECT_TRUE(sensor.IsEeg());
    EXPECT_EQ(sensor.GetUnit(), "raw");
    EXPECT_EQ(file->GetRecording()->Samples(sensor).gain, 1);
}

TEST(Sensors, DifferentReferencesAreTold) {
    EXPECT_THAT(
        Open({{"C3-A2"}, {"C4-A1"}, {"O1-A2"}, {"ECG"}})->GetRecording()->Repairs(),
        ElementsAre("electrodes were recorded against different references (C4 against A1; C3, O1 against "
                    "A2): standard montages combine only those of one reference"));
    EXPECT_THAT(Open({{"C3-A2"}, {"C4-A2"}})->GetRecording()->Repairs(), IsEmpty());
}

TEST(Sensors, NumbersOfOneBundleAreNoPositions) {
    const auto file = Open(Row("A", 32));
    EXPECT_THAT(TypesOf(*file), Each(Sensor::UnplacedEeg));
    EXPECT_FALSE(file->GetRecording()->Sensors()[0]->GetElectInfo().Known);
}

TEST(Sensors, RowsOfContactsWithLongerStemsLieInside) {
    EXPECT_THAT(TypesOf(*Open(Row("LA", 8))), Each(Sensor::IntracranialEeg));
}

TEST(Sensors, TenTwentyElectrodesAreNoRow) {
    EXPECT_THAT(TypesOf(*Open(Row("T", 6))),
                ElementsAre(Sensor::UnplacedEeg, Sensor::UnplacedEeg, Sensor::ScalpEeg, Sensor::ScalpEeg,
                            Sensor::ScalpEeg, Sensor::ScalpEeg));
    EXPECT_THAT(TypesOf(*Open(Row("C", 6))), Each(Sensor::ScalpEeg));
}

TEST(Sensors, EyesOfSleepRecordingsAreEog) {
    EXPECT_THAT(TypesOf(*Open({{"C3-M2"}, {"E1-M2"}, {"E2"}})),
                ElementsAre(Sensor::ScalpEeg, Sensor::Eog, Sensor::Eog));
}

TEST(Sensors, ANumberedNetHasNoEyes) {
    EXPECT_THAT(TypesOf(*Open(Row("E", 64))), Each(Sensor::UnplacedEeg));
}

TEST(Sensors, ElectrodesAreNamedByThemselves) {
    EXPECT_THAT(NamesOf(*Open({{"EEG FP1-Ref"}, {"C3-M2"}, {"Fc5."}})), ElementsAre("Fp1", "C3", "FC5"));
}

TEST(Sensors, OneElectrodeAgainstTwoReferencesKeepsBoth) {
    EXPECT_THAT(NamesOf(*Open({{"C3-M2"}, {"C3-M1"}, {"C4-M1"}})), ElementsAre("C3-M2", "C3-M1", "C4"));
}

TEST(Sensors, EqualNamesGetANumberAndARepair) {
    const auto file = Open({{"FP1"}, {"EEG Fp1"}});
    EXPECT_THAT(NamesOf(*file), ElementsAre("Fp1", "Fp1-2"));
    EXPECT_THAT(file->GetRecording()->Repairs(), ElementsAre(HasSubstr("\"EEG Fp1\" is called \"Fp1-2\"")));
}

TEST(Sensors, ThousandsOfEqualNamesAreTold) {
    const auto file = Open(std::vector<Labelled>(4000, {"EEG Fp1-Ref"}));
    EXPECT_EQ(NamesOf(*file).back(), "Fp1-4000");
    EXPECT_EQ(file->GetRecording()->Repairs().size(), 21U);
}

TEST(Sensors, RecordedDifferencesStandBetweenTheirElectrodes) {
    const auto file = Open({{"Fpz-Cz"}, {"Pz-Oz"}});
    EXPECT_THAT(NamesOf(*file), ElementsAre("Fpz-Cz", "Pz-Oz"));
    EXPECT_THAT(TypesOf(*file), Each(Sensor::ScalpEeg));
    const SensorType& sensor = *file->GetRecording()->Sensors()[0];
    EXPECT_EQ(sensor.GetElectrode(), "");
    // Halfway down from the vertex to the ring.
    EXPECT_NEAR(sensor.GetElectInfo().Position.y, 0.70710678, 1e-8);
    EXPECT_NEAR(sensor.GetElectInfo().Position.z, 0.70710678, 1e-8);
}

TEST(Sensors, OneCommonScalpReferenceLeavesElectrodes) {
    const auto file = Open({{"Fp1-Cz"}, {"O1-Cz"}, {"O2-Cz"}});
    EXPECT_THAT(NamesOf(*file), ElementsAre("Fp1", "O1", "O2"));
    EXPECT_EQ(file->GetRecording()->Sensors()[0]->GetReference(), "Cz");
}

TEST(Sensors, AGoodRecordingHasNoRepairs) {
    EXPECT_THAT(Open({{"C3"}, {"C4"}, {"ECG", "mV"}})->GetRecording()->Repairs(), IsEmpty());
}

TEST(Sensors, ManyGuessedUnitsAreSummedUp) {
    std::vector<Labelled> signals = Row("EEG ", 200);
    for (Labelled& signal : signals) {
        signal.unit = "";
    }
    EXPECT_EQ(Open(signals)->GetRecording()->Repairs().size(), 21U);
}

} // namespace
} // namespace orvanta::signal
