// SPDX-License-Identifier: GPL-3.0-or-later
// Runs at one and, as a test of its own, at two device pixels to a logical one.
#include "host/toolkit/qt_painting.h"
#include "host/toolkit/window.h"
#include "tests/support/qt/scripted_user.h"

#include <QApplication>
#include <QDialog>
#include <QTest>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <vector>

namespace {

constexpr owl::TColor kRed = 0x0000FF;
constexpr owl::TColor kBlue = 0xFF0000;

struct Drawn {
    owl::TRect rect;
    bool erase;
    bool operator==(const Drawn&) const = default;
};

/// Fills itself with a colour and writes down when it draws.
class Canvas : public owl::TWindow {
public:
    Canvas() { resize(40, 30); }

    std::vector<Drawn> drawn;
    owl::TColor color = kRed;
    std::function<void()> inside = [] {}; ///< done once, in the midst of the next Draw
    int nested = 0;
    int inPaintEvent = 0;
    int paintEvents = 0;

protected:
    void Draw(owl::TDC& dc, bool erase, owl::TRect& rect) override {
        drawn.push_back({rect, erase});
        inPaintEvent += painting_ ? 1 : 0;
        nested += drawing_ ? 1 : 0;
        drawing_ = true;
        const QPointer<Canvas> alive(this);
        dc.FillRect(GetClientRect(), color);
        std::exchange(inside, [] {})();
        if (alive) {
            drawing_ = false;
        }
    }
    void paintEvent(QPaintEvent* event) override {
        painting_ = true;
        ++paintEvents;
        TWindow::paintEvent(event);
        painting_ = false;
    }

private:
    bool painting_ = false;
    bool drawing_ = false;
};

void RunQueue() {
    QApplication::processEvents();
    QApplication::processEvents();
}

/// Shows the canvas and forgets the first drawing.
void Show(Canvas& canvas) {
    canvas.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&canvas));
    RunQueue();
    canvas.drawn.clear();
    canvas.paintEvents = 0;
}

owl::TColor Pixel(Canvas& canvas, int x, int y) {
    const QImage shown = canvas.grab().toImage();
    const double ratio = shown.devicePixelRatio();
    return owl::FromQColor(shown.pixelColor(static_cast<int>(x * ratio), static_cast<int>(y * ratio)));
}

const owl::TRect kAll{0, 0, 40, 30};

TEST(WindowPainting, DrawsAllWhenShown) {
    Canvas canvas;
    canvas.show();
    RunQueue();
    EXPECT_EQ(canvas.drawn, (std::vector<Drawn>{{kAll, true}}));
    EXPECT_EQ(Pixel(canvas, 39, 29), kRed);
}

TEST(WindowPainting, IsDoneFromTheQueueAndNeverInAPaintEvent) {
    Canvas canvas;
    Show(canvas);
    canvas.Invalidate();
    EXPECT_TRUE(canvas.drawn.empty());
    canvas.repaint();
    EXPECT_TRUE(canvas.drawn.empty());
    RunQueue();
    EXPECT_EQ(canvas.drawn.size(), 1U);
    EXPECT_GE(canvas.paintEvents, 2);
    EXPECT_EQ(canvas.inPaintEvent, 0);
}

TEST(WindowPainting, DoesNotDrawAgainForAPaintEvent) {
    Canvas canvas;
    Show(canvas);
    canvas.update();
    RunQueue();
    EXPECT_EQ(canvas.paintEvents, 1);
    EXPECT_TRUE(canvas.drawn.empty());
}

TEST(WindowPainting, DrawsOnceForManyInvalidations) {
    Canvas canvas;
    Show(canvas);
    canvas.InvalidateRect({2, 3, 5, 6}, false);
    canvas.InvalidateRect({10, 1, 12, 4}, false);
    RunQueue();
    EXPECT_EQ(canvas.drawn, (std::vector<Drawn>{{{2, 1, 12, 6}, false}}));
}

