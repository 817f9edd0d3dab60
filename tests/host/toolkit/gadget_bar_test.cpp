// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/gadget_bar.h"

#include "host/toolkit/command_enabler.h"
#include "host/toolkit/response_table.h"

#include <QComboBox>
#include <QEventLoop>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QSlider>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using testing::ElementsAre;

constexpr unsigned kPalette = 14081;
constexpr unsigned kLock = 14150;
constexpr unsigned kMontage = 14537;
constexpr unsigned kTransparency = 16329;

class View : public owl::TEventHandler {
public:
    const owl::TResponseEntry* Find(const owl::TEventKey& key) const override;

    std::vector<std::string> log;
    bool hasResult = true;

private:
    static const owl::TResponseTable __entries; // NOLINT(bugprone-reserved-identifier)

    void CmPalette() { log.emplace_back("palette"); }
    void CmLock() { log.emplace_back("lock"); }
    void CePalette(owl::TCommandEnabler& enabler) { enabler.Enable(hasResult); }
    LPARAM EvCbMontage(WPARAM index, LPARAM /*unused*/) {
        log.push_back("montage " + std::to_string(index));
        return 0;
    }
    LPARAM EvTransp(WPARAM position, LPARAM /*unused*/) {
        log.push_back("transparency " + std::to_string(position));
        return 0;
    }
};

constinit const owl::TResponseTable View::__entries = {
    owl::Command<&View::CmPalette>(kPalette),        owl::Command<&View::CmLock>(kLock),
    owl::CommandEnabler<&View::CePalette>(kPalette), owl::Message<&View::EvCbMontage>(kMontage),
    owl::Message<&View::EvTransp>(kTransparency),
};

const owl::TResponseEntry* View::Find(const owl::TEventKey& key) const {
    return owl::FindFirst<owl::TEventHandler>(__entries, *this, key);
}

void WaitUntilIdle() {
    QEventLoop loop;
    QTimer::singleShot(1, &loop, &QEventLoop::quit);
    loop.exec();
}

/// A bar above an edit, which has the focus.
class GadgetBarTest : public testing::Test {
protected:
    GadgetBarTest() {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(bar);
        layout->addWidget(edit);
        window.resize(600, 100);
    }

    void Show() {
        window.show();
        window.activateWindow();
        edit->setFocus();
        QCoreApplication::processEvents();
    }

    View view;
    QWidget window;
    owl::GadgetBar* bar = new owl::GadgetBar(view, &window);
    QLineEdit* edit = new QLineEdit(&window);
};

TEST_F(GadgetBarTest, RunsTheCommandOfTheButtonThatIsClicked) {
    auto* button = bar->AddButton(kPalette, 2072, "Palette");
    Show();
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_THAT(view.log, ElementsAre("palette"));
    EXPECT_TRUE(edit->hasFocus());
    EXPECT_FALSE(button->icon().isNull());
    EXPECT_EQ(button->toolTip(), "Palette");
    EXPECT_EQ(button->accessibleName(), "Palette");
}

TEST_F(GadgetBarTest, FollowsTheEnablersWhenIdle) {
    auto* button = bar->AddButton(kPalette, 2072, "");
    Show();
    view.hasResult = false;
    WaitUntilIdle();
    EXPECT_FALSE(button->isEnabled());
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_THAT(view.log, ElementsAre());
    view.hasResult = true;
    WaitUntilIdle();
    EXPECT_TRUE(button->isEnabled());
}

TEST_F(GadgetBarTest, LeavesPressingToTheProgram) {
    auto* lock = bar->AddTwoStateButton(kLock, 2069, 2068, "Lock");
    Show();
    QTest::mouseClick(lock, Qt::LeftButton);
    EXPECT_THAT(view.log, ElementsAre("lock"));
    EXPECT_FALSE(lock->isChecked());
    const QImage up = lock->grab().toImage();
    lock->Press(true);
    EXPECT_TRUE(lock->isChecked());
    EXPECT_NE(lock->grab().toImage(), up);
    QTest::mouseClick(lock, Qt::LeftButton);
    EXPECT_TRUE(lock->isChecked());
    lock->Press(false);
    EXPECT_FALSE(lock->isChecked());
}

TEST_F(GadgetBarTest, TellsOfTheUsersChoiceOnly) {
    auto* montages = bar->AddComboBox(kMontage, "Montage");
    montages->addItems({"Unipolar", "Bipolar", "Average"});
    montages->setCurrentIndex(2);
    EXPECT_THAT(view.log, ElementsAre());
    Show();
    montages->setFocus();
    QTest::keyClick(montages, Qt::Key_Up);
    EXPECT_THAT(view.log, ElementsAre("montage 1"));
}

TEST_F(GadgetBarTest, TellsOfEveryPositionOfTheSlider) {
    auto* slider = bar->AddSlider(kTransparency, 100, "Transparency");
    EXPECT_EQ(slider->minimum(), 0);
    EXPECT_EQ(slider->maximum(), 100);
    EXPECT_EQ(slider->value(), 100);
    EXPECT_EQ(slider->tickInterval(), 10);
    EXPECT_THAT(view.log, ElementsAre());
    Show();
    EXPECT_EQ(slider->size(), QSize(100, 20));
    QTest::keyClick(slider, Qt::Key_Left);
    QTest::keyClick(slider, Qt::Key_PageDown);
    slider->setValue(0);
    slider->setValue(0);
    EXPECT_THAT(view.log, ElementsAre("transparency 99", "transparency 89", "transparency 0"));
}

TEST_F(GadgetBarTest, IsReachedWithTheTabKeyInItsOrder) {
    auto* first = bar->AddButton(kPalette, 2072, "");
    bar->AddGap();
    auto* montages = bar->AddComboBox(kMontage, "");
    auto* second = bar->AddTwoStateButton(kLock, 2069, 2068, "");
    bar->AddText(7);
    Show();
    first->setFocus();
    QTest::keyClick(first, Qt::Key_Tab);
    EXPECT_TRUE(montages->hasFocus());
    QTest::keyClick(montages, Qt::Key_Tab);
    EXPECT_TRUE(second->hasFocus());
    QTest::keyClick(second, Qt::Key_Space);
    EXPECT_THAT(view.log, ElementsAre("lock"));
}

TEST_F(GadgetBarTest, SeparatesBySixPixels) {
    bar->AddGap();
    Show();
    const auto* gap = bar->findChild<QFrame*>();
    ASSERT_NE(gap, nullptr);
    EXPECT_EQ(gap->width(), 6);
}

TEST_F(GadgetBarTest, GivesTextsRoomForSoManyWideCharacters) {
    auto* seven = bar->AddText(7);
    auto* five = bar->AddText(5);
    auto* nine = bar->AddText(9);
    seven->setText("Power");
    nine->setText("Vert : µV²/Hz");
    Show();
    const int wide = seven->fontMetrics().horizontalAdvance('M');
    EXPECT_EQ(seven->width() - five->width(), 2 * wide);
    EXPECT_EQ(seven->text(), "Power");
    EXPECT_EQ(seven->alignment(), Qt::AlignCenter);
    EXPECT_EQ(seven->frameShadow(), QFrame::Sunken);
    EXPECT_GE(nine->contentsRect().width(), nine->fontMetrics().horizontalAdvance(nine->text()));
}

TEST_F(GadgetBarTest, GrowsForALongerText) {
    auto* text = bar->AddText(2);
    text->setText("Compressed");
    Show();
    EXPECT_GE(text->contentsRect().width(), text->fontMetrics().horizontalAdvance("Compressed"));
}

} // namespace
