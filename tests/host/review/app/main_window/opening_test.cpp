// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/the_child.h"
#include "host/review/app/main_window/log.h"
#include "host/review/app/main_window/notice_strip.h"
#include "tests/host/review/app/main_window/workbench_fixture.h"

#include <QDropEvent>
#include <QLabel>
#include <QMimeData>
#include <QPushButton>
#include <QTest>
#include <QUrl>

namespace {

using namespace orvanta;
using review::ViewKind;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::MatchesRegex;

using Opening = test::WorkbenchFixture;

std::vector<std::string> Steps(const QStringList& lines) {
    std::vector<std::string> steps;
    for (const QString& line : lines.filter("processor time")) {
        steps.push_back(line.toStdString());
    }
    return steps;
}

TEST_F(Opening, StartsWithoutARecording) {
    Start();
    EXPECT_EQ(bench->GetDocuments().Current(), nullptr);
    EXPECT_EQ(Title(), "Orvanta");
    EXPECT_TRUE(bench->Window().findChild<QPushButton*>("welcomeOpen")->isVisible());
}

TEST_F(Opening, ShowsTheRecordingThatIsNamedAtTheStart) {
    Start(Demo());
    ASSERT_NE(bench->GetDocuments().Current(), nullptr);
    EXPECT_EQ(Title(), "demo.edf[*] - Orvanta");
    EXPECT_TRUE(bench->Middle().Views().ViewOf(ViewKind::Traces)->isVisible());
    EXPECT_FALSE(bench->Window().findChild<QPushButton*>("welcomeOpen")->isVisible());
}

TEST_F(Opening, IsSettledWhenNothingIsOutstanding) {
    const auto settled = [this] { return bench->IsSettled(); };
    Start(Demo());
    EXPECT_TRUE(QTest::qWaitFor(settled));
    ChangeMontage(1);
    EXPECT_FALSE(settled()); // the views still have to follow
    EXPECT_TRUE(QTest::qWaitFor(settled));
}

TEST_F(Opening, LogsWhatTheWayToTheFirstPageTook) {
    const review::Log log("");
    Start(Demo());
    bench->Window().resize(800, 500); // pages that follow are not told
    test::WaitUntilIdle();
    EXPECT_THAT(Steps(review::Log::Lines()),
                ElementsAre(MatchesRegex(".* info opening .*/demo.edf \\(processor time [0-9]+ ms\\)"),
                            MatchesRegex(".* info first page of demo.edf \\(processor time [0-9]+ ms\\)")));
}

TEST_F(Opening, AsksForAFileAndOpensIt) {
    Start();
    user.ChoosesFile(Demo());
    Item("fileOpen").trigger();
    EXPECT_EQ(Title(), "demo.edf[*] - Orvanta");
    ASSERT_EQ(user.FileRequests().size(), 1U);
    EXPECT_THAT(user.FileRequests().front().question.filter, HasSubstr("BrainVision|*.vhdr"));
}

TEST_F(Opening, DoesNothingWhenTheUserCancels) {
    Start(Demo());
    user.ChoosesFile(std::nullopt);
    Item("fileOpen").trigger();
    EXPECT_EQ(Title(), "demo.edf[*] - Orvanta");
}

TEST_F(Opening, SwitchesToAnotherRecording) {
    Start(Demo());
    bench->GetDocuments().Open(Demo("other.edf", 2));
    EXPECT_EQ(Recording().GetFileNameText(), "other.edf");
    EXPECT_TRUE(bench->GetViews().IsShown(ViewKind::Traces));
}

TEST_F(Opening, LeavesTheRecordingWhenABrokenFileIsRefused) {
    Start(Demo());
    const EEGFileInfoType* before = &Recording();
    user.AnswersMessage(owl::kIdOk);
    bench->GetDocuments().Open(folder.Write("broken.edf", "no header at all"));
    EXPECT_EQ(&Recording(), before);
    EXPECT_TRUE(bench->GetViews().IsShown(ViewKind::Traces));
    ASSERT_EQ(user.Messages().size(), 1U);
    EXPECT_THAT(user.Messages().front().text, HasSubstr("broken.edf: "));
    EXPECT_EQ(user.Messages().front().caption, "Error");
    EXPECT_THAT(bench->GetDocuments().Recent().Paths(), ElementsAre(folder.Path("demo.edf")));
}

TEST_F(Opening, SaysThatAFileIsMissing) {
    Start();
    user.AnswersMessage(owl::kIdOk);
    bench->GetDocuments().Open(folder.Path("none.edf"));
    EXPECT_EQ(bench->GetDocuments().Current(), nullptr);
    EXPECT_THAT(user.Messages().front().text, HasSubstr("none.edf: "));
}

TEST_F(Opening, ClosesTheRecording) {
    Start(Demo());
    Item("fileClose").trigger();
    EXPECT_EQ(bench->GetDocuments().Current(), nullptr);
    EXPECT_EQ(Title(), "Orvanta");
    EXPECT_FALSE(bench->GetViews().IsShown(ViewKind::Spectrum));
    EXPECT_FALSE(Item("fileClose").isEnabled());
    EXPECT_TRUE(bench->Window().findChild<QPushButton*>("welcomeOpen")->isVisible());
}

TEST_F(Opening, TellsInTheMessageBarWhatIsOpen) {
    Start(Demo());
    EXPECT_EQ(bench->Window().findChild<QLabel*>("recordingField")->text(), "19 EEG, 64 Hz, 0:01:00");
    EXPECT_EQ(bench->Window().findChild<QLabel*>("montageField")->text(), "As recorded");
    EXPECT_EQ(bench->Window().findChild<QLabel*>("placeField")->text(), "09:00:00");
}

TEST_F(Opening, SaysWhatWasRepaired) {
    std::string file = Demo();
    std::filesystem::resize_file(file, std::filesystem::file_size(file) - 100);
    Start(file);
    EXPECT_TRUE(bench->Middle().Repairs().isVisible());
    EXPECT_THAT(bench->Middle().Repairs().Text().toStdString(), HasSubstr("About this recording: "));
    bench->GetDocuments().Open(Demo("sound.edf"));
    EXPECT_FALSE(bench->Middle().Repairs().isVisible());
}

/// What the desktop sends when a file is dropped.
void Drop(QWidget& window, const QList<QUrl>& urls) {
    QMimeData data;
    data.setUrls(urls);
    QDragEnterEvent enter({1, 1}, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(&window, &enter);
    if (enter.isAccepted()) {
        QDropEvent drop({1, 1}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(&window, &drop);
    }
    test::WaitUntilIdle();
}

TEST_F(Opening, OpensADroppedFile) {
    Start();
    Drop(bench->Window(), {QUrl::fromLocalFile(QString::fromStdString(Demo()))});
    EXPECT_EQ(Title(), "demo.edf[*] - Orvanta");
}

TEST_F(Opening, TakesNeitherAddressesNorSeveralFiles) {
    Start();
    const QUrl file = QUrl::fromLocalFile(QString::fromStdString(Demo()));
    Drop(bench->Window(), {QUrl("https://example.org/a.edf")});
    Drop(bench->Window(), {file, file});
    EXPECT_EQ(bench->GetDocuments().Current(), nullptr);
}

TEST_F(Opening, ListsRecentFilesLatestFirst) {
    Start(Demo("a.edf"));
    bench->GetDocuments().Open(Demo("b & c.edf"));
    bench->GetDocuments().Open(folder.Path("a.edf"));
    EXPECT_THAT(bench->GetDocuments().Recent().Paths(),
                ElementsAre(folder.Path("a.edf"), folder.Path("b & c.edf")));
    std::filesystem::remove(folder.Path("a.edf"));
    Opens("fileRecent");
    const QList<QAction*> items = Menu("fileRecent").actions();
    EXPECT_EQ(items[0]->text(), "&1 a.edf");
    EXPECT_FALSE(items[0]->isEnabled());
    EXPECT_EQ(items[1]->text(), "&2 b && c.edf");
    EXPECT_TRUE(items[1]->isEnabled());
    items[1]->trigger();
    EXPECT_EQ(Recording().GetFileNameText(), "b & c.edf");
}

TEST_F(Opening, ForgetsRecentFilesOnRequest) {
    Start(Demo());
    Opens("fileRecent");
    Item("fileClearRecent").trigger();
    EXPECT_THAT(bench->GetDocuments().Recent().Paths(), IsEmpty());
    bench->GetDocuments().Close();
    Leave();
    EXPECT_THAT(Start().GetDocuments().Recent().Paths(), IsEmpty());
}

TEST_F(Opening, WithoutTheModuleSaysWhyAndStillOpens) {
    review::Workbench::Setup setup = Setup();
    setup.bridge = nullptr;
    setup.moduleProblem = "Orvanta64.so: no such file (install it)";
    Start(setup, Demo());
    EXPECT_NE(bench->GetDocuments().Current(), nullptr);
    EXPECT_FALSE(bench->GetViews().IsShown(ViewKind::Spectrum));
    EXPECT_TRUE(bench->Middle().Problem().isVisible());
    EXPECT_EQ(bench->Middle().Problem().Text(),
              "Only traces can be shown: Orvanta64.so: no such file (install it)");
    EXPECT_FALSE(Item("analysisNew").isEnabled());
    EXPECT_FALSE(Item("toolsMacros").isEnabled());
}

} // namespace
