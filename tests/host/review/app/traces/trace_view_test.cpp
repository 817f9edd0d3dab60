// SPDX-License-Identifier: GPL-3.0-or-later
// The trace view among others, and what it survives.
#include "tests/host/review/app/traces/trace_view_fixture.h"

#include <gmock/gmock.h>

#include <QPainter>

namespace orvanta::review {
namespace {

using test::TraceViewTest;

class TraceViewFollows : public TraceViewTest {};

TEST_F(TraceViewFollows, TheTraceCursorAndMovesIt) {
    TraceCursorType& cursor = *recording->GetTraceCursor();
    cursor.SetPosition(8 * 25);
    EXPECT_EQ(Start(), 25);
    Press(Qt::Key_PageDown);
    EXPECT_EQ(cursor.GetStartRecTime()->Seconds(), 35);
}

TEST_F(TraceViewFollows, AMontageThatIsChosenElsewhere) {
    const MontageType bipolar = test::MontageOf(*recording, "Fp1-F3 = +Fp1 -F3");
    recording->ChangeMntg(0, true, &bipolar);
    Click({300, 150});
    EXPECT_EQ(window.channels.back(), "Fp1-F3");
}

TEST_F(TraceViewFollows, ATimeOnlyWhenItIsNotOnThePage) {
    view->GoTo(XTime::FromSeconds(9));
    EXPECT_EQ(Start(), 0);
    view->GoTo(XTime::FromSeconds(40));
    EXPECT_EQ(Start(), 39);
    view->GoTo(XTime::FromSeconds(1e6));
    EXPECT_EQ(Start(), 50);
}

TEST_F(TraceViewFollows, AChannelByTheNameOfItsElectrode) {
    const MontageType bipolar = test::MontageOf(*recording, "Fp1-F3 = +Fp1 -F3\nCz-F3 = +Cz -F3");
    recording->ChangeMntg(0, true, &bipolar);
    view->ShowChannel("Cz");
    Press(Qt::Key_B);
    EXPECT_TRUE(test::SensorOf(*recording, "Cz")->IsBad());
    view->ShowChannel("no such channel");
    Press(Qt::Key_B);
    EXPECT_FALSE(test::SensorOf(*recording, "Cz")->IsBad());
}

TEST_F(TraceViewFollows, EventsThatAreAddedElsewhere) {
    const QImage before = view->grab().toImage();
    events.Add({"spike", EventClass::Spot, {XTime::FromSeconds(5), XTime::FromSeconds(5)}});
    Draw();
    EXPECT_NE(view->grab().toImage(), before);
}

TEST_F(TraceViewFollows, ShadesOfAnalyses) {
    const QImage before = view->grab().toImage();
    view->SetShades({{{XTime::FromSeconds(2), XTime::FromSeconds(4)}, 0x00FF0000}});
    Draw();
    const QImage shaded = view->grab().toImage();
    EXPECT_NE(shaded.pixelColor(200, 35), before.pixelColor(200, 35)); // at 2.5 s
    EXPECT_EQ(shaded.pixelColor(400, 35), before.pixelColor(400, 35)); // at 5.8 s
}

class TraceViewSurvives : public TraceViewTest {
protected:
    void Use(QWidget& shown) const {
        for (const QSize& size :
             {QSize(0, 0), QSize(1, 1), QSize(30, 500), QSize(500, 30), QSize(658, 400)}) {
            shown.setFixedSize(size);
            Draw();
            for (const int key : {Qt::Key_PageDown, Qt::Key_Plus, Qt::Key_Down, Qt::Key_End, Qt::Key_Home,
                                  Qt::Key_B, Qt::Key_H, Qt::Key_N, Qt::Key_Backspace, Qt::Key_Escape}) {
                Press(key);
                Press(key, Qt::ControlModifier);
                Press(key, Qt::ShiftModifier);
            }
            for (const QPoint& at : {QPoint(0, 0), QPoint(10, 10), QPoint(300, 200), QPoint(300, 380)}) {
                Hover(at);
                Turn(1, at);
                Turn(-1, at, Qt::ControlModifier);
                Drag(at, at + QPoint(40, 30), Qt::MiddleButton);
                Drag(at, at + QPoint(40, 30), Qt::RightButton, Qt::NoModifier);
            }
            Draw();
        }
    }
};

TEST_F(TraceViewSurvives, EverySize) {
    Use(*view);
    EXPECT_TRUE(view->IsCreated());
}

/// A view on another recording, used all over.
struct Used {
    explicit Used(std::unique_ptr<EEGFileInfoType> file) : recording(std::move(file)), events(*recording) {
        view = new TraceView(window, *recording, events);
        view->resize(658, 400);
        view->Create();
        window.resize(658, 400);
        window.show();
        view->Panes().show();
        view->show();
        test::WaitUntilIdle();
        for (const int key : {Qt::Key_PageDown, Qt::Key_End, Qt::Key_Plus, Qt::Key_Down, Qt::Key_B, Qt::Key_H,
                              Qt::Key_N, Qt::Key_PageUp}) {
            QTest::keyClick(view, static_cast<Qt::Key>(key));
            QTest::keyClick(view, static_cast<Qt::Key>(key), Qt::ShiftModifier);
            QTest::keyClick(view, static_cast<Qt::Key>(key), Qt::ControlModifier);
        }
        QTest::mouseMove(view, {300, 200});
        QTest::mouseClick(view, Qt::LeftButton, {}, {300, 200});
        test::WaitUntilIdle();
    }
    ~Used() { view->Destroy(); }

