// SPDX-License-Identifier: GPL-3.0-or-later
// Every shipped language against English.
#include "tests/resources/message_file.h"

#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using orvanta::test::MnemonicOf;
using orvanta::test::ShippedLanguages;
using orvanta::test::ShippedTexts;

/// Sections whose texts are seen at the same time, so that a mnemonic stands for one thing.
QString ShownTogether(const QString& key) {
    const QString section = key.section('/', 0, 0);
    if (section == "HOST") { // the application's menus and boxes, named by the first word of the key
        static const QRegularExpression word("^[a-z]+");
        return section + word.match(key.section('/', 1)).captured();
    }
    return section == "MENU" ? section + key.section('/', 1).section('_', 1, 1) : section;
}

QStringList Placeholders(const QString& text) {
    static const QRegularExpression placeholder("%(?:\\.\\*|[-+ 0]*\\d*(?:\\.\\d+)?)?[a-zA-Z]|\\n|\\t");
    QStringList found;
    for (auto matches = placeholder.globalMatch(text); matches.hasNext();) {
        found << matches.next().captured();
    }
    return found;
}

TEST(Messages, AreShippedInEnglishAndGerman) {
    EXPECT_THAT(ShippedLanguages(), testing::IsSupersetOf({QString("de"), QString("en")}));
}

class Language : public testing::TestWithParam<const char*> {
protected:
    QMap<QString, QString> english_ = ShippedTexts("en");
    QMap<QString, QString> texts_ = ShippedTexts(GetParam());
};

TEST_P(Language, HasExactlyTheKeysOfEnglish) {
    const QSet<QString> english(english_.keyBegin(), english_.keyEnd());
    const QSet<QString> keys(texts_.keyBegin(), texts_.keyEnd());
    EXPECT_EQ(QStringList((english - keys).values()).join(' ').toStdString(), "") << "missing";
    EXPECT_EQ(QStringList((keys - english).values()).join(' ').toStdString(), "") << "not English";
    EXPECT_GT(keys.size(), 150);
}

TEST_P(Language, HasNoEmptyText) {
    for (auto text = texts_.begin(); text != texts_.end(); ++text) {
        EXPECT_FALSE(text.value().trimmed().isEmpty()) << text.key().toStdString();
    }
}

TEST_P(Language, KeepsThePlaceholdersInTheirOrder) {
    for (auto text = texts_.begin(); text != texts_.end(); ++text) {
        EXPECT_EQ(Placeholders(text.value()).join(',').toStdString(),
                  Placeholders(english_[text.key()]).join(',').toStdString())
            << text.key().toStdString();
    }
}

TEST_P(Language, WritesEveryTextInQuotesAndEveryKeyOnce) {
    QFile file(QString(":/messages/Orvanta.%1.ini").arg(GetParam()));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    static const QRegularExpression line(
        R"(^$|^;.*|^\[[A-Za-z_0-9]+\]$|^[A-Za-z0-9_.]+="(?:[^"\\]|\\["\\nt])*"$)");
    QSet<QString> keys;
    QString section;
    const QStringList lines = QString::fromUtf8(file.readAll()).split('\n');
    for (qsizetype i = 0; i < lines.size(); ++i) {
        EXPECT_TRUE(line.match(lines[i]).hasMatch()) << "line " << i + 1 << ": " << lines[i].toStdString();
        if (lines[i].startsWith('[')) {
            section = lines[i];
        } else if (!lines[i].isEmpty() && !lines[i].startsWith(';')) {
            const QString key = section + lines[i].section('=', 0, 0);
            EXPECT_FALSE(keys.contains(key)) << key.toStdString() << " is there twice";
            keys << key;
        }
    }
    EXPECT_EQ(keys.size(), texts_.size());
}

/// Titles in the menu bar of the application, where one of the last three stands at a time.
bool IsMenuTitle(const QString& key) {
    return key.startsWith("HOST/menu") || key == "HOST/spectrumMenu" || key == "HOST/mapsMenu" ||
           key == "HOST/tracesMenu";
}

TEST_P(Language, LeavesTheMnemonicsOfTheMenuBarToIt) {
    QMap<QString, QString> menus;
    for (auto text = texts_.begin(); text != texts_.end(); ++text) {
        if (IsMenuTitle(text.key())) {
            menus[MnemonicOf(text.value())] = text.value();
        }
    }
    EXPECT_GE(menus.size(), 8);
    for (const char* panel : {"TFormListenerSpectra1/", "TFormListenerSpectraBCI/"}) {
        for (auto text = texts_.begin(); text != texts_.end(); ++text) {
            const QString mnemonic = MnemonicOf(text.value());
            if (text.key().startsWith(panel) && !mnemonic.isEmpty()) {
                EXPECT_EQ(menus.value(mnemonic).toStdString(), "") << text.value().toStdString();
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Shipped, Language, testing::Values("en", "de"));

// The English menus keep the mnemonics they have always had, two of which are there twice.
TEST(GermanMnemonics, AreUniqueAmongWhatIsSeenTogether) {
    const QMap<QString, QString> texts = ShippedTexts("de");
    QMap<QString, QString> owners;
    for (auto text = texts.begin(); text != texts.end(); ++text) {
        const QString mnemonic = MnemonicOf(text.value());
        if (mnemonic.isEmpty()) {
            continue;
        }
        EXPECT_TRUE(mnemonic.front().isLetterOrNumber()) << text.key().toStdString();
        QString& owner = owners[ShownTogether(text.key()) + '&' + mnemonic];
        EXPECT_EQ(owner.toStdString(), "") << "has the mnemonic of " << text.key().toStdString();
        owner = text.key();
    }
}

TEST(GermanTexts, AreTranslated) {
    // The same word in both languages.
    const QStringList same = {"Amplitude", "Hz", "Band", "s",       "OK",  "BCI",   "Sensor", "R",
                              "K",         "M",  "Name", "Montage", "Abs", "Phase", "Rel",    "SEF95"};
    const QMap<QString, QString> english = ShippedTexts("en");
    const QMap<QString, QString> german = ShippedTexts("de");
    for (auto text = german.begin(); text != german.end(); ++text) {
        if (!same.contains(orvanta::test::WithoutMnemonic(text.value()))) {
            EXPECT_NE(text.value().toStdString(), english[text.key()].toStdString())
                << text.key().toStdString();
        }
    }
}

} // namespace
