// SPDX-License-Identifier: GPL-3.0-or-later
// What the panel shows.
#include "tests/side_bar/panel_fixture.h"
#include "tests/side_bar/settings_case.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QTreeWidget>
#include <gmock/gmock.h>

#include <sstream>

namespace {

using namespace orvanta;
using testing::ElementsAre;
using testing::IsEmpty;

SpectraMacro OtherLength() {
    SpectraMacro macro = test::SmallMacro();
    macro.SetFFTSeconds(2);
    return macro;
}

/// One window over all of the recording.
SpectraMacro SingleEpoch() {
    SpectraMacro macro = test::SmallMacro();
    macro.SetEpochsSelMode(SpectraMacro::EpochsSelectionMode::FirstN);
    macro.SetNumEpochsToUse(1);
    return macro;
}

class SpectraPanel : public test::PanelFixture {
protected:
    QStringList Rows(const char* list) { return User().RowsOf(list); }
    QStringList Selected(const char* list) { return User().SelectedRowsOf(list); }
    static QStringList Names(std::initializer_list<const SpectMacroResult*> analyses) {
        QStringList names;
        for (const SpectMacroResult* analysis : analyses) {
            names << QString::fromStdString(analysis->GetName());
        }
        return names;
    }
    std::vector<std::string> Enabled() {
        std::vector<std::string> names;
        for (const char* button : {"BtnSpectraNew", "BtnEdit", "BtnEraseSpectra", "BtnExport"}) {
            if (User().IsEnabled(button)) {
                names.emplace_back(button);
            }
        }
        return names;
    }
};

TEST_F(SpectraPanel, IsCaptionedAsItsTab) {
    EXPECT_EQ(Open().windowTitle(), "t-test");
}

TEST_F(SpectraPanel, HasTheseCaptions) {
    Open();
    const std::pair<const char*, const char*> captions[] = {
        {"gbMain", "Main Spectrum"},        {"BtnSpectraNew", "New..."}, {"BtnEraseSpectra", "Erase..."},
        {"BtnExport", "Export..."},         {"BtnEdit", "Edit..."},      {"BtnErpProcess", "Process"},
        {"gbStats", "Secondary Spectrum"},  {"cbStat", "Show t-test"},   {"cbSpectRatio", "Show Ratio"},
        {"Label1", "p-value threshold [%]"}};
    for (const auto& [control, caption] : captions) {
        EXPECT_EQ(User().TextOf(control), caption);
    }
}

TEST_F(SpectraPanel, GivesTheNamesTheRoomThatCountAndColorLeave) {
    Open();
    panel->setFixedWidth(300);
    RunQueue();
    for (const char* name : {"lvMainList", "lvSecondaryList"}) {
        const auto& list = Get<QTreeWidget>(name);
        EXPECT_GE(list.columnWidth(0), 100) << name;
        EXPECT_EQ(list.columnWidth(1), 65) << name;
        EXPECT_NEAR(list.columnWidth(2), 40, 10) << name; // its title fits in any font
        EXPECT_EQ(list.columnWidth(0) + list.columnWidth(1) + list.columnWidth(2), list.viewport()->width())
            << name;
    }
}

TEST_F(SpectraPanel, ShowsMainAndSecondaryOfMany) {
    for (int i = 0; i < 200; ++i) {
        Add();
    }
    manager.SetMain(*(manager.begin() + 150));
    manager.SetSecondary(*(manager.begin() + 180));
    Open();
    panel->SomethingChanged();
    RunQueue();
    for (const char* name : {"lvMainList", "lvSecondaryList"}) {
        const auto& list = Get<QTreeWidget>(name);
        ASSERT_EQ(list.selectedItems().size(), 1) << name;
        EXPECT_TRUE(list.viewport()->rect().contains(list.visualItemRect(list.selectedItems()[0]))) << name;
    }
    EXPECT_EQ(Rows("lvSecondaryList").size(), 199);
}

TEST_F(SpectraPanel, ListsTheSpectraInTheOrderOfTheManagerAndSelectsTheMainOne) {
    const SpectMacroResult* first = &Add();
    SpectMacroResult* second = &Add();
    manager.SetMain(second);
    Open();
    EXPECT_EQ(Rows("lvMainList"), Names({first, second}));
    EXPECT_EQ(Selected("lvMainList"), Names({second}));
    auto& list = Get<QTreeWidget>("lvMainList");
    EXPECT_EQ(list.topLevelItem(0)->text(1), "9");
    EXPECT_EQ(list.headerItem()->text(0), "Macro");
    EXPECT_EQ(list.headerItem()->text(1), "Count");
    EXPECT_EQ(list.headerItem()->text(2), "Color");
}

TEST_F(SpectraPanel, ListsAsSecondaryWhatHasTheResolutionAndTheMontageOfTheMainOne) {
    SpectMacroResult* main = &Add();
    const SpectMacroResult* same = &Add();
    Add(OtherLength());
    recording->GetTraceInfo()->SetMtg(test::MontageOf(*recording, "A = +Fp1 -F3"));
    Add(); // of another montage
    manager.SetMain(main);
    Open();
    EXPECT_EQ(Rows("lvMainList").size(), 4);
    EXPECT_EQ(Rows("lvSecondaryList"), Names({same}));
}

TEST_F(SpectraPanel, SelectsTheSecondaryOfTheManager) {
    Add();
    Add();
    SpectMacroResult* third = &Add();
    manager.SetSecondary(third);
    Open();
    EXPECT_EQ(Selected("lvSecondaryList"), Names({third}));
    EXPECT_EQ(manager.GetSecondary(), third);
}

TEST_F(SpectraPanel, FillsBothListsAnewForAnotherMain) {
    const SpectMacroResult* first = &Add();
    SpectMacroResult* second = &Add();
    Open();
    ASSERT_EQ(manager.GetMain(), first);
    User().SelectsRow("lvMainList", 1);
    EXPECT_EQ(manager.GetMain(), second);
    EXPECT_EQ(Rows("lvSecondaryList"), Names({first}));
    EXPECT_THAT(Selected("lvSecondaryList"), IsEmpty());
}

TEST_F(SpectraPanel, KeepsTheSecondaryForAnotherMainThatItCanBeComparedWith) {
    Add();
    SpectMacroResult* second = &Add();
    SpectMacroResult* third = &Add();
    manager.SetSecondary(third);
    Open();
    User().SelectsRow("lvMainList", 1);
    EXPECT_EQ(manager.GetMain(), second);
    EXPECT_EQ(manager.GetSecondary(), third);
    EXPECT_EQ(Selected("lvSecondaryList"), Names({third}));
}

TEST_F(SpectraPanel, NoLongerComparesWhatBecomesTheMainOne) {
    Add();
    SpectMacroResult* second = &Add();
    manager.SetSecondary(second);
    Open();
    User().SelectsRow("lvMainList", 1);
    EXPECT_EQ(manager.GetMain(), second);
    EXPECT_EQ(manager.GetSecondary(), nullptr);
    EXPECT_THAT(Selected("lvSecondaryList"), IsEmpty());
}

TEST_F(SpectraPanel, TellsTheLongInformationOnTheMainOne) {
    const SpectMacroResult& main = Add();
    Open();
    std::ostringstream text;
    main.GetLongInfo(text);
    EXPECT_EQ(User().TextOf("ebSpectrumMemo").toStdString(), text.str());
}

TEST_F(SpectraPanel, EnablesEverythingWithTwoSpectra) {
    Add();
    Add();
    Open();
    EXPECT_THAT(Enabled(), ElementsAre("BtnSpectraNew", "BtnEdit", "BtnEraseSpectra", "BtnExport"));
}

TEST_F(SpectraPanel, DoesNotEraseTheLastSpectrum) {
    Add();
    Open();
    EXPECT_THAT(Enabled(), ElementsAre("BtnSpectraNew", "BtnEdit", "BtnExport"));
}

TEST_F(SpectraPanel, MakesNewSpectraOnlyOfARecording) {
    Add();
    panel = new TFormListenerSpectra1(view->GetHandle(), &platform, nullptr, &manager);
    panel->setParent(&window);
    EXPECT_THAT(Enabled(), ElementsAre("BtnEdit", "BtnExport"));
    panel->BtnSpectraNewClick();
    panel->BtnEditClick();
    EXPECT_EQ(manager.Size(), 1u);
}

TEST_F(SpectraPanel, IsEmptyWithoutASpectrum) {
    Open();
    EXPECT_THAT(Rows("lvMainList"), IsEmpty());
    EXPECT_THAT(Rows("lvSecondaryList"), IsEmpty());
    EXPECT_THAT(Enabled(), ElementsAre("BtnSpectraNew"));
}

TEST_F(SpectraPanel, KeepsTheStateOfTheButtonsWhenAllSpectraAreGone) {
    SpectMacroResult& first = Add();
    SpectMacroResult& second = Add();
    Open();
    for (SpectMacroResult* analysis : {&first, &second}) {
        manager.Remove(analysis);
        delete analysis;
    }
    panel->FillListSpectra();
    EXPECT_THAT(Rows("lvMainList"), IsEmpty());
    EXPECT_THAT(Enabled(), ElementsAre("BtnSpectraNew", "BtnEdit", "BtnEraseSpectra", "BtnExport"));
    panel->SomethingChanged();
    EXPECT_THAT(Enabled(), ElementsAre("BtnSpectraNew"));
}

TEST_F(SpectraPanel, WorksWithoutAManager) {
    panel = new TFormListenerSpectra1(view->GetHandle(), &platform, recording.get(), nullptr);
    panel->setParent(&window);
    panel->SomethingChanged();
    Get<QCheckBox>("cbStat").setChecked(true);
    Get<QCheckBox>("cbSpectRatio").setChecked(true);
    Get<QComboBox>("cbThreshold").setCurrentIndex(0);
    panel->lvSecondaryListSelectItem(nullptr, false);
    EXPECT_THAT(Rows("lvMainList"), IsEmpty());
}

TEST_F(SpectraPanel, ForgetsAnAnalysisThatIsGone) {
    SpectMacroResult& first = Add();
    Add();
    Open();
    manager.Remove(&first); // by another view
    delete &first;
    panel->grab();
    panel->BtnErpProcessClick();
    panel->BtnEraseSpectraClick(); // does not ask
    EXPECT_EQ(manager.Size(), 1u);
}

TEST_F(SpectraPanel, ChecksTheTTestAtARefreshWhenBothAreSelected) {
    Add();
    SpectMacroResult* second = &Add();
    Open();
    EXPECT_FALSE(User().IsChecked("cbStat"));
    EXPECT_FALSE(manager.GetShowTTest());
    User().SelectsRow("lvSecondaryList", 0);
    EXPECT_EQ(manager.GetSecondary(), second);
    EXPECT_FALSE(User().IsChecked("cbStat")); // follows at the next refresh
    panel->SomethingChanged();
    EXPECT_TRUE(User().IsChecked("cbStat"));
    EXPECT_TRUE(manager.GetShowTTest());
}

TEST_F(SpectraPanel, ChecksTheTTestAgainAtARefresh) {
    Add();
    manager.SetSecondary(&Add());
    Open();
    ASSERT_TRUE(User().IsChecked("cbStat"));
    User().Clicks("cbStat");
    EXPECT_FALSE(manager.GetShowTTest());
    panel->SomethingChanged();
    EXPECT_TRUE(User().IsChecked("cbStat"));
    EXPECT_TRUE(manager.GetShowTTest());
}

TEST_F(SpectraPanel, HasNoTTestForAMainOneOfASingleEpoch) {
    Add(SingleEpoch());
    Add();
    Open();
    User().SelectsRow("lvSecondaryList", 0);
    panel->SomethingChanged();
    EXPECT_NE(manager.GetSecondary(), nullptr);
    EXPECT_FALSE(User().IsChecked("cbStat"));
    EXPECT_FALSE(manager.GetShowTTest());
}

TEST_F(SpectraPanel, DoesNotAskForTheEpochsOfTheSecondary) {
    Add();
    manager.SetSecondary(&Add(SingleEpoch()));
    Open();
    EXPECT_TRUE(User().IsChecked("cbStat"));
}

TEST_F(SpectraPanel, IsFilledAnewWhenItComesToTheFront) {
    const SpectMacroResult* first = &Add();
    Open();
    panel->hide();
    const SpectMacroResult* second = &Add();
    EXPECT_EQ(Rows("lvMainList"), Names({first}));
    panel->show();
    EXPECT_EQ(Rows("lvMainList"), Names({first, second}));
}

TEST_F(SpectraPanel, ShowsTheColourOfEachSpectrum) {
    SpectraMacro macro = test::SmallMacro();
    macro.Color = 0x000080FF; // red 0xFF, green 0x80
    Add(macro);
    Open();
    auto& list = Get<QTreeWidget>("lvMainList");
    const QRect row = list.visualItemRect(list.topLevelItem(0));
    const int left = list.columnViewportPosition(2);
    const QImage picture = list.viewport()->grab().toImage();
    EXPECT_EQ(picture.pixelColor((left + row.right()) / 2, row.center().y()), QColor(0xFF, 0x80, 0));
    EXPECT_NE(picture.pixelColor(left - 4, row.center().y()), QColor(0xFF, 0x80, 0));
}

TEST_F(SpectraPanel, FitsIntoASmallWindow) {
    Add();
    Open();
    EXPECT_LE(panel->minimumSizeHint().height(), 200);
    EXPECT_LE(panel->minimumSizeHint().width(), 320);
}

class ThresholdBox : public SpectraPanel {
protected:
    ThresholdBox() {
        Add();
        Open();
    }
    double ThresholdAfterTyping(const QString& text) {
        User().Types("cbThreshold", text);
        return manager.GetPThreshold();
    }

