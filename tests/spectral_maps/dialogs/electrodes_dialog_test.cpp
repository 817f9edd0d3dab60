// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectral_maps/dialogs/electrodes_dialog.h"

#include "host/toolkit/modal_gateway.h"
#include "host/toolkit/window.h"
#include "resources/dialogs/dialog_templates.h"
#include "spectra_contract/recording.h"
#include "tests/support/qt/form_user.h"
#include "tests/support/qt/scripted_user.h"
#include "tests/support/small_recording.h"

#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace orvanta;
using testing::ElementsAre;

class ElectrodesDialog : public testing::Test {
protected:
    ElectrodesDialog() { resources::RegisterDialogs(); }
    ~ElectrodesDialog() override { resources::ForgetDialogs(); }

    const SensorType* Sensor(const char* name) const { return test::SensorOf(*recording, name); }
    /// The user clicks on these rows one after the other and closes the dialog by a button.
    int Run(const std::vector<int>& rows, int button) {
        test::ScriptedUser user;
        user.Meets<CARElectSelDlg>([&](CARElectSelDlg& shown) {
            const auto* list = shown.Item<QListWidget>(100);
            for (const int row : rows) {
                QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier,
                                  list->visualItemRect(list->item(row)).center());
            }
            shown.Item<QPushButton>(button)->click();
        });
        CARElectSelDlg dialog(nullptr, selected, all);
        return dialog.Execute();
    }
    std::vector<std::string> Selected() const {
        std::vector<std::string> names;
        for (const SensorType* sensor : selected) {
            names.push_back(sensor->GetName());
        }
        return names;
    }

    std::unique_ptr<EEGFileInfoType> recording = test::SmallRecording();
    std::list<const SensorType*> all = {Sensor("Cz"), Sensor("Fp1"), Sensor("F3")};
    std::list<const SensorType*> selected = {Sensor("F3")};
};

TEST_F(ElectrodesDialog, HasItsCaptions) {
    CARElectSelDlg dialog(nullptr, selected, all);
    dialog.show();
    EXPECT_EQ(dialog.windowTitle(), "Electrodes Selection");
    EXPECT_EQ(dialog.GetDlgItemText(1, 99), "OK");
    EXPECT_EQ(dialog.GetDlgItemText(2, 99), "Cancel");
    EXPECT_EQ(dialog.GetDlgItem(100)->accessibleName(), "Electrodes");
}

TEST_F(ElectrodesDialog, OffersTheSensorsInTheirOrderWithTheSelectedOnesSelected) {
    selected = {Sensor("F3"), Sensor("Cz")};
    CARElectSelDlg dialog(nullptr, selected, all);
    dialog.show();
    const test::FormUser user(dialog);
    EXPECT_THAT(user.RowsOf("electrodes"), ElementsAre("Cz", "Fp1", "F3"));
    EXPECT_THAT(user.SelectedRowsOf("electrodes"), ElementsAre("Cz", "F3"));
}

TEST_F(ElectrodesDialog, SelectsTheVerySensorAndNoOtherOfItsName) {
    const auto another = test::SmallRecording();
    selected = {test::SensorOf(*another, "F3")};
    CARElectSelDlg dialog(nullptr, selected, all);
    dialog.show();
    EXPECT_TRUE(test::FormUser(dialog).SelectedRowsOf("electrodes").isEmpty());
    dialog.reject();
}

TEST_F(ElectrodesDialog, ShowsSeveralColumnsOfAHundredPixels) {
    all.clear();
    for (int i = 0; i < 40; ++i) {
        all.push_back(Sensor("Cz"));
    }
    CARElectSelDlg dialog(nullptr, selected, all);
    dialog.show();
    const auto* list = dialog.Item<QListWidget>(100);
    EXPECT_EQ(list->gridSize().width(), 100);
    int inFirstColumn = 0;
    const int left = list->visualItemRect(list->item(0)).left();
    while (inFirstColumn < 40 && list->visualItemRect(list->item(inFirstColumn)).left() == left) {
        ++inFirstColumn;
    }
    ASSERT_LT(inFirstColumn, 40);
    EXPECT_EQ(list->visualItemRect(list->item(inFirstColumn)).left(), left + 100);
    EXPECT_EQ(list->visualItemRect(list->item(inFirstColumn)).top(),
              list->visualItemRect(list->item(0)).top());
}

TEST_F(ElectrodesDialog, IsDrawnAgainWhenItIsFilled) {
    CARElectSelDlg dialog(nullptr, selected, all);
    dialog.show();
    EXPECT_TRUE(dialog.GetDlgItem(100)->updatesEnabled());
}

TEST_F(ElectrodesDialog, AnswersTheOrderOfferedNotTheOrderOfClicking) {
    EXPECT_EQ(Run({1, 0}, 1), owl::kIdOk);
    EXPECT_THAT(Selected(), ElementsAre("Cz", "Fp1", "F3"));
}

TEST_F(ElectrodesDialog, TakesAnElectrodeOutAtASecondClick) {
    EXPECT_EQ(Run({0, 2}, 1), owl::kIdOk);
    EXPECT_THAT(Selected(), ElementsAre("Cz"));
}

TEST_F(ElectrodesDialog, MayAnswerNone) {
    EXPECT_EQ(Run({2}, 1), owl::kIdOk);
    EXPECT_TRUE(selected.empty());
}

TEST_F(ElectrodesDialog, LeavesTheListAloneOnCancel) {
    selected = {Sensor("F3"), Sensor("Cz")};
    EXPECT_EQ(Run({0, 1}, 2), owl::kIdCancel);
    EXPECT_THAT(Selected(), ElementsAre("F3", "Cz"));
}

TEST_F(ElectrodesDialog, ComesUpWithoutSensors) {
    all.clear();
    EXPECT_EQ(Run({}, 1), owl::kIdOk);
    EXPECT_TRUE(selected.empty());
}

TEST_F(ElectrodesDialog, IsFilledAndEmptiedByKeyboard) {
    CARElectSelDlg dialog(nullptr, selected, all);
    dialog.show();
    auto* list = dialog.Item<QListWidget>(100);
    list->setFocus();
    list->setCurrentRow(0, QItemSelectionModel::NoUpdate);
    QTest::keyClick(list, Qt::Key_Space);
    QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_Space);
    dialog.accept();
    EXPECT_THAT(Selected(), ElementsAre("Cz"));
}

TEST_F(ElectrodesDialog, SelectsNothingWhenItWasNeverShown) {
    CARElectSelDlg(nullptr, selected, all).Destroy(owl::kIdOk);
    EXPECT_THAT(Selected(), ElementsAre());
}

} // namespace
