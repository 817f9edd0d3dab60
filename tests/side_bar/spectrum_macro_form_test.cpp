// SPDX-License-Identifier: GPL-3.0-or-later
// What the settings form shows when it opens.
#include "tests/side_bar/disk.h"
#include "tests/side_bar/settings_case.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFrame>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QSpinBox>
#include <QTest>
#include <QTreeWidget>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>

namespace {

using orvanta::test::Disk;
using orvanta::test::NumeralsOf;
using orvanta::test::OpenForm;
using orvanta::test::SensorAt;
using orvanta::test::SettingsCase;
using Interval = SpectraMacro::TimeIntervalSelectMode;
using Epochs = SpectraMacro::EpochsSelectionMode;

TEST(SettingsForm, HasItsCaption) {
    SettingsCase given;
    EXPECT_EQ(OpenForm(given).windowTitle(), "Spectral Analysis Settings");
}

TEST(SettingsForm, TellsALabelThatIsCutAsItsTip) {
    SettingsCase given;
    given.AddState("<b>a</b>", 1, 2);
    OpenForm form(given);
    const QTreeWidgetItem* row = form.findChild<QTreeWidget*>("lvReject")->topLevelItem(0);
    EXPECT_EQ(row->text(0), QString("<b>a</b>"));
    EXPECT_THAT(row->toolTip(0).toStdString(), testing::HasSubstr("&lt;b&gt;a&lt;/b&gt;")) << "no markup";
}

TEST(SettingsForm, TakesTheRateOfTheFirstSensorElseOneHertz) {
    SettingsCase given;
    const SensorType slow = SensorAt(200), silent = SensorAt(0);
    const auto rateOf = [&given](const SensorList& sensors) {
        return TFormSpectrumMacro(nullptr, "", &given.macro, &given.events, sensors, 2).GetSamplingRate();
    };
    EXPECT_EQ(rateOf({&given.sensor, &slow}), 500U);
    EXPECT_EQ(rateOf({&slow, &given.sensor}), 200U);
    EXPECT_EQ(rateOf({&silent, &given.sensor}), 1U);
    EXPECT_EQ(rateOf({}), 1U);
}

TEST(SettingsForm, IsEditableWithAModeAndEvents) {
    SettingsCase given;
    const struct {
        EventsManager* events;
        int mode;
        bool editable, fromLibrary;
    } cases[] = {
        {&given.events, 0, false, false}, {&given.events, 1, true, true}, {&given.events, 2, true, false},
        {&given.events, -1, true, false}, {nullptr, 1, false, true},      {nullptr, 2, false, false},
    };
    for (const auto& opened : cases) {
        const TFormSpectrumMacro form(nullptr, "", &given.macro, opened.events, {}, opened.mode);
        EXPECT_EQ(form.IsEditable(), opened.editable) << opened.mode;
        EXPECT_EQ(form.IsOpenedFromLibrary(), opened.fromLibrary) << opened.mode;
    }
}

TEST(SettingsForm, CutsALongFolderTo259Characters) {
    SettingsCase given;
    given.folder = std::string(400, 'f');
    EXPECT_EQ(std::string(OpenForm(given).GetMacroFolder()), std::string(259, 'f'));
}

TEST(SettingsForm, ChecksTheWindowLengthOfTheSettings) {
    const struct {
        double seconds;
        const char *button, *custom;
    } cases[] = {
        {0.5, "rbFFT_05s", "0.5000000"},
        {1, "rbFFT_10s", "1.0000000"},
        {2, "rbFFT_20s", "2.0000000"},
        {4, "rbFFT_40s", "4.0000000"},
        {8, "rbFFT_80s", "8.0000000"},
        {16, "rbFFT_160s", "16.0000000"},
        {3, "rbFFT_Custom", "3.0000000"},
        {32, "rbFFT_Custom", "32.0000000"},
        {1.0000001, "rbFFT_Custom", "1.0000000"},
        {1.0 / 3, "rbFFT_Custom", "0.3333333"},
    };
    for (const auto& wanted : cases) {
        SettingsCase given;
        given.macro.SetFFTSeconds(wanted.seconds);
        const OpenForm form(given);
        EXPECT_TRUE(form.user.IsChecked(wanted.button)) << wanted.seconds;
        EXPECT_EQ(form.user.TextOf("ebCustomSeconds"), wanted.custom);
        EXPECT_EQ(form.user.IsEnabled("ebCustomSeconds"), !std::strcmp(wanted.button, "rbFFT_Custom"));
    }
}

TEST(SettingsForm, TellsTheResolutionOfTheLengthItOpensWith) {
    SettingsCase given;
    given.macro.SetFFTSeconds(3);
    const OpenForm form(given);
    EXPECT_EQ(form.user.TextOf("ebNumSamples"), "1500  (2048)");
    EXPECT_EQ(form.user.TextOf("ebResolution"), "0.24400");
    EXPECT_EQ(form.user.TextOf("ebPadding"), "548  (26%)");
}

TEST(SettingsForm, WritesTheCustomLengthInTheUsersNumerals) {
    SettingsCase given;
    const NumeralsOf german(QLocale::German);
    given.macro.SetFFTSeconds(2.5);
    const OpenForm form(given);
    EXPECT_EQ(form.user.TextOf("ebCustomSeconds"), "2,5000000");
    EXPECT_EQ(form.GetFFTSeconds(), 2.5);
}

TEST(SettingsForm, ShowsTheNumbersOfTheSettings) {
    SettingsCase given;
    given.macro.SetOverlapPerc(75);
    given.macro.SetFixedDurationSec(90);
    given.macro.SetPreTriggerMS(-40000);
    given.macro.SetTrgDurationMS(50000);
    given.macro.SpotStepCount = 4;
    given.macro.SpotStepInc = 250;
    given.macro.SetContrastValue(-3);
    given.macro.SetNumEpochsToUse(12);
    const OpenForm form(given);
    EXPECT_EQ(form.user.TextOf("ebOverlap"), "75");
    EXPECT_EQ(form.user.NumberOf("udDuration"), 90);
    EXPECT_EQ(form.user.TextOf("lePreTrigger"), "-40000");
    EXPECT_EQ(form.user.TextOf("leTrgDuration"), "50000");
    EXPECT_EQ(form.user.TextOf("leSpotStepCount"), "4");
    EXPECT_EQ(form.user.TextOf("leSpotStepInc"), "250");
    EXPECT_EQ(form.user.TextOf("ebBCIValue"), "-3");
    EXPECT_EQ(form.user.TextOf("ebUseExactlyCountEpochs"), "12");
}

TEST(SettingsForm, HasTheRangesOfItsSpinners) {
    SettingsCase given;
    const OpenForm form(given);
    const struct {
        const char* spinner;
        int least, most;
    } cases[] = {
        {"udOverlap", 0, 95},
        {"udDuration", 0, 3600},
        {"udPreTrigger", -536870911, 536870911},
        {"udTrgDuration", -536870911, 536870911},
        {"udSpotStepCount", 1, 256},
        {"udSpotStepInc", 1, 32000},
        {"udContrastValue", -32767, 32767},
        {"udUseExactlyCountEpochs", 1, 32767},
    };
    for (const auto& wanted : cases) {
        const auto* spinner = form.findChild<QSpinBox*>(wanted.spinner);
        ASSERT_NE(spinner, nullptr) << wanted.spinner;
        EXPECT_EQ(spinner->minimum(), wanted.least) << wanted.spinner;
        EXPECT_EQ(spinner->maximum(), wanted.most) << wanted.spinner;
    }
}

TEST(SettingsForm, ShowsNumbersBeyondASpinnersRangeAsTheNearest) {
    SettingsCase given;
    given.macro.SetOverlapPerc(99);
    given.macro.SetFixedDurationSec(4000000000U);
    given.macro.SetNumEpochsToUse(1000000000000U);
    const OpenForm form(given);
    EXPECT_EQ(form.user.NumberOf("udOverlap"), 95);
    EXPECT_EQ(form.user.NumberOf("udDuration"), 3600);
    EXPECT_EQ(form.user.NumberOf("udUseExactlyCountEpochs"), 32767);
}

TEST(SettingsForm, SelectsTheWindowFunctionCaseIgnored) {
    SettingsCase given;
    given.macro.SetDSPWindowStr("flat TOP");
    EXPECT_EQ(OpenForm(given).user.SelectedRowsOf("lbWindow"), QStringList("Flat Top"));
}

TEST(SettingsForm, SelectsTheFirstWindowFunctionForAnUnknownName) {
    SettingsCase given;
    given.macro.SetDSPWindowStr("Unheard of");
    const OpenForm form(given);
    EXPECT_EQ(form.user.SelectedRowsOf("lbWindow"), QStringList(form.user.RowsOf("lbWindow").first()));
}

TEST(SettingsForm, ListsWindowFunctionsAsTheFolderGivesThemAndSelectsTheLastOfTheName) {
    Disk disk;
    disk.Lists({"Zeta.wnd", "HANNING.wnd", "Alpha.wnd", "hanning.wnd", "Beta.wnd"});
    SettingsCase given;
    given.macro.SetDSPWindowStr("Hanning");
    const OpenForm form(given);
    EXPECT_EQ(form.user.RowsOf("lbWindow"), (QStringList{"Zeta", "HANNING", "Alpha", "hanning", "Beta"}));
    EXPECT_EQ(form.user.SelectedRowsOf("lbWindow"), QStringList("hanning"));
    EXPECT_EQ(disk.Listed().at(0).second, ".wnd");
}

TEST(SettingsForm, ListsEventsByCaptionWithCountsAndSeconds) {
    SettingsCase given;
    given.AddState("Movement", 60, 3);
    const OpenForm form(given);
    const auto rowsOf = [&form](const char* name) {
        QStringList rows;
        const auto* list = form.findChild<QTreeWidget*>(name);
        for (int row = 0; row < list->topLevelItemCount(); ++row) {
            QStringList texts;
            for (int column = 0; column < list->columnCount(); ++column) {
                texts << list->topLevelItem(row)->text(column);
            }
            rows << texts.join('|');
        }
        return rows;
    };
    const QStringList states{"Asleep|2|30", "Awake|1|5", "bad|1|2", "Movement|1|3"};
    EXPECT_EQ(rowsOf("lvStateAccept"), states);
    EXPECT_EQ(rowsOf("lvReject"), states);
    EXPECT_EQ(rowsOf("lvSpotAccept"), (QStringList{"Blink|1", "Spike|3"}));
}

TEST(SettingsForm, GivesLabelsTheirWidthAtLeastAndCutsNoNumber) {
    SettingsCase given;
    const OpenForm form(given);
    const struct {
        const char* list;
        int label;
    } cases[] = {{"lvStateAccept", 120}, {"lvSpotAccept", 120}, {"lvReject", 110}};
    for (const auto& wanted : cases) {
        const auto* list = form.findChild<QTreeWidget*>(wanted.list);
        EXPECT_GE(list->columnWidth(0), wanted.label) << wanted.list;
        for (int column = 1; column < list->columnCount(); ++column) {
            EXPECT_GE(list->columnWidth(column), list->header()->sectionSizeHint(column)) << wanted.list;
        }
    }
}

TEST(SettingsForm, SelectsTheEventsOfTheSettings) {
    SettingsCase given;
    given.macro.SetAcceptStateList({"Awake", "Asleep", "awake", "gone"});
    given.macro.SetAcceptSpotList({"Spike", "Awake"});
    given.macro.SetRejectEventsList({"bad", "Blink"});
    const OpenForm form(given);
    EXPECT_EQ(form.user.SelectedRowsOf("lvStateAccept"), (QStringList{"Asleep", "Awake", "awake", "gone"}));
    EXPECT_EQ(form.user.SelectedRowsOf("lvSpotAccept"), (QStringList{"Spike", "Awake"}));
    EXPECT_EQ(form.user.SelectedRowsOf("lvReject"), (QStringList{"bad", "Blink"}));
}

TEST(SettingsForm, ListsLabelsThatTheRecordingLacksBehindItsOwn) {
    SettingsCase given;
    given.macro.SetAcceptStateList({"Awake", "a nap", "N2 sleep"});
    given.macro.SetAcceptSpotList({"Sharp wave"});
    given.macro.SetRejectEventsList({"Blink", "Arousal"});
    const OpenForm form(given);
    EXPECT_EQ(form.user.RowsOf("lvStateAccept"),
              (QStringList{"Asleep", "Awake", "bad", "a nap", "N2 sleep"}));
    EXPECT_EQ(form.user.RowsOf("lvSpotAccept"), (QStringList{"Blink", "Spike", "Sharp wave"}));
    EXPECT_EQ(form.user.RowsOf("lvReject"), (QStringList{"Asleep", "Awake", "bad", "Blink", "Arousal"}));
}

TEST(SettingsForm, SetsLabelsApartThatTheRecordingLacks) {
    SettingsCase given;
    given.macro.SetAcceptStateList({"Awake", "N2 sleep"});
    const OpenForm form(given);
    const auto* list = form.findChild<QTreeWidget*>("lvStateAccept");
    const QTreeWidgetItem& here = *list->topLevelItem(1);
    const QTreeWidgetItem& lacking = *list->topLevelItem(3);
    EXPECT_EQ(here.text(0), "Awake");
    EXPECT_FALSE(here.font(0).italic());
    EXPECT_EQ(here.toolTip(0), Qt::convertFromPlainText("Awake"));
    EXPECT_EQ(lacking.text(0), "N2 sleep");
    EXPECT_EQ(lacking.text(1), "0");
    EXPECT_EQ(lacking.text(2), "0");
    EXPECT_TRUE(lacking.font(0).italic());
    EXPECT_EQ(lacking.data(0, Qt::AccessibleDescriptionRole).toString(),
              "N2 sleep: not in this recording. Kept in the settings while selected");
}

TEST(SettingsForm, ComparesLabelsByTheirBytes) {
    SettingsCase given;
    given.macro.SetAcceptStateList({"asleep", "AWAKE"});
    EXPECT_EQ(OpenForm(given).user.SelectedRowsOf("lvStateAccept"), (QStringList{"asleep", "AWAKE"}));
}

TEST(SettingsForm, HasNoEventRowsWithoutEvents) {
    SettingsCase given;
    const TFormSpectrumMacro form(nullptr, "", &given.macro, nullptr, {}, 2);
    for (const char* list : {"lvStateAccept", "lvSpotAccept", "lvReject"}) {
        EXPECT_EQ(form.findChild<QTreeWidget*>(list)->topLevelItemCount(), 0) << list;
    }
}

TEST(SettingsForm, EnablesWhatBelongsToTheIntervalsOfTheSettings) {
    const struct {
        Interval mode;
        const char* button;
        bool duration, states, spots;
    } cases[] = {
        {Interval::AllRecording, "rbAllRec", false, false, false},
        {Interval::ByDuration, "rbByDuration", true, false, false},
        {Interval::ByStateEvents, "rbByStateEvent", false, true, false},
        {Interval::BySpotEvents, "rbBySpotEvent", false, false, true},
    };
    for (const auto& wanted : cases) {
        SettingsCase given;
        given.macro.SetTimeIntervalSelectMode(wanted.mode);
        const OpenForm form(given);
        EXPECT_TRUE(form.user.IsChecked(wanted.button));
        EXPECT_EQ(form.user.IsEnabled("udDuration"), wanted.duration) << wanted.button;
        EXPECT_EQ(form.user.IsEnabled("ebDuration"), wanted.duration) << wanted.button;
        EXPECT_EQ(form.user.IsEnabled("lvStateAccept"), wanted.states) << wanted.button;
        EXPECT_EQ(form.user.IsEnabled("lvSpotAccept"), wanted.spots) << wanted.button;
        EXPECT_EQ(form.user.IsEnabled("gbSegmentation"), wanted.spots) << wanted.button;
        EXPECT_EQ(form.user.IsEnabled("udSpotStepCount"), wanted.spots) << wanted.button;
    }
}

TEST(SettingsForm, ShowsTheEpochsOfTheSettings) {
    const struct {
        Epochs mode;
        bool all, limited, first, random;
    } cases[] = {
        {Epochs::All, true, false, true, false},
        {Epochs::FirstN, false, true, true, false},
        {Epochs::RandomN, false, true, false, true},
    };
    for (const auto& wanted : cases) {
        SettingsCase given;
        given.macro.SetEpochsSelMode(wanted.mode);
        const OpenForm form(given);
        EXPECT_EQ(form.user.IsChecked("rbESMAllEpochs"), wanted.all);
        EXPECT_EQ(form.user.IsChecked("rbESMUseExactly"), wanted.limited);
        EXPECT_EQ(form.user.IsEnabled("rgExactNum"), wanted.limited);
        EXPECT_EQ(form.user.IsChecked("rbExactNumFirst"), wanted.first);
        EXPECT_EQ(form.user.IsChecked("rbExactNumRandom"), wanted.random);
    }
}

TEST(SettingsForm, NamesTheCriteriaByTheNumberOfEpochsUnlessItIsTheUsualOne) {
    SettingsCase usual;
    usual.macro.SetNumEpochsToUse(10);
    EXPECT_EQ(OpenForm(usual).user.TextOf("rgExactNum"), "'No more' selection criteria");
    SettingsCase other;
    other.macro.SetNumEpochsToUse(11);
    EXPECT_EQ(OpenForm(other).user.TextOf("rgExactNum"), "11 epochs selection mode");
}

TEST(SettingsForm, PaintsTheSwatchWithTheColorOfTheSettings) {
    SettingsCase given;
    given.macro.Color = owl::Rgb(200, 100, 50);
    OpenForm form(given);
    const QImage swatch = form.findChild<QFrame*>("imSpeColor")->grab().toImage();
    EXPECT_EQ(swatch.pixelColor(swatch.rect().center()), QColor(200, 100, 50));
}

TEST(SettingsForm, GivesEveryMnemonicOnce) {
    SettingsCase given;
    const OpenForm form(given);
    QMap<QString, QStringList> owners;
    const auto note = [&owners](const QString& text) {
        const QKeySequence key = QKeySequence::mnemonic(text);
        if (!key.isEmpty()) {
            owners[key.toString()] << text;
        }
    };
    for (const auto* button : form.findChildren<QAbstractButton*>()) {
        note(button->text());
    }
    for (const auto* label : form.findChildren<QLabel*>()) {
        note(label->text());
    }
    for (const auto* group : form.findChildren<QGroupBox*>()) {
        note(group->title());
    }
    EXPECT_EQ(owners.size(), 27);
    for (const QStringList& texts : owners) {
        EXPECT_EQ(texts.size(), 1) << texts.join(", ").toStdString();
    }
}

TEST(SettingsForm, IsWalkedInReadingOrderByTab) {
    SettingsCase given;
    given.macro.SetFFTSeconds(3);
    given.macro.SetTimeIntervalSelectMode(Interval::BySpotEvents);
    given.macro.SetEpochsSelMode(Epochs::RandomN);
    OpenForm form(given);
    QApplication::setActiveWindow(&form);
    QStringList walked;
    for (int step = 0; step < 22; ++step) {
        walked << QApplication::focusWidget()->objectName();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(
        walked.join(' ').toStdString(),
        "rbFFT_Custom ebCustomSeconds ebNumSamples ebResolution ebPadding udOverlap lbWindow rbBySpotEvent "
        "lvSpotAccept udPreTrigger udTrgDuration udSpotStepCount udSpotStepInc lvReject rbESMUseExactly "
        "udUseExactlyCountEpochs rbExactNumRandom BtnSpeColor udContrastValue BitBtnCompute BitBtnSaveAs "
        "BitBtn3");
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "rbFFT_Custom");
}

TEST(SettingsForm, HasLabelsThatLeadToTheirControls) {
    SettingsCase given;
    const OpenForm form(given);
    const struct {
        const char *label, *caption, *control;
    } cases[] = {
        {"Label1", "Overlap [%]", "udOverlap"},
        {"Label2", "Windowing", "lbWindow"},
        {"Label3", "Num Samples", "ebNumSamples"},
        {"Label4", "Resolution [Hz]", "ebResolution"},
        {"Label5", "Padding", "ebPadding"},
        {"lbPreTrigger", "Pre-Trigger (ms)", "udPreTrigger"},
        {"lbTrgDuration", "Duration (ms)", "udTrgDuration"},
        {"lbSpotStepCount", "Count", "udSpotStepCount"},
        {"lbSpotStepInc", "Increment (ms)", "udSpotStepInc"},
        {"lbContrastValue", "Contrast Value", "udContrastValue"},
    };
    for (const auto& wanted : cases) {
        EXPECT_EQ(form.user.TextOf(wanted.label), wanted.caption);
        EXPECT_EQ(form.findChild<QLabel*>(wanted.label)->buddy()->objectName(), wanted.control);
    }
}

TEST(SettingsForm, HasItsCaptions) {
    SettingsCase given;
    const OpenForm form(given);
    const struct {
        const char *control, *caption;
    } cases[] = {
        {"GroupBox1", "FFT Window Length"},
        {"rbFFT_05s", "0.5 seconds"},
        {"rbFFT_10s", "1.0 second"},
        {"rbFFT_20s", "2.0 seconds"},
        {"rbFFT_40s", "4.0 seconds"},
        {"rbFFT_80s", "8.0 seconds"},
        {"rbFFT_160s", "16.0 seconds"},
        {"rbFFT_Custom", "Custom"},
        {"GroupBox3", "Processing Interval Selection Mode"},
        {"rbAllRec", "All Recording"},
        {"rbByDuration", "By Duration"},
        {"rbByStateEvent", "By State Events"},
        {"rbBySpotEvent", "By Spot Events"},
        {"gbSegmentation", "Segmentation"},
        {"GroupBox5", "Steps"},
        {"GroupBox2", "Events to Exclude"},
        {"GroupBox14", "Color"},
        {"BtnSpeColor", "Choose Color..."},
        {"GroupBox6", "Spectrogram/CSA options"},
        {"rbESMAllEpochs", "Analyze all selected epochs"},
        {"rbESMUseExactly", "Analyze no more than"},
        {"Label6", "epochs"},
        {"rbExactNumFirst", "First 'n' epochs"},
        {"rbExactNumRandom", "Random (but keep sorting)"},
        {"BitBtnCompute", "Compute"},
        {"BitBtnSaveAs", "Save As..."},
        {"BitBtn3", "Close"},
    };
    for (const auto& wanted : cases) {
        EXPECT_EQ(form.user.TextOf(wanted.control), wanted.caption);
    }
    const auto titlesOf = [&form](const char* list) {
        const auto* header = form.findChild<QTreeWidget*>(list)->headerItem();
        QStringList titles;
        for (int column = 0; column < header->columnCount(); ++column) {
            titles << header->text(column);
        }
        return titles;
    };
    EXPECT_EQ(titlesOf("lvStateAccept"), (QStringList{"Event to include", "Count", "Seconds"}));
    EXPECT_EQ(titlesOf("lvSpotAccept"), (QStringList{"Event to include", "Count"}));
    EXPECT_EQ(titlesOf("lvReject"), (QStringList{"Label", "Count", "Seconds"}));
}

TEST(SettingsForm, HasAChooserForFilesThatNothingAsksWith) {
    SettingsCase given;
    const OpenForm form(given);
    EXPECT_EQ(form.SaveDialog1,
              (owl::FileQuestion{"Save Macro Preset", "Spectra Macro File|*.smx|All Files|*.*", "max", "", "",
                                 true}));
}

/// Width and height of the screen less what the title and a task bar take.
class SettingsOnASmallScreen : public testing::TestWithParam<QSize> {};

TEST_P(SettingsOnASmallScreen, HaveEveryControlWithinReach) {
    SettingsCase given;
    OpenForm form(given);
    form.resize(GetParam());
    QCoreApplication::processEvents();
    EXPECT_EQ(form.size(), GetParam()) << "the form cannot be made as small";
    auto* scroller = form.findChild<QScrollArea*>("scroller");
    ASSERT_NE(scroller, nullptr);
    for (const char* button : {"BitBtnCompute", "BitBtnSaveAs", "BitBtn3"}) {
        const QWidget* shown = form.findChild<QWidget*>(button);
        EXPECT_TRUE(form.rect().contains(QRect(shown->mapTo(&form, QPoint(0, 0)), shown->size()))) << button;
    }
    for (QWidget* control : scroller->widget()->findChildren<QWidget*>()) {
        const bool reached = control->focusPolicy() != Qt::NoFocus && !control->objectName().isEmpty() &&
                             !control->objectName().startsWith("qt_") && control->isVisible();
        if (reached) {
            const QPoint corner = control->mapTo(scroller->widget(), QPoint(0, 0));
            scroller->horizontalScrollBar()->setValue(corner.x());
            scroller->verticalScrollBar()->setValue(corner.y());
            const QRect place(control->mapTo(scroller->viewport(), QPoint(0, 0)), control->size());
            EXPECT_TRUE(scroller->viewport()->rect().contains(place)) << control->objectName().toStdString();
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Screens, SettingsOnASmallScreen,
                         testing::Values(QSize(1024, 560), QSize(800, 560), QSize(640, 440)));

TEST(SettingsForm, NeedsNoScrollingOnALargerScreen) {
    SettingsCase given;
    OpenForm form(given);
    form.resize(1024, 560);
    QCoreApplication::processEvents();
    auto* scroller = form.findChild<QScrollArea*>("scroller");
    EXPECT_FALSE(scroller->horizontalScrollBar()->isVisible());
    EXPECT_FALSE(scroller->verticalScrollBar()->isVisible());
}

} // namespace
