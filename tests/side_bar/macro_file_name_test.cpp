// SPDX-License-Identifier: GPL-3.0-or-later
#include "side_bar/macro_file_name.h"

#include "tests/side_bar/disk.h"
#include "tests/support/qt/scripted_user.h"

#include <QWidget>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cerrno>

namespace {

using orvanta::test::Disk;
using orvanta::test::ScriptedUser;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

class MacroFileName : public testing::Test {
protected:
    int Ask(const char* folder = "/m/", const char* extension = ".smx") {
        return GetMacroFileName(HWND(&parent_), "Save As", "Name:", "Alpha", folder, extension,
                                buffer_.data(), static_cast<int>(buffer_.size()));
    }
    ScriptedUser::Message Box(const char* text, const char* title, unsigned type) {
        return {HWND(&parent_), text, title, type};
    }

    QWidget parent_;
    std::array<char, 260> buffer_{};
    Disk disk_;
    ScriptedUser user_;
};

TEST_F(MacroFileName, IsAskedForWithTheDefaultNameAndALimitOf255) {
    user_.Enters("Beta");
    EXPECT_EQ(Ask(), 0);
    EXPECT_THAT(user_.TextQuestions(), ElementsAre(owl::TextQuestion{"Save As", "Name:", "Alpha", 255}));
    EXPECT_STREQ(buffer_.data(), "/m/Beta.smx");
    EXPECT_THAT(user_.Messages(), IsEmpty());
}

TEST_F(MacroFileName, IsMinus10WhenTheUserCancels) {
    user_.Enters(std::nullopt).AnswersMessage(owl::kIdOk);
    EXPECT_EQ(Ask(), -10);
    EXPECT_THAT(user_.Messages(), ElementsAre(Box("Macro file changes discarded", "Warning", 0)));
    EXPECT_STREQ(buffer_.data(), "");
    EXPECT_THAT(disk_.Asked(), IsEmpty());
}

TEST_F(MacroFileName, GetsADotBeforeAnExtensionWithoutOne) {
    user_.Enters("Beta").Enters("Beta");
    EXPECT_EQ(Ask("/m/", "smx"), 0);
    EXPECT_STREQ(buffer_.data(), "/m/Beta.smx");
    EXPECT_EQ(Ask("/m/", ""), 0);
    EXPECT_STREQ(buffer_.data(), "/m/Beta.");
}

TEST_F(MacroFileName, FollowsTheFolderAsItIs) {
    user_.Enters("Beta").Enters("Beta");
    EXPECT_EQ(Ask("/m"), 0);
    EXPECT_STREQ(buffer_.data(), "/mBeta.smx");
    EXPECT_EQ(Ask(""), 0);
    EXPECT_STREQ(buffer_.data(), "Beta.smx");
}

TEST_F(MacroFileName, MayBeEmptyAndIsThenTheExtensionAlone) {
    user_.Enters("");
    EXPECT_EQ(Ask(), 0);
    EXPECT_STREQ(buffer_.data(), "/m/.smx");
}

TEST_F(MacroFileName, IsRefusedByTheRuleWithTheSystemsLastErrorAsCode) {
    user_.Enters("a:b").AnswersMessage(owl::kIdOk);
    errno = 28;
    EXPECT_EQ(Ask(), -2000);
    EXPECT_THAT(user_.Messages(), ElementsAre(Box("Invalid file name: a:b.smx   (Error code: 1c)",
                                                  "IsValidFileName Error", 48)));
    EXPECT_THAT(disk_.Asked(), IsEmpty());
    EXPECT_STREQ(buffer_.data(), "");
}

TEST_F(MacroFileName, ShowsCodeZeroWhenNoSystemCallFailedYet) {
    user_.Enters("con").AnswersMessage(owl::kIdOk);
    errno = 0;
    EXPECT_EQ(Ask(), -2000);
    EXPECT_EQ(user_.Messages().at(0).text, "Invalid file name: con.smx   (Error code: 0)");
}

TEST_F(MacroFileName, IsCheckedTogetherWithItsExtension) {
    user_.Enters(std::string(251, 'a')).Enters(std::string(252, 'a')).AnswersMessage(owl::kIdOk);
    EXPECT_EQ(Ask(""), 0);
    EXPECT_EQ(Ask(""), -2000);
}

TEST_F(MacroFileName, IsTestedForWritingFirstThenForExistence) {
    user_.Enters("Beta");
    EXPECT_EQ(Ask(), 0);
    EXPECT_THAT(disk_.Asked(), ElementsAre(Pair("/m/Beta.smx", 2), Pair("/m/Beta.smx", 0)));
}

TEST_F(MacroFileName, IsMinus100WhenTheFileMayNotBeWritten) {
    disk_.Holds("/m/Beta.smx", EACCES);
    user_.Enters("Beta").AnswersMessage(owl::kIdOk);
    EXPECT_EQ(Ask(), -100);
    EXPECT_THAT(user_.Messages(), ElementsAre(Box("Permission denied", "Error", 48)));
    EXPECT_STREQ(buffer_.data(), "");
}

TEST_F(MacroFileName, IsTheErrorNumberLess1000ForEveryOtherError) {
    disk_.Holds("/m/Beta.smx", 30);
    user_.Enters("Beta").AnswersMessage(owl::kIdOk);
    EXPECT_EQ(Ask(), -970);
    EXPECT_THAT(user_.Messages(),
                ElementsAre(Box("The following error code was returned: 30 (1e)", "File Access Error", 48)));
    EXPECT_STREQ(buffer_.data(), "");
}

TEST_F(MacroFileName, OverwritesAfterTwoYes) {
    disk_.Holds("/m/Beta.smx");
    user_.Enters("Beta").AnswersMessage(owl::kIdYes).AnswersMessage(owl::kIdYes);
    EXPECT_EQ(Ask(), 0);
    EXPECT_THAT(
        user_.Messages(),
        ElementsAre(Box("A macro with this name already exists. Do you want to overwrite it?", "Warning", 52),
                    Box("This will erase the old macro. Proceed anyway?", "Warning", 52)));
    EXPECT_STREQ(buffer_.data(), "/m/Beta.smx");
}

TEST_F(MacroFileName, IsMinus110WhenTheFirstQuestionIsRefused) {
    disk_.Holds("/m/Beta.smx");
    user_.Enters("Beta").AnswersMessage(owl::kIdNo).AnswersMessage(owl::kIdOk);
    EXPECT_EQ(Ask(), -110);
    ASSERT_EQ(user_.Messages().size(), 2U);
    EXPECT_EQ(user_.Messages()[1], Box("Operation aborted", "Warning", 48));
    EXPECT_STREQ(buffer_.data(), "");
}

TEST_F(MacroFileName, IsMinus111WhenTheSecondQuestionIsRefused) {
    disk_.Holds("/m/Beta.smx");
    user_.Enters("Beta").AnswersMessage(owl::kIdYes).AnswersMessage(owl::kIdNo).AnswersMessage(owl::kIdOk);
    EXPECT_EQ(Ask(), -111);
    ASSERT_EQ(user_.Messages().size(), 3U);
    EXPECT_EQ(user_.Messages()[2], Box("Operation aborted", "Warning", 48));
    EXPECT_STREQ(buffer_.data(), "");
}

TEST_F(MacroFileName, TakesEveryAnswerButYesForNo) {
    disk_.Holds("/m/Beta.smx");
    user_.Enters("Beta").AnswersMessage(owl::kIdCancel).AnswersMessage(owl::kIdOk);
    EXPECT_EQ(Ask(), -110);
}

TEST_F(MacroFileName, MustFitTheBufferWithItsTerminator) {
    const std::string folder(248, 'f');
    user_.Enters("1234567").Enters("12345678").AnswersMessage(owl::kIdOk);
    EXPECT_EQ(Ask(folder.c_str()), 0); // 259 characters
    EXPECT_STREQ(buffer_.data(), (folder + "1234567.smx").c_str());
    EXPECT_EQ(Ask(folder.c_str()), -120);
    EXPECT_THAT(user_.Messages(), ElementsAre(Box("File name too long", "Error", 48)));
    EXPECT_STREQ(buffer_.data(), (folder + "1234567.smx").c_str());
}

TEST(MacroPath, IsMinus130WhenEmpty) {
    ScriptedUser user;
    user.AnswersMessage(owl::kIdOk);
    std::array<char, 4> buffer{'x'};
    EXPECT_EQ(CopyMacroPath(nullptr, "", buffer.data(), 4), -130);
    EXPECT_THAT(user.Messages(),
                ElementsAre(ScriptedUser::Message{nullptr, "File name too short", "Error", 48}));
    EXPECT_EQ(buffer[0], 'x');
}

TEST(MacroPath, IsMinus120WithoutABuffer) {
    ScriptedUser user;
    user.AnswersMessage(owl::kIdOk);
    EXPECT_EQ(CopyMacroPath(nullptr, "a", nullptr, 0), -120);
}

} // namespace
