// SPDX-License-Identifier: GPL-3.0-or-later
// The recording or the window goes while spectra are computed.
#include "host/chart_view/the_child.h"
#include "host/review/app/main_window/work_gui.h"
#include "tests/host/review/app/main_window/fast_clock.h"
#include "tests/host/review/app/main_window/workbench_fixture.h"

#include <QDialog>
#include <QTest>
#include <QTimer>

namespace {

using namespace orvanta;
using review::ViewKind;

class Ending : public test::WorkbenchFixture {
protected:
    Ending() {
        Start(Demo());
        AddAnalysis();
        last_ = &AddAnalysis();
    }
    ~Ending() override { Leave(); }

    /// Computes, and lets this happen in the middle.
    void ComputeAnd(const std::function<void()>& what) {
        bool happened = false;
        QTimer::singleShot(0, &bench->Window(), [&] {
            // The progress display runs this in the middle of the work.
            EXPECT_FALSE(last_->IsComputed());
            what();
            happened = true;
        });
        bench->GetAnalyses().Recompute();
        EXPECT_TRUE(happened);
    }

    test::FastClock clock_;
    SpectMacroResult* last_; ///< is computed last
};

TEST_F(Ending, TheWindowClosesWhenTheComputationIsCancelled) {
    ComputeAnd([this] {
        EXPECT_FALSE(bench->Window().close());
        EXPECT_TRUE(bench->Window().isVisible());
    });
    EXPECT_FALSE(last_->IsComputed());
    test::WaitUntilIdle();
    EXPECT_FALSE(bench->Window().isVisible());
}

TEST_F(Ending, TheWindowClosesOnceADialogThatCameUpBeforeHasEnded) {
    QDialog dialog(&bench->Window());
    dialog.setModal(true);
    ComputeAnd([&] {
        EXPECT_FALSE(bench->Window().close());
        dialog.show();
    });
    test::WaitUntilIdle();
    EXPECT_TRUE(bench->Window().isVisible());
    dialog.reject();
    EXPECT_TRUE(QTest::qWaitFor([this] { return !bench->Window().isVisible(); }));
}

TEST_F(Ending, TheRecordingIsSwitchedWhenTheComputationIsCancelled) {
    const std::string other = Demo("other.edf", 2);
    ComputeAnd([&] {
        bench->GetDocuments().Open(other);
        EXPECT_EQ(Recording().GetFileNameText(), "demo.edf");
    });
    test::WaitUntilIdle();
    EXPECT_EQ(Recording().GetFileNameText(), "other.edf");
    EXPECT_EQ(Analyses().Size(), 0U);
}

TEST_F(Ending, TheRecordingIsClosedWhenTheComputationIsCancelled) {
    ComputeAnd([this] { bench->GetDocuments().Close(); });
    test::WaitUntilIdle();
    EXPECT_EQ(bench->GetDocuments().Current(), nullptr);
}

TEST_F(Ending, AViewIsClosedWhenTheComputationIsCancelled) {
    ComputeAnd([this] { bench->GetViews().Hide(ViewKind::Spectrum); });
    test::WaitUntilIdle();
    EXPECT_FALSE(bench->GetViews().IsShown(ViewKind::Spectrum));
}

TEST_F(Ending, NoOtherAnalysisIsAskedForMeanwhile) {
    ComputeAnd([this] { bench->GetAnalyses().New(); });
    EXPECT_EQ(Analyses().Size(), 2U);
}

TEST(Work, IsToldOfNothingOnceItIsToEnd) {
    test::ScriptedUser user;
    review::WorkGui gui;
    const auto progress = gui.CreateProgress("Computing Spectra...");
    bool ended = false;
    EXPECT_TRUE(gui.IsBusy());
    gui.WhenIdle([&] { ended = true; });
    EXPECT_TRUE(progress->IsCancelled());
    EXPECT_TRUE(gui.CreateProgress("Another")->IsCancelled());
    gui.ShowError("could not be computed");
    EXPECT_TRUE(user.Messages().empty());
    EXPECT_FALSE(ended);
}

TEST(Work, TellsWhyWhatIsRunFailedAtOnceOrLater) {
    for (const bool busy : {false, true}) {
        test::ScriptedUser user;
        user.AnswersMessage(owl::kIdOk);
        review::WorkGui gui;
        auto progress = busy ? gui.CreateProgress("Computing Spectra...") : nullptr;
        gui.WhenIdle([] { throw std::runtime_error("cannot be computed"); });
        progress.reset();
        QCoreApplication::processEvents();
        ASSERT_EQ(user.Messages().size(), 1U) << busy;
        EXPECT_EQ(user.Messages()[0].text, "This could not be finished:\ncannot be computed");
    }
}

TEST(Work, RunsWhatHasWaitedWhenAllIsDone) {
    review::WorkGui gui;
    auto progress = gui.CreateProgress("Computing Spectra...");
    int runs = 0;
    gui.WhenIdle([&] { ++runs; });
    progress.reset();
    EXPECT_EQ(runs, 0); // what the work belongs to has not returned yet
    test::WaitUntilIdle();
    EXPECT_EQ(runs, 1);
    gui.WhenIdle([&] { ++runs; });
    EXPECT_EQ(runs, 2);
}

TEST(Work, LetsWhatHasWaitedWaitForADialogToo) {
    test::ScriptedUser user;
    review::WorkGui gui;
    auto progress = gui.CreateProgress("Computing Spectra...");
    int runs = 0;
    gui.WhenIdle([&] { ++runs; });
    QDialog dialog;
    QTimer::singleShot(0, &dialog, [&] {
        progress.reset();
        QTimer::singleShot(0, &dialog, [&] {
            test::WaitUntilIdle();
            EXPECT_EQ(runs, 0);
            EXPECT_FALSE(gui.CreateProgress("Of the dialog")->IsCancelled());
            user.AnswersMessage(owl::kIdOk);
            gui.ShowError("of the dialog");
            dialog.accept();
            QTest::qWait(200);
            EXPECT_EQ(runs, 0); // what has opened the dialog has not returned yet
        });
        dialog.exec();
    });
    test::WaitUntilIdle(); // as in the application's loop
    EXPECT_TRUE(QTest::qWaitFor([&] { return runs == 1; }));
}

TEST(Work, DropsWhatIsAskedForWhileADialogIsOpen) {
    review::WorkGui gui;
    QDialog dialog;
    dialog.setModal(true);
    dialog.show();
    int runs = 0;
    gui.WhenIdle([&] { ++runs; });
    dialog.reject();
    test::WaitUntilIdle();
    EXPECT_EQ(runs, 0);
}

} // namespace
