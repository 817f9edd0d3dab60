// SPDX-License-Identifier: GPL-3.0-or-later
#include "side_bar/analysis_list.h"

#include "host/toolkit/window.h"
#include "tests/side_bar/analysis_fixture.h"

#include <QApplication>
#include <QHeaderView>

namespace {

using namespace orvanta;
using side_bar::AnalysisList;

class ListOfAnalyses : public test::AnalysisFixture {
protected:
    ListOfAnalyses() { widget.setColumnCount(3); }

    owl::ReportList widget;
    AnalysisList list{widget, &manager, 2};
};

TEST_F(ListOfAnalyses, ShowsNameAndNumberOfEpochsAndFurtherTexts) {
    const SpectMacroResult& analysis = Add();
    const QTreeWidgetItem* row = list.Add(Add(), {"", "7"});
    EXPECT_EQ(row->text(0).toStdString(), (*(manager.begin() + 1))->GetName());
    EXPECT_NE(row->text(0).toStdString(), analysis.GetName());
    EXPECT_EQ(row->text(1), "9");
    EXPECT_EQ(row->text(3), "7");
    EXPECT_FALSE(row->isSelected());
}

TEST_F(ListOfAnalyses, RowsCarryTheirAnalyses) {
    SpectMacroResult& first = Add();
    SpectMacroResult& second = Add();
    const QTreeWidgetItem* row = list.Add(first);
    EXPECT_EQ(list.Selected(), nullptr);
    EXPECT_EQ(list.Of(nullptr), nullptr);
    widget.SelectRow(list.Add(second));
    EXPECT_EQ(list.Of(row), &first);
    EXPECT_EQ(list.Selected(), &second);
    list.Clear();
    EXPECT_EQ(list.Selected(), nullptr);
}

TEST_F(ListOfAnalyses, ARowOutlivesItsAnalysis) {
    SpectMacroResult& analysis = Add();
    const QTreeWidgetItem* row = list.Add(analysis);
    manager.Remove(&analysis);
    delete &analysis;
    EXPECT_EQ(list.Of(row), nullptr);
    widget.grab(); // the colour is not asked for any more
}

TEST_F(ListOfAnalyses, HasNoneWithoutAManager) {
    const AnalysisList orphans(widget, nullptr, 2);
    EXPECT_EQ(orphans.Of(list.Add(Add())), nullptr);
}

TEST_F(ListOfAnalyses, FillsTheColourColumnUpToTheRightEndOfTheRow) {
    SpectMacroResult& analysis = Add();
    analysis.GetMacro().Color = 0x002080D0; // blue 0x20, green 0x80, red 0xD0
    QTreeWidgetItem* row = list.Add(analysis);
    widget.SelectRow(row); // must not cover it
    widget.resize(400, 100);
    const QImage picture = widget.grab().toImage();
    const QRect cell = widget.visualItemRect(row).translated(widget.viewport()->pos());
    const int left = widget.viewport()->x() + widget.columnViewportPosition(2);
    const int right = widget.viewport()->geometry().right() - 3;
    for (const int x : {left + 2, left + 10, right - 2}) {
        EXPECT_EQ(picture.pixelColor(x, cell.center().y()), QColor(0xD0, 0x80, 0x20)) << x;
    }
    EXPECT_NE(picture.pixelColor(left - 3, cell.center().y()), QColor(0xD0, 0x80, 0x20));
}

TEST(ViewBesideAPanel, TakesTheFocus) {
    QWidget window;
    owl::TWindow* view = new owl::TWindow;
    view->setParent(&window);
    auto* other = new QWidget(&window);
    other->setFocusPolicy(Qt::StrongFocus);
    window.show();
    other->setFocus();
    side_bar::FocusView(view->GetHandle());
    EXPECT_EQ(window.focusWidget(), view);
    side_bar::FocusView(nullptr);
    EXPECT_EQ(window.focusWidget(), view);
}

/// Writes down how it is drawn.
class DrawnWindow final : public owl::TWindow {
public:
    std::vector<bool> erased;

protected:
    void Draw(owl::TDC& /*dc*/, bool erase, owl::TRect& /*rect*/) override { erased.push_back(erase); }
};

TEST(ViewBesideAPanel, IsDrawnWithAndWithoutItsBackgroundErased) {
    DrawnWindow view;
    view.show();
    QApplication::processEvents();
    QApplication::processEvents();
    view.erased.clear();
    side_bar::RepaintView(view.GetHandle(), false);
    QApplication::processEvents();
    side_bar::RepaintView(view.GetHandle(), true);
    QApplication::processEvents();
    side_bar::RepaintView(nullptr, true);
    QApplication::processEvents();
    EXPECT_EQ(view.erased, (std::vector{false, true}));
}

} // namespace
