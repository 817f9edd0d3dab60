// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/more_button.h"

#include "tests/support/qt/idle.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QSlider>
#include <QToolBar>
#include <gtest/gtest.h>

namespace {

using orvanta::review::MoreButton;

/// A bar with one gadget of each sort, and the button behind it.
class MoreGadgets : public testing::Test {
protected:
    MoreGadgets() {
        first.setToolTip("First");
        second.setToolTip("Save & go");
        second.setCheckable(true);
        box.setToolTip("Montage");
        box.addItems({"Unipolar", "Bipolar"});
        slider.setToolTip("Opacity");
        slider.setRange(0, 100);
        slider.setValue(50);
        text.setText("Amplitude");
        for (QWidget* gadget : std::initializer_list<QWidget*>{&first, &second, &box, &slider, &text}) {
            bar.addWidget(gadget);
        }
        auto* row = new QHBoxLayout(&window);
        row->setContentsMargins(0, 0, 0, 0);
        row->addWidget(&bar, 1);
        row->addWidget(&more);
    }
    void Show(int width) {
        window.setMinimumWidth(1);
        window.resize(width, 40);
        window.show();
        orvanta::test::WaitUntilIdle();
    }
    QMenu& Opened() {
        QMetaObject::invokeMethod(more.menu(), "aboutToShow");
        return *more.menu();
    }
    static QStringList Captions(const QMenu& menu) {
        QStringList captions;
        for (const QAction* item : menu.actions()) {
            captions << item->text();
        }
        return captions;
    }
    QAction& Item(int place) { return *Opened().actions().at(place); }

    // The bar takes them over.
    QToolButton& first = *new QToolButton;
    QToolButton& second = *new QToolButton;
    QComboBox& box = *new QComboBox;
    QSlider& slider = *new QSlider(Qt::Horizontal);
    QLabel& text = *new QLabel;
    QWidget window;
    QToolBar bar{&window};
    MoreButton more{bar, &window};
};

TEST_F(MoreGadgets, NeedNoButtonWhileThereIsRoom) {
    Show(800);
    EXPECT_FALSE(more.isVisible());
    Show(60);
    EXPECT_TRUE(more.isVisible());
    Show(800);
    EXPECT_FALSE(more.isVisible());
}

TEST_F(MoreGadgets, StandInTheMenuInTheirOrder) {
    Show(60);
    ASSERT_TRUE(second.isHidden());
    EXPECT_EQ(Captions(Opened()), (QStringList{"Save && go", "Montage", "Opacity", "Amplitude"}));
    EXPECT_EQ(Captions(Opened()), (QStringList{"Save && go", "Montage", "Opacity", "Amplitude"}));
    EXPECT_TRUE(text.isHidden());
    EXPECT_FALSE(Item(3).isEnabled());
}

TEST_F(MoreGadgets, DoWhatTheyDoInTheBar) {
    Show(60);
    int clicks = 0;
    int chosen = -1;
    QObject::connect(&second, &QToolButton::clicked, [&] { ++clicks; });
    QObject::connect(&box, &QComboBox::activated, [&](int index) { chosen = index; });
    Item(0).trigger();
    EXPECT_EQ(clicks, 1);
    Item(1).menu()->actions().at(1)->trigger();
    EXPECT_EQ(box.currentText(), "Bipolar");
    EXPECT_EQ(chosen, 1);
    Item(2).menu()->actions().at(4)->trigger();
    EXPECT_EQ(slider.value(), 100);
}

TEST_F(MoreGadgets, LookAsTheyAre) {
    second.setChecked(true);
    box.setEnabled(false);
    Show(60);
    EXPECT_TRUE(Item(0).isChecked());
    EXPECT_FALSE(Item(1).menu()->isEnabled());
    EXPECT_TRUE(Item(2).menu()->actions().at(2)->isChecked());
    second.setEnabled(false);
    EXPECT_FALSE(Item(0).isEnabled());
}

TEST_F(MoreGadgets, AreReachedWithTheTabKey) {
    EXPECT_EQ(more.focusPolicy(), Qt::TabFocus);
    EXPECT_EQ(more.accessibleName(), "What the tool bar has no room for");
}

} // namespace
