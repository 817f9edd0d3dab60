// SPDX-License-Identifier: GPL-3.0-or-later
#include "side_bar/macro_refusal.h"

#include "host/toolkit/message_module.h"
#include "spectra_contract/spectra_macro.h"
#include "tests/support/temp_folder.h"

#include <QLocale>
#include <gtest/gtest.h>

namespace {

using orvanta::side_bar::MacroRefusal;

/// What a user who reads German, with texts of the test, is told of a macro's file, behind its path.
class GermanMacroRefusal : public testing::Test {
protected:
    GermanMacroRefusal() {
        QLocale::setDefault(QLocale("de_DE"));
        folder.Write("messages/Orvanta.de.ini",
                     "[REASONS]\nmissing=ist nicht da\ncheckName=Name?\nnoMacro=ist kein Makro\n"
                     "chooseSmx=\"wählen Sie .smx\"\nline=\"Zeile %s: %s\"\nnoVersion=ohne Version\n"
                     "restore=neu anlegen\nnewer=\"Version %s statt %s\"\nupdate=aktualisieren\n");
    }
    ~GermanMacroRefusal() override { QLocale::setDefault(QLocale::system()); }

    std::string Of(const std::string& content) const {
        folder.Write("own.smx", content);
        return OfFile("own.smx");
    }
    std::string OfFile(const std::string& name) const {
        const std::string path = folder.Path(name);
        SpectraMacro macro;
        macro.Load(path);
        const std::string text = MacroRefusal(macro.GetLastError(), path);
        return text.starts_with(path + ": ") ? text.substr(path.size() + 2) : text;
    }

    orvanta::test::TempFolder folder;
    PModule texts{"Orvanta", nullptr, folder.Path("messages")};
};

TEST_F(GermanMacroRefusal, TellsTheReasonAndWhatToDo) {
    EXPECT_EQ(OfFile("none.smx"), "ist nicht da (Name?)");
    EXPECT_EQ(Of("<other/>"), "ist kein Makro (wählen Sie .smx)");
}

TEST_F(GermanMacroRefusal, TellsTheLine) {
    EXPECT_EQ(Of("<spectra_macro/>"), "Zeile 1: ohne Version (neu anlegen)");
    EXPECT_EQ(Of("\n<spectra_macro version=\"9\"/>"), "Zeile 2: Version 9 statt 1 (aktualisieren)");
}

TEST_F(GermanMacroRefusal, KeepsWhatIsNoRefusal) {
    EXPECT_EQ(MacroRefusal("the settings have no file yet (save them under a name)", "own.smx"),
              "the settings have no file yet (save them under a name)");
    EXPECT_EQ(MacroRefusal("", "own.smx"), "");
}

TEST(MacroRefusal, IsInEnglishWithoutAModule) {
    EXPECT_EQ(MacroRefusal("own.smx: no macro file (choose a file with the extension .smx)", "own.smx"),
              "own.smx: no macro file (choose a file with the extension .smx)");
}

} // namespace
