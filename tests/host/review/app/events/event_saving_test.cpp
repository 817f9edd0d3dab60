// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/events/event_editor.h"
#include "tests/host/review/app/events/editing.h"
#include "tests/support/file_limit.h"
#include "tests/support/small_recording.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace orvanta::review {
namespace {

using test::EditedRecording;
using test::SpotEvent;
using test::StateEvent;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;
using Places = std::vector<std::size_t>;

/// The reason of a failed action of this type; empty when it did not fail so.
template <typename Error, typename Action>
std::string FailureOf(const Action& action) {
    try {
        action();
    } catch (const Error& error) {
        return error.what();
    }
    return {};
}

TEST(EventSaving, MakesATableThatIsFoundAgain) {
    EditedRecording file;
    EventEditor editor(*file.recording);
    EXPECT_EQ(editor.GetFile(), file.folder.Path("sub_events.tsv"));
    editor.Add(StateEvent("Artifact", 3, 3.5));
    editor.Save();
    EXPECT_EQ(file.Rows(), "3\t0.5\tArtifact\n");
    const auto again = signal::OpenRecording(file.folder.Path("sub_eeg.edf"));
    EXPECT_EQ(again->GetEventsManager()->GetEvents(), editor.Events());
    EXPECT_TRUE(EventEditor(*again).IsOwn(1));
}

TEST(EventSaving, WritesNothingWhenThereIsNothing) {
    EditedRecording file;
    EventEditor editor(*file.recording);
    editor.Save();
    editor.Add(SpotEvent("a", 1));
    editor.Undo();
    editor.Save();
    EXPECT_FALSE(std::filesystem::exists(editor.GetFile()));
    EXPECT_FALSE(editor.IsChanged());
}

TEST(EventSaving, NeverTouchesTheRecording) {
    EditedRecording file("1\t0\tblink\n");
    const std::string bytes = file.folder.Read("sub_eeg.edf");
    EventEditor editor(*file.recording);
    editor.Remove(Places{0});
    editor.Save();
    EXPECT_EQ(file.folder.Read("sub_eeg.edf"), bytes);
    const std::string recording = file.folder.Path("sub_eeg.edf");
    EXPECT_EQ(FailureOf<std::runtime_error>([&] { editor.SaveAs(recording); }),
              recording + ": is a file of the recording and is not replaced (choose another name)");
    EXPECT_EQ(file.folder.Read("sub_eeg.edf"), bytes);
}

TEST(EventSaving, KeepsWhatOthersHaveInTheTable) {
    EditedRecording file;
    file.folder.Write("sub_events.tsv", "onset\tduration\ttrial_type\trt\n1\t0\tblink\t0.4\nlater\t\tx\ty\n");
    file.recording = signal::OpenRecording(file.folder.Path("sub_eeg.edf"));
    EventEditor editor(*file.recording);
    editor.Replace(0, SpotEvent("blink", 1.5));
    editor.Add(SpotEvent("new", 3));
    editor.Save();
    EXPECT_EQ(file.folder.Read("sub_events.tsv"),
              "onset\tduration\ttrial_type\trt\n1.5\t0\tblink\t0.4\nlater\t\tx\ty\n3\t0\tnew\tn/a\n");
    editor.Remove(Places{0});
    editor.Save();
    editor.Undo();
    editor.Save();
    EXPECT_THAT(file.folder.Read("sub_events.tsv"), HasSubstr("1.5\t0\tblink\t0.4\n"))
        << "foreign values come back after a save in between";
}

TEST(EventSaving, DoesNotOverwriteWhatAnotherProgramWrote) {
    EditedRecording file("1\t0\tblink\n");
    EventEditor editor(*file.recording);
    editor.Add(SpotEvent("mine", 3));
    file.folder.Write("sub_events.tsv", "onset\n7\n");
    EXPECT_EQ(FailureOf<EventsFileChanged>([&] { editor.Save(); }),
              editor.GetFile() + ": the file is not the one that was read or saved here (save all the same, "
                                 "load it and lose the changes here, or save elsewhere)");
    EXPECT_EQ(file.folder.Read("sub_events.tsv"), "onset\n7\n");
    EXPECT_TRUE(editor.IsChanged());

    editor.Save(EventEditor::Existing::Overwrite);
    EXPECT_EQ(file.Rows(), "1\t0\tblink\n3\t0\tmine\n");
    EXPECT_FALSE(editor.IsChanged());
    editor.Undo();
    editor.Save();
    EXPECT_EQ(file.Rows(), "1\t0\tblink\n");
}

TEST(EventSaving, NoticesATableThatCameUpMeanwhile) {
    EditedRecording file;
    EventEditor editor(*file.recording);
    file.folder.Write("sub_events.tsv", "onset\n7\n");
    editor.Add(SpotEvent("mine", 3));
    EXPECT_NE(FailureOf<EventsFileChanged>([&] { editor.Save(); }), "");
}

TEST(EventSaving, WritesATableAgainThatWasRemoved) {
    EditedRecording file("1\t0\tblink\n");
    EventEditor editor(*file.recording);
    std::filesystem::remove(editor.GetFile());
    editor.Add(SpotEvent("mine", 3));
    editor.Save();
    EXPECT_EQ(file.Rows(), "1\t0\tblink\n3\t0\tmine\n");
}

TEST(EventSaving, AsksBeforeItReplacesAFileThatIsNoTable) {
    EditedRecording file;
    file.folder.Write("sub_events.tsv", "notes\n");
    file.recording = signal::OpenRecording(file.folder.Path("sub_eeg.edf"));
    EventEditor editor(*file.recording);
    editor.Add(SpotEvent("mine", 3));
    EXPECT_NE(FailureOf<EventsFileChanged>([&] { editor.Save(); }), "");
    editor.Save(EventEditor::Existing::Overwrite);
    EXPECT_EQ(file.Rows(), "3\t0\tmine\n");
}

TEST(EventSaving, LoadsTheTableInstead) {
    EditedRecording file("1\t0\tblink\n");
    EventEditor editor(*file.recording);
    editor.Add(SpotEvent("mine", 3));
    file.folder.Write("sub_events.tsv", "onset\ttrial_type\tx\n2\ttheirs\t9\n1.5\tother\t8\nsoon\tz\t7\n");
    EXPECT_THAT(editor.Load(editor.GetFile()),
                testing::ElementsAre("sub_events.tsv: line 4: onset \"soon\" is no time, row left out"));
    EXPECT_THAT(editor.Events(),
                testing::ElementsAre(SpotEvent("other", 1.5), SpotEvent("tone", 2), SpotEvent("theirs", 2)));
    EXPECT_FALSE(editor.CanUndo());
    EXPECT_FALSE(editor.IsChanged());
    editor.Remove(Places{0});
    editor.Save();
    EXPECT_EQ(file.folder.Read("sub_events.tsv"), "onset\ttrial_type\tx\n2\ttheirs\t9\nsoon\tz\t7\n");
}

TEST(EventSaving, LoadsNothingFromWhatIsNoTable) {
    EditedRecording file("1\t0\tblink\n");
    EventEditor editor(*file.recording);
    const std::vector<EventRecord> before = editor.Events();
    EXPECT_THROW(editor.Load(file.folder.Write("notes.txt", "notes\n")), std::runtime_error);
    EXPECT_EQ(editor.Events(), before);
    EXPECT_EQ(editor.GetFile(), file.folder.Path("sub_events.tsv"));
}

TEST(EventSaving, SavesElsewhereAndStaysThere) {
    EditedRecording file("1\t0\tblink\n");
    EventEditor editor(*file.recording);
    editor.Add(SpotEvent("mine", 3));
    const std::string elsewhere = file.folder.Path("mine.tsv");
    editor.SaveAs(elsewhere);
    EXPECT_EQ(editor.GetFile(), elsewhere);
    EXPECT_FALSE(editor.IsChanged());
    EXPECT_EQ(file.Rows(), "1\t0\tblink\n") << "the table beside the recording stays";
    editor.Undo();
    editor.Save();
    EXPECT_EQ(file.folder.Read("mine.tsv"), std::string(EditedRecording::kHead) + "1\t0\tblink\n");
}

TEST(EventSaving, KeepsAllInMemoryWhenTheDiskIsFull) {
    EditedRecording file("1\t0\tblink\n");
    EventEditor editor(*file.recording);
    editor.Add(SpotEvent("mine", 3));
    {
        const test::FileLimit full(10);
        EXPECT_THAT(FailureOf<std::runtime_error>([&] { editor.Save(); }),
                    StartsWith(editor.GetFile() + ": "));
    }
    EXPECT_EQ(file.Rows(), "1\t0\tblink\n");
    EXPECT_TRUE(editor.IsChanged());
    EXPECT_EQ(editor.UndoText(), "Add mine");
    editor.Save();
    EXPECT_EQ(file.Rows(), "1\t0\tblink\n3\t0\tmine\n");
}

TEST(EventSaving, SaysWhatHelpsWhereTheFolderIsGone) {
    EditedRecording file;
    EventEditor editor(*file.recording);
    editor.Add(SpotEvent("mine", 3));
    const std::string path = file.folder.Path("none/mine.tsv");
    EXPECT_THAT(FailureOf<std::runtime_error>([&] { editor.SaveAs(path); }),
                EndsWith("(choose a folder that exists)"));
    EXPECT_EQ(editor.GetFile(), file.folder.Path("sub_events.tsv"));
}

TEST(EventSaving, OfARecordingWithoutAFileGoesElsewhereOnly) {
    const auto recording = test::SmallRecording();
    EventEditor editor(*recording);
    EXPECT_EQ(editor.GetFile(), "");
    editor.Add(SpotEvent("mine", 3));
    EXPECT_EQ(
        FailureOf<std::runtime_error>([&] { editor.Save(); }),
        "events: the recording has no file, and its events have no place beside it (save them elsewhere)");
    const test::TempFolder folder;
    editor.SaveAs(folder.Path("mine.tsv"));
    EXPECT_EQ(folder.Read("mine.tsv"), std::string(EditedRecording::kHead) + "3\t0\tmine\n");
}

} // namespace
} // namespace orvanta::review
