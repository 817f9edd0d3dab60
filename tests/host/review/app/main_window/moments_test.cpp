// SPDX-License-Identifier: GPL-3.0-or-later
// The recording, its views or the window go in the middle of something.
#include "host/chart_view/maps/cartoon_stat.h"
#include "host/review/app/events/event_editor.h"
#include "host/review/app/main_window/starter_macros.h"
#include "tests/host/review/app/main_window/workbench_fixture.h"

#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <QWindow>

namespace {

using namespace orvanta;
using review::ViewKind;
using testing::Values;

enum class End { Window, File, Switch, View };

std::string NameOf(const testing::TestParamInfo<End>& end) {
    constexpr const char* kNames[] = {"TheWindowCloses", "TheFileIsClosed", "AnotherFileIsOpened",
                                      "TheViewIsClosed"};
    return kNames[static_cast<std::size_t>(end.param)];
}

class InTheMiddle : public test::WorkbenchFixture, public testing::WithParamInterface<End> {
protected:
    InTheMiddle() : file_(Demo("demo.edf", 1, 2)), other_(Demo("other.edf", 2)) {
        review::InstallStarterMacros(folder.Path("data/MACRO/"));
        review::Workbench::Setup setup = Setup();
        setup.savesEvents = true;
        Start(setup, file_);
    }

    /// What the parameter says happens, \p kind is the view.
    void Ends(ViewKind kind = ViewKind::Traces) {
        switch (GetParam()) {
        case End::Window:
            bench->Window().close();
            break;
        case End::File:
            bench->GetDocuments().Close();
            break;
        case End::Switch:
            bench->GetDocuments().Open(other_);
            break;
        case End::View:
            bench->GetViews().Hide(kind);
            break;
        }
    }
    /// It has happened.
    void HasEnded(ViewKind kind = ViewKind::Traces) const {
        test::WaitUntilIdle();
        switch (GetParam()) {
        case End::Window:
            EXPECT_FALSE(bench->Window().isVisible());
            break;
        case End::File:
            EXPECT_EQ(bench->GetDocuments().Current(), nullptr);
            break;
        case End::Switch:
            ASSERT_NE(bench->GetDocuments().Current(), nullptr);
            EXPECT_EQ(Recording().GetFileNameText(), "other.edf");
            break;
        case End::View:
            EXPECT_FALSE(bench->GetViews().IsShown(kind));
            EXPECT_NE(bench->GetDocuments().Current(), nullptr);
            break;
        }
    }
    TheChild& View(ViewKind kind) const { return *bench->Middle().Views().ViewOf(kind); }
    void Mouse(void (*act)(QWindow*, Qt::MouseButton, Qt::KeyboardModifiers, QPoint, int),
               double share) const {
        const QWidget& window = bench->Window();
        const QPoint at(static_cast<int>(window.width() * share), window.height() / 4); // in the traces
        act(window.windowHandle(), Qt::LeftButton, {}, at, -1);
    }
    void StartDrag() const {
        Mouse(QTest::mousePress, 0.4);
        const QWidget& window = bench->Window();
        QTest::mouseMove(window.windowHandle(), {window.width() * 6 / 10, window.height() / 4});
    }

    std::string file_, other_;
};

TEST_P(InTheMiddle, OfReadingAheadForTheTraces) {
    bench->GetDocuments().Open(Demo("long.edf", 3, 30)); // many blocks for the worker
    ASSERT_EQ(Recording().GetFileNameText(), "long.edf");
    Ends();
    HasEnded();
}

TEST_P(InTheMiddle, OfADrag) {
    StartDrag();
    Ends();
    if (bench->Window().isVisible()) {
        Mouse(QTest::mouseRelease, 0.1);
    }
    HasEnded();
}

TEST_P(InTheMiddle, OfChoosingALabel) {
    StartDrag();
    Mouse(QTest::mouseRelease, 0.6);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    Ends();
    HasEnded();
    EXPECT_TRUE(GetParam() == End::Window || QApplication::activePopupWidget() == nullptr);
}

TEST_P(InTheMiddle, OfADialogNothingGoesButTheWindow) {
    const auto asked = [&](QDialog& form) {
        Ends();
        if (GetParam() == End::Window) {
            HasEnded();
        } else {
            test::WaitUntilIdle();
            EXPECT_TRUE(bench->GetViews().IsShown(ViewKind::Traces));
            EXPECT_EQ(Recording().GetFileNameText(), "demo.edf");
        }
        form.accept();
    };
    user.MeetsDialog(asked).MeetsDialog(asked).MeetsDialog(asked);
    for (const Qt::Key key : {Qt::Key_C, Qt::Key_G}) { // channels; time
        bench->Window().show();
        View(ViewKind::Traces).setFocus();
        QTest::keyClick(bench->Window().windowHandle(), key);
    }
    bench->GetAnalyses().New();
    test::WaitUntilIdle();
}

TEST_P(InTheMiddle, OfAMessage) {
    user.AnswersMessage(owl::kIdOk, [this] { Ends(); });
    bench->GetDocuments().Open(folder.Write("broken.edf", "?"));
    HasEnded();
}

TEST_P(InTheMiddle, OfWaitingToSaveEvents) {
    Events().Add({"Artifact", EventClass::State, {XTime::FromSeconds(1), XTime::FromSeconds(2)}});
    if (GetParam() != End::View) {
        user.Meets<QMessageBox>([](QMessageBox& box) {
            for (QAbstractButton* button : box.buttons()) {
                if (button->text() == "&Save") {
                    button->click();
                    return;
                }
            }
            FAIL() << "no button to save";
        });
    }
    Ends();
    HasEnded();
    constexpr int kPatience = 10000; // ms
    const auto saved = [this] { return std::filesystem::exists(folder.Path("demo_events.tsv")); };
    EXPECT_TRUE(QTest::qWaitFor(saved, kPatience));
}

TEST_P(InTheMiddle, OfACartoon) {
    AddAnalysis();
    bench->GetAnalyses().Recompute();
    test::WaitUntilIdle();
    bench->GetAnalyses().Show(ViewKind::Maps);
    auto& maps = dynamic_cast<CartoonStat&>(View(ViewKind::Maps));
    maps.SetFocus();
    test::WaitUntilIdle();
    for (QAction* item : maps.GetMenu().actions()) {
        if (item->text().remove('&') == "Cartoon Mode") {
            item->trigger();
        }
    }
    ASSERT_GT(maps.GetStepCount(), 5U);
    maps.Play();
    ASSERT_TRUE(maps.IsPlaying());
    services.clock.Advance(2000);
    test::WaitUntilIdle();
    Ends(ViewKind::Maps);
    services.clock.Advance(2000);
    HasEnded(ViewKind::Maps);
}

INSTANTIATE_TEST_SUITE_P(OfItAll, InTheMiddle, Values(End::Window, End::File, End::Switch, End::View),
                         NameOf);

} // namespace
