// SPDX-License-Identifier: GPL-3.0-or-later
// Message files as they come from editors and translators.
#include "host/toolkit/message_module.h"
#include "tests/support/qt/kept_log.h"
#include "tests/support/temp_folder.h"

#include <QLocale>
#include <gtest/gtest.h>

#include <string>

namespace {

using namespace std::string_literals;

class MessageFile : public testing::Test {
protected:
    MessageFile() { QLocale::setDefault(QLocale("de_DE")); }
    ~MessageFile() override { QLocale::setDefault(QLocale::system()); }

    PModule ModuleWith(const std::string& german) {
        folder_.Write("messages/Orvanta.de.ini", german);
        return PModule("Orvanta", nullptr, folder_.Path("messages"));
    }

    orvanta::test::TempFolder folder_;
};

TEST_F(MessageFile, MayBeginWithAByteOrderMark) {
    EXPECT_EQ(ModuleWith("\xEF\xBB\xBF[M]\na=\"Größe\"\n").GetMsg2("M", "a"), "Größe");
}

TEST_F(MessageFile, MayHaveLineEndsOfOtherSystems) {
    const PModule module = ModuleWith("; Deutsch\r\n[M]\r\na=\"eins\"\r\n\r\nb=\"zwei\"\r\n");
    EXPECT_EQ(module.GetMsg2("M", "a"), "eins");
    EXPECT_EQ(module.GetMsg2("M", "b"), "zwei");
}

TEST_F(MessageFile, MayEndWithoutALineEnd) {
    EXPECT_EQ(ModuleWith("[M]\na=\"eins\"").GetMsg2("M", "a"), "eins");
}

TEST_F(MessageFile, KeepsWhatStandsInQuotes) {
    const PModule module = ModuleWith("[M]\na=\" Löschen, \\\"%s\\\"; wirklich?\\n100 % && mehr \"\n");
    EXPECT_EQ(module.GetMsg2("M", "a"), " Löschen, \"%s\"; wirklich?\n100 % && mehr ");
}

TEST_F(MessageFile, ThatIsBrokenGivesItsOtherTextsAndAWarningWithItsName) {
    const PModule module = ModuleWith("[M\na=\"eins\"\n[N]\nb=\"zwei\"\n");
    const orvanta::test::KeptLog log;
    EXPECT_EQ(module.GetMsg2("N", "b"), "zwei");
    EXPECT_NE(log.Last().find(folder_.Path("messages/Orvanta.de.ini")), std::string::npos) << log.Last();
}

TEST_F(MessageFile, ThatIsAFolderGivesNoTexts) {
    folder_.Write("messages/Orvanta.de.ini/file", "");
    folder_.Write("messages/Orvanta.en.ini", "[M]\na=\"one\"\n");
    const PModule module("Orvanta", nullptr, folder_.Path("messages"));
    const orvanta::test::KeptLog log;
    EXPECT_EQ(module.GetMsg2("M", "a"), "one");
}

TEST_F(MessageFile, OfBytesThatAreNoTextHarmsNothing) {
    const std::string bytes = "[M]\na=\"\xFF\xFE\"\n[\0\x01\n=\n;\n"s;
    const PModule module = ModuleWith(bytes + std::string(100000, '['));
    const orvanta::test::KeptLog log;
    EXPECT_EQ(module.GetMsg2("M", "b"), "");
}

} // namespace
