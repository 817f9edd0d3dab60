// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/events/event_dialog.h"

#include "host/review/app/events/event_texts.h"
#include "tests/host/review/app/events/editing.h"
#include "tests/support/qt/form_user.h"
#include "tests/support/qt/scripted_user.h"

#include <QComboBox>
#include <QLocale>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace orvanta::review {
namespace {

using test::FormUser;
using test::SpotEvent;
using test::StateEvent;

class EventForm : public testing::Test {
protected:
    test::EditedRecording file_{"1\t0\tblink\n4\t2\teyes open\n"};
    EventEditor editor_{*file_.recording};
    test::ScriptedUser user_;

    std::optional<std::size_t> Adds(const EventRecord& suggested,
                                    const std::function<void(const FormUser&)>& act) {
        user_.Meets<EventDialog>([&](EventDialog& dialog) { act(FormUser(dialog)); });
        return AddWithDialog({}, editor_, suggested);
    }
};

TEST_F(EventForm, AddsAnEvent) {
    const auto place = Adds(SpotEvent("", 3), [](const FormUser& form) {
        form.Types("cbLabel", " Artifact ");
        form.Clicks("rbState");
        form.Types("edBegin", "3.25");
        form.Types("edDuration", "0.5");
        form.Clicks("btOk");
    });
    EXPECT_EQ(place, 2U);
    EXPECT_EQ(editor_.Events()[2], StateEvent("Artifact", 3.25, 3.75));
    EXPECT_TRUE(editor_.IsOwn(2));
}

TEST_F(EventForm, ShowsWhatIsSuggestedAndWhen) {
    Adds(StateEvent("Artifact", 3.25, 3.75), [](const FormUser& form) {
        EXPECT_EQ(form.TextOf("cbLabel"), "Artifact");
        EXPECT_EQ(form.TextOf("edBegin"), "3.25");
        EXPECT_EQ(form.TextOf("edDuration"), "0.5");
        EXPECT_TRUE(form.IsChecked("rbState"));
        EXPECT_EQ(form.TextOf("lbClock"), "10:20:33.250 \u2013 10:20:33.750");
        EXPECT_EQ(form.TextOf("lbProblem"), "");
        form.Clicks("btCancel");
    });
    EXPECT_FALSE(editor_.CanUndo());
}

TEST_F(EventForm, OffersTheLabelsThereAre) {
    user_.Meets<EventDialog>([](EventDialog& dialog) {
        QStringList labels;
        const auto* box = dialog.findChild<QComboBox*>("cbLabel");
        for (int i = 0; i < box->count(); ++i) {
            labels << box->itemText(i);
        }
        EXPECT_EQ(
            labels.join(", ").toStdString(),
            "artifact, bad, bad blink, bad movement, bad muscle, blink, eyes closed, eyes open, movement, "
            "note, seizure, sleep, spike, tone");
        dialog.reject();
    });
    AddWithDialog({}, editor_, SpotEvent("a", 1));
}

TEST_F(EventForm, SaysWhatIsWrongAndStaysOpen) {
    const struct {
        const char* label;
        const char* begin;
        const char* duration;
        const char* problem;
    } table[] = {
        {"", "1", "1", "The event has no label (type one)"},
        {"n/a", "1", "1", "The label \"n/a\" stands for none in the table (choose another)"},
        {"a", "soon", "1", "The begin is no time (type seconds or h:mm:ss)"},
        {"a", "nan", "1", "The begin is no time (type seconds or h:mm:ss)"},
        {"a", "1", "", "The duration is no time (type seconds or h:mm:ss)"},
        {"a", "1", "-1", "The event ends before it begins (exchange begin and end)"},
        {"a", "1", "0", "A state event without a duration (make it longer or a spot event)"},
        {"a", "11", "1", "The event lies outside the recording, which lasts 10 s (choose a time inside)"},
        {"a", "-1", "1", "The event lies outside the recording, which lasts 10 s (choose a time inside)"},
    };
    Adds(StateEvent("a", 1, 2), [&](const FormUser& form) {
        for (const auto& row : table) {
            form.Types("cbLabel", row.label);
            form.Types("edBegin", row.begin);
            form.Types("edDuration", row.duration);
            EXPECT_EQ(form.TextOf("lbProblem").toStdString(), row.problem);
            EXPECT_FALSE(form.IsEnabled("btOk"));
        }
        form.PressesEscape();
    });
    EXPECT_FALSE(editor_.CanUndo());
}

TEST_F(EventForm, APointHasNoDurationAndAStretchGetsOne) {
    Adds(SpotEvent("a", 1), [](const FormUser& form) {
        EXPECT_FALSE(form.IsEnabled("edDuration"));
        form.Clicks("rbState");
        EXPECT_TRUE(form.IsEnabled("edDuration"));
        EXPECT_EQ(form.TextOf("edDuration"), "1");
        form.Types("edDuration", "2");
        form.Clicks("rbSpot");
        form.Clicks("btOk");
    });
    EXPECT_EQ(editor_.Events()[1], SpotEvent("a", 1));
}

TEST_F(EventForm, ChangesAnEvent) {
    user_.Meets<EventDialog>([](EventDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Change Event");
        const FormUser form(dialog);
        form.Types("edBegin", "0:05.5");
        form.Clicks("btOk");
    });
    EXPECT_EQ(ChangeWithDialog({}, editor_, 0), 2U);
    EXPECT_EQ(editor_.Events()[2], SpotEvent("blink", 5.5));
    EXPECT_EQ(editor_.UndoText(), "Change blink");
}

TEST_F(EventForm, AnEventLeftAsItIsIsNoChange) {
    user_.Meets<EventDialog>([](EventDialog& dialog) { FormUser(dialog).Clicks("btOk"); });
    EXPECT_EQ(ChangeWithDialog({}, editor_, 0), std::nullopt);
    EXPECT_FALSE(editor_.CanUndo());
}

TEST_F(EventForm, SaysThatTheRecordingStaysAsItIs) {
    user_.AnswersMessage(owl::kIdOk);
    EXPECT_EQ(ChangeWithDialog({}, editor_, 1), std::nullopt);
    EXPECT_EQ(user_.Messages().at(0).text, "This event is in the recording itself and cannot be changed.");
}

TEST(EventTimes, AreTypedAsSecondsOrWithMinutesAndHours) {
    const struct {
        const char* text;
        std::optional<double> seconds;
    } table[] = {
        {"12.5", 12.5},  {" 7 ", 7},    {"-0.5", -0.5},  {"2:03.5", 123.5}, {"1:02:03", 3723},
        {"90:00", 5400}, {"0:60", {}},  {"1:2.5:3", {}}, {"-1:00", {}},     {"1:-2", {}},
        {"1:2:3:4", {}}, {"", {}},      {":", {}},       {"1e10", {}},      {"nan", {}},
        {"inf", {}},     {"1,000", {}}, {"12 s", {}},
    };
    for (const auto& row : table) {
        const std::optional<XTime> time = ParseSeconds(row.text);
        EXPECT_EQ(time ? std::optional(time->Seconds()) : std::nullopt, row.seconds) << row.text;
    }
}

TEST(EventTimes, AreShownInTheUsersNumerals) {
    EXPECT_EQ(SecondsText(XTime::FromSeconds(86400.125)), "86400.125");
    QLocale::setDefault(QLocale("de_DE"));
    EXPECT_EQ(SecondsText(XTime::FromSeconds(86400.125)), "86400,125");
    EXPECT_EQ(ParseSeconds("0,5"), XTime::FromSeconds(0.5));
    QLocale::setDefault(QLocale::system());
}

} // namespace
} // namespace orvanta::review
