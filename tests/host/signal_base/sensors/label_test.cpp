// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/sensors/label.h"

#include <gtest/gtest.h>

#include <ostream>

namespace orvanta::signal {
namespace {

struct LabelCase {
    const char* label;
    const char* name;
    const char* full;
    std::optional<Sensor::Type> type;
};

void PrintTo(const LabelCase& c, std::ostream* out) {
    *out << c.label;
}

class Label : public testing::TestWithParam<LabelCase> {};

TEST_P(Label, IsUnderstood) {
    const LabelCase& expected = GetParam();
    const ParsedLabel parsed = ParseLabel(expected.label);
    EXPECT_EQ(parsed.name, expected.name);
    EXPECT_EQ(parsed.full, expected.full);
    EXPECT_EQ(parsed.type, expected.type);
}

constexpr auto kScalp = Sensor::ScalpEeg;
constexpr auto kUnplaced = Sensor::UnplacedEeg;
constexpr auto kInside = Sensor::IntracranialEeg;
constexpr auto kOther = Sensor::OtherSignal;

INSTANTIATE_TEST_SUITE_P(
    Electrodes, Label,
    testing::Values(
        LabelCase{"Fp1", "Fp1", "Fp1", kScalp}, LabelCase{"FP1", "Fp1", "Fp1", kScalp},
        LabelCase{"EEG Fp1-Ref", "Fp1", "Fp1", kScalp}, LabelCase{"EEG FP1-REF", "Fp1", "Fp1", kScalp},
        LabelCase{"EEG FP1-LE", "Fp1", "Fp1-LE", kScalp}, LabelCase{"EEG A2-A1", "A2", "A2-A1", kScalp},
        LabelCase{"Fp1-A1", "Fp1", "Fp1-A1", kScalp}, LabelCase{"c3-m2", "C3", "C3-M2", kScalp},
        LabelCase{"C4-A1A2", "C4", "C4-A1A2", kScalp}, LabelCase{"Fc5.", "FC5", "FC5", kScalp},
        LabelCase{"Af7.", "AF7", "AF7", kScalp}, LabelCase{"Cz..", "Cz", "Cz", kScalp},
        LabelCase{"T3", "T3", "T3", kScalp}, LabelCase{"EEG_O1", "O1", "O1", kScalp},
        LabelCase{"POL Pz", "Pz", "Pz", kScalp}, LabelCase{"FP1-F7", "Fp1", "Fp1-F7", kScalp},
        LabelCase{"T8-P8-2", "T8", "T8-P8", kScalp}, LabelCase{"EEG Fp1-Ref-2", "Fp1", "Fp1", kScalp}));

INSTANTIATE_TEST_SUITE_P(
    WithoutPosition, Label,
    testing::Values(LabelCase{"EEG 001", "EEG 001", "EEG 001", kUnplaced},
                    LabelCase{"EEG X1-Ref", "X1", "X1", kUnplaced}, LabelCase{"EEG", "EEG", "EEG", kUnplaced},
                    LabelCase{"EEG(sec)", "EEG(sec)", "EEG(sec)", kUnplaced},
                    LabelCase{"EEG2", "EEG2", "EEG2", kUnplaced}, LabelCase{"T1", "T1", "T1", kUnplaced},
                    LabelCase{"sp2", "Sp2", "Sp2", kUnplaced},
                    LabelCase{"SEEG LA1-Ref", "LA1", "LA1", kInside},
                    LabelCase{"SEEG O1", "O1", "O1", kInside}, LabelCase{"POL A'1", "A'1", "A'1", kInside},
                    LabelCase{"ECoG Grid12", "Grid12", "Grid12", kInside}));

INSTANTIATE_TEST_SUITE_P(
    OtherKinds, Label,
    testing::Values(LabelCase{"EOG left", "EOG left", "EOG left", Sensor::Eog},
                    LabelCase{"ROC-A1", "ROC-A1", "ROC-A1", Sensor::Eog},
                    LabelCase{"HEOG", "HEOG", "HEOG", Sensor::Eog},
                    LabelCase{"EEG EKG-REF", "EKG", "EKG", Sensor::Ecg},
                    LabelCase{"ECG II", "ECG II", "ECG II", Sensor::Ecg},
                    LabelCase{"POL EKG1", "EKG1", "EKG1", Sensor::Ecg},
                    LabelCase{"EMG submental", "EMG submental", "EMG submental", Sensor::Emg},
                    LabelCase{"Chin1-Chin2", "Chin1-Chin2", "Chin1-Chin2", Sensor::Emg},
                    LabelCase{"Resp oro-nasal", "Resp oro-nasal", "Resp oro-nasal", Sensor::Respiration},
                    LabelCase{"Airflow", "Airflow", "Airflow", Sensor::Respiration},
                    LabelCase{"THOR RES", "THOR RES", "THOR RES", Sensor::Respiration},
                    LabelCase{"SaO2", "SaO2", "SaO2", kOther},
                    LabelCase{"Temp rectal", "Temp rectal", "Temp rectal", kOther},
                    LabelCase{"EXG3", "EXG3", "EXG3", kOther}, LabelCase{"POL DC01", "DC01", "DC01", kOther},
                    LabelCase{"Event marker", "Event marker", "Event marker", Sensor::Status},
                    LabelCase{"STI 014", "STI 014", "STI 014", Sensor::Status},
                    LabelCase{"EDF Annotations", "EDF Annotations", "EDF Annotations", Sensor::Annotations}));

INSTANTIATE_TEST_SUITE_P(Unknown, Label,
                         testing::Values(LabelCase{"Foo", "Foo", "Foo", std::nullopt},
                                         LabelCase{"LA1-Ref", "LA1", "LA1", std::nullopt},
                                         LabelCase{"LA1-LA2", "LA1-LA2", "LA1-LA2", std::nullopt},
                                         LabelCase{"Ch 7", "Ch 7", "Ch 7", std::nullopt},
                                         LabelCase{"", "", "", std::nullopt},
                                         LabelCase{"-", "-", "-", std::nullopt},
                                         LabelCase{"...", "...", "...", std::nullopt}));

TEST(ParsedLabel, PairOfScalpElectrodesIsADifference) {
    EXPECT_TRUE(ParseLabel("FP1-F7").pair);
    EXPECT_TRUE(ParseLabel("EEG Fpz-Cz").pair);
    EXPECT_FALSE(ParseLabel("C3-M2").pair);
    EXPECT_FALSE(ParseLabel("Fp1-Ref").pair);
}

TEST(ParseContact, SplitsStemAndNumber) {
    const std::optional<Contact> contact = ParseContact("LA12");
    ASSERT_TRUE(contact);
    EXPECT_EQ(contact->stem, "la");
    EXPECT_EQ(contact->number, 12U);
    EXPECT_EQ(ParseContact("E0")->number, 0U);
}

TEST(ParseContact, RefusesWhatIsNoLettersAndNumber) {
    for (const char* name : {"", "A", "12", "A1b", "A1234", "A-1"}) {
        EXPECT_FALSE(ParseContact(name)) << name;
    }
}

} // namespace
} // namespace orvanta::signal