TEST(WindowPainting, ErasesWhenOneInvalidationDoes) {
    Canvas canvas;
    Show(canvas);
    canvas.InvalidateRect({0, 0, 5, 5}, false);
    canvas.InvalidateRect({0, 0, 5, 5}, true);
    RunQueue();
    EXPECT_EQ(canvas.drawn, (std::vector<Drawn>{{{0, 0, 5, 5}, true}}));
}

TEST(WindowPainting, TakesOverNothingOutsideTheDamage) {
    Canvas canvas;
    Show(canvas);
    canvas.color = kBlue;
    canvas.InvalidateRect({10, 10, 20, 20});
    RunQueue();
    EXPECT_EQ(Pixel(canvas, 15, 15), kBlue);
    EXPECT_EQ(Pixel(canvas, 25, 15), kRed);
}

TEST(WindowPainting, IgnoresDamageOutsideTheWindow) {
    Canvas canvas;
    Show(canvas);
    canvas.InvalidateRect({100, 100, 120, 120});
    RunQueue();
    EXPECT_TRUE(canvas.drawn.empty());
}

TEST(WindowPainting, DrawsOnceMoreForAnInvalidationInside) {
    Canvas canvas;
    Show(canvas);
    canvas.inside = [&] {
        canvas.color = kBlue;
        canvas.Invalidate();
        canvas.Invalidate();
        canvas.UpdateWindow();
        RunQueue();
        EXPECT_EQ(canvas.drawn.size(), 1U);
    };
    canvas.Invalidate();
    RunQueue();
    EXPECT_EQ(canvas.drawn.size(), 2U);
    EXPECT_EQ(canvas.nested, 0);
    EXPECT_EQ(Pixel(canvas, 5, 5), kBlue);
}

TEST(WindowPainting, MayOpenADialogAndShowsTheLastPictureMeanwhile) {
    Canvas canvas;
    Show(canvas);
    owl::TColor shown = 0;
    orvanta::test::ScriptedUser user;
    user.MeetsDialog([&](QDialog& dialog) {
        canvas.Invalidate();
        RunQueue();
        shown = Pixel(canvas, 5, 5);
        dialog.accept();
    });
    canvas.color = kBlue;
    canvas.inside = [&] {
        QDialog dialog;
        owl::CurrentModalGateway().RunModal(dialog);
    };
    canvas.Invalidate();
    RunQueue();
    EXPECT_EQ(shown, kRed);
    EXPECT_EQ(Pixel(canvas, 5, 5), kBlue);
    EXPECT_EQ(canvas.drawn.size(), 2U);
    EXPECT_EQ(canvas.nested, 0);
}

TEST(WindowPainting, DrawsAllWhenResized) {
    Canvas canvas;
    Show(canvas);
    canvas.resize(60, 20);
    RunQueue();
    EXPECT_EQ(canvas.drawn, (std::vector<Drawn>{{{0, 0, 60, 20}, true}}));
    EXPECT_EQ(Pixel(canvas, 59, 19), kRed);
}

TEST(WindowPainting, DrawsAgainWhenResizedInside) {
    Canvas canvas;
    Show(canvas);
    canvas.inside = [&] {
        canvas.resize(60, 20);
        RunQueue();
    };
    canvas.Invalidate();
    RunQueue();
    EXPECT_EQ(canvas.drawn, (std::vector<Drawn>{{kAll, true}, {{0, 0, 60, 20}, true}}));
}

TEST(WindowPainting, MayEndTheWindow) {
    auto* canvas = new Canvas;
    const QPointer<Canvas> alive(canvas);
    canvas->inside = [canvas] { delete canvas; };
    canvas->show();
    RunQueue();
    EXPECT_TRUE(alive.isNull());
}

TEST(WindowPainting, MayDestroyTheWindow) {
    Canvas canvas;
    Show(canvas);
    canvas.inside = [&] { canvas.Destroy(); };
    canvas.Invalidate();
    RunQueue();
    canvas.Invalidate();
    RunQueue();
    EXPECT_EQ(canvas.drawn.size(), 1U);
    EXPECT_FALSE(canvas.isVisible());
}

