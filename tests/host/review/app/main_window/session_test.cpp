// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/session.h"

#include "host/chart_view/the_child.h"
#include "host/review/app/events/event_editor.h"
#include "host/review/app/main_window/notice_strip.h"
#include "host/review/app/module_bridge.h"
#include "host/review/app/spectrum_look.h"
#include "host/spectral_data/settings/macro_file.h"
#include "tests/host/review/app/main_window/workbench_fixture.h"

#include <QLabel>
#include <QTest>

namespace {

using namespace orvanta;
using review::ViewKind;

class SessionOfTheWindow : public test::WorkbenchFixture {
protected:
    SpectraMacro SavedMacro(const std::string& name, unsigned overlap) const {
        SpectraMacro macro;
        macro.SetOverlapPerc(overlap);
        EXPECT_EQ(macro.SaveAs(folder.Path(name)), 0);
        return macro;
    }
    /// Labels of the user's events.
    std::vector<std::string> OwnLabels() const {
        const review::EventEditor& editor = Events();
        std::vector<std::string> labels;
        for (std::size_t i = 0; i < editor.Events().size(); ++i) {
            if (editor.IsOwn(i)) {
                labels.push_back(editor.Events()[i].Label);
            }
        }
        return labels;
    }
    void LeaveAndComeBack(const std::string& file = {}) {
        Leave();
        Start(file);
    }
};

TEST_F(SessionOfTheWindow, OpensTheLastRecordingAgain) {
    Start(Demo());
    LeaveAndComeBack();
    ASSERT_NE(bench->GetDocuments().Current(), nullptr);
    EXPECT_EQ(Recording().GetFileNameText(), "demo.edf");
}

TEST_F(SessionOfTheWindow, OpensNothingAfterTheRecordingWasClosed) {
    Start(Demo());
    bench->GetDocuments().Close();
    LeaveAndComeBack();
    EXPECT_EQ(bench->GetDocuments().Current(), nullptr);
}

TEST_F(SessionOfTheWindow, SaysWithoutAskingThatTheLastRecordingIsGoneAndFindsItWhenItIsBack) {
    Start(Demo());
    Leave();
    std::filesystem::rename(folder.Path("demo.edf"), folder.Path("elsewhere.edf"));
    Start();
    EXPECT_EQ(bench->GetDocuments().Current(), nullptr);
    const review::NoticeStrip& notice = bench->Middle().Repairs();
    EXPECT_TRUE(notice.isVisible());
    EXPECT_EQ(notice.Text().toStdString(),
              folder.Path("demo.edf") + " is not there any more. Connect its drive and start again, or open "
                                        "the recording from where it is now.");
    EXPECT_EQ(bench->GetDocuments().Recent().Paths(), std::vector<std::string>{folder.Path("demo.edf")});
    Leave();
    std::filesystem::rename(folder.Path("elsewhere.edf"), folder.Path("demo.edf"));
    Start();
    EXPECT_NE(bench->GetDocuments().Current(), nullptr);
    EXPECT_FALSE(bench->Middle().Repairs().isVisible());
}

TEST_F(SessionOfTheWindow, SpeaksNoMoreOfTheRecordingThatIsGoneOnceAnotherIsOpen) {
    Start(Demo());
    Leave();
    std::filesystem::remove(folder.Path("demo.edf"));
    Start();
    bench->GetDocuments().Open(Demo("other.edf"));
    EXPECT_FALSE(bench->Middle().Repairs().isVisible());
    Leave();
    Start();
    EXPECT_EQ(Recording().GetFileNameText(), "other.edf");
}

TEST_F(SessionOfTheWindow, GoesBackToPlaceAndMontage) {
    Start(Demo());
    Recording().GetTraceCursor()->SetPosition(64 * 20);
    Recording().ChangeMntg(1, true);
    LeaveAndComeBack();
    const TraceCursorType& cursor = *Recording().GetTraceCursor();
    EXPECT_EQ(cursor.GetSample(cursor.GetStartRecTime(), Sample::Mode::Memory, 0), 64 * 20);
    EXPECT_EQ(Recording().GetTraceInfo()->GetMtg().GetName(), "Longitudinal bipolar");
}

class BadMarks : public SessionOfTheWindow {
protected:
    void Open(const std::string& file) {
        review::Workbench::Setup setup = Setup();
        setup.savesEvents = true;
        Start(setup, file);
    }
    /// The user marks the channel in the traces.
    void Mark(const char* name) const {
        TheChild& traces = *bench->Middle().Views().ViewOf(ViewKind::Traces);
        bench->Middle().PointAtChannel(name);
        QTest::keyClick(&traces, Qt::Key_B);
        test::WaitUntilIdle();
    }
    bool IsBad(const char* name) const { return Recording().GetTraceInfo()->FindSensor(name)->IsBad(); }
};

TEST_F(BadMarks, AreWrittenBesideTheRecordingAndComeBack) {
    Open(Demo());
    Mark("Cz");
    EXPECT_THAT(folder.Read("demo_channels.tsv"), testing::HasSubstr("\tbad\t"));
    Leave();
    std::filesystem::remove_all(folder.Path("data")); // not from the session
    Open(folder.Path("demo.edf"));
    EXPECT_TRUE(IsBad("Cz"));
    EXPECT_FALSE(IsBad("Pz"));
    Mark("Cz"); // good again
    Leave();
    Open(folder.Path("demo.edf"));
    EXPECT_FALSE(IsBad("Cz"));
}

TEST_F(BadMarks, StayInTheSessionWhereTheyCannotBeWritten) {
    std::filesystem::create_directory(folder.Path("demo_channels.tsv")); // takes the table's place
    Open(Demo());
    user.AnswersMessage(owl::kIdOk);
    Mark("Cz");
    EXPECT_THAT(user.Messages().at(0).text,
                testing::StartsWith("The marks of bad channels cannot be kept beside the recording"));
    Mark("Pz"); // it is told once
    Leave();
    Open(folder.Path("demo.edf"));
    EXPECT_TRUE(IsBad("Cz"));
    EXPECT_TRUE(IsBad("Pz"));
    Leave();
    std::filesystem::remove(folder.Path("demo_channels.tsv"));
    Open(folder.Path("demo.edf")); // now they can
    EXPECT_THAT(folder.Read("demo_channels.tsv"), testing::HasSubstr("\tbad\t"));
}

TEST_F(SessionOfTheWindow, MakesTheAnalysesAgainAndComputesThem) {
    Start(Demo());
    AddAnalysis(SavedMacro("first.smx", 25));
    SpectMacroResult& second = AddAnalysis(SavedMacro("second.smx", 75));
    Analyses().SetMain(&second);
    Analyses().SetSecondary(*Analyses().begin());
    LeaveAndComeBack();
    ASSERT_EQ(Analyses().Size(), 2U);
    EXPECT_EQ(Analyses().GetMain()->GetName(), "second");
    EXPECT_EQ(Analyses().GetMain()->GetMacro().GetOverlapPerc(), 75U);
    EXPECT_EQ(Analyses().GetSecondary()->GetName(), "first");
    EXPECT_TRUE(Analyses().GetMain()->IsComputed());
    EXPECT_TRUE(Analyses().GetSecondary()->IsComputed());
}

TEST_F(SessionOfTheWindow, KeepsAnalysesForASuddenEndAsSoonAsTheyAreComputed) {
    Start(Demo());
    AddAnalysis(SavedMacro("a.smx", 40));
    bench->GetAnalyses().Recompute();
    EXPECT_TRUE(QTest::qWaitFor([this] {
        const std::optional<review::Session> kept = review::LoadSession(
            review::SessionFile(folder.Path("data/sessions/"), bench->GetDocuments().Current()->Path()));
        return kept && kept->analyses.size() == 1 && kept->analyses[0].file == folder.Path("a.smx");
    }));
}

TEST_F(SessionOfTheWindow, KeepsSettingsThatNoFileHas) {
    Start(Demo());
    SpectraMacro changed = SavedMacro("first.smx", 25);
    changed.SetOverlapPerc(30);
    AddAnalysis(changed);
    LeaveAndComeBack();
    ASSERT_EQ(Analyses().Size(), 1U);
    EXPECT_EQ(Analyses().GetMain()->GetMacro().GetOverlapPerc(), 30U);
    EXPECT_EQ(Analyses().GetMain()->GetMacro().GetFileName(), "");
}

TEST_F(SessionOfTheWindow, ComputesNothingWhileNoViewOfAnalysesIsShown) {
    Start(Demo());
    AddAnalysis();
    bench->GetViews().Hide(ViewKind::Spectrum);
    bench->GetViews().Hide(ViewKind::Maps);
    LeaveAndComeBack();
    ASSERT_EQ(Analyses().Size(), 1U);
    EXPECT_FALSE(Analyses().GetMain()->IsComputed());
}

TEST_F(SessionOfTheWindow, KeepsEventsWhereTheUserSavedThem) {
    Start(Demo());
    Events().Add({"spike", EventClass::Spot, {XTime::FromSeconds(3), XTime::FromSeconds(3)}});
    user.ChoosesFile(folder.Path("elsewhere/mine.tsv"));
    folder.Write("elsewhere/readme", "");
    Item("fileSaveEventsAs").trigger();
    LeaveAndComeBack();
    EXPECT_EQ(Events().GetFile(), folder.Path("elsewhere/mine.tsv"));
    EXPECT_EQ(OwnLabels(), std::vector<std::string>{"spike"});
    EXPECT_FALSE(std::filesystem::exists(folder.Path("demo_events.tsv")));
}

TEST_F(SessionOfTheWindow, TakesTheEventsOfAnotherTableAndKeepsItThen) {
    Start(Demo());
    user.ChoosesFile(folder.Write("theirs.tsv", "onset\tduration\ttrial_type\n5\t0\tseizure\n"));
    Item("fileOpenEvents").trigger();
    EXPECT_EQ(OwnLabels(), std::vector<std::string>{"seizure"});
    LeaveAndComeBack();
    EXPECT_EQ(Events().GetFile(), folder.Path("theirs.tsv"));
    EXPECT_EQ(OwnLabels(), std::vector<std::string>{"seizure"});
}

TEST_F(SessionOfTheWindow, SaysThatTheTableElsewhereIsGoneAndTakesTheRecordings) {
    Start(Demo());
    user.ChoosesFile(folder.Write("theirs.tsv", "onset\tduration\ttrial_type\n5\t0\tseizure\n"));
    Item("fileOpenEvents").trigger();
    Leave();
    std::filesystem::remove(folder.Path("theirs.tsv"));
    Start();
    EXPECT_EQ(Events().GetFile(), folder.Path("demo_events.tsv"));
    EXPECT_EQ(OwnLabels(), std::vector<std::string>{});
    const auto texts = bench->Middle().Repairs().findChildren<QLabel*>();
    EXPECT_TRUE(
        std::ranges::any_of(texts, [](const QLabel* label) { return label->text().contains("theirs.tsv"); }));
}

TEST_F(SessionOfTheWindow, RemembersEachRecordingByItself) {
    Start(Demo("a.edf"));
    AddAnalysis();
    bench->GetDocuments().Open(Demo("b.edf"));
    EXPECT_EQ(Analyses().Size(), 0U);
    bench->GetDocuments().Open(folder.Path("a.edf"));
    EXPECT_EQ(Analyses().Size(), 1U);
}

TEST_F(SessionOfTheWindow, KeepsForEachRecordingWhatWasChosenInItsSpectrum) {
    const auto spectrum = [this]() -> TheChild& {
        return *bench->Middle().Views().ViewOf(ViewKind::Spectrum);
    };
    const std::string file = Demo("a.edf");
    for (const std::string& each : {file, Demo("b.edf")}) {
        Start(each);
        AddAnalysis();
        bench->GetAnalyses().Recompute();
    }
    constexpr unsigned kCsa = 14348;
    spectrum().RunCommand(kCsa); // of the second
    bench->GetDocuments().Open(file);
    test::WaitUntilIdle();
    EXPECT_EQ(test::LoadedModule().LookOf(spectrum()).mode, SPECT::Data::Mode::Mean);
    LeaveAndComeBack(folder.Path("b.edf"));
    EXPECT_EQ(test::LoadedModule().LookOf(spectrum()).mode, SPECT::Data::Mode::CSA);
    bench->GetAnalyses().UseRegression(true); // the view is made anew
    EXPECT_EQ(test::LoadedModule().LookOf(spectrum()).mode, SPECT::Data::Mode::CSA);
    bench->GetViews().Hide(ViewKind::Spectrum);
    bench->GetAnalyses().Show(ViewKind::Spectrum); // a new view by the user's wish
    EXPECT_EQ(test::LoadedModule().LookOf(spectrum()).mode, SPECT::Data::Mode::Mean);
}

TEST_F(SessionOfTheWindow, RemembersWhichViewsAreShown) {
    Start(Demo());
    AddAnalysis();
    bench->GetViews().Hide(ViewKind::Spectrum);
    LeaveAndComeBack();
    EXPECT_FALSE(bench->GetViews().IsShown(ViewKind::Spectrum));
    bench->GetAnalyses().Show(ViewKind::Spectrum);
    LeaveAndComeBack();
    EXPECT_TRUE(bench->GetViews().IsShown(ViewKind::Spectrum));
}

TEST_F(SessionOfTheWindow, RemembersArrangementAndSize) {
    Start(Demo());
    bench->Window().resize(900, 500);
    bench->GetViews().Arrange(review::Arrangement::TracesBeside);
    LeaveAndComeBack();
    EXPECT_EQ(bench->Window().size(), QSize(900, 500));
    EXPECT_EQ(bench->Middle().Views().GetArrangement(), review::Arrangement::TracesBeside);
}

TEST_F(SessionOfTheWindow, KeepsTheBands) {
    Start();
    SPECT::GetGlobals().Bands[2].lo = 7.5;
    Leave();
    SPECT::GetGlobals() = SPECT::Globals();
    Start();
    EXPECT_EQ(SPECT::GetGlobals().Bands[2].lo, 7.5);
}

TEST_F(SessionOfTheWindow, IsNeitherReadNorKeptInSafeMode) {
    Start(Demo());
    AddAnalysis();
    Leave();
    const std::string settings = folder.Read("settings.ini");
    review::Workbench::Setup setup = Setup();
    setup.settingsFile.clear();
    Start(setup, "");
    EXPECT_EQ(bench->GetDocuments().Current(), nullptr);
    bench->GetDocuments().Open(folder.Path("demo.edf"));
    EXPECT_EQ(Analyses().Size(), 0U);
    Leave();
    EXPECT_EQ(folder.Read("settings.ini"), settings);
    Start();
    EXPECT_EQ(Analyses().Size(), 1U);
}

class SessionFile : public testing::Test {
protected:
    std::optional<review::Session> Loaded(const std::string& content) const {
        return review::LoadSession(folder.Write("s.json", content));
    }
    test::TempFolder folder;
};

TEST_F(SessionFile, HoldsEverything) {
    const review::Session session{
        12.5, "/t/events.tsv",    "Längs \"quer\"", {{"a.smx", "<x/>"}, {"", "<y/>"}}, 1, 0,
        true, {{"EEG Fp1", true}}};
    review::SaveSession(folder.Path("s.json"), session);
    EXPECT_EQ(review::LoadSession(folder.Path("s.json")), session);
}

TEST_F(SessionFile, HoldsWhatWasChosenInTheSpectrum) {
    review::Session session;
    session.spectrum = {.mode = SPECT::Data::Mode::CSA,
                        .normalisation = SPECT::Normalisation::Db,
                        .labels = false,
                        .axesText = false,
                        .measuresBox = false,
                        .gain = 2.25,
                        .firstTrace = 16};
    review::SaveSession(folder.Path("s.json"), session);
    EXPECT_EQ(review::LoadSession(folder.Path("s.json")), session);
}

TEST_F(SessionFile, TakesWrongChoicesForThoseOfANewView) {
    for (const char* wrong :
         {R"({"mode": 4, "normalisation": 6, "gain": 0, "firstTrace": -1, "labels": 3})",
          R"({"mode": "x", "normalisation": -1, "gain": 1e999, "firstTrace": null})", "{}"}) {
        const auto session = Loaded(R"({"version": 1, "spectrum": )" + std::string(wrong) + "}");
        EXPECT_EQ(session->spectrum, review::SpectrumLook()) << wrong;
    }
    EXPECT_EQ(Loaded(R"({"version": 1, "spectrum": [1]})")->spectrum, std::nullopt);
}

TEST_F(SessionFile, CountsAsAbsentWhenItMakesNoSense) {
    EXPECT_EQ(review::LoadSession(folder.Path("none.json")), std::nullopt);
    for (const char* content : {"", "{", "[]", "{\"version\": 2}", "nonsense"}) {
        EXPECT_EQ(Loaded(content), std::nullopt) << content;
    }
}

TEST_F(SessionFile, TakesWrongFieldsForAbsentOnes) {
    const auto session = Loaded(R"({"version": 1, "position": "x", "analyses": [3, {}], "main": -1})");
    ASSERT_TRUE(session.has_value());
    EXPECT_EQ(session->position, 0);
    EXPECT_EQ(session->analyses.size(), 2U);
    EXPECT_EQ(session->main, std::nullopt);
}

TEST(SessionFileName, DependsOnTheRecordingsPath) {
    const std::string name = review::SessionFile("f/", "/data/a.edf");
    EXPECT_EQ(name.size(), std::string("f/").size() + 24 + std::string(".json").size());
    EXPECT_NE(name, review::SessionFile("f/", "/data/b.edf"));
    EXPECT_EQ(name, review::SessionFile("f/", "/data/a.edf"));
}

} // namespace