    test::NumeralsOf english{QLocale::English};
};

TEST_F(ThresholdBox, OffersFiveValuesAndStartsWithFivePercent) {
    const auto& box = Get<QComboBox>("cbThreshold");
    QStringList items;
    for (int i = 0; i < box.count(); ++i) {
        items << box.itemText(i);
    }
    EXPECT_EQ(items, (QStringList{"0.10", "0.05", "0.01", "0.005", "0.001"}));
    EXPECT_EQ(box.currentIndex(), 1);
    EXPECT_EQ(panel->GetThreshold(), 0.05);
}

TEST_F(ThresholdBox, SetsTheThresholdThatIsChosen) {
    EXPECT_EQ(DrawsOf([this] { Get<QComboBox>("cbThreshold").setCurrentIndex(3); }), std::vector{false});
    EXPECT_EQ(manager.GetPThreshold(), 0.005);
}

TEST_F(ThresholdBox, SetsTheThresholdThatIsTyped) {
    EXPECT_EQ(ThresholdAfterTyping("0.02"), 0.02);
    EXPECT_EQ(ThresholdAfterTyping("1"), 1.0);
}

TEST_F(ThresholdBox, IgnoresWhatIsNoThreshold) {
    manager.SetPThreshold(0.03);
    for (const char* text : {"2", "0", "-0.5", "few", "0,5", "", "nan"}) {
        Get<QComboBox>("cbThreshold").setEditText(text);
        EXPECT_EQ(panel->GetThreshold(), -1.0) << text;
        EXPECT_EQ(manager.GetPThreshold(), 0.03) << text;
    }
}

TEST_F(ThresholdBox, DrawsNothingForTheThresholdThatIsSet) {
    manager.SetPThreshold(0.01);
    EXPECT_THAT(DrawsOf([this] { Get<QComboBox>("cbThreshold").setCurrentIndex(2); }), IsEmpty());
}

TEST_F(ThresholdBox, TellsWhatTheFractionIsInPercent) {
    const auto meaning = [this] { return Get<QLabel>("lbThresholdMeaning").text().toStdString(); };
    EXPECT_EQ(meaning(), "0.05 stands for 5 %");
    User().Types("cbThreshold", "0.007");
    EXPECT_EQ(meaning(), "0.007 stands for 0.7 %");
    User().Types("cbThreshold", "5");
    EXPECT_EQ(meaning(), "No number up to 1: 0.007 stays");
    EXPECT_EQ(Get<QComboBox>("cbThreshold").accessibleDescription().toStdString(), meaning());
}

TEST_F(ThresholdBox, OffersWhatItCanReadInEveryLanguage) {
    const test::NumeralsOf german(QLocale::German);
    TFormListenerSpectra1 other(view->GetHandle(), &platform, recording.get(), &manager);
    auto& box = *other.findChild<QComboBox*>("cbThreshold");
    EXPECT_EQ(box.itemText(3), "0,005");
    box.setCurrentIndex(3);
    EXPECT_EQ(manager.GetPThreshold(), 0.005);
}

TEST_F(ThresholdBox, ReadsTheUsersNumerals) {
    const test::NumeralsOf german(QLocale::German);
    Get<QComboBox>("cbThreshold").setEditText("0,02");
    EXPECT_EQ(manager.GetPThreshold(), 0.02);
    Get<QComboBox>("cbThreshold").setCurrentText("0.01"); // no number there
    EXPECT_EQ(panel->GetThreshold(), -1.0);
    EXPECT_EQ(manager.GetPThreshold(), 0.02);
}

} // namespace
