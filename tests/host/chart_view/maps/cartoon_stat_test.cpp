// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/maps/cartoon_stat.h"

#include "tests/host/chart_view/maps/maps_view.h"
#include "tests/support/qt/fake_services.h"
#include "tests/support/qt/form_user.h"
#include "tests/support/qt/scripted_user.h"

#include <QApplication>
#include <QComboBox>
#include <QRegularExpression>
#include <QSlider>
#include <QTest>
#include <QToolButton>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

namespace {

using orvanta::chart::ValueRange;
using orvanta::test::Epochs;
using orvanta::test::FakeGlobalWindow;
using orvanta::test::FakeServices;
using orvanta::test::FormUser;
using orvanta::test::MapsView;
using testing::ElementsAre;

constexpr WPARAM kTwoByOne = 1U | 2U << 16U; ///< columns in the lower half
constexpr unsigned kGrid = 14160;

/// Two maps side by side.
class Cartoon : public testing::Test {
protected:
    Cartoon() { window.platform.user.values = {{"Maps/MapRows", 1}, {"Maps/MapColumns", 2}}; }

    std::unique_ptr<MapsView> ViewOf(std::uint32_t epochs, bool threeD = false) {
        auto view = std::make_unique<MapsView>(window, threeD);
        view->ShowAt(800, 300);
        view->source.epochs = Epochs(epochs);
        view->inCartoon = true;
        view->EnableCartoon(true);
        view->SetMapValues(true);
        return view;
    }
    /// Waits for the timer to bring the view there.
    static bool Reaches(const MapsView& view, std::uint64_t first) {
        constexpr int kPatience = 20'000; // milliseconds, on a busy machine
        return QTest::qWaitFor([&] { return view.GetFirstStep() == first; }, kPatience);
    }
    static bool Pauses(const MapsView& view) {
        constexpr int kPatience = 20'000;
        return QTest::qWaitFor([&] { return !view.IsPlaying(); }, kPatience);
    }
    /// Long enough for a step that must not come.
    static void WaitInVain(int stepsPerSecond) { QTest::qWait(1000 / stepsPerSecond + 30); }
    static QWidget& Bar(const MapsView& view) { return *view.findChild<QWidget*>("cartoonBar"); }
    static int SliderOf(const MapsView& view) { return view.findChild<QSlider*>("cartoonSlider")->value(); }

