// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/progress_box.h"

#include "host/toolkit/services.h"

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QWindow>
#include <gtest/gtest.h>

#include <limits>

namespace {

using orvanta::review::ProgressBox;

/// A clock that the test sets.
class HandClock final : public owl::Clock {
public:
    std::int64_t Milliseconds() const override { return Now; }
    std::int64_t Now = 5000;
};

class Progress : public testing::Test {
protected:
    Progress() : services_(owl::CurrentServices()) {
        services_.clock = &clock_;
        owl::ReplaceServices(&services_);
    }
    ~Progress() override { owl::ReplaceServices(nullptr); }

    /// The box after work that has lasted so long.
    void WorkLasts(ProgressBox& box, std::int64_t milliseconds, double share = 0.5) {
        clock_.Now += milliseconds;
        box.SetPosition(share);
    }

    HandClock clock_;
    owl::Services services_;
};

TEST_F(Progress, StaysHiddenDuringShortWork) {
    ProgressBox box("Computing Spectra...", nullptr);
    WorkLasts(box, 0);
    WorkLasts(box, 299);
    EXPECT_FALSE(box.Window().isVisible());
}

TEST_F(Progress, ComesUpWhenTheWorkHasLasted300Milliseconds) {
    ProgressBox box("Computing Spectra...", nullptr);
    WorkLasts(box, 300);
    EXPECT_TRUE(box.Window().isVisible());
    EXPECT_TRUE(box.Window().isModal());
}

TEST_F(Progress, ShowsTextAndShare) {
    ProgressBox box("Computing <Spectra>...", nullptr);
    WorkLasts(box, 300, 0.25);
    EXPECT_EQ(box.Window().labelText(), "Computing <Spectra>...");
    EXPECT_EQ(box.Window().findChild<QLabel*>()->textFormat(), Qt::PlainText);
    EXPECT_EQ(box.Window().findChild<QProgressBar*>()->text(), "25%");
    box.SetText("Reading");
    EXPECT_EQ(box.Window().labelText(), "Reading");
}

TEST_F(Progress, KeepsSharesOutsideTheRangeInside) {
    ProgressBox box("x", nullptr);
    for (const auto& [share, steps] :
         {std::pair(-1.0, 0), {2.0, 1000}, {std::numeric_limits<double>::quiet_NaN(), 0}, {1.0, 1000}}) {
        WorkLasts(box, 300, share);
        EXPECT_EQ(box.Window().value(), steps) << share;
    }
}

TEST_F(Progress, IsStillThereWhenAllIsDoneUntilItIsDestroyed) {
    ProgressBox box("x", nullptr);
    WorkLasts(box, 300, 1);
    EXPECT_TRUE(box.Window().isVisible());
}

TEST_F(Progress, IsCancelledByItsButton) {
    ProgressBox box("x", nullptr);
    WorkLasts(box, 300);
    EXPECT_FALSE(box.IsCancelled());
    QTest::mouseClick(box.Window().findChild<QPushButton*>(), Qt::LeftButton);
    EXPECT_TRUE(box.IsCancelled());
    WorkLasts(box, 300);
    EXPECT_FALSE(box.Window().isVisible());
}

TEST_F(Progress, IsCancelledByEscape) {
    ProgressBox box("x", nullptr);
    WorkLasts(box, 300);
    QTest::keyClick(&box.Window(), Qt::Key_Escape);
    EXPECT_TRUE(box.IsCancelled());
}

TEST_F(Progress, StandsOverItsWindow) {
    QWidget below;
    below.setGeometry(150, 100, 500, 300);
    below.show();
    ProgressBox box("x", &below);
    WorkLasts(box, 300);
    EXPECT_EQ(box.Window().windowHandle()->transientParent(), below.windowHandle());
    const QPoint apart = box.Window().frameGeometry().center() - below.frameGeometry().center();
    EXPECT_LE(apart.manhattanLength(), 40); // frames of the window manager
}

TEST_F(Progress, GoesOnWhenItsWindowIsDeletedMeanwhile) {
    auto below = std::make_unique<QWidget>();
    below->show();
    ProgressBox box("x", below.get());
    WorkLasts(box, 300);
    QTimer::singleShot(0, qApp, [&below] { below.reset(); });
    WorkLasts(box, 100, 0.6);
    ASSERT_EQ(below, nullptr);
    EXPECT_TRUE(box.Window().isVisible());
    WorkLasts(box, 100, 0.75);
    EXPECT_EQ(box.Window().value(), 750);
    EXPECT_FALSE(box.IsCancelled());
}

TEST_F(Progress, DoesWithoutAWindowThatWentBeforeItCameUp) {
    auto below = std::make_unique<QWidget>();
    ProgressBox box("x", below.get());
    below.reset();
    WorkLasts(box, 300);
    EXPECT_TRUE(box.Window().isVisible());
}

TEST_F(Progress, GrowsWithALongerText) {
    ProgressBox box("Saving spectra: 1 of 60: a", nullptr);
    WorkLasts(box, 300);
    box.SetText("Saving spectra: 2 of 60: Eyes closed_Anna Meyer_Rectangular_1_50_0001234_rec.edf.xml");
    WorkLasts(box, 300);
    EXPECT_GE(box.Window().findChild<QLabel*>()->width(),
              box.Window().findChild<QLabel*>()->sizeHint().width());
}

TEST_F(Progress, LeavesOutTheMiddleOfATextThatIsTooWide) {
    ProgressBox box("x", nullptr);
    WorkLasts(box, 300);
    box.SetText("Saving spectra: 2 of 60: " + std::string(250, 'W') + "_rec.edf.xml");
    WorkLasts(box, 300);
    EXPECT_LE(box.Window().width(), 640);
    EXPECT_TRUE(box.Window().labelText().startsWith("Saving spectra: 2 of 60: WWW"));
    EXPECT_TRUE(box.Window().labelText().endsWith("W_rec.edf.xml"));
}

TEST_F(Progress, LetsOtherWindowsLiveWhileTheWorkIsYoung) {
    ProgressBox box("x", nullptr);
    bool served = false;
    QTimer::singleShot(0, qApp, [&served] { served = true; });
    WorkLasts(box, 100);
    EXPECT_TRUE(served);
}

} // namespace
