// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/events/event_list.h"

#include "host/review/app/events/event_dialog.h"
#include "tests/host/review/app/events/editing.h"
#include "tests/support/qt/form_user.h"
#include "tests/support/qt/scripted_user.h"

#include <QAction>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QTest>
#include <QTreeView>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace orvanta::review {
namespace {

using test::FormUser;
using test::SpotEvent;
using test::StateEvent;
using testing::ElementsAre;
using testing::IsEmpty;
using Places = std::vector<std::size_t>;

/// Short cuts work in the active window alone.
void PressKey(QWidget& control, Qt::Key key) {
    control.activateWindow();
    control.setFocus();
    EXPECT_TRUE(QTest::qWaitForWindowActive(control.window()));
    QTest::keyClick(&control, key);
}

class EventList : public testing::Test {
protected:
    EventList() {
        panel_.resize(600, 300);
        panel_.show();
    }

    test::EditedRecording file_{"1\t0\tblink\n4\t2\teyes open\n8\t0\tBlink\n"};
    EventEditor editor_{*file_.recording};
    std::vector<double> went_;
    test::ScriptedUser user_;
    EventListPanel panel_{nullptr, editor_,
                          [this](const XTimeInterval& to) { went_.push_back(to.GetBeginPtr()->Seconds()); }};
    FormUser form_{panel_};
    QTreeView* list_ = panel_.findChild<QTreeView*>("tvEvents");

    std::string Row(int row) const {
        QStringList cells;
        for (int column = 0; column < list_->model()->columnCount(); ++column) {
            cells << list_->model()->index(row, column).data().toString();
        }
        return cells.join('|').toStdString();
    }
    std::vector<std::string> Labels() const {
        std::vector<std::string> labels;
        for (int row = 0; row < list_->model()->rowCount(); ++row) {
            labels.push_back(list_->model()->index(row, 3).data().toString().toStdString());
        }
        return labels;
    }
    void Presses(Qt::Key key) { PressKey(*list_, key); }
};

TEST_F(EventList, ListsAllEventsInTimeOrder) {
    EXPECT_EQ(Row(0), "10:20:31.000|1||blink|Spot|Mine");
    EXPECT_EQ(Row(1), "10:20:32.000|2||tone|Spot|Recording");
    EXPECT_EQ(Row(2), "10:20:34.000|4|2|eyes open|State|Mine");
    EXPECT_EQ(form_.TextOf("lbCount"), "4 of 4, 0 selected");
}

TEST_F(EventList, FiltersByLabelAndKind) {
    form_.Types("edFilter", "BLINK");
    EXPECT_THAT(Labels(), ElementsAre("blink", "Blink"));
    EXPECT_EQ(form_.TextOf("lbCount"), "2 of 4, 0 selected");
    form_.Types("edFilter", "");
    auto* kind = panel_.findChild<QComboBox*>("cbKind");
    const struct {
        int kind;
        std::vector<std::string> labels;
    } table[] = {{1, {"blink", "tone", "Blink"}},
                 {2, {"eyes open"}},
                 {3, {"blink", "eyes open", "Blink"}},
                 {0, {"blink", "tone", "eyes open", "Blink"}}};
    for (const auto& row : table) {
        kind->setCurrentIndex(row.kind);
        EXPECT_EQ(Labels(), row.labels);
    }
}

TEST_F(EventList, SaysWhyItIsEmpty) {
    EXPECT_FALSE(form_.IsVisible("lbHint"));
    form_.Types("edFilter", "spike");
    EXPECT_TRUE(form_.IsVisible("lbHint"));
    EXPECT_EQ(form_.TextOf("lbHint"), "No event is of this label and kind.");
}

TEST_F(EventList, TellsHowToMarkTheFirstEvent) {
    const test::TempFolder folder;
    const auto none = signal::OpenRecording(folder.Write("none.edf", test::PlusEdf(10).Bytes()));
    EventEditor editor(*none);
    EventListPanel panel(nullptr, editor, {});
    panel.show();
    EXPECT_EQ(FormUser(panel).TextOf("lbHint"),
              "No events yet. Drag over the traces, or press M where the mouse is, to mark one.");
}

TEST_F(EventList, ShowsTheColumnsThatTheUserChoseAndTheLabelsAlways) {
    const QList<QAction*> columns = list_->header()->actions();
    ASSERT_EQ(columns.size(), 5); // all but the label
    for (QAction* column : columns) {
        column->setChecked(false);
    }
    columns[4]->setChecked(true);
    for (int column = 0; column < 6; ++column) {
        EXPECT_EQ(list_->isColumnHidden(column), column != 3 && column != 5) << column;
    }
}

TEST_F(EventList, CtrlFGoesToTheFilterAndEnterBackToTheList) {
    auto* filter = panel_.findChild<QLineEdit*>("edFilter");
    list_->activateWindow();
    list_->setFocus();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&panel_));
    QTest::keyClick(list_, Qt::Key_F, Qt::ControlModifier);
    EXPECT_TRUE(filter->hasFocus());
    QTest::keyClicks(filter, "eyes");
    QTest::keyClick(filter, Qt::Key_Return);
    EXPECT_TRUE(list_->hasFocus());
    EXPECT_THAT(went_, IsEmpty());
}

