// SPDX-License-Identifier: GPL-3.0-or-later
// The message files as they are shipped.
#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

namespace orvanta::test {

/// Texts of one language by "SECTION/KEY". A file that is no INI file, or a text that is no single text,
/// fails the test.
QMap<QString, QString> ShippedTexts(const QString& language);

/// The languages that are shipped, English among them.
QStringList ShippedLanguages();

/// The letter or digit behind the mnemonic's mark, upper case; empty without a mnemonic.
QString MnemonicOf(const QString& caption);

/// The text without the mark of its mnemonic.
QString WithoutMnemonic(const QString& caption);

/// A text that is the same in every language and needs no key: a unit or a sign.
bool IsSymbol(const QString& text);

} // namespace orvanta::test