    test::PointedWindow window;
    std::unique_ptr<EEGFileInfoType> recording;
    EventEditor events;
    TraceView* view = nullptr;
};

TEST(TraceViewSurvivesRecordings, WithoutChannels) {
    const Used used(signal::MakeRecording(test::MakeData({})));
    EXPECT_EQ(used.view->GetPage().GetBeginPtr()->Seconds(), 0);
}

TEST(TraceViewSurvivesRecordings, WithoutData) {
    const Used used(signal::MakeRecording(test::MakeData({{"C3", 100, {}}})));
    EXPECT_EQ(used.view->GetPage().GetBeginPtr()->Seconds(), 0);
}

TEST(TraceViewSurvivesRecordings, WithoutEeg) {
    const Used used(signal::MakeRecording(test::MakeData(
        {{"ECG", 16, std::vector<double>(640, 3), "mV"}, {"Resp", 4, std::vector<double>(160, 4), "L/s"}})));
    EXPECT_EQ(used.view->GetPage().GetBeginPtr()->Seconds(), 25); // a page of 5 s back from 30
}

TEST(TraceViewSurvivesRecordings, WithAGap) {
    const Used used(test::SmallRecording(20, {}, {{10, 3600}}));
    used.view->GoTo(XTime::FromSeconds(9));
    test::WaitUntilIdle();
    EXPECT_FALSE(used.view->grab().toImage().isNull());
}

TEST(TraceViewSurvivesRecordings, OfADay) {
    const Used used(
        signal::MakeRecording(test::MakeData({{"C3", 2, std::vector<double>(std::size_t{2} * 86400, 1)},
                                              {"C4", 2, std::vector<double>(std::size_t{2} * 86400, -1)}})));
    used.view->RunCommand(kCmToEnd);
    EXPECT_EQ(used.view->GetPage().GetEndPtr()->Seconds(), 86400);
}

TEST(TraceViewSurvivesRecordings, ThatGoWhileTheBackgroundWorks) {
    for (int i = 0; i < 5; ++i) {
        const Used used(signal::MakeRecording(
            test::MakeData({{"C3", 64, std::vector<double>(std::size_t{64} * 3600, i)}})));
        EXPECT_TRUE(used.view->IsCreated());
    }
}

} // namespace
} // namespace orvanta::review
