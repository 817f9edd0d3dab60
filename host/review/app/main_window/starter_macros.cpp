// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/starter_macros.h"

#include "host/toolkit/form_texts.h"

#include <QDir>
#include <QLoggingCategory>

namespace orvanta::review {

namespace {

constexpr const char* kEnding = ".smx";

struct StarterMacro {
    const char* key;  ///< among the texts
    const char* name; ///< in English, which is that of its resource
};

constexpr StarterMacro kMacros[] = {
    StarterMacro{"restingClosed", "Resting eyes closed"},
    StarterMacro{"comparedClosed", "Eyes open vs closed - closed"},
    StarterMacro{"comparedOpen", "Eyes open vs closed - open"},
    StarterMacro{"sleep", "Sleep CSA"},
    StarterMacro{"eventRelated", "Event-related"},
};

bool Copy(const QString& resource, const QString& file) {
    return QFile::copy(resource, file) &&
           QFile::setPermissions(file,
                                 QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther);
}

} // namespace

std::vector<std::string> StarterMacroNames(const PModule* messages) {
    std::vector<std::string> names;
    for (const auto& [key, english] : kMacros) {
        names.push_back(owl::TextOr(messages, "STARTER_MACROS", key, english));
    }
    return names;
}

void InstallStarterMacros(const std::string& folder, const PModule* messages) {
    const QDir target(QString::fromStdString(folder));
    if (target.exists()) {
        return;
    }
    bool copied = target.mkpath(".");
    const std::vector<std::string> names = StarterMacroNames(messages);
    for (std::size_t i = 0; i < names.size(); ++i) {
        copied = copied && Copy(QString(":/macros/%1%2").arg(kMacros[i].name, kEnding),
                                target.filePath(QString::fromStdString(names[i]) + kEnding));
    }
    if (!copied) {
        qInfo("%s: the program's macros could not be copied there", folder.c_str());
    }
}

} // namespace orvanta::review
