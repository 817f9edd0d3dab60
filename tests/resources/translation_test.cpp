// SPDX-License-Identifier: GPL-3.0-or-later
// What a module answers from the texts that are compiled in.
#include "host/toolkit/message_module.h"
#include "tests/support/temp_folder.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QLibraryInfo>
#include <QLocale>
#include <QPushButton>
#include <QTranslator>
#include <gtest/gtest.h>

namespace {

class ShippedModule : public testing::Test {
protected:
    ~ShippedModule() override { QLocale::setDefault(QLocale::system()); }
    PModule ModuleIn(const char* locale) const {
        QLocale::setDefault(QLocale(locale));
        return PModule("Orvanta", nullptr, folder_.Path("messages"));
    }

    orvanta::test::TempFolder folder_;
};

TEST_F(ShippedModule, SpeaksGermanInAGermanLocale) {
    const PModule module = ModuleIn("de_CH");
    EXPECT_EQ(module.GetMsg2("MENU", "CM_SPE_MEAN"), "&Mittelwert");
    EXPECT_EQ(module.GetMsg2("DIALOG", "IDDFB_GB_FREQUENCYBANDS"), "&Frequenzbänder");
}

TEST_F(ShippedModule, SpeaksEnglishWhereItHasNoTexts) {
    EXPECT_EQ(ModuleIn("fr_FR").GetMsg2("MENU", "CM_SPE_MEAN"), "&Mean");
}

TEST_F(ShippedModule, PrefersTheTextsOfTheFolder) {
    folder_.Write("messages/Orvanta.de.ini", "[MENU]\nCM_SPE_MEAN=\"Mittleres Spektrum\"\n");
    const PModule module = ModuleIn("de_DE");
    EXPECT_EQ(module.GetMsg2("MENU", "CM_SPE_MEAN"), "Mittleres Spektrum");
    EXPECT_EQ(module.GetMsg2("MENU", "CM_SPE_SET_POW"), "Leistung");
}

TEST_F(ShippedModule, TakesALanguageThatIsAddedToTheFolder) {
    folder_.Write("messages/Orvanta.fr.ini", "[MENU]\nCM_SPE_MEAN=\"&Moyenne\"\n");
    const PModule module = ModuleIn("fr_FR");
    EXPECT_EQ(module.GetMsg2("MENU", "CM_SPE_MEAN"), "&Moyenne");
    EXPECT_EQ(module.GetMsg2("MENU", "CM_SPE_SET_POW"), "Power");
}

// Qt's own texts are not ours; a program installs them with its locale.
TEST(QtTexts, AreThereInGerman) {
    QTranslator translator;
    ASSERT_TRUE(
        translator.load(QLocale("de_DE"), "qtbase", "_", QLibraryInfo::path(QLibraryInfo::TranslationsPath)));
    ASSERT_TRUE(QApplication::installTranslator(&translator));
    const auto captionOf = [](QDialogButtonBox::StandardButton button) {
        const QDialogButtonBox box(button);
        return box.button(button)->text().remove('&').toStdString();
    };
    EXPECT_EQ(captionOf(QDialogButtonBox::Ok), "OK");
    EXPECT_EQ(captionOf(QDialogButtonBox::Cancel), "Abbrechen");
    EXPECT_EQ(captionOf(QDialogButtonBox::Close), "Schließen");
    EXPECT_EQ(captionOf(QDialogButtonBox::Yes), "Ja");
    EXPECT_EQ(captionOf(QDialogButtonBox::No), "Nein");
    QApplication::removeTranslator(&translator);
}

} // namespace
