// SPDX-License-Identifier: GPL-3.0-or-later
// New analyses, montages, events and views through the menus.
#include "host/chart_view/the_child.h"
#include "host/review/app/events/event_editor.h"
#include "host/review/app/main_window/starter_macros.h"
#include "tests/host/review/app/main_window/workbench_fixture.h"
#include "tests/support/qt/form_user.h"

#include <QListView>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QToolButton>

#include <filesystem>

namespace {

using namespace orvanta;
using review::ViewKind;
using test::FormUser;
using testing::HasSubstr;

class Analysing : public test::WorkbenchFixture {
protected:
    Analysing() { review::InstallStarterMacros(folder.Path("data/MACRO/")); }

    void ChooseMacro(const char* name) {
        user.MeetsDialog([name](QDialog& form) {
            FormUser(form).SelectsRows("ListBoxMacro", {name});
            FormUser(form).Clicks("BtnAutoAverage");
        });
    }
    int RowsOfMainList() const {
        for (const QAbstractItemView* list : bench->Window().findChildren<QAbstractItemView*>("lvMainList")) {
            return list->model()->rowCount();
        }
        return -1;
    }
    TheChild& Spectrum() const { return *bench->Middle().Views().ViewOf(ViewKind::Spectrum); }
    /// Another 10 s of open eyes.
    void AddEvent() const {
        constexpr std::int64_t kSecond = 1'000'000'000;
        Events().Add({"Artifact",
                      EventClass::State,
                      {XTime::FromNanoseconds(kSecond), XTime::FromNanoseconds(2 * kSecond)}});
        test::WaitUntilIdle();
    }
    void Save() {
        Opens("menuFile");
        Item("fileSaveEvents").trigger();
    }
    /// The box that asks what becomes of the changes.
    void Answer(const char* caption) {
        user.Meets<QMessageBox>([caption](QMessageBox& box) {
            for (QAbstractButton* button : box.buttons()) {
                if (button->text() == caption) {
                    button->click();
                    return;
                }
            }
            FAIL() << "no button " << caption;
        });
    }
};

TEST_F(Analysing, ANewAnalysisIsComputedAndShown) {
    Start(Demo());
    ChooseMacro("Resting eyes closed");
    Item("analysisNew").trigger();
    ASSERT_EQ(Analyses().Size(), 1U);
    EXPECT_TRUE(Analyses().GetMain()->IsComputed());
    EXPECT_EQ(Analyses().GetMain()->GetName(), "Resting eyes closed");
}

TEST_F(Analysing, ASecondAnalysisBecomesTheMainOneAndIsListedInThePanels) {
    Start(Demo());
    ChooseMacro("Eyes open vs closed - open");
    Item("analysisNew").trigger();
    Spectrum().SetFocus();
    test::WaitUntilIdle();
    ASSERT_EQ(RowsOfMainList(), 1);
    ChooseMacro("Eyes open vs closed - closed");
    Item("analysisNew").trigger();
    EXPECT_EQ(Analyses().GetMain()->GetName(), "Eyes open vs closed - closed");
    EXPECT_EQ(RowsOfMainList(), 2);
}

TEST_F(Analysing, NothingChangesWhenTheUserCancels) {
    Start(Demo());
    user.MeetsDialog([](QDialog& form) { form.reject(); });
    Item("analysisNew").trigger();
    EXPECT_EQ(Analyses().Size(), 0U);
}

TEST_F(Analysing, ShowsTheViewThatTheUserHasClosed) {
    Start(Demo());
    bench->GetViews().Hide(ViewKind::Spectrum);
    bench->GetViews().Hide(ViewKind::Maps);
    ChooseMacro("Resting eyes closed");
    Item("analysisNew").trigger();
    EXPECT_TRUE(bench->GetViews().IsShown(ViewKind::Spectrum));
}

TEST_F(Analysing, SpectraAndMapsWithoutAnAnalysisAskForOneOnce) {
    Start(Demo());
    for (const auto& [item, kind] :
         {std::pair("viewSpectrum", ViewKind::Spectrum), std::pair("viewMaps", ViewKind::Maps)}) {
        EXPECT_FALSE(bench->GetViews().IsShown(kind));
        user.MeetsDialog([](QDialog& form) { form.reject(); });
        Item(item).trigger();
        test::WaitUntilIdle();
        EXPECT_FALSE(bench->GetViews().IsShown(kind))
            << "a view that is empty would ask whenever it gets the focus";
    }
    ChooseMacro("Resting eyes closed");
    Item("viewMaps").trigger();
    EXPECT_TRUE(bench->GetViews().IsShown(ViewKind::Maps));
}

TEST_F(Analysing, GoingThroughThePanesAsksForNothing) {
    Start(Demo());
    user.MeetsDialog([](QDialog& form) { form.reject(); });
    Item("viewSpectrum").trigger();
    for (int i = 0; i < 4; ++i) {
        Item("viewNextPane").trigger();
        test::WaitUntilIdle();
    }
    EXPECT_EQ(user.DialogsShown(), 1); // the one that opening the view asked
}

TEST_F(Analysing, NeedsARecording) {
    Start();
    EXPECT_FALSE(Item("analysisNew").isEnabled());
    EXPECT_FALSE(Item("analysisRecompute").isEnabled());
    bench->GetDocuments().Open(Demo());
    EXPECT_TRUE(Item("analysisNew").isEnabled());
}

TEST_F(Analysing, AMontageIsChosenInTheMenu) {
    Start(Demo());
    AddAnalysis();
    Opens("menuMontage");
    const QList<QAction*> items = Menu("menuMontage").actions();
    ASSERT_EQ(items.size(), 8) << "montages, a line, editor and electrodes";
    EXPECT_TRUE(items[0]->isChecked());
    EXPECT_EQ(items[1]->text(), "Longitudinal bipolar");
    items[1]->trigger();
    EXPECT_FALSE(items[0]->isChecked()) << "one is chosen, not several";
    EXPECT_EQ(Recording().GetTraceInfo()->GetMtg().GetName(), "Longitudinal bipolar");
    EXPECT_EQ(Recording().GetMontageList()->GetCurrentIndex(), 1U);
}

TEST_F(Analysing, ViewsAreClosedByTheirButtonAndOpenedInTheMenu) {
    Start(Demo());
    AddAnalysis();
    bench->GetAnalyses().Show(ViewKind::Spectrum);
    Spectrum().parentWidget()->parentWidget()->findChild<QToolButton*>("view_close")->click();
    test::WaitUntilIdle();
    EXPECT_FALSE(bench->GetViews().IsShown(ViewKind::Spectrum));
    Opens("menuView");
    EXPECT_FALSE(Item("viewSpectrum").isChecked());
    Item("viewSpectrum").trigger();
    EXPECT_TRUE(bench->GetViews().IsShown(ViewKind::Spectrum));
    Opens("menuView");
    EXPECT_TRUE(Item("viewSpectrum").isChecked());
}

TEST_F(Analysing, TheActiveViewsMenuStandsBetweenTheOthers) {
    Start();
    EXPECT_EQ(MenuTitles(),
              QStringList({"File", "Edit", "View", "Analysis", "Montage", "Tools", "Window", "Help"}));
    bench->GetDocuments().Open(Demo());
    AddAnalysis();
    bench->GetAnalyses().Recompute();
    test::WaitUntilIdle();
    Spectrum().SetFocus();
    test::WaitUntilIdle();
    EXPECT_EQ(MenuTitles(), QStringList({"File", "Edit", "View", "Analysis", "Spectrum", "Montage", "Tools",
                                         "Window", "Help"}));
    bench->GetDocuments().Close();
    EXPECT_EQ(MenuTitles(),
              QStringList({"File", "Edit", "View", "Analysis", "Montage", "Tools", "Window", "Help"}));
}

TEST_F(Analysing, TheRegressionPanelComesAndGoes) {
    Start(Demo());
    AddAnalysis();
    bench->GetAnalyses().Show(ViewKind::Spectrum);
    const auto panels = [this] {
        Spectrum().SetFocus();
        test::WaitUntilIdle();
        return bench->Window().findChildren<QWidget*>("TFormListenerSpectraBCI").size();
    };
    EXPECT_EQ(panels(), 0);
    Item("toolsRegression").trigger();
    EXPECT_EQ(Analyses().GetStatMode(), 2);
    EXPECT_EQ(panels(), 1);
    Leave();
    Start();
    EXPECT_EQ(Analyses().GetStatMode(), 2);
    Item("toolsRegression").trigger();
    EXPECT_EQ(panels(), 0);
}

TEST_F(Analysing, ChangedEventsAreSavedUnasked) {
    review::Workbench::Setup setup = Setup();
    setup.savesEvents = true;
    Start(setup, Demo());
    AddEvent();
    const review::EventEditor& events = Events();
    constexpr int kPatienceMS = 10000;
    EXPECT_TRUE(QTest::qWaitFor([&] { return !events.IsChanged(); }, kPatienceMS));
    EXPECT_TRUE(std::filesystem::exists(events.GetFile()));
}

TEST_F(Analysing, EventsAreUndoneAndDoneAgain) {
    Start(Demo());
    EXPECT_FALSE(Item("editUndo").isEnabled());
    const std::size_t before = Events().Events().size();
    AddEvent();
    Opens("menuEdit");
    EXPECT_EQ(Item("editUndo").text(), "&Undo Add Artifact");
    EXPECT_TRUE(bench->Window().isWindowModified());
    Item("editUndo").trigger();
    EXPECT_EQ(Events().Events().size(), before);
    Opens("menuEdit");
    Item("editRedo").trigger();
    EXPECT_EQ(Events().Events().size(), before + 1);
    Answer("&Discard");
}

TEST_F(Analysing, EventsAreSaved) {
    Start(Demo());
    AddEvent();
    Save();
    EXPECT_THAT(folder.Read("demo_events.tsv"), HasSubstr("Artifact"));
    EXPECT_FALSE(Events().IsChanged());
}

TEST_F(Analysing, ChangedEventsAreSavedBeforeTheRecordingGoes) {
    Start(Demo());
    AddEvent();
    Answer("&Save");
    bench->GetDocuments().Close();
    EXPECT_EQ(bench->GetDocuments().Current(), nullptr);
    EXPECT_THAT(folder.Read("demo_events.tsv"), HasSubstr("Artifact"));
}

TEST_F(Analysing, TheUserCanStayWithChangedEvents) {
    Start(Demo());
    AddEvent();
    Answer("&Cancel");
    bench->GetDocuments().Open(Demo("other.edf"));
    EXPECT_EQ(Recording().GetFileNameText(), "demo.edf");
    Answer("&Cancel");
    EXPECT_FALSE(bench->Window().close());
    EXPECT_TRUE(bench->Window().isVisible());
    Answer("&Discard");
}

TEST_F(Analysing, EventsThatAnotherProgramChangedAreReplacedOnRequest) {
    Start(Demo());
    AddEvent();
    folder.Write("demo_events.tsv", "onset\tduration\ttrial_type\n3\t0\tother\n");
    Answer("&Cancel");
    Save();
    EXPECT_TRUE(Events().IsChanged());
    Answer("&Overwrite");
    Save();
    EXPECT_FALSE(Events().IsChanged());
    EXPECT_THAT(folder.Read("demo_events.tsv"), HasSubstr("Artifact"));
}

TEST_F(Analysing, EventsThatAnotherProgramChangedAreLoadedOnRequest) {
    Start(Demo());
    AddEvent();
    folder.Write("demo_events.tsv", "onset\tduration\ttrial_type\n3\t0\tother\nsoon\t0\tz\n");
    Answer("&Load theirs");
    user.AnswersMessage(owl::kIdOk);
    Save();
    EXPECT_FALSE(Events().IsChanged());
    const auto labels = [this] {
        std::vector<std::string> found;
        for (const EventRecord& event : Events().Events()) {
            found.push_back(event.Label);
        }
        return found;
    };
    EXPECT_THAT(labels(), testing::Contains("other"));
    EXPECT_THAT(labels(), testing::Not(testing::Contains("Artifact")));
    ASSERT_EQ(user.Messages().size(), 1U);
    EXPECT_EQ(user.Messages()[0].text, "demo_events.tsv: line 3: onset \"soon\" is no time, row left out");
}

TEST_F(Analysing, EventsStayWhenWhatAnotherProgramWroteCannotBeLoaded) {
    Start(Demo());
    AddEvent();
    folder.Write("demo_events.tsv", "notes\n");
    Answer("&Load theirs");
    user.AnswersMessage(owl::kIdOk);
    Save();
    EXPECT_TRUE(Events().IsChanged());
    EXPECT_EQ(folder.Read("demo_events.tsv"), "notes\n");
    Answer("&Discard");
}

TEST_F(Analysing, EventsThatCannotBeSavedAreSavedElsewhere) {
    Start(Demo());
    AddEvent();
    std::filesystem::create_directory(folder.Path("demo_events.tsv")); // no file can take its place
    Answer("Save &Elsewhere...");
    user.ChoosesFile(folder.Path("mine.tsv"));
    Save();
    EXPECT_FALSE(Events().IsChanged());
    EXPECT_THAT(folder.Read("mine.tsv"), HasSubstr("Artifact"));
}

TEST_F(Analysing, MacrosAreEditedWithoutARecording) {
    Start();
    user.MeetsDialog([](QDialog& form) {
        EXPECT_EQ(FormUser(form).RowsOf("ListBoxMacro").size(), 5);
        form.reject();
    });
    Item("toolsMacros").trigger();
    EXPECT_EQ(user.DialogsShown(), 1);
}

} // namespace
