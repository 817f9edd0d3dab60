// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/dialog.h"
#include "tests/support/qt/form_user.h"
#include "tests/support/qt/scripted_user.h"
#include "tests/support/temp_folder.h"
#include "ui_small_dialog.h"

#include <QPushButton>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using orvanta::test::FormUser;
using orvanta::test::ScriptedUser;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr unsigned kNumber = 1626;

/// Writes down what happens to it, and reads an edit when it closes.
class LoggingDialog final : public PDialog {
public:
    explicit LoggingDialog(unsigned number = kNumber, const PModule* module = nullptr)
        : PDialog(nullptr, number, module) {}

    using PDialog::OnClick;
    using PDialog::OnTextChange;

    void Destroy(int retValue) override {
        PDialog::Destroy(retValue);
        log.push_back("closed with " + std::to_string(retValue) + " at " + GetDlgItemText(106, 63));
    }

    std::vector<std::string> log;

protected:
    void SetupWindow() override {
        PDialog::SetupWindow();
        log.emplace_back("set up");
        SetDlgItemText(106, "0.0");
    }
};

class TDialogTest : public testing::Test {
protected:
    TDialogTest() {
        owl::RegisterDialogTemplate(kNumber, [](QDialog& dialog) { Ui::SmallDialog().setupUi(&dialog); });
    }
    ~TDialogTest() override { owl::RegisterDialogTemplate(kNumber, nullptr); }
};

TEST_F(TDialogTest, LooksLikeTheTemplateOfItsNumber) {
    const LoggingDialog dialog;
    EXPECT_EQ(dialog.windowTitle(), "Small Dialog");
    ASSERT_NE(dialog.GetDlgItem(106), nullptr);
    EXPECT_EQ(dialog.GetDlgItem(106)->objectName(), "edit");
    EXPECT_EQ(dialog.GetDlgItem(107), nullptr);
    EXPECT_NE(dialog.Item<QLineEdit>(106), nullptr);
    EXPECT_EQ(dialog.Item<QCheckBox>(106), nullptr);
}

TEST_F(TDialogTest, IsEmptyWithoutATemplate) {
    LoggingDialog dialog(1627);
    EXPECT_THAT(dialog.children(), IsEmpty());
    EXPECT_EQ(dialog.GetDlgItem(1), nullptr);
    ScriptedUser user;
    user.MeetsDialog([](QDialog& shown) { FormUser(shown).PressesEscape(); });
    EXPECT_EQ(dialog.Execute(), owl::kIdCancel);
}

TEST_F(TDialogTest, StandsOverItsParent) {
    QWidget parent;
    const PDialog dialog(HWND(&parent), kNumber, nullptr);
    EXPECT_EQ(dialog.parentWidget(), &parent);
}

TEST_F(TDialogTest, IsSetUpThenShownThenReadWhenTheUserPressesOk) {
    LoggingDialog dialog;
    ScriptedUser user;
    user.MeetsDialog([](QDialog& shown) {
        const FormUser hand(shown);
        EXPECT_EQ(hand.TextOf("edit"), "0.0");
        hand.Types("edit", "12.5");
        static_cast<LoggingDialog&>(shown).Item<QPushButton>(1)->click();
    });
    EXPECT_EQ(dialog.Execute(), 1);
    EXPECT_THAT(dialog.log, ElementsAre("set up", "closed with 1 at 12.5"));
}

TEST_F(TDialogTest, ClosesWithCancelByButtonEscapeOrFrame) {
    const std::function<void(QDialog&)> ways[] = {
        [](QDialog& shown) { static_cast<LoggingDialog&>(shown).Item<QPushButton>(2)->click(); },
        [](QDialog& shown) { FormUser(shown).PressesEscape(); }, [](QDialog& shown) { shown.close(); }};
    for (const auto& way : ways) {
        LoggingDialog dialog;
        ScriptedUser user;
        user.MeetsDialog(way);
        EXPECT_EQ(dialog.Execute(), 2);
        EXPECT_THAT(dialog.log, ElementsAre("set up", "closed with 2 at 0.0"));
    }
}

