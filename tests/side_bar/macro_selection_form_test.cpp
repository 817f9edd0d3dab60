// SPDX-License-Identifier: GPL-3.0-or-later
// The form itself: how it starts, what it shows and how it ends.
#include "side_bar/macro_selection_form.h"

#include "tests/side_bar/disk.h"
#include "tests/side_bar/macro_library.h"

#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QWidget>

#include <cstring>

namespace {

using orvanta::test::Disk;
using orvanta::test::FormUser;
using testing::ElementsAre;
using testing::Pair;

class MacroSelectionForm : public orvanta::test::MacroLibrary {};

TEST_F(MacroSelectionForm, StartsAsCancelledWithNothingLoaded) {
    const TFormMacroSpectra& form = Open();
    EXPECT_EQ(form.GetResult(), 0);
    EXPECT_FALSE(form.IsMacroLoaded());
    EXPECT_EQ(form.GetCaption(), "Spectra Manager (Default)");
    EXPECT_TRUE(macro_ == SpectraMacro());
}

TEST_F(MacroSelectionForm, ShowsTheCaptionsOfItsControls) {
    Open();
    EXPECT_EQ(Hand().TextOf("Label1"), "List of available Macros");
    EXPECT_EQ(Hand().TextOf("Label2"), "Selected Macro Description");
    EXPECT_EQ(Hand().TextOf("BitBtnNew"), "New");
    EXPECT_EQ(Hand().TextOf("BitBtnErase"), "Erase");
    EXPECT_EQ(Hand().TextOf("BitBtnEdit"), "Edit");
    EXPECT_EQ(Hand().TextOf("BtnAutoAverage"), "OK");
    EXPECT_EQ(Hand().TextOf("BtnManualAverage"), "Manual");
    EXPECT_EQ(Hand().TextOf("BtnCancel"), "Cancel");
}

TEST_F(MacroSelectionForm, StartsWithNoRowSelectedAndEditDisabled) {
    Save("Alpha", 10);
    Open();
    EXPECT_TRUE(Hand().SelectedRowsOf("ListBoxMacro").isEmpty());
    EXPECT_FALSE(Hand().IsEnabled("BitBtnEdit"));
    EXPECT_EQ(Hand().TextOf("Memo1"), "");
}

TEST_F(MacroSelectionForm, HasADescriptionThatIsOnlyRead) {
    Save("Alpha", 10);
    auto* memo = Open().findChild<QPlainTextEdit*>("Memo1");
    Hand().SelectsRow("ListBoxMacro", 0);
    const QString description = memo->toPlainText();
    QTest::keyClicks(memo, "changed");
    EXPECT_EQ(memo->toPlainText(), description);
    EXPECT_NE(memo->verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
}

TEST_F(MacroSelectionForm, NeverShowsTheManualButton) {
    Save("Alpha", 10);
    const TFormMacroSpectra& form = Open();
    Hand().SelectsRow("ListBoxMacro", 0);
    EXPECT_FALSE(form.findChild<QWidget*>("BtnManualAverage")->isVisible());
    EXPECT_FALSE(Hand().IsEnabled("BtnManualAverage"));
}

TEST_F(MacroSelectionForm, MayBeAsSmallAs200By250) {
    TFormMacroSpectra& form = Open();
    EXPECT_EQ(form.minimumSize(), QSize(200, 250));
    form.resize(200, 250);
    QCoreApplication::processEvents();
    for (const char* name : {"ListBoxMacro", "Memo1", "BitBtnNew", "BitBtnEdit", "BitBtnErase",
                             "BtnAutoAverage", "BtnCancel", "Label1", "Label2"}) {
        auto* control = form.findChild<QWidget*>(name);
        const QRect place(control->mapTo(&form, QPoint(0, 0)), control->size());
        EXPECT_TRUE(form.rect().contains(place)) << name;
        EXPECT_GE(control->height(), control->minimumSizeHint().height() / 2) << name;
    }
}

TEST_F(MacroSelectionForm, IsNeverNarrowerThanItsCaptions) {
    const QFont before = QApplication::font();
    QFont large = before;
    large.setPointSize(3 * before.pointSize());
    QApplication::setFont(large); // as longer texts of another language do
    TFormMacroSpectra& form = Open();
    form.resize(form.minimumSize());
    QCoreApplication::processEvents();
    for (const char* name : {"BitBtnNew", "BitBtnEdit", "BitBtnErase", "BtnAutoAverage", "BtnCancel"}) {
        auto* button = form.findChild<QPushButton*>(name);
        EXPECT_GE(button->width(), button->fontMetrics().size(Qt::TextShowMnemonic, button->text()).width())
            << name;
        EXPECT_LE(button->mapTo(&form, QPoint(button->width(), 0)).x(), form.width()) << name;
    }
    QApplication::setFont(before);
}

TEST_F(MacroSelectionForm, KnowsFromItsModeWhetherItIsNewAndActive) {
    const auto opened = [this](int mode) {
        const TFormMacroSpectra form(nullptr, nullptr, &macro_, nullptr, {}, mode);
        return std::pair(form.IsOpenedAsNew(), form.IsActive());
    };
    EXPECT_THAT(opened(0), Pair(false, false));
    EXPECT_THAT(opened(1), Pair(true, true));
    EXPECT_THAT(opened(2), Pair(false, true));
}

TEST_F(MacroSelectionForm, EndsWithTheResultOfTheLastButton) {
    TFormMacroSpectra& form = Open();
    form.BtnManualAverageClick();
    EXPECT_EQ(form.GetResult(), 2);
    form.BtnAutoAverageClick();
    EXPECT_EQ(form.GetResult(), 1);
    EXPECT_TRUE(form.IsActive());
    form.BtnCancelClick();
    EXPECT_EQ(form.GetResult(), 0);
    EXPECT_FALSE(form.IsActive());
}

TEST_F(MacroSelectionForm, IsShownThroughTheModalGateway) {
    user_.MeetsDialog([](QDialog& form) { FormUser(form).Clicks("BtnAutoAverage"); });
    TFormMacroSpectra form(nullptr, nullptr, &macro_, nullptr, {}, 1);
    EXPECT_EQ(form.ShowModal(), owl::kIdOk);
    EXPECT_EQ(form.GetResult(), 1);
}

TEST_F(MacroSelectionForm, CancelsOnEscape) {
    const TFormMacroSpectra& form = Open();
    Hand().PressesEscape();
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(form.GetResult(), 0);
    EXPECT_FALSE(form.IsActive());
}

TEST_F(MacroSelectionForm, ChoosesTheRowThatIsDoubleClicked) {
    Save("Alpha", 10);
    Save("Beta", 20);
    const TFormMacroSpectra& form = Open();
    Hand().DoubleClicksRow("ListBoxMacro", 1);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(form.GetResult(), 1);
    EXPECT_EQ(macro_.GetOverlapPerc(), 20U);
}

TEST_F(MacroSelectionForm, ChoosesTheSelectedRowOnEnter) {
    Save("Alpha", 10);
    TFormMacroSpectra& form = Open();
    Hand().SelectsRow("ListBoxMacro", 0);
    QTest::keyClick(form.findChild<QWidget*>("ListBoxMacro"), Qt::Key_Return);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(form.GetResult(), 1);
    EXPECT_EQ(macro_.GetOverlapPerc(), 10U);
}

TEST_F(MacroSelectionForm, BelongsToItsParentElseItsOwner) {
    QWidget owner, parent;
    const TFormMacroSpectra owned(&owner, nullptr, &macro_, nullptr, {}, 1);
    EXPECT_EQ(owned.GetParentWindow(), HWND(&owner));
    EXPECT_EQ(owned.parentWidget(), &owner);
    const TFormMacroSpectra both(&owner, HWND(&parent), &macro_, nullptr, {}, 1);
    EXPECT_EQ(both.GetParentWindow(), HWND(&parent));
    EXPECT_EQ(both.parentWidget(), &parent);
}

TEST_F(MacroSelectionForm, TakesItsFolderFromThePlatform) {
    const TFormMacroSpectra& form = Open();
    EXPECT_EQ(form.GetMacroFolder(), folder_.Path("data") + "/MACRO/");
    EXPECT_EQ(form.GetSearchMask(), folder_.Path("data") + "/MACRO/*.smx");
}

TEST_F(MacroSelectionForm, CutsALongFolderTo259Characters) {
    const orvanta::platform::HostPlatform deep(
        gui_, folder_.Path("settings.ini"),
        folder_.Path(std::string(200, 'a') + "/" + std::string(200, 'b')));
    const TFormMacroSpectra form(nullptr, nullptr, &macro_, nullptr, {}, 1, &deep);
    EXPECT_EQ(std::strlen(form.GetMacroFolder()), 259U);
    EXPECT_EQ(std::strlen(form.GetSearchMask()), 259U);
}

TEST_F(MacroSelectionForm, HasNoFolderAndNoRowsWithoutAPlatform) {
    Disk disk;
    disk.Lists({"Alpha.smx"});
    const TFormMacroSpectra form(nullptr, nullptr, &macro_, nullptr, {}, 1);
    EXPECT_STREQ(form.GetMacroFolder(), "");
    EXPECT_STREQ(form.GetSearchMask(), "*.smx");
    EXPECT_EQ(form.findChild<QListWidget*>("ListBoxMacro")->count(), 0);
}

TEST_F(MacroSelectionForm, ListsTheFilesAsTheFolderGivesThemByName) {
    Disk disk;
    disk.Lists({"Zeta.smx", "Alpha.smx", ".smx", ".quiet.smx", "a.b.smx", "back\\slash.smx"});
    Open();
    EXPECT_EQ(Hand().RowsOf("ListBoxMacro"), QStringList({"Zeta", "Alpha", ".quiet", "a.b", "back\\slash"}));
    EXPECT_THAT(disk.Listed(), ElementsAre(Pair(folder_.Path("data") + "/MACRO/", ".smx")));
}

TEST_F(MacroSelectionForm, SaysQuietlyThatThereIsNoMacro) {
    const auto* text = Open().findChild<QLabel*>("LabelNoMacros");
    EXPECT_EQ(Hand().RowsOf("ListBoxMacro"), QStringList());
    EXPECT_TRUE(text->isVisible());
    EXPECT_EQ(text->text(), "No macros yet. Press New to make one.");
    Save("Alpha", 10);
    EXPECT_FALSE(Open().findChild<QLabel*>("LabelNoMacros")->isVisible());
}

} // namespace
