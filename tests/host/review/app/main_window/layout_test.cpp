// SPDX-License-Identifier: GPL-3.0-or-later
// The window in other languages, directions, fonts and sizes of the screen.
#include "host/chart_view/the_child.h"
#include "host/review/app/main_window/starter_macros.h"
#include "host/toolkit/message_module.h"
#include "tests/host/review/app/main_window/workbench_fixture.h"
#include "tests/support/qt/form_user.h"

#include <QAbstractButton>
#include <QDialog>
#include <QLabel>
#include <QLocale>
#include <QScopeGuard>
#include <QStatusBar>

namespace {

using namespace orvanta;
using review::ViewKind;
using test::FormUser;

struct Look {
    const char* name;
    const char* language;
    Qt::LayoutDirection direction;
    int percent; ///< of the usual font
};

class Layout : public test::WorkbenchFixture, public testing::WithParamInterface<Look> {
protected:
    Layout() {
        QLocale::setDefault(QLocale(GetParam().language));
        QApplication::setLayoutDirection(GetParam().direction);
        QFont font = font_;
        font.setPointSizeF(font.pointSizeF() * GetParam().percent / 100);
        QApplication::setFont(font);
    }
    ~Layout() override {
        Leave();
        QApplication::setFont(font_);
        QApplication::setLayoutDirection(Qt::LeftToRight);
        QLocale::setDefault(locale_);
    }

    /// All three views of a recording and an analysis.
    void ShowEverything() {
        review::InstallStarterMacros(folder.Path("data/MACRO/"));
        Start(Demo());
        user.MeetsDialog([](QDialog& form) {
            FormUser(form).SelectsRows("ListBoxMacro", {"Resting eyes closed"});
            FormUser(form).Clicks("BtnAutoAverage");
        });
        Item("analysisNew").trigger();
        test::WaitUntilIdle();
    }

private:
    QFont font_ = QApplication::font();
    QLocale locale_;
};

TEST_P(Layout, FitsASmallScreen) {
    ShowEverything();
    // 1366 x 768 less a panel of the desktop and the frame of the window.
    bench->Window().resize(1366, 700);
    test::WaitUntilIdle();
    EXPECT_LE(bench->Window().minimumSizeHint().width(), 1366);
    EXPECT_LE(bench->Window().minimumSizeHint().height(), 700);
    EXPECT_EQ(bench->Window().size(), QSize(1366, 700));
}

TEST_P(Layout, CutsNoButton) {
    ShowEverything();
    bench->Window().resize(1366, 700);
    test::WaitUntilIdle();
    int seen = 0;
    for (const QAbstractButton* button : bench->Window().findChildren<QAbstractButton*>()) {
        if (button->isVisible() && !button->text().isEmpty()) {
            EXPECT_GE(button->width(), button->minimumSizeHint().width()) << button->text().toStdString();
            EXPECT_GE(button->height(), button->fontMetrics().height()) << button->text().toStdString();
            EXPECT_TRUE(button->parentWidget()->rect().contains(button->geometry()))
                << button->text().toStdString();
            ++seen;
        }
    }
    EXPECT_GT(seen, 0);
}

TEST_P(Layout, GivesEveryViewRoomToBeLookedAt) {
    ShowEverything();
    bench->Window().resize(1366, 700);
    test::WaitUntilIdle();
    for (const ViewKind kind : {ViewKind::Traces, ViewKind::Spectrum, ViewKind::Maps}) {
        if (const TheChild* view = bench->Middle().Views().ViewOf(kind)) {
            EXPECT_GE(view->width(), 200) << view->GetChildName();
            EXPECT_GE(view->height(), 120) << view->GetChildName();
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Looks, Layout,
                         testing::Values(Look{"English", "en", Qt::LeftToRight, 100},
                                         Look{"German", "de", Qt::LeftToRight, 100},
                                         Look{"RightToLeft", "ar", Qt::RightToLeft, 100},
                                         Look{"LargeFont", "de", Qt::LeftToRight, 150}),
                         [](const auto& each) { return each.param.name; });

} // namespace