TEST_F(EventList, SortsByEveryColumn) {
    editor_.Add(StateEvent("tone", 3, 4));
    const struct {
        int column;
        Qt::SortOrder order;
        std::vector<std::string> labels;
    } table[] = {
        {0, Qt::DescendingOrder, {"Blink", "eyes open", "tone", "tone", "blink"}},
        {1, Qt::AscendingOrder, {"blink", "tone", "tone", "eyes open", "Blink"}},
        {2, Qt::DescendingOrder, {"eyes open", "tone", "blink", "tone", "Blink"}},
        {4, Qt::AscendingOrder, {"blink", "tone", "Blink", "tone", "eyes open"}},
        {5, Qt::AscendingOrder, {"tone", "blink", "tone", "eyes open", "Blink"}},
    };
    for (const auto& row : table) {
        list_->sortByColumn(row.column, row.order);
        EXPECT_EQ(Labels(), row.labels) << row.column;
    }
}

TEST_F(EventList, SortsLabelsByTheAlphabetWithNumbersByTheirValue) {
    editor_.Remove(Places{0, 2, 3});
    for (const char* label : {"s10", "s9", "b", "a"}) {
        editor_.Add(SpotEvent(label, 5));
    }
    list_->sortByColumn(3, Qt::AscendingOrder);
    EXPECT_THAT(Labels(), ElementsAre("a", "b", "s9", "s10", "tone"));
}

TEST_F(EventList, GoesToTheEventThatIsChosen) {
    form_.SelectsRow("tvEvents", 2);
    ASSERT_FALSE(went_.empty());
    EXPECT_EQ(went_.back(), 4);
    Presses(Qt::Key_Down);
    EXPECT_EQ(went_.back(), 8);
    went_.clear();
    form_.SelectsRow("tvEvents", 3);
    EXPECT_THAT(went_, ElementsAre(8)) << "also where it is already, for the user may have scrolled away";
}

TEST_F(EventList, FollowsEveryChangeAndKeepsTheSelectedEvent) {
    form_.SelectsRow("tvEvents", 2);
    went_.clear();
    editor_.Add(SpotEvent("new", 0.5));
    EXPECT_THAT(Labels(), ElementsAre("new", "blink", "tone", "eyes open", "Blink"));
    EXPECT_THAT(panel_.SelectedEvents(), ElementsAre(3));
    list_->sortByColumn(0, Qt::DescendingOrder);
    EXPECT_THAT(panel_.SelectedEvents(), ElementsAre(3));
    editor_.Undo();
    EXPECT_THAT(panel_.SelectedEvents(), ElementsAre(2));
    EXPECT_THAT(went_, IsEmpty()) << "the traces stay where they are";
}

