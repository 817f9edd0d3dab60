// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/events/event_editor.h"

#include "tests/host/review/app/events/editing.h"
#include "tests/support/small_recording.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace orvanta::review {
namespace {

using test::EditedRecording;
using test::SpotEvent;
using test::StateEvent;
using testing::ElementsAre;
using testing::HasSubstr;
using Places = std::vector<std::size_t>;

class EventEditing : public testing::Test {
protected:
    EditedRecording file{"1\t0\tblink\n4\t2\teyes open\n"};
    EventEditor editor{*file.recording};

    std::vector<std::string> Labels() const {
        std::vector<std::string> labels;
        for (const EventRecord& event : editor.Events()) {
            labels.push_back(event.Label);
        }
        return labels;
    }
};

std::string ReasonOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const std::exception& error) {
        return error.what();
    }
    return "accepted";
}

TEST_F(EventEditing, KnowsWhichEventsAreTheUsers) {
    EXPECT_THAT(Labels(), ElementsAre("blink", "tone", "eyes open"));
    EXPECT_TRUE(editor.IsOwn(0));
    EXPECT_FALSE(editor.IsOwn(1));
    EXPECT_TRUE(editor.IsOwn(2));
    EXPECT_FALSE(editor.IsOwn(3));
    EXPECT_FALSE(editor.IsChanged());
    EXPECT_FALSE(editor.CanUndo());
    EXPECT_EQ(editor.UndoText(), "");
}

TEST_F(EventEditing, AddsChangesAndRemoves) {
    EXPECT_EQ(editor.Add(StateEvent("Artifact", 3, 3.5)), 2U);
    EXPECT_THAT(Labels(), ElementsAre("blink", "tone", "Artifact", "eyes open"));
    EXPECT_EQ(editor.Replace(0, SpotEvent("blink", 5)), 3U);
    EXPECT_THAT(Labels(), ElementsAre("tone", "Artifact", "eyes open", "blink"));
    editor.Remove(Places{3, 1, 3});
    EXPECT_THAT(Labels(), ElementsAre("tone", "eyes open"));
    EXPECT_TRUE(editor.IsChanged());
}

TEST_F(EventEditing, GoesBackAndForthWithoutEnd) {
    const std::vector<EventRecord> before = editor.Events();
    for (int i = 0; i < 500; ++i) {
        editor.Add(SpotEvent("e" + std::to_string(i), (i * 37 % 100) / 10.0));
    }
    editor.Replace(editor.Add(SpotEvent("moved", 1)), SpotEvent("moved", 8));
    Places all;
    for (std::size_t i = 0; i < editor.Events().size(); ++i) {
        if (editor.IsOwn(i)) {
            all.push_back(i);
        }
    }
    editor.Remove(all);
    const std::vector<EventRecord> after = editor.Events();
    ASSERT_THAT(Labels(), ElementsAre("tone"));
    while (editor.CanUndo()) {
        editor.Undo();
    }
    EXPECT_EQ(editor.Events(), before);
    while (editor.CanRedo()) {
        editor.Redo();
    }
    EXPECT_EQ(editor.Events(), after);
}

TEST_F(EventEditing, NamesWhatWouldBeUndone) {
    editor.Add(SpotEvent("Artifact", 3));
    EXPECT_EQ(editor.UndoText(), "Add Artifact");
    editor.Replace(2, SpotEvent("Spike", 3));
    EXPECT_EQ(editor.UndoText(), "Change Spike");
    editor.Remove(Places{2});
    EXPECT_EQ(editor.UndoText(), "Delete Spike");
    editor.Remove(Places{0, 2});
    EXPECT_EQ(editor.UndoText(), "Delete 2 Events");
    editor.Undo();
    EXPECT_EQ(editor.UndoText(), "Delete Spike");
    EXPECT_EQ(editor.RedoText(), "Delete 2 Events");
}

TEST_F(EventEditing, ANewChangeForgetsWhatWasTakenBack) {
    editor.Add(SpotEvent("a", 3));
    editor.Undo();
    editor.Add(SpotEvent("b", 3));
    EXPECT_FALSE(editor.CanRedo());
    EXPECT_THAT(Labels(), ElementsAre("blink", "tone", "b", "eyes open"));
}

TEST_F(EventEditing, EventsOfOneTimeKeepTheirOrder) {
    editor.Add(SpotEvent("b", 1));
    editor.Add(SpotEvent("a", 1));
    editor.Replace(0, SpotEvent("first", 1));
    EXPECT_THAT(Labels(), ElementsAre("first", "b", "a", "tone", "eyes open"));
    editor.Remove(Places{1});
    editor.Undo();
    EXPECT_THAT(Labels(), ElementsAre("first", "b", "a", "tone", "eyes open"));
}

