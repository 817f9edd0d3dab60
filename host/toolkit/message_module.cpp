// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/message_module.h"

#include <QFileInfo>
#include <QLocale>
#include <QSettings>

namespace {

std::map<unsigned, std::string>& HostStrings() {
    static std::map<unsigned, std::string> strings;
    return strings;
}

/// The user's languages, each with its region first ("de-AT", "de"), then English.
QStringList LanguageFiles() {
    QStringList files;
    for (const QString& language : QLocale().uiLanguages()) {
        // A script may stand between language and region ("de-Latn-AT").
        const QStringList parts = language.split('-');
        files << parts.first() + '-' + parts.last() << parts.first();
    }
    return files << "en";
}

} // namespace

PModule::PModule(const char* name, HINSTANCE instance, std::string messageFolder)
    : TModule(name, instance, true), messageFolder_(std::move(messageFolder)) {}

std::string PModule::GetMsg2(const char* section, const char* key) const {
    if (!read_) {
        ReadTexts();
    }
    const auto found = texts_.find({section, key});
    return found != texts_.end() ? found->second : std::string();
}

std::string PModule::LoadString(unsigned id) const {
    std::string text = GetMsg2("STRINGS", std::to_string(id).c_str());
    if (text.empty()) {
        const auto found = HostStrings().find(id);
        text = found != HostStrings().end() ? found->second : std::string();
    }
    return text;
}

PModule* PModule::Named(const char* name) {
    for (owl::TModule* module : owl::RegisteredModules()) {
        auto* messages = dynamic_cast<PModule*>(module);
        if (messages != nullptr && messages->GetName() == name) {
            return messages;
        }
    }
    return nullptr;
}

void PModule::SetHostStrings(std::map<unsigned, std::string> strings) {
    HostStrings() = std::move(strings);
}

void PModule::ReadTexts() const {
    QString folder = QString::fromStdString(messageFolder_);
    if (folder.isEmpty()) {
        folder = QFileInfo(QString::fromStdString(owl::ModuleFileName(GetInstance()))).path() + "/messages";
    }
    for (const QString& language : LanguageFiles()) {
        for (const QString& place : {folder, QString(":/messages")}) {
            const QString path =
                QString("%1/%2.%3.ini").arg(place, QString::fromStdString(GetName()), language);
            QSettings file(path, QSettings::IniFormat);
            if (file.status() != QSettings::NoError) {
                qWarning(
                    "%s: cannot be read as a whole, some texts keep another language. Every line must be "
                    "[SECTION], KEY=\"TEXT\" or a remark after ';'.",
                    qUtf8Printable(path));
            }
            for (const QString& section : file.childGroups()) {
                file.beginGroup(section);
                for (const QString& key : file.childKeys()) {
                    // A comma makes a list of a text.
                    const QString text = file.value(key).toStringList().join(", ");
                    texts_.emplace(std::pair(section.toStdString(), key.toStdString()), text.toStdString());
                }
                file.endGroup();
            }
        }
    }
    read_ = true;
}