TEST_F(TDialogTest, IsClosedByTheProgram) {
    LoggingDialog dialog;
    ScriptedUser user;
    user.MeetsDialog([](QDialog& shown) { static_cast<LoggingDialog&>(shown).Destroy(1); });
    EXPECT_EQ(dialog.Execute(), 1);
    EXPECT_THAT(dialog.log, ElementsAre("set up", "closed with 1 at 0.0"));
}

TEST_F(TDialogTest, IsSetUpAgainWhenItOpensAgain) {
    LoggingDialog dialog;
    ScriptedUser user;
    user.MeetsDialog([](QDialog& shown) { shown.reject(); }).MeetsDialog([](QDialog& shown) {
        shown.accept();
    });
    EXPECT_EQ(dialog.Execute(), 2);
    EXPECT_EQ(dialog.Execute(), 1);
    EXPECT_THAT(dialog.log, ElementsAre("set up", "closed with 2 at 0.0", "set up", "closed with 1 at 0.0"));
}

TEST_F(TDialogTest, IsSetUpOnceWhenItIsOnlyRendered) {
    LoggingDialog dialog;
    dialog.grab();
    dialog.grab();
    EXPECT_THAT(dialog.log, ElementsAre("set up"));
}

TEST_F(TDialogTest, IsNotReadWhenItWasNeverSetUp) {
    LoggingDialog dialog;
    dialog.accept();
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_THAT(dialog.log, IsEmpty());
}

TEST_F(TDialogTest, HasOkAsItsDefaultButton) {
    const LoggingDialog dialog;
    EXPECT_TRUE(dialog.Item<QPushButton>(1)->isDefault());
    EXPECT_FALSE(dialog.Item<QPushButton>(2)->isDefault());
}

TEST_F(TDialogTest, GivesTextsToControlsAndTakesThemBack) {
    LoggingDialog dialog;
    for (const int id : {101, 104, 105, 106, 110, 201, 501}) {
        dialog.SetDlgItemText(id, "R&D <b>");
        EXPECT_EQ(dialog.GetDlgItemText(id, 63), "R&D <b>") << id;
    }
    EXPECT_EQ(dialog.Item<QCheckBox>(101)->text(), "R&&D <b>") << "no mnemonic";
    EXPECT_EQ(dialog.Item<QLabel>(501)->text(), "R&&D <b>") << "no mnemonic";
    EXPECT_EQ(dialog.Item<QLabel>(501)->textFormat(), Qt::PlainText);
}

TEST_F(TDialogTest, ReadsCaptionsWithoutTheirMnemonics) {
    const LoggingDialog dialog;
    EXPECT_EQ(dialog.GetDlgItemText(101, 63), "Autoscale");
    EXPECT_EQ(dialog.GetDlgItemText(501, 63), "Name");
    EXPECT_EQ(dialog.GetDlgItemText(201, 63), "Bands");
}

TEST_F(TDialogTest, CutsTextsAtWholeCharacters) {
    LoggingDialog dialog;
    dialog.SetDlgItemText(106, "aµV²");
    const std::pair<int, const char*> cuts[] = {{63, "aµV²"}, {6, "aµV²"}, {5, "aµV"}, {4, "aµV"},
                                                {3, "aµ"},    {2, "a"},    {1, "a"},   {0, ""}};
    for (const auto& [max, text] : cuts) {
        EXPECT_EQ(dialog.GetDlgItemText(106, max), text) << max;
    }
}

TEST_F(TDialogTest, LeavesNumbersThatNoControlHas) {
    LoggingDialog dialog;
    dialog.SetDlgItemText(528, "Meas8");
    dialog.CheckDlgButton(528, true);
    dialog.EnableDlgItem(528, false);
    EXPECT_EQ(dialog.GetDlgItemText(528, 63), "");
    EXPECT_FALSE(dialog.IsDlgButtonChecked(528));
}

TEST_F(TDialogTest, ChecksAndEnablesButtons) {
    LoggingDialog dialog;
    EXPECT_FALSE(dialog.IsDlgButtonChecked(101));
    dialog.CheckDlgButton(101, true);
    EXPECT_TRUE(dialog.IsDlgButtonChecked(101));
    dialog.CheckDlgButton(101, false);
    EXPECT_FALSE(dialog.IsDlgButtonChecked(101));
    dialog.EnableDlgItem(101, false);
    EXPECT_FALSE(dialog.GetDlgItem(101)->isEnabled());
    dialog.EnableDlgItem(101, true);
    EXPECT_TRUE(dialog.GetDlgItem(101)->isEnabled());
}

