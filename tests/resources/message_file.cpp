// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/resources/message_file.h"

#include <QDir>
#include <QSettings>
#include <gtest/gtest.h>

namespace orvanta::test {

QMap<QString, QString> ShippedTexts(const QString& language) {
    const QSettings file(":/messages/Orvanta." + language + ".ini", QSettings::IniFormat);
    EXPECT_EQ(file.status(), QSettings::NoError) << language.toStdString();
    QMap<QString, QString> texts;
    for (const QString& key : file.allKeys()) {
        const QVariant text = file.value(key);
        EXPECT_EQ(text.typeId(), QMetaType::QString) << language.toStdString() << ": " << key.toStdString();
        texts[key] = text.toString();
    }
    return texts;
}

QStringList ShippedLanguages() {
    QStringList languages;
    for (const QString& name : QDir(":/messages").entryList({"Orvanta.*.ini"})) {
        languages << name.section('.', 1, 1);
    }
    return languages;
}

QString MnemonicOf(const QString& caption) {
    QString text = caption;
    text.replace("&&", " ");
    const qsizetype mark = text.indexOf('&');
    return mark < 0 ? QString() : text.mid(mark + 1, 1).toUpper();
}

QString WithoutMnemonic(const QString& caption) {
    QString text = caption;
    text.replace("&&", QChar(0x1));
    text.remove('&');
    return text.replace(QChar(0x1), "&");
}

bool IsSymbol(const QString& text) {
    return text == "Hz" || text == "-";
}

} // namespace orvanta::test
