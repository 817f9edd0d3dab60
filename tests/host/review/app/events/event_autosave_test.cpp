// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/events/event_autosave.h"

#include "tests/host/review/app/events/editing.h"
#include "tests/support/small_recording.h"

#include <QTest>
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>

namespace orvanta::review {
namespace {

using namespace std::chrono_literals;
using test::EditedRecording;
using test::SpotEvent;

class Autosave : public testing::Test {
protected:
    EditedRecording file_{"1\t0\tblink\n"};
    EventEditor editor_{*file_.recording};
    std::unique_ptr<EventAutosave> autosave_ = std::make_unique<EventAutosave>(editor_, 1ms);

    bool IsSavedSoon() const {
        return QTest::qWaitFor([this] { return !editor_.IsChanged(); }, 2000);
    }
};

TEST_F(Autosave, SavesWhatWasChangedAndTakenBack) {
    editor_.Add(SpotEvent("mine", 3));
    EXPECT_EQ(file_.Rows(), "1\t0\tblink\n") << "not while the user is at work";
    EXPECT_TRUE(IsSavedSoon());
    EXPECT_EQ(file_.Rows(), "1\t0\tblink\n3\t0\tmine\n");
    editor_.Undo();
    EXPECT_TRUE(IsSavedSoon());
    EXPECT_EQ(file_.Rows(), "1\t0\tblink\n");
    EXPECT_TRUE(editor_.CanRedo());
}

TEST_F(Autosave, LeavesTheTableOfAnotherProgramAlone) {
    file_.folder.Write(EditedRecording::kTable, "onset\n7\n");
    editor_.Add(SpotEvent("mine", 3));
    QTest::qWait(50);
    EXPECT_TRUE(editor_.IsChanged());
    EXPECT_EQ(file_.folder.Read(EditedRecording::kTable), "onset\n7\n");
}

TEST_F(Autosave, TriesAgainAfterTheNextChange) {
    const std::string before = file_.folder.Read(EditedRecording::kTable);
    file_.folder.Write(EditedRecording::kTable, "onset\n7\n");
    editor_.Add(SpotEvent("a", 3));
    QTest::qWait(50);
    file_.folder.Write(EditedRecording::kTable, before);
    editor_.Add(SpotEvent("b", 4));
    EXPECT_TRUE(IsSavedSoon());
    EXPECT_EQ(file_.Rows(), "1\t0\tblink\n3\t0\ta\n4\t0\tb\n");
}

TEST_F(Autosave, EndsWithoutSaving) {
    editor_.Add(SpotEvent("mine", 3));
    autosave_.reset();
    QTest::qWait(50);
    EXPECT_EQ(file_.Rows(), "1\t0\tblink\n");
}

TEST_F(Autosave, WritesNothingWithoutAChange) {
    std::filesystem::remove(editor_.GetFile());
    editor_.Add(SpotEvent("mine", 3));
    editor_.Undo();
    QTest::qWait(50);
    EXPECT_FALSE(std::filesystem::exists(editor_.GetFile()));
}

TEST(AutosaveWithoutAFile, WaitsForTheUser) {
    const auto recording = test::SmallRecording();
    EventEditor editor(*recording);
    const EventAutosave autosave(editor, 1ms);
    editor.Add(SpotEvent("mine", 3));
    QTest::qWait(50);
    EXPECT_TRUE(editor.IsChanged());
    const test::TempFolder folder;
    editor.SaveAs(folder.Path("mine.tsv"));
    editor.Undo();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !editor.IsChanged(); }, 2000)) << "it has a place now";
}

} // namespace
} // namespace orvanta::review