TEST_F(TDialogTest, ChecksOneRadioButtonOfAGroup) {
    LoggingDialog dialog;
    const auto checked = [&] {
        return std::vector<bool>{dialog.IsDlgButtonChecked(110), dialog.IsDlgButtonChecked(111),
                                 dialog.IsDlgButtonChecked(112)};
    };
    dialog.CheckRadioButton(110, 117, 111);
    EXPECT_THAT(checked(), ElementsAre(false, true, false));
    dialog.CheckRadioButton(110, 117, 112);
    EXPECT_THAT(checked(), ElementsAre(false, false, true));
    dialog.CheckDlgButton(110, true);
    EXPECT_THAT(checked(), ElementsAre(true, false, false));
    dialog.CheckRadioButton(110, 117, 118);
    EXPECT_THAT(checked(), ElementsAre(false, false, false));
}

TEST_F(TDialogTest, TellsOfClicksButNotOfChecksByTheProgram) {
    LoggingDialog dialog;
    int clicks = 0;
    dialog.OnClick(112, [&] { ++clicks; });
    dialog.CheckRadioButton(110, 117, 112);
    EXPECT_EQ(clicks, 0);
    dialog.show();
    FormUser(dialog).Clicks("third");
    EXPECT_EQ(clicks, 1);
}

TEST_F(TDialogTest, TellsOfChangedTexts) {
    LoggingDialog dialog;
    std::vector<std::string> told;
    dialog.OnTextChange(106, [&] { told.emplace_back("edit"); });
    dialog.OnTextChange(104, [&] { told.emplace_back("memo"); });
    dialog.OnTextChange(105, [&] { told.emplace_back("combo"); });
    dialog.OnClick(999, [&] { told.emplace_back("nothing"); });
    dialog.show();
    told.clear();
    FormUser(dialog).Types("edit", "7");
    dialog.SetDlgItemText(104, "free");
    dialog.SetDlgItemText(105, "REM");
    EXPECT_THAT(told, ElementsAre("edit", "memo", "combo"));
    told.clear();
    dialog.Item<QComboBox>(105)->setCurrentIndex(1);
    EXPECT_THAT(told, ElementsAre("combo"));
}

TEST_F(TDialogTest, TakesTextsFromItsModule) {
    const orvanta::test::TempFolder folder;
    folder.Write("Orvanta.en.ini", "[DIALOG]\nIDS3D_GB_SPECTRALDATA=Spectral &data\nEMPTY=\n"
                                   "[DIALOG_1626]\ncaption=A small one\nautoscale=Auto&matic scale\n");
    const PModule module("Orvanta", nullptr, folder.Path(""));
    LoggingDialog dialog(kNumber, &module);
    EXPECT_EQ(dialog.windowTitle(), "A small one");
    EXPECT_EQ(dialog.Item<QCheckBox>(101)->text(), "Auto&matic scale");
    EXPECT_EQ(dialog.Item<QLabel>(501)->text(), "&Name");
    dialog.SetDlgItemMsg("IDS3D_GB_SPECTRALDATA", 201);
    EXPECT_EQ(dialog.Item<QGroupBox>(201)->title(), "Spectral &data");
    dialog.SetDlgItemMsg("EMPTY", 201);
    dialog.SetDlgItemMsg("ABSENT", 201);
    EXPECT_EQ(dialog.Item<QGroupBox>(201)->title(), "Spectral &data");
    dialog.SetDlgItemMsg("IDS3D_GB_SPECTRALDATA", 999);
}

TEST_F(TDialogTest, KeepsTheTextsOfItsLayoutWithoutAModule) {
    LoggingDialog dialog;
    dialog.SetDlgItemMsg("IDS3D_GB_SPECTRALDATA", 201);
    EXPECT_EQ(dialog.Item<QGroupBox>(201)->title(), "Bands");
}

} // namespace