    FakeServices services;
    FakeGlobalWindow window;
};

TEST_F(Cartoon, IsOffAtFirst) {
    MapsView view(window);
    view.ShowAt(800, 300);
    view.source.epochs = Epochs(5);
    view.SetMapValues(true);
    EXPECT_EQ(view.GetStepCount(), 0U);
    EXPECT_EQ(view.GetFirstStep(), 0U);
    EXPECT_TRUE(Bar(view).isHidden());
    EXPECT_EQ(view.updates.back(), Epochs(5));
    view.Press(Qt::Key_Right);
    view.Play();
    EXPECT_FALSE(view.IsPlaying());
    EXPECT_THAT(view.Titles(), ElementsAre("Map 0", "Map 1"));
}

TEST_F(Cartoon, ShowsTheFirstEpochsAndItsControls) {
    const auto view = ViewOf(5);
    EXPECT_EQ(view->GetStepCount(), 5U);
    EXPECT_THAT(view->Titles(), ElementsAre("Epoch 0", "Epoch 1"));
    EXPECT_TRUE(Bar(*view).isVisible());
    EXPECT_EQ(FormUser(Bar(*view)).TextOf("cartoonWhere"), "Epochs 1–2 of 5   0:00:00.0 – 0:00:02.0");
    EXPECT_EQ(view->accessibleDescription(), "Epochs 1–2 of 5   0:00:00.0 – 0:00:02.0");
    EXPECT_EQ(view->GetMap(0)->geometry().bottom() + 1, Bar(*view).y());
}

TEST_F(Cartoon, HandsOverStretchesCountedFromZero) {
    const auto view = ViewOf(5);
    view->ShowStep(2);
    XTimeList expected;
    expected.push_back(XTimeInterval(XTime::FromSeconds(2), XTime::FromSeconds(3)), 0);
    expected.push_back(XTimeInterval(XTime::FromSeconds(3), XTime::FromSeconds(4)), 1);
    EXPECT_EQ(view->updates.back(), expected);
    EXPECT_EQ(view->EpochOf(1), 3U);
    EXPECT_THAT(view->Titles(), ElementsAre("Epoch 2", "Epoch 3"));
    EXPECT_THAT(view->GetMap(1)->GetValues(), ElementsAre(300, 301, 302, 303));
}

TEST_F(Cartoon, StepsWithoutFetchingAgain) {
    const auto view = ViewOf(5);
    EXPECT_EQ(view->source.fetched, 1);
    view->ShowStep(3);
    EXPECT_EQ(view->source.fetched, 1);
}

TEST_F(Cartoon, EndsWithAFullStretch) {
    const auto view = ViewOf(5);
    view->ShowStep(100);
    EXPECT_EQ(view->GetFirstStep(), 3U);
    EXPECT_THAT(view->Titles(), ElementsAre("Epoch 3", "Epoch 4"));
}

TEST_F(Cartoon, StepsByKeys) {
    const auto view = ViewOf(9);
    struct Step {
        Qt::Key key;
        std::uint64_t first;
    };
    for (const Step& step : {Step{Qt::Key_Left, 0}, Step{Qt::Key_Right, 1}, Step{Qt::Key_PageDown, 3},
                             Step{Qt::Key_End, 7}, Step{Qt::Key_Right, 7}, Step{Qt::Key_PageUp, 5},
                             Step{Qt::Key_Left, 4}, Step{Qt::Key_Home, 0}, Step{Qt::Key_PageUp, 0}}) {
        view->Press(step.key);
        EXPECT_EQ(view->GetFirstStep(), step.first) << "key " << step.key;
        EXPECT_EQ(SliderOf(*view), static_cast<int>(step.first));
    }
}

TEST_F(Cartoon, StepsByButtonsAndSlider) {
    const auto view = ViewOf(9);
    const FormUser user(Bar(*view));
    user.Clicks("cartoonForward");
    EXPECT_EQ(view->GetFirstStep(), 1U);
    user.Clicks("cartoonLeafForward");
    EXPECT_EQ(view->GetFirstStep(), 3U);
    user.Clicks("cartoonBack");
    EXPECT_EQ(view->GetFirstStep(), 2U);
    user.Clicks("cartoonLeafBack");
    EXPECT_EQ(view->GetFirstStep(), 0U);
    view->findChild<QSlider*>("cartoonSlider")->setValue(6);
    EXPECT_EQ(view->GetFirstStep(), 6U);
    EXPECT_THAT(view->Titles(), ElementsAre("Epoch 6", "Epoch 7"));
}

TEST_F(Cartoon, DoesNotSlideWhenAllEpochsAreSeen) {
    const auto view = ViewOf(2);
    view->ShowStep(1);
    view->Play();
    EXPECT_EQ(view->GetFirstStep(), 0U);
    EXPECT_FALSE(view->IsPlaying());
    EXPECT_FALSE(FormUser(Bar(*view)).IsEnabled("cartoonSlider"));
}

TEST_F(Cartoon, MarksMapsWithoutAnEpochAndLeavesThemOut) {
    const auto view = ViewOf(1);
    EXPECT_THAT(view->Titles(), ElementsAre("Epoch 0", "---"));
    EXPECT_TRUE(view->GetMap(0)->isEnabled());
    EXPECT_FALSE(view->GetMap(1)->isEnabled());
    EXPECT_EQ(view->GetMap(1)->GetMeasureUnit(), "++");
    EXPECT_EQ(view->GetOverallRange(), (ValueRange{0, 3}));
    view->source.epochs = Epochs(2);
    view->SetMapValues(true);
    EXPECT_TRUE(view->GetMap(1)->isEnabled());
    EXPECT_EQ(view->GetMap(1)->GetMeasureUnit(), "µV²");
}

TEST_F(Cartoon, CountsGapsAsEpochs) {
    const auto view = ViewOf(0);
    XTimeList list;
    list.push_back(XTimeInterval(XTime(), XTime::FromSeconds(1)), 0);
    list.push_back(XTimeInterval(XTime::FromSeconds(3), XTime::FromSeconds(4)), 3);
    view->source.epochs = list;
    view->SetMapValues(true);
    EXPECT_EQ(view->GetStepCount(), 4U);
    view->ShowStep(1); // neither epoch of this stretch has an item
    EXPECT_TRUE(view->updates.back().empty());
    EXPECT_EQ(view->GetFirstStep(), 1U);
    view->ShowStep(2);
    EXPECT_EQ(view->updates.back().size(), 1U);
}

TEST_F(Cartoon, LivesWithoutEpochs) {
    const auto view = ViewOf(0);
    view->Play();
    view->Press(Qt::Key_End);
    view->Press(Qt::Key_Space);
    EXPECT_EQ(view->GetStepCount(), 0U);
    EXPECT_EQ(view->GetFirstStep(), 0U);
    EXPECT_EQ(FormUser(Bar(*view)).TextOf("cartoonWhere"), "No epochs");
}

TEST_F(Cartoon, KeepsOneScaleForAllSteps) {
    auto view = ViewOf(5);
    view->source.range = ValueRange{-1, 500};
    view->SetMapValues(true);
    EXPECT_EQ(view->GetMap(0)->GetScale(), (ValueRange{-1, 500}));
    view->ShowStep(3);
    EXPECT_EQ(view->GetMap(0)->GetScale(), (ValueRange{-1, 500}));
    view->EnableCartoon(false);
    view->inCartoon = false;
    view->SetMapValues(true);
    EXPECT_EQ(view->GetMap(0)->GetScale(), (ValueRange{0, 13}));
}

TEST_F(Cartoon, PlaysWhatIsDue) {
    const auto view = ViewOf(100);
    view->findChild<QComboBox*>("cartoonSpeed")->setCurrentIndex(4);
    view->Press(Qt::Key_Space);
    EXPECT_TRUE(view->IsPlaying());
    WaitInVain(25);
    EXPECT_EQ(view->GetFirstStep(), 0U); // the clock stands still
    services.clock.Advance(40);
    EXPECT_TRUE(Reaches(*view, 1));
    services.clock.Advance(400); // something was slow
    EXPECT_TRUE(Reaches(*view, 11));
    EXPECT_LE(view->updates.size(), 3U); // and nothing was made up for
    view->Press(Qt::Key_Space);
    EXPECT_FALSE(view->IsPlaying());
    services.clock.Advance(400);
    WaitInVain(25);
    EXPECT_EQ(view->GetFirstStep(), 11U);
}

TEST_F(Cartoon, StopsAtTheEndAndBeginsAgainFromThere) {
    const auto view = ViewOf(5);
    view->findChild<QComboBox*>("cartoonSpeed")->setCurrentIndex(4);
    view->Play();
    services.clock.Advance(10'000);
    EXPECT_TRUE(Pauses(*view));
    EXPECT_EQ(view->GetFirstStep(), 3U);
    view->Play();
    EXPECT_EQ(view->GetFirstStep(), 0U);
    EXPECT_TRUE(view->IsPlaying());
}

TEST_F(Cartoon, PlaysOnInALoop) {
    const auto view = ViewOf(5);
    view->findChild<QComboBox*>("cartoonSpeed")->setCurrentIndex(4);
    FormUser(Bar(*view)).Clicks("cartoonLoop");
    view->Play();
    services.clock.Advance(5 * 40); // four stretches, then the second
    EXPECT_TRUE(Reaches(*view, 1));
    EXPECT_TRUE(view->IsPlaying());
}

TEST_F(Cartoon, GoesOnFromWhereTheUserScrubbedTo) {
    const auto view = ViewOf(100);
    view->findChild<QComboBox*>("cartoonSpeed")->setCurrentIndex(4);
    view->Play();
    services.clock.Advance(400);
    view->findChild<QSlider*>("cartoonSlider")->setValue(50);
    services.clock.Advance(40);
    EXPECT_TRUE(Reaches(*view, 51));
}

TEST_F(Cartoon, DrawsHeadsCoarserWhileItPlays) {
    const auto view = ViewOf(100, true);
    QApplication::processEvents();
    const auto picture = [&] {
        QApplication::processEvents();
        return view->GetMap(0)->grab().toImage();
    };
    const QImage fine = picture();
    view->Play();
    EXPECT_NE(picture(), fine);
    view->Pause();
    EXPECT_EQ(picture(), fine);
}

TEST_F(Cartoon, PausesWhenItIsHidden) {
    const auto view = ViewOf(100);
    view->Play();
    view->hide();
    EXPECT_FALSE(view->IsPlaying());
}

TEST_F(Cartoon, RemembersSpeedAndLoop) {
    {
        const auto view = ViewOf(5);
        view->findChild<QComboBox*>("cartoonSpeed")->setCurrentIndex(3);
        FormUser(Bar(*view)).Clicks("cartoonLoop");
        view->Destroy();
    }
    EXPECT_EQ(window.platform.user.values["Maps/CartoonSpeed"], 10);
    EXPECT_EQ(window.platform.user.values["Maps/CartoonLoop"], 1);
    window.platform.user.values["Maps/CartoonSpeed"] = 7;
    const auto view = ViewOf(5);
    EXPECT_EQ(view->findChild<QComboBox*>("cartoonSpeed")->currentData().toInt(), 5);
}

TEST_F(Cartoon, HasNamesForAllItsControls) {
    const auto view = ViewOf(5);
    int controls = 0;
    for (const QWidget* control : Bar(*view).findChildren<QWidget*>(QRegularExpression("^cartoon"))) {
        if (control->focusPolicy() != Qt::NoFocus) {
            ++controls;
            EXPECT_NE(control->accessibleName(), "") << control->objectName().toStdString();
            EXPECT_EQ(control->focusPolicy(), Qt::TabFocus) << control->objectName().toStdString();
        }
    }
    EXPECT_EQ(controls, 8);
}

TEST_F(Cartoon, LeavesOutControlsThatDoNotFit) {
    const auto view = ViewOf(5);
    Bar(*view).resize(400, Bar(*view).height());
    EXPECT_EQ(FormUser(Bar(*view)).TextOf("cartoonWhere"), "Epochs 1–2 of 5");
    Bar(*view).resize(150, Bar(*view).height());
    EXPECT_FALSE(FormUser(Bar(*view)).IsVisible("cartoonSpeed"));
    EXPECT_TRUE(FormUser(Bar(*view)).IsVisible("cartoonPlay"));
    Bar(*view).resize(800, Bar(*view).height());
    EXPECT_TRUE(FormUser(Bar(*view)).IsVisible("cartoonSpeed"));
}

// What may happen at the wrong moment.

TEST_F(Cartoon, KeepsItsMapsWhenFetchingFails) {
    const auto view = ViewOf(5);
    view->ShowStep(1);
    view->source.fails = true;
    EXPECT_THROW(view->SetMapValues(true), std::runtime_error);
    EXPECT_THAT(view->Titles(), ElementsAre("Epoch 1", "Epoch 2"));
    EXPECT_EQ(view->GetStepCount(), 5U);
    view->source.fails = false;
    view->ShowStep(2);
    EXPECT_THAT(view->Titles(), ElementsAre("Epoch 2", "Epoch 3"));
}

TEST_F(Cartoon, KeepsItsMapsWhenTheUserCancels) {
    const auto view = ViewOf(5);
    view->source.epochs = std::nullopt;
    view->SetMapValues(true);
    EXPECT_THAT(view->Titles(), ElementsAre("Epoch 0", "Epoch 1"));
    EXPECT_EQ(view->updates.size(), 1U);
}

TEST_F(Cartoon, GoesBackWhenAStepFails) {
    const auto view = ViewOf(5);
    view->whileUpdating = [] { throw std::runtime_error("No memory"); };
    EXPECT_THROW(view->ShowStep(2), std::runtime_error);
    EXPECT_EQ(view->GetFirstStep(), 0U);
    view->whileUpdating = {};
    view->CmCopy2ClpBrd();
    EXPECT_THAT(services.clipboard.Texts().back(), testing::HasSubstr("Epoch 0\t"));
    EXPECT_THAT(services.clipboard.Texts().back(), testing::Not(testing::HasSubstr("Epoch 2\t")));
}

TEST_F(Cartoon, PausesAndSaysWhyWhenAStepFailsWhilePlaying) {
    orvanta::test::ScriptedUser user;
    user.AnswersMessage(owl::kIdOk);
    const auto view = ViewOf(5);
    view->findChild<QComboBox*>("cartoonSpeed")->setCurrentIndex(4);
    view->whileUpdating = [] { throw std::runtime_error("No memory"); };
    view->Play();
    services.clock.Advance(40);
    EXPECT_TRUE(Pauses(*view));
    ASSERT_EQ(user.Messages().size(), 1U);
    EXPECT_THAT(user.Messages().front().text, testing::HasSubstr("No memory"));
    EXPECT_EQ(SliderOf(*view), 0);
}

TEST_F(Cartoon, PutsTheSliderBackWhenItsStepFails) {
    orvanta::test::ScriptedUser user;
    user.AnswersMessage(owl::kIdOk);
    const auto view = ViewOf(5);
    view->whileUpdating = [] { throw std::runtime_error("No memory"); };
    view->findChild<QSlider*>("cartoonSlider")->setValue(2);
    EXPECT_EQ(SliderOf(*view), 0);
}

TEST_F(Cartoon, GoesOnWithAnotherGridWhilePlaying) {
    const auto view = ViewOf(10);
    view->findChild<QComboBox*>("cartoonSpeed")->setCurrentIndex(4);
    view->ShowStep(8);
    view->ShowStep(0);
    view->Play();
    view->SendMessage(kGrid, kTwoByOne);
    view->ResetWindows(2, 3);
    services.clock.Advance(2 * 40);
    EXPECT_TRUE(Reaches(*view, 2));
    EXPECT_EQ(view->Titles().back(), "Epoch 7");
    view->ShowStep(100);
    EXPECT_EQ(view->GetFirstStep(), 4U);
}

TEST_F(Cartoon, TakesFewerEpochsWhilePlaying) {
    const auto view = ViewOf(10);
    view->ShowStep(8);
    view->Play();
    view->source.epochs = Epochs(1);
    view->SetMapValues(true);
    EXPECT_EQ(view->GetFirstStep(), 0U);
    services.clock.Advance(1000);
    EXPECT_TRUE(Pauses(*view));
}

TEST_F(Cartoon, MayEndWhileItPlays) {
    auto view = ViewOf(10);
    view->Play();
    services.clock.Advance(1000);
    view->Destroy();
    EXPECT_FALSE(view->IsPlaying());
    view->Play();
    EXPECT_FALSE(view->IsPlaying());
    WaitInVain(5);
    view.reset();
    WaitInVain(5);
}

TEST_F(Cartoon, MayEndWhileItFetches) {
    auto view = ViewOf(10);
    view->source.meanwhile = [&] { view->Destroy(); };
    view->SetMapValues(true);
    EXPECT_FALSE(view->IsCreated());
    EXPECT_EQ(view->updates.size(), 1U);
}

TEST_F(Cartoon, MayEndWhileItsRangeIsAsked) {
    auto view = ViewOf(10);
    view->source.whileAskedForRange = [&] { view->Destroy(); };
    view->SetMapValues(true);
    EXPECT_EQ(view->updates.size(), 1U);
}

TEST_F(Cartoon, DoesNotFetchWithinAFetch) {
    const auto view = ViewOf(10);
    view->source.meanwhile = [&] {
        view->SetMapValues(true);
        view->ShowStep(3);
    };
    view->SetMapValues(true);
    EXPECT_EQ(view->source.fetched, 2);
    EXPECT_EQ(view->GetFirstStep(), 0U);
}

TEST_F(Cartoon, LivesThroughEverySizeWhilePlaying) {
    const auto view = ViewOf(100);
    view->findChild<QComboBox*>("cartoonSpeed")->setCurrentIndex(4);
    view->Play();
    std::uint64_t expected = 0;
    for (const QSize& size : {QSize(1, 1), QSize(0, 0), QSize(2000, 3), QSize(3, 2000), QSize(640, 400)}) {
        view->resize(size);
        services.clock.Advance(40);
        EXPECT_TRUE(Reaches(*view, ++expected));
    }
    EXPECT_TRUE(view->IsPlaying());
}

} // namespace