TEST_F(EventList, DeletesTheUsersOfTheSelectedEvents) {
    list_->selectAll();
    Presses(Qt::Key_Delete);
    EXPECT_THAT(Labels(), ElementsAre("tone"));
    EXPECT_EQ(editor_.UndoText(), "Delete 3 Events");
    form_.SelectsRow("tvEvents", 0);
    EXPECT_FALSE(form_.IsEnabled("btDelete"));
    EXPECT_FALSE(form_.IsEnabled("btEdit"));
    Presses(Qt::Key_Delete);
    EXPECT_THAT(Labels(), ElementsAre("tone"));
}

TEST_F(EventList, ChangesAnEventByDoubleClickAndEnter) {
    const auto move = [](const char* to) {
        return [to](EventDialog& dialog) {
            FormUser(dialog).Types("edBegin", to);
            FormUser(dialog).Clicks("btOk");
        };
    };
    user_.Meets<EventDialog>(move("9"));
    form_.DoubleClicksRow("tvEvents", 0);
    EXPECT_THAT(Labels(), ElementsAre("tone", "eyes open", "Blink", "blink"));
    EXPECT_THAT(panel_.SelectedEvents(), ElementsAre(3));
    user_.Meets<EventDialog>(move("0"));
    Presses(Qt::Key_Return);
    EXPECT_THAT(panel_.SelectedEvents(), ElementsAre(0));
}

TEST_F(EventList, AddsAnEventWhereTheTracesStand) {
    file_.recording->GetTraceCursor()->SetPosition(12); // at 4 Hz
    user_.Meets<EventDialog>([](EventDialog& dialog) {
        EXPECT_EQ(FormUser(dialog).TextOf("edBegin"), "3");
        FormUser(dialog).Types("cbLabel", "new");
        FormUser(dialog).Clicks("btOk");
    });
    form_.Clicks("btAdd");
    EXPECT_THAT(panel_.SelectedEvents(), ElementsAre(2));
    EXPECT_EQ(editor_.Events()[2], SpotEvent("new", 3));
}

TEST_F(EventList, ExportsWhatIsListed) {
    panel_.findChild<QComboBox*>("cbKind")->setCurrentIndex(1);
    list_->sortByColumn(0, Qt::DescendingOrder);
    user_.ChoosesFile(file_.folder.Path("out.tsv"));
    form_.Clicks("btExport");
    EXPECT_EQ(file_.folder.Read("out.tsv"),
              "onset\tduration\ttrial_type\n1\t0\tblink\n2\t0\ttone\n8\t0\tBlink\n");
    EXPECT_EQ(user_.FileRequests().at(0).question.name, "sub_eeg_all_events.tsv");
}

TEST_F(EventList, SaysWhyItCannotExport) {
    user_.ChoosesFile(file_.folder.Path("none/out.tsv")).AnswersMessage(owl::kIdOk);
    form_.Clicks("btExport");
    EXPECT_THAT(user_.Messages().at(0).text, testing::EndsWith("(choose a folder that exists)"));
    user_.ChoosesFile(std::nullopt);
    form_.Clicks("btExport");
}

TEST(LongEventList, OpensSortsAndFiltersHundredThousandEvents) {
    std::string rows;
    for (int i = 0; i < 100'000; ++i) {
        rows += std::to_string(i / 10'000.0) + "\t0\te" + std::to_string(i % 50) + "\n";
    }
    test::EditedRecording file(rows);
    EventEditor editor(*file.recording);
    EventListPanel panel(nullptr, editor, {});
    panel.show();
    auto* list = panel.findChild<QTreeView*>("tvEvents");
    EXPECT_EQ(list->model()->rowCount(), 100'001);
    list->sortByColumn(3, Qt::DescendingOrder);
    EXPECT_EQ(list->model()->index(0, 3).data().toString(), "tone");
    EXPECT_EQ(list->model()->index(1, 3).data().toString(), "e49");
    FormUser(panel).Types("edFilter", "e49");
    EXPECT_EQ(list->model()->rowCount(), 2000);
    list->selectAll();
    PressKey(*list, Qt::Key_Delete);
    EXPECT_EQ(list->model()->rowCount(), 0);
    editor.Undo();
    EXPECT_EQ(list->model()->rowCount(), 2000);
}

} // namespace
} // namespace orvanta::review
