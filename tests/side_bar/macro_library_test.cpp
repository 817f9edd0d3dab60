// SPDX-License-Identifier: GPL-3.0-or-later
// What the user does with the macros of the library.
#include "tests/side_bar/macro_library.h"

#include "host/spectral_data/settings/event_context.h"
#include "side_bar/spectrum_macro_form.h"
#include "tests/side_bar/disk.h"

#include <QListWidget>
#include <QPlainTextEdit>
#include <QTest>

namespace {

using orvanta::test::Disk;
using orvanta::test::FormUser;
using orvanta::test::MacroLibrary;
using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

constexpr const char* kNoMatch = "No Matched Events. Default selection made";
constexpr const char* kBroken = "<spectra_macro version=\"1\">\n<overlap>many</overlap>\n</spectra_macro>";

QWidget* ListOf(TFormMacroSpectra& form) {
    return form.findChild<QWidget*>("ListBoxMacro");
}

TEST_F(MacroLibrary, LoadsTheMacroThatIsClicked) {
    Save("Alpha", 10);
    Save("Beta", 20);
    const TFormMacroSpectra& form = Open();
    Hand().SelectsRow("ListBoxMacro", 1);
    EXPECT_EQ(macro_.GetOverlapPerc(), 20U);
    EXPECT_EQ(macro_.GetFileName(), PathOf("Beta"));
    EXPECT_EQ(form.GetCaption(), "Spectra Manager ( Beta )");
    EXPECT_TRUE(form.IsMacroLoaded());
    EXPECT_TRUE(Hand().IsEnabled("BitBtnEdit"));
    EXPECT_EQ(Hand().TextOf("Memo1"), "FFT window: 2 s\n"
                                      "Overlap: 20 %\n"
                                      "Windowing: Hanning\n"
                                      "Interval: All recording\n"
                                      "Events to exclude: None\n"
                                      "Epochs: All\n"
                                      "Contrast value: 0\n");
    EXPECT_THAT(user_.Messages(), IsEmpty());
}

/// Whether the character at \p position is of a strong face.
bool IsStrong(const QPlainTextEdit& memo, int position) {
    QTextCursor cursor(memo.document());
    cursor.setPosition(position + 1); // the format is that of the character before
    return cursor.charFormat().fontWeight() > QFont::Normal;
}

TEST_F(MacroLibrary, SetsTheNamesOfADescriptionOffItsValues) {
    Save("Alpha", 10);
    Write("Broken", kBroken);
    auto* memo = Open().findChild<QPlainTextEdit*>("Memo1");
    Hand().SelectsRow("ListBoxMacro", 0);
    const qsizetype second = memo->toPlainText().indexOf("Overlap");
    EXPECT_TRUE(IsStrong(*memo, 0));
    EXPECT_FALSE(IsStrong(*memo, static_cast<int>(second) - 2));
    EXPECT_TRUE(IsStrong(*memo, static_cast<int>(second)));
    user_.AnswersMessage(owl::kIdOk);
    Hand().SelectsRow("ListBoxMacro", 1);
    EXPECT_FALSE(IsStrong(*memo, 0)) << "what is wrong with a file is no description";
}

TEST_F(MacroLibrary, SaysThatAnEditedMacroCouldNotBeSaved) {
    Save("Alpha", 10);
    Open();
    Hand().SelectsRow("ListBoxMacro", 0);
    user_.Meets<TFormSpectrumMacro>([this](TFormSpectrumMacro& settings) {
        const FormUser hand(settings);
        hand.SetsNumber("udOverlap", 25);
        std::filesystem::remove(PathOf("Alpha"));
        std::filesystem::create_directory(PathOf("Alpha"));
        hand.Clicks("BitBtnCompute");
    });
    Hand().Clicks("BitBtnEdit");
    EXPECT_THAT(
        Hand().TextOf("Memo1").toStdString(),
        testing::StartsWith("The changes could not be saved. They count until another macro is loaded."
                            "\n\n" +
                            PathOf("Alpha")));
    EXPECT_EQ(macro_.GetOverlapPerc(), 25U) << "the settings are not lost";
    EXPECT_THAT(user_.Messages(), IsEmpty());
}

TEST_F(MacroLibrary, LoadsTheMacroThatAnArrowKeyReaches) {
    Save("Alpha", 10);
    Save("Beta", 20);
    TFormMacroSpectra& form = Open();
    QTest::keyClick(ListOf(form), Qt::Key_Down);
    EXPECT_EQ(form.GetCaption(), "Spectra Manager ( Alpha )");
    QTest::keyClick(ListOf(form), Qt::Key_Down);
    EXPECT_EQ(form.GetCaption(), "Spectra Manager ( Beta )");
    EXPECT_EQ(macro_.GetOverlapPerc(), 20U);
    QTest::keyClick(ListOf(form), Qt::Key_Up);
    EXPECT_EQ(form.GetCaption(), "Spectra Manager ( Alpha )");
    EXPECT_EQ(macro_.GetOverlapPerc(), 10U);
}

TEST_F(MacroLibrary, LoadsAgainWhenTheSelectedRowIsClickedAgain) {
    Save("Alpha", 10);
    Open();
    Hand().SelectsRow("ListBoxMacro", 0);
    Save("Alpha", 30);
    Hand().SelectsRow("ListBoxMacro", 0);
    EXPECT_EQ(macro_.GetOverlapPerc(), 30U);
}

TEST_F(MacroLibrary, LoadsOnceWithEveryPress) {
    Write("Broken", kBroken);
    Save("Sound", 10);
    Open();
    user_.AnswersMessage(owl::kIdOk);
    Hand().SelectsRow("ListBoxMacro", 0);
    EXPECT_THAT(user_.Messages(), SizeIs(1));
    user_.AnswersMessage(owl::kIdOk);
    Hand().SelectsRow("ListBoxMacro", 0);
    EXPECT_THAT(user_.Messages(), SizeIs(2));
    Hand().SelectsRow("ListBoxMacro", 1);
    user_.AnswersMessage(owl::kIdOk);
    Hand().SelectsRow("ListBoxMacro", 0);
    EXPECT_THAT(user_.Messages(), SizeIs(3));
}

TEST_F(MacroLibrary, LoadsOnTheNextClickWhenItsWarningSwallowedTheRelease) {
    Write("Broken", kBroken);
    auto* list = Open().findChild<QListWidget*>("ListBoxMacro");
    const QPoint place = list->visualItemRect(list->item(0)).center();
    user_.AnswersMessage(owl::kIdOk);
    QTest::mousePress(list->viewport(), Qt::LeftButton, {}, place);
    user_.AnswersMessage(owl::kIdOk);
    Hand().SelectsRow("ListBoxMacro", 0);
    EXPECT_THAT(user_.Messages(), SizeIs(2));
}

TEST_F(MacroLibrary, DisablesEditAndDescribesNothingWithoutASelectedRow) {
    Save("Alpha", 10);
    TFormMacroSpectra& form = Open();
    Hand().SelectsRow("ListBoxMacro", 0);
    form.findChild<QListWidget*>("ListBoxMacro")->clearSelection();
    EXPECT_EQ(Hand().TextOf("Memo1"), "");
    EXPECT_FALSE(Hand().IsEnabled("BitBtnEdit"));
    EXPECT_EQ(form.GetCaption(), "Spectra Manager ( Alpha )");
}

TEST_F(MacroLibrary, WarnsWhenTheMacroSelectsEventsThatTheRecordingLacks) {
    SpectraMacro closed;
    closed.SetTimeIntervalSelectMode(SpectraMacro::TimeIntervalSelectMode::ByStateEvents);
    closed.SetAcceptStateList({"eyes closed"});
    Save("Closed", closed);
    const orvanta::spectral::MacroEventContext context(&events_);
    TFormMacroSpectra& form = Open();
    user_.AnswersMessage(owl::kIdOk);
    Hand().SelectsRow("ListBoxMacro", 0);
    EXPECT_THAT(user_.Messages(), ElementsAre(Box(kNoMatch, "Warning", 48)));
    EXPECT_EQ(macro_.GetTimeIntervalSelectMode(), SpectraMacro::TimeIntervalSelectMode::AllRecording);
    EXPECT_THAT(Hand().TextOf("Memo1").toStdString(), HasSubstr("Interval: All recording\n"));
    EXPECT_EQ(form.GetCaption(), "Spectra Manager ( Closed )");
    EXPECT_TRUE(form.IsMacroLoaded());
    EXPECT_TRUE(Hand().IsEnabled("BitBtnEdit"));
}

struct Unreadable {
    const char* content;
    const char* reason;
};

class UnreadableMacro : public MacroLibrary, public testing::WithParamInterface<Unreadable> {};

TEST_P(UnreadableMacro, WarnsAndSaysWhatIsWrongAndKeepsTheSettings) {
    Save("Alpha", 10);
    Write("Broken", GetParam().content);
    TFormMacroSpectra& form = Open();
    Hand().SelectsRow("ListBoxMacro", 0);
    user_.AnswersMessage(owl::kIdOk);
    Hand().SelectsRow("ListBoxMacro", 1);
    EXPECT_THAT(user_.Messages(), ElementsAre(Box(kNoMatch, "Warning", 48)));
    EXPECT_THAT(
        Hand().TextOf("Memo1").toStdString(),
        AllOf(testing::StartsWith("The file of this macro cannot be read. The settings are as before.\n\n" +
                                  PathOf("Broken") + ": "),
              HasSubstr(GetParam().reason)));
    EXPECT_EQ(macro_.GetOverlapPerc(), 10U);
    EXPECT_EQ(macro_.GetFileName(), ""); // so that nothing is saved into Alpha under Broken's name
    EXPECT_EQ(form.GetCaption(), "Spectra Manager ( Broken )");
    EXPECT_TRUE(form.IsMacroLoaded());
    EXPECT_TRUE(Hand().IsEnabled("BitBtnEdit"));
}

INSTANTIATE_TEST_SUITE_P(
    Files, UnreadableMacro,
    testing::Values(Unreadable{kBroken, "line 2: overlap"}, Unreadable{"", "no well-formed XML"},
                    Unreadable{
                        "<spectra_macro version=\"2\"/>",
                        "from a newer version (macro file version 2, known is 1) (update this program)"},
                    Unreadable{"<other/>", "no macro file"}));

TEST_F(MacroLibrary, SaysThatAHugeFileIsTooLarge) {
    Write("Huge", "");
    std::filesystem::resize_file(PathOf("Huge"), std::uintmax_t{1} << 40);
    Open();
    user_.AnswersMessage(owl::kIdOk);
    Hand().SelectsRow("ListBoxMacro", 0);
    EXPECT_THAT(Hand().TextOf("Memo1").toStdString(),
                EndsWith("Huge.smx: has 1099511627776 bytes, more than the 4194304 that such a file may have "
                         "(check that it is the right file)"));
    EXPECT_TRUE(macro_ == SpectraMacro());
}

TEST_F(MacroLibrary, SaysThatAFileIsGone) {
    Save("Alpha", 10);
    Open();
    std::filesystem::remove(PathOf("Alpha"));
    user_.AnswersMessage(owl::kIdOk);
    Hand().SelectsRow("ListBoxMacro", 0);
    EXPECT_THAT(Hand().TextOf("Memo1").toStdString(),
                EndsWith("Alpha.smx: does not exist (check the name and the folder)"));
}

TEST_F(MacroLibrary, MakesANewMacroOfTheSettingsAtHand) {
    Save("Alpha", 10);
    TFormMacroSpectra& form = Open();
    Hand().SelectsRow("ListBoxMacro", 0);
    user_
        .Meets<TFormSpectrumMacro>([&form](TFormSpectrumMacro& settings) {
            EXPECT_EQ(settings.parentWidget(), &form);
            EXPECT_TRUE(settings.IsOpenedFromLibrary());
            EXPECT_TRUE(settings.IsEditable());
            EXPECT_STREQ(settings.GetMacroFolder(), form.GetMacroFolder());
            EXPECT_EQ(settings.GetSamplingRate(), 200U);
            EXPECT_EQ(FormUser(settings).NumberOf("udOverlap"), 10);
            FormUser(settings).SetsNumber("udOverlap", 40);
            FormUser(settings).Clicks("BitBtnSaveAs");
        })
        .Enters("Beta");
    Hand().Clicks("BitBtnNew");
    EXPECT_EQ(Hand().RowsOf("ListBoxMacro"), QStringList({"Alpha", "Beta"}));
    EXPECT_EQ(Hand().SelectedRowsOf("ListBoxMacro"), QStringList({"Alpha"}));
    EXPECT_TRUE(Hand().IsEnabled("BitBtnEdit"));
    SpectraMacro saved;
    EXPECT_EQ(saved.Load(PathOf("Beta")), 0);
    EXPECT_EQ(saved.GetOverlapPerc(), 40U);
    EXPECT_EQ(macro_.GetOverlapPerc(), 40U);
}

TEST_F(MacroLibrary, SelectsTheSameRowNumberAgainWithoutLoadingIt) {
    Save("Beta", 20);
    Open();
    Hand().SelectsRow("ListBoxMacro", 0);
    user_
        .Meets<TFormSpectrumMacro>(
            [](TFormSpectrumMacro& settings) { FormUser(settings).Clicks("BitBtnSaveAs"); })
        .Enters("Alpha");
    Hand().Clicks("BitBtnNew");
    EXPECT_EQ(Hand().SelectedRowsOf("ListBoxMacro"), QStringList({"Alpha"}));
    EXPECT_EQ(Form().GetCaption(), "Spectra Manager ( Beta )");
}

TEST_F(MacroLibrary, ListsAgainOnlyWhenTheSettingsFormEndedWithOk) {
    Open();
    user_.Meets<TFormSpectrumMacro>([this](TFormSpectrumMacro& settings) {
        Save("Alpha", 10);
        settings.reject();
    });
    Hand().Clicks("BitBtnNew");
    EXPECT_EQ(Hand().RowsOf("ListBoxMacro"), QStringList());
}

TEST_F(MacroLibrary, NeverListsAMacroWithoutAName) {
    Open();
    user_
        .Meets<TFormSpectrumMacro>(
            [](TFormSpectrumMacro& settings) { FormUser(settings).Clicks("BitBtnSaveAs"); })
        .Enters("");
    Hand().Clicks("BitBtnNew");
    EXPECT_TRUE(Exists(""));
    EXPECT_EQ(Hand().RowsOf("ListBoxMacro"), QStringList());
}

TEST_F(MacroLibrary, EditsTheFileOfTheSelectedRow) {
    Save("Alpha", 10);
    TFormMacroSpectra& form = Open();
    Hand().SelectsRow("ListBoxMacro", 0);
    Save("Alpha", 15);
    user_.Meets<TFormSpectrumMacro>([&form](TFormSpectrumMacro& settings) {
        EXPECT_EQ(settings.parentWidget(), &form);
        EXPECT_FALSE(settings.IsOpenedFromLibrary());
        EXPECT_TRUE(settings.IsEditable());
        EXPECT_STREQ(settings.GetMacroFolder(), form.GetMacroFolder());
        EXPECT_EQ(settings.GetSamplingRate(), 200U);
        EXPECT_EQ(form.GetCaption(), "Average Manager ( Alpha )");
        EXPECT_EQ(FormUser(settings).NumberOf("udOverlap"), 15);
        FormUser(settings).SetsNumber("udOverlap", 60);
        FormUser(settings).Clicks("BitBtnCompute");
    });
    Hand().Clicks("BitBtnEdit");
    SpectraMacro saved;
    EXPECT_EQ(saved.Load(PathOf("Alpha")), 0);
    EXPECT_EQ(saved.GetOverlapPerc(), 60U);
    EXPECT_EQ(form.GetCaption(), "Average Manager ( Alpha )");
    EXPECT_EQ(Hand().SelectedRowsOf("ListBoxMacro"), QStringList({"Alpha"}));
    EXPECT_EQ(Hand().TextOf("Memo1").toStdString(), DescriptionOf(saved));
}

TEST_F(MacroLibrary, EditsTheSettingsAtHandWithoutAWordWhenTheFileCannotBeRead) {
    Save("Alpha", 10);
    Open();
    Hand().SelectsRow("ListBoxMacro", 0);
    Write("Alpha", kBroken);
    user_.Meets<TFormSpectrumMacro>([](TFormSpectrumMacro& settings) {
        EXPECT_EQ(FormUser(settings).NumberOf("udOverlap"), 10);
        settings.reject();
    });
    Hand().Clicks("BitBtnEdit");
    EXPECT_THAT(user_.Messages(), IsEmpty());
}

TEST_F(MacroLibrary, LoadsAgainWhenTheEditedRowIsClicked) {
    Save("Alpha", 10);
    TFormMacroSpectra& form = Open();
    Hand().SelectsRow("ListBoxMacro", 0);
    user_.Meets<TFormSpectrumMacro>([](TFormSpectrumMacro& settings) { settings.reject(); });
    Hand().Clicks("BitBtnEdit");
    Hand().SelectsRow("ListBoxMacro", 0);
    EXPECT_EQ(form.GetCaption(), "Spectra Manager ( Alpha )");
}

TEST_F(MacroLibrary, ErasesTheSelectedMacroAfterYes) {
    Save("Alpha", 10);
    Save("Beta", 20);
    Open();
    Hand().SelectsRow("ListBoxMacro", 0);
    user_.AnswersMessage(owl::kIdYes);
    Hand().Clicks("BitBtnErase");
    EXPECT_THAT(user_.Messages(),
                ElementsAre(Box("Are you sure to delete the file:\nAlpha?", "Warning", 52)));
    EXPECT_FALSE(Exists("Alpha"));
    EXPECT_EQ(Hand().RowsOf("ListBoxMacro"), QStringList({"Beta"}));
    EXPECT_EQ(Hand().SelectedRowsOf("ListBoxMacro"), QStringList({"Beta"}));
    EXPECT_TRUE(Hand().IsEnabled("BitBtnEdit"));
    EXPECT_EQ(Hand().TextOf("Memo1"), "");
    EXPECT_EQ(macro_.GetOverlapPerc(), 10U);
}

TEST_F(MacroLibrary, ErasesNothingAfterNo) {
    Save("Alpha", 10);
    Open();
    Hand().SelectsRow("ListBoxMacro", 0);
    const QString description = Hand().TextOf("Memo1");
    user_.AnswersMessage(owl::kIdNo);
    Hand().Clicks("BitBtnErase");
    EXPECT_TRUE(Exists("Alpha"));
    EXPECT_EQ(Hand().TextOf("Memo1"), description);
}

TEST_F(MacroLibrary, LeavesNoRowSelectedAndEditDisabledWhenTheLastRowIsErased) {
    Save("Alpha", 10);
    Save("Beta", 20);
    Open();
    Hand().SelectsRow("ListBoxMacro", 1);
    user_.AnswersMessage(owl::kIdYes);
    Hand().Clicks("BitBtnErase");
    EXPECT_EQ(Hand().RowsOf("ListBoxMacro"), QStringList({"Alpha"}));
    EXPECT_EQ(Hand().SelectedRowsOf("ListBoxMacro"), QStringList());
    EXPECT_FALSE(Hand().IsEnabled("BitBtnEdit"));
    EXPECT_EQ(Hand().TextOf("Memo1"), "");
}

TEST_F(MacroLibrary, ErasesOnTheDeleteKey) {
    Save("Alpha", 10);
    TFormMacroSpectra& form = Open();
    Hand().SelectsRow("ListBoxMacro", 0);
    user_.AnswersMessage(owl::kIdYes);
    QTest::keyClick(ListOf(form), Qt::Key_Delete);
    EXPECT_FALSE(Exists("Alpha"));
}

TEST_F(MacroLibrary, ErasesNothingWithoutASelectedRow) {
    Save("Alpha", 10);
    Open();
    Hand().Clicks("BitBtnErase");
    EXPECT_TRUE(Exists("Alpha"));
    EXPECT_THAT(user_.Messages(), IsEmpty());
}

TEST_F(MacroLibrary, NeverTakesACutPathForThatOfAnotherMacro) {
    // given a path of 259 characters, and one that begins with it
    constexpr std::size_t kLongest = 259;
    const std::string whole(kLongest - PathOf("").size(), 'x');
    const std::string longer = whole + ".smx";
    Save(whole, 10);
    std::filesystem::copy_file(PathOf(whole), PathOf(longer));
    Open();
    ASSERT_THAT(Hand().RowsOf("ListBoxMacro"), ElementsAre(QString(whole.c_str()), QString(longer.c_str())));
    // when the user looks at the longer one, edits and erases it
    user_.AnswersMessage(owl::kIdOk);
    Hand().SelectsRow("ListBoxMacro", 1);
    EXPECT_THAT(Hand().TextOf("Memo1").toStdString(), EndsWith("\n\nFile name too long"));
    user_.Meets<TFormSpectrumMacro>([](TFormSpectrumMacro& settings) {
        FormUser(settings).SetsNumber("udOverlap", 25);
        FormUser(settings).Clicks("BitBtnCompute");
    });
    Hand().Clicks("BitBtnEdit");
    user_.AnswersMessage(owl::kIdYes);
    Hand().Clicks("BitBtnErase");
    // then the other one is as it was
    SpectraMacro other;
    EXPECT_EQ(other.Load(PathOf(whole)), 0);
    EXPECT_EQ(other.GetOverlapPerc(), 10U);
}

TEST_F(MacroLibrary, ErasesWhatItAskedAbout) {
    Save("Alpha", 10);
    Save("Beta", 20);
    auto* list = Open().findChild<QListWidget*>("ListBoxMacro");
    Hand().SelectsRow("ListBoxMacro", 0);
    user_.AnswersMessage(owl::kIdYes, [list] { list->setCurrentRow(1); });
    Hand().Clicks("BitBtnErase");
    EXPECT_FALSE(Exists("Alpha"));
    EXPECT_TRUE(Exists("Beta"));
}

TEST_F(MacroLibrary, IsSilentWhenErasingFails) {
    Save("Alpha", 10);
    Disk disk;
    disk.Lists({"Alpha.smx"});
    Open();
    Hand().SelectsRow("ListBoxMacro", 0);
    user_.AnswersMessage(owl::kIdYes);
    Hand().Clicks("BitBtnErase");
    EXPECT_THAT(disk.Removed(), ElementsAre(PathOf("Alpha")));
    EXPECT_THAT(user_.Messages(), SizeIs(1));
    EXPECT_EQ(Hand().RowsOf("ListBoxMacro"), QStringList({"Alpha"}));
    EXPECT_EQ(Hand().TextOf("Memo1"), "");
}

TEST_F(MacroLibrary, AsksInAtMost255Characters) {
    const std::string name(251, 'n');
    Disk disk;
    disk.Lists({name + ".smx"});
    Open();
    user_.AnswersMessage(owl::kIdOk);
    Hand().SelectsRow("ListBoxMacro", 0); // the path is cut too, and there is no such file
    user_.AnswersMessage(owl::kIdNo);
    Hand().Clicks("BitBtnErase");
    EXPECT_EQ(user_.Messages().at(1).text, "Are you sure to delete the file:\n" + std::string(222, 'n'));
}

} // namespace