TEST(WindowPainting, GoesOnAfterAFailure) {
    Canvas canvas;
    Show(canvas);
    canvas.inside = [] { throw std::runtime_error("no memory"); };
    orvanta::test::ScriptedUser user;
    user.AnswersMessage(owl::kIdOk); // that tells of it
    canvas.Invalidate();
    canvas.UpdateWindow();
    canvas.Invalidate();
    RunQueue();
    EXPECT_EQ(canvas.drawn.size(), 2U);
    EXPECT_EQ(user.Messages().size(), 1U);
}

TEST(WindowPainting, IsDoneAtOnceOnDemand) {
    Canvas canvas;
    Show(canvas);
    canvas.Invalidate();
    canvas.UpdateWindow();
    EXPECT_EQ(canvas.drawn.size(), 1U);
    RunQueue();
    EXPECT_EQ(canvas.drawn.size(), 1U);
    canvas.UpdateWindow();
    EXPECT_EQ(canvas.drawn.size(), 1U);
}

TEST(WindowPainting, WaitsUntilTheWindowIsSeen) {
    Canvas canvas;
    Show(canvas);
    canvas.hide();
    canvas.InvalidateRect({0, 0, 5, 5});
    RunQueue();
    EXPECT_TRUE(canvas.drawn.empty());
    canvas.show();
    RunQueue();
    EXPECT_EQ(canvas.drawn, (std::vector<Drawn>{{{0, 0, 5, 5}, true}}));
}

TEST(WindowPainting, ComesAfterInput) {
    Canvas canvas;
    Show(canvas);
    canvas.Invalidate();
    bool drawnBefore = true;
    QMetaObject::invokeMethod(
        &canvas, [&] { drawnBefore = !canvas.drawn.empty(); }, Qt::QueuedConnection);
    RunQueue();
    EXPECT_FALSE(drawnBefore);
    EXPECT_EQ(canvas.drawn.size(), 1U);
}

TEST(WindowPainting, HasThePixelsOfTheScreen) {
    Canvas canvas;
    const int ratio = std::max(1, qEnvironmentVariableIntValue("QT_SCALE_FACTOR"));
    ASSERT_EQ(canvas.devicePixelRatioF(), ratio);
    Show(canvas);
    canvas.color = kBlue;
    canvas.InvalidateRect({7, 7, 8, 8});
    RunQueue();
    const QImage shown = canvas.grab().toImage();
    EXPECT_EQ(shown.size(), QSize(40 * ratio, 30 * ratio));
    const auto at = [&](int x, int y) { return owl::FromQColor(shown.pixelColor(x, y)); };
    EXPECT_EQ(at(7 * ratio - 1, 7 * ratio), kRed);
    EXPECT_EQ(at(7 * ratio, 7 * ratio), kBlue);
    EXPECT_EQ(at(8 * ratio - 1, 8 * ratio - 1), kBlue);
    EXPECT_EQ(at(8 * ratio, 8 * ratio), kRed);
}

/// Draws a circle.
class Circle : public owl::TWindow {
public:
    Circle() { resize(20, 20); }

protected:
    void Draw(owl::TDC& dc, bool /*erase*/, owl::TRect& /*rect*/) override { dc.Ellipse({2, 2, 18, 18}); }
};

TEST(WindowPainting, DrawsCurvesWithAllThePixelsOfTheScreen) {
    Circle circle;
    circle.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&circle));
    RunQueue();
    const QImage shown = circle.grab().toImage();
    const int ratio = static_cast<int>(shown.devicePixelRatio());
    int mixed = 0; // logical pixels of more than one colour
    for (int y = 0; y < shown.height(); ++y) {
        for (int x = 0; x < shown.width(); ++x) {
            mixed += shown.pixel(x, y) != shown.pixel(x - x % ratio, y - y % ratio) ? 1 : 0;
        }
    }
    EXPECT_EQ(mixed > 0, ratio > 1) << mixed;
}

} // namespace
