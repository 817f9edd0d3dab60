// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/message_module.h"

#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QSettings>

#include <set>

namespace {

std::map<unsigned, std::string>& HostStrings() {
    static std::map<unsigned, std::string> strings;
    return strings;
}

std::string& Preferred() {
    static std::string language;
    return language;
}

/// The user's languages, each with its region first ("de-AT", "de"), then English.
QStringList LanguageFiles() {
    QStringList files;
    if (!Preferred().empty()) {
        const QString language = QString::fromStdString(Preferred());
        files << language << language.section('-', 0, 0);
    }
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

void PModule::PreferLanguage(std::string language) {
    Preferred() = std::move(language);
}

std::vector<std::string> PModule::MessageFolders() const {
    const std::string own =
        !messageFolder_.empty()
            ? messageFolder_
            : QFileInfo(QString::fromStdString(owl::ModuleFileName(GetInstance()))).path().toStdString() +
                  "/messages";
    return {own, ":/messages"};
}

std::vector<std::string> PModule::Languages() const {
    const QString begin = QString::fromStdString(GetName()) + '.';
    const QString end = ".ini";
    std::set<std::string> languages;
    for (const std::string& folder : MessageFolders()) {
        for (const QString& file :
             QDir(QString::fromStdString(folder)).entryList({begin + '*' + end}, QDir::Files)) {
            languages.insert(file.mid(begin.size()).chopped(end.size()).toStdString());
        }
    }
    return {languages.begin(), languages.end()};
}

void PModule::ReadTexts() const {
    for (const QString& language : LanguageFiles()) {
        for (const std::string& place : MessageFolders()) {
            const QString path =
                QString("%1/%2.%3.ini")
                    .arg(QString::fromStdString(place), QString::fromStdString(GetName()), language);
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
