// SPDX-License-Identifier: GPL-3.0-or-later
// The texts in a form's Designer file.
#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

namespace orvanta::test {

struct DesignerTexts {
    QString section;              ///< name of the form: its section in the message store
    QMap<QString, QString> texts; ///< by the key in the section
    QStringList unnamed;          ///< texts of controls that have no name, so that they cannot be translated
    QStringList buddies;          ///< labels with a mnemonic that have no buddy to hand it to
};

/// Reads captions, titles, tool tips, column heads and items. A file that is no form fails the test.
DesignerTexts ReadDesignerTexts(const QString& path);

/// The Designer files of the dialogs and forms.
QStringList DesignerFiles();

} // namespace orvanta::test
