// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/report_list.h"
#include "tests/support/qt/form_user.h"

#include <QHeaderView>
#include <QImage>
#include <QSignalSpy>
#include <gtest/gtest.h>

namespace {

using orvanta::test::FormUser;
using owl::ReportList;

/// As a form has it.
struct TwoColumns : ReportList {
    explicit TwoColumns(QWidget* parent = nullptr) : ReportList(parent) {
        setHeaderLabels({"Macro", "Count"});
        setColumnWidth(0, 88);
    }
};

QStringList Captions(const ReportList& list) {
    QStringList captions;
    for (int i = 0; i < list.topLevelItemCount(); ++i) {
        captions << list.topLevelItem(i)->text(0);
    }
    return captions;
}

QStringList SelectedCaptions(const ReportList& list) {
    QStringList captions;
    for (int i = 0; i < list.topLevelItemCount(); ++i) {
        if (list.topLevelItem(i)->isSelected()) {
            captions << list.topLevelItem(i)->text(0);
        }
    }
    return captions;
}

/// Number of pixels along a line that are not of the colour.
int CountOther(const QImage& image, QPoint from, QPoint step, int count, const QColor& ground) {
    int other = 0;
    for (int i = 0; i < count; ++i) {
        other += image.pixelColor(from + i * step) != ground;
    }
    return other;
}

TEST(ReportList, KeepsRowsInTheOrderTheyCame) {
    TwoColumns list;
    list.AddRow({"b"});
    list.AddRow({"a"});
    EXPECT_EQ(Captions(list), QStringList({"b", "a"}));
}

TEST(ReportList, OrdersRowsByCaptionIgnoringCase) {
    TwoColumns list;
    list.SortByCaption();
    for (const char* caption : {"delta", "Alpha", "beta", "alpha", "Beta"}) {
        list.AddRow({caption});
    }
    EXPECT_EQ(Captions(list), QStringList({"Alpha", "alpha", "Beta", "beta", "delta"}));
    EXPECT_FALSE(list.header()->sectionsClickable());
    EXPECT_FALSE(list.header()->isSortIndicatorShown());
}

TEST(ReportList, KeepsRowsBehindTheOthersThatArePutLast) {
    TwoColumns list;
    for (const char* caption : {"b", "D", "a", "c"}) {
        QTreeWidgetItem* row = list.AddRow({caption});
        if (*caption == 'a' || *caption == 'b') {
            list.PutLast(row);
        }
    }
    list.SortByCaption();
    EXPECT_EQ(Captions(list), QStringList({"c", "D", "a", "b"}));
}

TEST(ReportList, CarriesDataWithItsRows) {
    const int first = 1;
    const int second = 2;
    TwoColumns list;
    list.SortByCaption();
    list.AddRow({"b", "2"}, &second);
    list.AddRow({"a", "1"}, &first);
    const auto* plain = list.AddRow({"c", "3"});
    EXPECT_EQ(list.DataOf(list.topLevelItem(0)), &first);
    EXPECT_EQ(list.DataOf(list.topLevelItem(1)), &second);
    EXPECT_EQ(list.DataOf(plain), nullptr);
    EXPECT_EQ(list.DataOf(nullptr), nullptr);
}

TEST(ReportList, SelectsOneRowUnlessTold) {
    TwoColumns list;
    auto* first = list.AddRow({"a", "1"});
    auto* second = list.AddRow({"b", "2"});
    list.SelectRow(first);
    const QSignalSpy told(&list, &QTreeWidget::itemSelectionChanged);
    list.SelectRow(second);
    EXPECT_EQ(told.count(), 1);
    EXPECT_EQ(SelectedCaptions(list), QStringList({"b"}));
    list.SetMultiSelect(true);
    list.SelectRow(first);
    EXPECT_EQ(SelectedCaptions(list), QStringList({"a", "b"}));
    list.SelectRow(second, false);
    EXPECT_EQ(SelectedCaptions(list), QStringList({"a"}));
}

TEST(ReportList, SelectsTheWholeRowWhereverItIsClicked) {
    QWidget parent;
    TwoColumns list(&parent);
    list.setObjectName("list");
    list.AddRow({"a", "1"});
    list.AddRow({"b", "2"});
    parent.show();
    FormUser(parent).SelectsRow("list", 1);
    EXPECT_EQ(SelectedCaptions(list), QStringList({"b"}));
    EXPECT_TRUE(list.selectionModel()->isRowSelected(1));
}

TEST(ReportList, TellsOfSelectionsButNotOfClearing) {
    TwoColumns list;
    list.SelectRow(list.AddRow({"a", "1"}));
    const QSignalSpy told(&list, &QTreeWidget::itemSelectionChanged);
    list.ClearRows();
    EXPECT_EQ(list.topLevelItemCount(), 0);
    EXPECT_EQ(told.count(), 0);
    list.SelectRow(list.AddRow({"b", "2"}));
    EXPECT_EQ(told.count(), 1);
}

TEST(ReportList, CannotBeEdited) {
    TwoColumns list;
    list.AddRow({"a", "1"});
    EXPECT_EQ(list.editTriggers(), QAbstractItemView::NoEditTriggers);
}

TEST(ReportList, ShowsGridLinesOnLightAndDarkGround) {
    struct Case {
        QColor ground, text;
    };
    for (const Case& one : {Case{Qt::white, Qt::black}, Case{QColor(30, 30, 30), Qt::white}}) {
        TwoColumns list;
        QPalette palette;
        palette.setColor(QPalette::Base, one.ground);
        palette.setColor(QPalette::Text, one.text);
        list.setPalette(palette);
        const QRect row = [&] {
            auto* item = list.AddRow({"", ""});
            list.resize(200, 150);
            list.show();
            return list.visualItemRect(item);
        }();
        const QImage image = list.viewport()->grab().toImage();
        EXPECT_EQ(CountOther(image, {0, row.bottom()}, {1, 0}, 130, one.ground), 130) << "below the row";
        EXPECT_EQ(CountOther(image, {87, row.top()}, {0, 1}, row.height(), one.ground), row.height())
            << "right of the column";
        EXPECT_EQ(CountOther(image, {1, row.center().y()}, {1, 0}, 80, one.ground), 0) << "inside the cell";
        EXPECT_EQ(CountOther(image, {0, row.bottom() + 10}, {1, 0}, 130, one.ground), 0) << "below the list";
    }
}

} // namespace
