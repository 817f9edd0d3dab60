// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/montage/montage_editor.h"

#include "host/review/app/montage/montage_draft.h"
#include "spectra_contract/recording.h"
#include "tests/support/file_limit.h"
#include "tests/support/qt/form_user.h"
#include "tests/support/qt/scripted_user.h"
#include "tests/support/small_recording.h"
#include "tests/support/temp_folder.h"

#include <QPlainTextEdit>
#include <QTextBlock>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace orvanta::review {
namespace {

using test::FormUser;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

class Editor : public testing::Test {
protected:
    /// The editor comes up, and the user does so.
    void Edit(const std::function<void(const FormUser&)>& act, bool open = true) {
        user_.Meets<MontageEditor>([act](MontageEditor& editor) { act(FormUser(editor)); });
        EditMontages({}, Path(), open ? recording_.get() : nullptr);
    }
    std::string Path() const { return folder_.Path("MONTAGE/"); }
    bool Offers(const std::string& name) const { return recording_->GetMontageList()->Find(name) != nullptr; }

    test::TempFolder folder_;
    test::ScriptedUser user_;
    std::unique_ptr<EEGFileInfoType> recording_ = test::SmallRecording(); // Fp1, F3, Cz
};

TEST_F(Editor, MakesAMontageThatIsStoredAndOffered) {
    Edit([](const FormUser& form) {
        EXPECT_FALSE(form.IsEnabled("edName"));
        EXPECT_FALSE(form.IsEnabled("btErase"));
        form.Clicks("btNew");
        EXPECT_EQ(form.TextOf("edName"), "Montage 1");
        form.Types("edName", " Frontal ");
        form.Types("edChannels", "Fp1-F3 = +Fp1 -F3\nCz = Cz");
        EXPECT_EQ(form.RowsOf("lvMontages"), QStringList("Frontal"));
        EXPECT_EQ(form.TextOf("lbProblem"), "");
        form.Clicks("btOk");
    });
    EXPECT_EQ(folder_.Read("MONTAGE/Frontal.mtg"), "Fp1-F3 = +Fp1 -F3\nCz = Cz");
    ASSERT_TRUE(Offers("Frontal"));
    EXPECT_EQ(recording_->GetMontageList()->Find("Frontal")->GetNumTraces(), 2U);
}

TEST_F(Editor, BeginsANewMontageWithTheChannelsInUse) {
    Edit([](const FormUser& form) {
        form.Clicks("btNew");
        EXPECT_EQ(form.TextOf("edChannels"), "Fp1 = +Fp1\nF3 = +F3\nCz = +Cz\n");
        form.Clicks("btNew");
        EXPECT_EQ(form.TextOf("edName"), "Montage 2");
        form.Clicks("btOk");
    });
    EXPECT_TRUE(Offers("Montage 1"));
    EXPECT_TRUE(Offers("Montage 2"));
}

TEST_F(Editor, ChangesRenamesAndErases) {
    folder_.Write("MONTAGE/a.mtg", "a = Fp1\n");
    folder_.Write("MONTAGE/b.mtg", "b = Fp1\n");
    folder_.Write("MONTAGE/c.mtg", "c = Fp1\n");
    Edit([](const FormUser& form) {
        EXPECT_EQ(form.RowsOf("lvMontages"), QStringList({"a", "b", "c"}));
        EXPECT_EQ(form.TextOf("edChannels"), "a = Fp1\n");
        form.Clicks("btErase");
        EXPECT_EQ(form.TextOf("edName"), "b");
        form.Types("edName", "B2");
        form.SelectsRow("lvMontages", 1);
        EXPECT_EQ(form.TextOf("edName"), "c");
        form.Types("edChannels", "c = F3");
        form.Clicks("btOk");
    });
    EXPECT_FALSE(std::filesystem::exists(Path() + "a.mtg"));
    EXPECT_FALSE(std::filesystem::exists(Path() + "b.mtg"));
    EXPECT_EQ(folder_.Read("MONTAGE/B2.mtg"), "b = Fp1\n");
    EXPECT_EQ(folder_.Read("MONTAGE/c.mtg"), "c = F3");
}

TEST_F(Editor, TellsTheLineThatIsWrongAndMarksIt) {
    folder_.Write("MONTAGE/a.mtg", "a = Fp1\n");
    user_.Meets<MontageEditor>([](MontageEditor& editor) {
        const FormUser form(editor);
        form.Types("edChannels", "a = Fp1\n\nb = Fp1 F3");
        EXPECT_EQ(form.TextOf("lbProblem"),
                  "Line 3: no sign before \"F3\" (write + or - before every term and "
                  "names with blanks in quotes)");
        EXPECT_FALSE(form.IsEnabled("btOk"));
        const auto marks = editor.findChild<QPlainTextEdit*>("edChannels")->extraSelections();
        ASSERT_EQ(marks.size(), 1);
        EXPECT_EQ(marks[0].cursor.blockNumber(), 2);
        form.Types("edChannels", "a = Fp1");
        EXPECT_TRUE(editor.findChild<QPlainTextEdit*>("edChannels")->extraSelections().isEmpty());
        EXPECT_TRUE(form.IsEnabled("btOk"));
        form.Clicks("btOk");
    });
    EditMontages({}, Path(), recording_.get());
    EXPECT_EQ(folder_.Read("MONTAGE/a.mtg"), "a = Fp1");
}

TEST_F(Editor, TellsOfAWrongMontageThatIsNotSelected) {
    folder_.Write("MONTAGE/a.mtg", "a = Fp1\n");
    folder_.Write("MONTAGE/b.mtg", "b\n");
    Edit([](const FormUser& form) {
        EXPECT_THAT(form.TextOf("lbProblem").toStdString(), StartsWith("b: Line 1: "));
        EXPECT_FALSE(form.IsEnabled("btOk"));
        form.Clicks("btCancel");
    });
}

TEST_F(Editor, TakesWhatDoesNotFitTheOpenRecording) {
    Edit([](const FormUser& form) {
        form.Clicks("btNew");
        form.Types("edChannels", "a = O1 -O2");
        EXPECT_EQ(form.TextOf("lbProblem"),
                  "Not for the open recording: Line 1: the recording has no channel \"O1\" (use a channel's "
                  "name as listed by the recording)");
        EXPECT_TRUE(form.IsEnabled("btOk"));
        form.Clicks("btOk");
    });
    EXPECT_EQ(folder_.Read("MONTAGE/Montage 1.mtg"), "a = O1 -O2");
    EXPECT_FALSE(Offers("Montage 1"));
}

TEST_F(Editor, NeedsNoRecording) {
    Edit(
        [](const FormUser& form) {
            form.Clicks("btNew");
            EXPECT_EQ(form.TextOf("edChannels"), "Fp1-F3 = +Fp1 -F3\n");
            EXPECT_EQ(form.TextOf("lbProblem"), "");
            form.Clicks("btOk");
        },
        false);
    EXPECT_EQ(folder_.Read("MONTAGE/Montage 1.mtg"), "Fp1-F3 = +Fp1 -F3\n");
}

TEST_F(Editor, AsksBeforeChangesAreLost) {
    folder_.Write("MONTAGE/a.mtg", "a = Fp1\n");
    user_.Meets<MontageEditor>([this](MontageEditor& editor) {
        const FormUser form(editor);
        form.Clicks("btErase");
        user_.AnswersMessage(owl::kIdNo);
        form.PressesEscape();
        EXPECT_TRUE(editor.isVisible());
        user_.AnswersMessage(owl::kIdYes);
        form.Clicks("btCancel");
        EXPECT_FALSE(editor.isVisible());
    });
    EditMontages({}, Path(), recording_.get());
    EXPECT_EQ(folder_.Read("MONTAGE/a.mtg"), "a = Fp1\n");
}

TEST_F(Editor, KeepsWhatWasTypedWhenItCannotBeStored) {
    {
        const test::FileLimit full(3);
        user_.Meets<MontageEditor>([](MontageEditor& editor) {
            FormUser(editor).Clicks("btNew");
            FormUser(editor).Clicks("btOk");
        });
        user_.AnswersMessage(owl::kIdOk);
        user_.Meets<MontageEditor>([this](MontageEditor& editor) {
            EXPECT_EQ(FormUser(editor).TextOf("edName"), "Montage 1");
            user_.AnswersMessage(owl::kIdYes);
            FormUser(editor).Clicks("btCancel");
        });
        EditMontages({}, Path(), recording_.get());
    }
    EXPECT_THAT(user_.Messages()[0].text, StartsWith(Path() + "Montage 1.mtg: "));
    EXPECT_FALSE(std::filesystem::exists(Path() + "Montage 1.mtg"));
}

TEST(MontageDraft, NeedsAName) {
    struct Case {
        const char* name;
        const char* problem;
    };
    for (const Case& wrong : {Case{"", "Type a name for the montage."},
                              Case{".a", "The name must not begin with \".\" or hold any of \"*/:<>?|\\"},
                              Case{"a/b", "The name must not begin with \".\" or hold any of \"*/:<>?|\\"},
                              Case{"OTHER", "Another montage has this name."}}) {
        EXPECT_EQ(WhyNotStored({{wrong.name, "a = Fp1"}, {"Other", "a = Fp1"}}, 0).text, wrong.problem);
    }
    EXPECT_EQ(WhyNotStored({{std::string(101, 'x'), "a = Fp1"}}, 0).text,
              "The name is too long (use 100 characters or fewer).");
    EXPECT_EQ(WhyNotStored({{"Stirn links, 2", "a = Fp1"}}, 0).text, "");
}

TEST(MontageDraft, NeedsAChannel) {
    const MontageProblem problem = WhyNotStored({{"a", "# nothing\n"}}, 0);
    EXPECT_THAT(problem.text.toStdString(), HasSubstr("Has no channel"));
    EXPECT_EQ(problem.line, 0U);
}

} // namespace
} // namespace orvanta::review
