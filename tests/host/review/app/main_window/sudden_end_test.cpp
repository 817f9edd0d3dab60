// SPDX-License-Identifier: GPL-3.0-or-later
// The program ends without being asked, and next to nothing is lost.
#include "host/chart_view/the_child.h"
#include "host/review/app/main_window/session.h"
#include "tests/host/review/app/main_window/workbench_fixture.h"

#include <QTest>

namespace {

using namespace orvanta;
using review::ViewKind;

class SuddenEnd : public test::WorkbenchFixture {
protected:
    void Open(std::chrono::milliseconds pause) {
        review::Workbench::Setup setup = Setup();
        setup.pause = pause;
        Start(setup, Demo());
    }
    TheChild& Traces() const { return *bench->Middle().Views().ViewOf(ViewKind::Traces); }
    std::string Settings() const { return folder.Read("settings.ini"); }
    double KeptPosition() const {
        return review::LoadSession(
                   review::SessionFile(folder.Path("data/sessions/"), folder.Path("demo.edf")))
            ->position;
    }
};

constexpr std::chrono::milliseconds kShort(100), kLong(60000);

TEST_F(SuddenEnd, LeavesTheRecordingThatWasJustOpened) {
    Open(kLong);
    EXPECT_THAT(Settings(), testing::HasSubstr("LastFile = " + folder.Path("demo.edf")));
    EXPECT_EQ(KeptPosition(), 0);
}

TEST_F(SuddenEnd, LeavesWhatWasSetAndSeenBeforeTheUserPaused) {
    Open(kShort);
    QTest::keyClick(&Traces(), Qt::Key_PageDown);
    QTest::keyClick(&Traces(), Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return KeptPosition() > 0; }));
    EXPECT_THAT(Settings(), testing::HasSubstr("PageSeconds = 5"));
}

TEST_F(SuddenEnd, LeavesWhatWasSetInViewsOfAnalyses) {
    Open(kShort);
    AddAnalysis();
    bench->GetAnalyses().Recompute();
    constexpr unsigned kShowPoints = 14496;
    bench->Middle().Views().ViewOf(ViewKind::Spectrum)->RunCommand(kShowPoints);
    bench->Middle().Views().ViewOf(ViewKind::Maps)->SendMessage(14160, 2U << 16U | 1U);
    QTest::mouseClick(&Traces(), Qt::LeftButton);
    EXPECT_TRUE(QTest::qWaitFor([this] { return Settings().find("ShowPoints = 0") != std::string::npos; }));
    EXPECT_THAT(Settings(), testing::HasSubstr("MapRows = 2"));
}

TEST_F(SuddenEnd, NothingIsWrittenWhileTheUserGoesOn) {
    Open(kLong);
    const std::string settings = Settings();
    for (int page = 0; page < 5; ++page) {
        QTest::keyClick(&Traces(), Qt::Key_Plus);
        QTest::qWait(20);
    }
    EXPECT_EQ(Settings(), settings);
    Leave();
    EXPECT_NE(Settings(), settings);
}

TEST_F(SuddenEnd, ASettingsFileThatCannotBeWrittenIsToldAtTheEndAndNotBefore) {
    Open(kShort);
    std::filesystem::remove(folder.Path("settings.ini"));
    std::filesystem::create_directory(folder.Path("settings.ini"));
    QTest::keyClick(&Traces(), Qt::Key_Plus);
    QTest::qWait(300);
    EXPECT_TRUE(user.Messages().empty());
    user.AnswersMessage(owl::kIdOk);
    bench->Window().close();
    EXPECT_THAT(user.Messages().at(0).text, testing::HasSubstr("settings.ini"));
    std::filesystem::remove(folder.Path("settings.ini"));
}

} // namespace
