// SPDX-License-Identifier: GPL-3.0-or-later
// What the user set is found again the next day: the views then look as they were left.
#include "host/chart_view/the_child.h"
#include "host/review/app/traces/trace_view.h"
#include "tests/host/review/app/main_window/workbench_fixture.h"

#include <QComboBox>
#include <QElapsedTimer>
#include <QTest>
#include <QToolBar>

#include <utility>

namespace {

using namespace orvanta;
using review::ViewKind;

struct Change {
    const char* name;
    ViewKind view; ///< whose looks tell it
    void (*make)(review::Workbench& bench, TheChild& view);
};

void Press(QWidget& view, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(&view, static_cast<Qt::Key>(key), modifiers);
}

void ChooseNext(TheChild& view, int box) {
    QComboBox& chosen = *view.GetToolBar().findChildren<QComboBox*>().at(box);
    QTest::keyClick(&chosen, Qt::Key_Down);
}

/// An item of the view's own menu, by its caption.
void Choose(TheChild& view, const QString& caption) {
    QMenu& menu = view.GetMenu();
    QMetaObject::invokeMethod(&menu, "aboutToShow");
    for (QAction* item : menu.actions()) {
        if (item->text().section('\t', 0, 0).remove('&') == caption) {
            EXPECT_TRUE(item->isEnabled()) << caption.toStdString();
            item->trigger();
            return;
        }
    }
    ADD_FAILURE() << caption.toStdString() << " is not in the menu";
}

const Change kChanges[] = {
    {"Position", ViewKind::Traces, [](auto&, TheChild& view) { Press(view, Qt::Key_PageDown); }},
    {"Montage", ViewKind::Traces,
     [](review::Workbench& bench, TheChild&) {
         bench.GetDocuments().Current()->Recording().ChangeMntg(1, true);
     }},
    {"TimeScale", ViewKind::Traces,
     [](auto&, TheChild& view) { Press(view, Qt::Key_Plus, Qt::ControlModifier); }},
    {"Gain", ViewKind::Traces, [](auto&, TheChild& view) { Press(view, Qt::Key_Plus); }},
    {"LowCut", ViewKind::Traces, [](auto&, TheChild& view) { ChooseNext(view, 3); }},
    {"HighCut", ViewKind::Traces, [](auto&, TheChild& view) { ChooseNext(view, 4); }},
    {"Notch", ViewKind::Traces, [](auto&, TheChild& view) { ChooseNext(view, 5); }},
    {"Centering", ViewKind::Traces,
     [](auto&, TheChild& view) { Choose(view, "Center Traces on Their Mean"); }},
    {"HiddenChannel", ViewKind::Traces,
     [](auto&, TheChild& view) {
         Press(view, Qt::Key_Down, Qt::ShiftModifier);
         Press(view, Qt::Key_H);
     }},
    {"Quantity", ViewKind::Spectrum, [](auto&, TheChild& view) { Choose(view, "Power"); }},
    {"Points", ViewKind::Spectrum, [](auto&, TheChild& view) { Choose(view, "Show Points"); }},
    {"Zoom", ViewKind::Spectrum, [](auto&, TheChild& view) { Press(view, Qt::Key_Up); }},
};

using Pictures = std::pair<QImage, QImage>;

class Remembered : public test::WorkbenchFixture, public testing::WithParamInterface<Change> {
protected:
    TheChild& View() const { return *bench->Middle().Views().ViewOf(GetParam().view); }
    /// Of the view and its tool bar, once nothing more happens to them.
    Pictures Looks() {
        QTest::qWait(500); // the window looks now and then at what has changed
        View().SetFocus();
        Pictures last, now;
        QElapsedTimer clock;
        clock.start();
        do {
            last = now;
            QTest::qWait(250);
            test::WaitUntilIdle();
            now = {View().grab().toImage(), View().GetToolBar().grab().toImage()};
        } while (now != last && clock.elapsed() < 10000);
        EXPECT_TRUE(now == last) << "still changing";
        return now;
    }
};

TEST_P(Remembered, IsFoundAgain) {
    Start(Demo());
    SpectraMacro macro;
    ASSERT_EQ(macro.SaveAs(folder.Path("macro.smx")), 0); // gives the analysis a name that stays
    AddAnalysis(macro);
    bench->Window().resize(1200, 800);
    bench->GetAnalyses().Recompute();
    const Pictures before = Looks();
    GetParam().make(*bench, View());
    const Pictures changed = Looks();
    ASSERT_TRUE(changed != before) << "nothing to be seen of the change";
    Leave();
    Start();
    const Pictures found = Looks();
    EXPECT_EQ(found.first.size(), changed.first.size());
    EXPECT_TRUE(found == changed);
}

INSTANTIATE_TEST_SUITE_P(Settings, Remembered, testing::ValuesIn(kChanges),
                         [](const auto& each) { return each.param.name; });

} // namespace
