// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/message_module.h"
#include "tests/support/temp_folder.h"

#include <QLocale>
#include <gtest/gtest.h>

namespace {

class PModuleTest : public testing::Test {
protected:
    PModuleTest() { QLocale::setDefault(QLocale("de_AT")); }
    ~PModuleTest() override {
        QLocale::setDefault(QLocale::system());
        PModule::SetHostStrings({});
        PModule::PreferLanguage({});
    }
    PModule Module() { return PModule("Orvanta", nullptr, folder_.Path("messages")); }

    orvanta::test::TempFolder folder_;
};

TEST_F(PModuleTest, AnswersNothingWithoutATextStore) {
    const PModule module = Module();
    EXPECT_EQ(module.GetMsg2("MENU", "CM_SPE_MEAN"), "");
    EXPECT_EQ(module.LoadString(7521), "");
}

TEST_F(PModuleTest, FindsATextBySectionAndKey) {
    folder_.Write("messages/Orvanta.de.ini",
                  "[MENU]\nCM_SPE_MEAN=&Mittelwert\n[Spectrum]\nTimeInterval=Zeit: %s\n");
    const PModule module = Module();
    EXPECT_EQ(module.GetMsg2("MENU", "CM_SPE_MEAN"), "&Mittelwert");
    EXPECT_EQ(module.GetMsg2("Spectrum", "TimeInterval"), "Zeit: %s");
    EXPECT_EQ(module.GetMsg2("Spectrum", "CM_SPE_MEAN"), "");
    EXPECT_EQ(module.GetMsg2("MENU", "absent"), "");
}

TEST_F(PModuleTest, PrefersTheUsersLanguageThenEnglish) {
    folder_.Write("messages/Orvanta.de-AT.ini", "[M]\na=a in de-AT\n");
    folder_.Write("messages/Orvanta.de.ini", "[M]\na=a in de\nb=b in de\n");
    folder_.Write("messages/Orvanta.en.ini", "[M]\na=a in en\nb=b in en\nc=c in en\n");
    folder_.Write("messages/Orvanta.fr.ini", "[M]\nd=d in fr\n");
    const PModule module = Module();
    EXPECT_EQ(module.GetMsg2("M", "a"), "a in de-AT");
    EXPECT_EQ(module.GetMsg2("M", "b"), "b in de");
    EXPECT_EQ(module.GetMsg2("M", "c"), "c in en");
    EXPECT_EQ(module.GetMsg2("M", "d"), "");
}

TEST_F(PModuleTest, TakesTextsOfThePreferredLanguageFirst) {
    folder_.Write("messages/Orvanta.de.ini", "[M]\na=a in de\nb=b in de\nc=c in de\n");
    folder_.Write("messages/Orvanta.fr.ini", "[M]\na=a in fr\nb=b in fr\n");
    folder_.Write("messages/Orvanta.fr-CA.ini", "[M]\na=a in fr-CA\n");
    PModule::PreferLanguage("fr-CA");
    const PModule module = Module();
    EXPECT_EQ(module.GetMsg2("M", "a"), "a in fr-CA");
    EXPECT_EQ(module.GetMsg2("M", "b"), "b in fr");
    EXPECT_EQ(module.GetMsg2("M", "c"), "c in de");
}

TEST_F(PModuleTest, KnowsTheLanguagesThatThereAreTextsIn) {
    for (const char* file : {"Orvanta.fr-CA.ini", "Orvanta.de.ini", "Other.it.ini", "Orvanta.en.txt"}) {
        folder_.Write(std::string("messages/") + file, "");
    }
    EXPECT_EQ(Module().Languages(), (std::vector<std::string>{"de", "fr-CA"}));
}

TEST_F(PModuleTest, TakesTextsAsTheyAreWritten) {
    folder_.Write(
        "messages/Orvanta.en.ini",
        "[M]\ncomma=one, two\nquoted=\"one;two,  three\"\nescaped=Redo\\tCtrl+R\nnon_ascii=Größe µV²/Hz\n");
    const PModule module = Module();
    EXPECT_EQ(module.GetMsg2("M", "comma"), "one, two");
    EXPECT_EQ(module.GetMsg2("M", "quoted"), "one;two,  three");
    EXPECT_EQ(module.GetMsg2("M", "escaped"), "Redo\tCtrl+R");
    EXPECT_EQ(module.GetMsg2("M", "non_ascii"), "Größe µV²/Hz");
}

TEST_F(PModuleTest, ReadsOnlyTheFilesOfItsName) {
    folder_.Write("messages/Other.en.ini", "[M]\na=other\n");
    EXPECT_EQ(Module().GetMsg2("M", "a"), "");
}

TEST_F(PModuleTest, TakesNumberedTextsOfTheHostWhenItHasNone) {
    folder_.Write("messages/Orvanta.en.ini", "[STRINGS]\n7521=mine\n");
    PModule::SetHostStrings({{7521, "the host's"}, {7522, "No measure is selected."}});
    const PModule module = Module();
    EXPECT_EQ(module.LoadString(7521), "mine");
    EXPECT_EQ(module.LoadString(7522), "No measure is selected.");
    EXPECT_EQ(module.LoadString(7523), "");
}

TEST_F(PModuleTest, IsARegisteredModule) {
    const PModule module("Orvanta", this);
    ASSERT_EQ(owl::RegisteredModules().size(), 1U);
    EXPECT_EQ(owl::RegisteredModules().front()->GetName(), "Orvanta");
    EXPECT_EQ(owl::RegisteredModules().front()->GetInstance(), this);
}

TEST_F(PModuleTest, IsFoundByItsNameWhileItLives) {
    EXPECT_EQ(PModule::Named("Orvanta"), nullptr);
    const owl::TModule plain("Orvanta", nullptr, true);
    EXPECT_EQ(PModule::Named("Orvanta"), nullptr) << "a module without texts";
    {
        const PModule other("Other", nullptr);
        const PModule module("Orvanta", nullptr);
        const PModule second("Orvanta", nullptr);
        EXPECT_EQ(PModule::Named("Orvanta"), &module) << "the first of its name";
        EXPECT_EQ(PModule::Named("Other"), &other);
        EXPECT_EQ(PModule::Named("orvanta"), nullptr);
    }
    EXPECT_EQ(PModule::Named("Orvanta"), nullptr);
}

} // namespace
