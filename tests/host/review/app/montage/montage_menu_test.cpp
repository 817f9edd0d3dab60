// SPDX-License-Identifier: GPL-3.0-or-later
// Montages of the user's in the application, from one start to the next.
#include "host/review/app/main_window/notice_strip.h"
#include "tests/host/review/app/main_window/workbench_fixture.h"
#include "tests/support/qt/form_user.h"

#include <QDialog>

#include <algorithm>

namespace {

using namespace orvanta;
using test::FormUser;
using testing::ElementsAre;
using testing::HasSubstr;

class MontageMenu : public test::WorkbenchFixture {
protected:
    void Choose(const char* item) {
        Opens("menuMontage");
        Item(item).trigger();
    }
    /// The dialog comes up; the user selects these electrodes and closes it.
    void ChooseElectrodes(const QStringList& electrodes) {
        user.MeetsDialog([electrodes](QDialog& dialog) {
            FormUser(dialog).SelectsRows("electrodes", electrodes);
            dialog.accept();
        });
        Choose("montageAverage");
    }
    std::vector<std::string> MontageNames() const {
        std::vector<std::string> names;
        for (const auto& montage : *Recording().GetMontageList()) {
            names.push_back(montage->GetName());
        }
        return names;
    }
    void UseAverage() {
        const std::vector<std::string> names = MontageNames();
        const auto at = std::find(names.begin(), names.end(), "Average reference") - names.begin();
        ChangeMontage(static_cast<std::size_t>(at));
        test::WaitUntilIdle();
    }
    std::vector<std::string> Averaged() const {
        std::vector<std::string> names;
        for (const SensorType* sensor : Used().GetChn(0)->GetCommonAverage()) {
            names.push_back(sensor->GetName());
        }
        return names;
    }
    const MontageType& Used() const { return Recording().GetTraceInfo()->GetMtg(); }
};

TEST_F(MontageMenu, TheAverageIsThatOfTheChosenElectrodesAlsoAfterARestart) {
    Start(Demo());
    UseAverage();
    EXPECT_EQ(Averaged().size(), 19U);
    ChooseElectrodes({"C3", "Cz", "C4"});
    EXPECT_THAT(Averaged(), ElementsAre("C3", "Cz", "C4"));
    EXPECT_EQ(Used().GetNumTraces(), 19U);
    Leave();

    Start(Demo("other.edf", 2));
    UseAverage();
    EXPECT_THAT(Averaged(), ElementsAre("C3", "Cz", "C4"));
    EXPECT_THAT(bench->Middle().Repairs().Text().toStdString(), HasSubstr("mean of 3 of 19 electrodes"));
    user.MeetsDialog([](QDialog& dialog) {
        EXPECT_EQ(FormUser(dialog).SelectedRowsOf("electrodes"), QStringList({"C3", "Cz", "C4"}));
        dialog.reject();
    });
    Choose("montageAverage");
    EXPECT_THAT(Averaged(), ElementsAre("C3", "Cz", "C4"));
}

TEST_F(MontageMenu, AnAnalysisOfAnotherAverageIsStale) {
    Start(Demo());
    UseAverage();
    SpectMacroResult& analysis = AddAnalysis();
    ASSERT_TRUE(analysis.Compute(nullptr));
    ASSERT_FALSE(analysis.IsRecomputingNeeded(Used(), {}, 0));
    ChooseElectrodes({"C3", "C4"});
    EXPECT_TRUE(analysis.IsRecomputingNeeded(Used(), {}, 0));
}

TEST_F(MontageMenu, FewerThanTwoElectrodesChangeNothing) {
    Start(Demo());
    UseAverage();
    user.MeetsDialog([this](QDialog& dialog) {
        FormUser(dialog).SelectsRows("electrodes", {"C3"});
        user.AnswersMessage(owl::kIdOk);
        dialog.accept();
    });
    Choose("montageAverage");
    ASSERT_EQ(user.Messages().size(), 1U);
    EXPECT_EQ(user.Messages()[0].text, "An average takes at least two electrodes. Nothing was changed.");
    EXPECT_EQ(Averaged().size(), 19U);
}

TEST_F(MontageMenu, AllElectrodesAreNoChoice) {
    Start(Demo());
    UseAverage();
    ChooseElectrodes({"C3", "C4"});
    QStringList all;
    for (const auto& channel : {"Fp1", "Fp2", "F7", "F3", "Fz", "F4", "F8", "T7", "C3", "Cz", "C4", "T8",
                                "P7", "P3", "Pz", "P4", "P8", "O1", "O2"}) {
        all << channel;
    }
    ChooseElectrodes(all);
    EXPECT_EQ(Averaged().size(), 19U);
    Leave();
    Start(Demo("other.edf", 2));
    EXPECT_EQ(bench->Middle().Repairs().Text().toStdString().find("mean of"), std::string::npos);
}

TEST_F(MontageMenu, BadElectrodesAreNotOffered) {
    Start(Demo());
    Recording().GetTraceInfo()->FindSensor("C3")->SetBad(true);
    UseAverage();
    user.MeetsDialog([](QDialog& dialog) {
        const QStringList rows = FormUser(dialog).RowsOf("electrodes");
        EXPECT_EQ(rows.size(), 18);
        EXPECT_FALSE(rows.contains("C3"));
        dialog.reject();
    });
    Choose("montageAverage");
}

TEST_F(MontageMenu, ElectrodesAreChosenOnlyWithARecording) {
    Start();
    Opens("menuMontage");
    EXPECT_FALSE(Item("montageAverage").isEnabled());
    EXPECT_TRUE(Item("montageEdit").isEnabled());
}

TEST_F(MontageMenu, AnOwnMontageIsOfferedForEveryRecordingThatFits) {
    folder.Write("data/MONTAGE/Elsewhere.mtg", "a = Grid1 -Grid2\n");
    folder.Write("data/MONTAGE/Wrong.mtg", "a b c\n");
    Start(Demo());
    EXPECT_THAT(bench->Middle().Repairs().Text().toStdString(),
                HasSubstr("Wrong.mtg: line 1: is no channel"));
    user.MeetsDialog([](QDialog& editor) {
        const FormUser form(editor);
        form.SelectsRow("lvMontages", 1);
        form.Types("edName", "Vertex");
        form.Types("edChannels", "C3-Cz = C3 -Cz");
        form.Clicks("btOk");
    });
    Choose("montageEdit");
    EXPECT_EQ(MontageNames().back(), "Vertex");
    ChangeMontage(MontageNames().size() - 1);
    EXPECT_EQ(Used().GetName(), "Vertex");
    test::WaitUntilIdle();
    Leave();

    Start(); // the same recording
    EXPECT_EQ(Used().GetName(), "Vertex");
    bench->GetDocuments().Open(Demo("other.edf", 2));
    EXPECT_EQ(MontageNames().back(), "Vertex");
}

} // namespace