TEST_F(EventEditing, AnEventThatStaysAsItIsIsNoChange) {
    EXPECT_EQ(editor.Replace(0, SpotEvent("blink", 1)), 0U);
    editor.Remove(Places{});
    EXPECT_FALSE(editor.CanUndo());
}

TEST_F(EventEditing, NeverChangesWhatTheRecordingHolds) {
    const std::vector<EventRecord> before = editor.Events();
    EXPECT_THAT(ReasonOf([&] { editor.Replace(1, SpotEvent("x", 1)); }),
                HasSubstr("in the recording itself"));
    EXPECT_THAT(ReasonOf([&] { editor.Remove(Places{0, 1}); }), HasSubstr("in the recording itself"));
    EXPECT_THROW(editor.Remove(Places{9}), std::invalid_argument);
    EXPECT_EQ(editor.Events(), before);
    EXPECT_FALSE(editor.CanUndo());
}

TEST_F(EventEditing, RefusesEventsOutsideTheRecording) {
    const std::string outside =
        "the event lies outside the recording, which lasts 10 s (choose a time inside)";
    for (const EventRecord& event :
         {SpotEvent("a", -0.1), SpotEvent("a", 10.1), StateEvent("a", -2, 0), StateEvent("a", 10, 11)}) {
        EXPECT_EQ(ReasonOf([&] { editor.Add(event); }), outside);
        EXPECT_EQ(ReasonOf([&] { editor.Replace(0, event); }), outside);
    }
    for (const EventRecord& event :
         {SpotEvent("a", 0), SpotEvent("a", 10), StateEvent("a", -2, 0.1), StateEvent("a", 9.9, 11)}) {
        EXPECT_EQ(editor.WhyNot(event), "");
    }
}

TEST_F(EventEditing, RefusesLabelsThatTheTableCannotHold) {
    EXPECT_THAT(ReasonOf([&] { editor.Add(SpotEvent("", 1)); }), HasSubstr("no label"));
    EXPECT_THAT(ReasonOf([&] { editor.Add(SpotEvent("a\nb", 1)); }), HasSubstr("line end"));
    EXPECT_FALSE(editor.CanUndo());
}

TEST_F(EventEditing, TellsEveryChangeWhenAllIsInPlace) {
    struct Watch : FlagListener {
        explicit Watch(EventEditor& watched)
            : FlagListener("test", watched.GetChangedFlag()), editor(watched) {}
        void PerformAction() override {
            told.push_back(editor.UndoText() + "|" + editor.RedoText() + "|" +
                           std::to_string(editor.Events().size()));
        }
        EventEditor& editor;
        std::vector<std::string> told;
    } watch(editor);
    editor.Add(SpotEvent("a", 1));
    editor.Undo();
    editor.Redo();
    EXPECT_THAT(watch.told, ElementsAre("Add a||4", "|Add a|3", "Add a||4"));
}

TEST_F(EventEditing, IsUnchangedWhenTheSavedStateIsReachedAgain) {
    editor.Add(SpotEvent("a", 1));
    editor.Save();
    EXPECT_FALSE(editor.IsChanged());
    editor.Undo();
    EXPECT_TRUE(editor.IsChanged());
    editor.Redo();
    EXPECT_FALSE(editor.IsChanged());
    editor.Undo();
    editor.Add(SpotEvent("a", 1));
    EXPECT_TRUE(editor.IsChanged()) << "the saved state is out of reach now";
    editor.Undo();
    EXPECT_TRUE(editor.IsChanged());
}

TEST_F(EventEditing, TakesHundredThousandEvents) {
    std::string rows;
    for (int i = 0; i < 100'000; ++i) {
        rows += std::to_string(i / 10'000.0) + "\t0\te\n";
    }
    EditedRecording large(rows);
    EventEditor many(*large.recording);
    ASSERT_EQ(many.Events().size(), 100'001U);
    many.Replace(50'000, SpotEvent("moved", 0));
    Places odd;
    for (std::size_t i = 0; i < many.Events().size(); ++i) {
        if (many.IsOwn(i) && i % 2 == 1) {
            odd.push_back(i);
        }
    }
    many.Remove(odd);
    many.Save();
    const auto again = signal::OpenRecording(large.folder.Path("sub_eeg.edf"));
    EXPECT_EQ(again->GetEventsManager()->GetEvents(), many.Events());
}

} // namespace
} // namespace orvanta::review
