// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/starter_macros.h"

#include <QDir>
#include <QLoggingCategory>

namespace orvanta::review {

void InstallStarterMacros(const std::string& folder) {
    const QDir target(QString::fromStdString(folder));
    if (target.exists()) {
        return;
    }
    bool copied = target.mkpath(".");
    const QDir macros(":/macros");
    for (const QString& name : macros.entryList(QDir::Files)) {
        const QString file = target.filePath(name);
        copied = copied && QFile::copy(macros.filePath(name), file) &&
                 QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup |
                                                 QFile::ReadOther);
    }
    if (!copied) {
        qInfo("%s: the program's macros could not be copied there", folder.c_str());
    }
}

} // namespace orvanta::review
