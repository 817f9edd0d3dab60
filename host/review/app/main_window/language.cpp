// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/language.h"

#include "host/platform/settings_store.h"
#include "host/review/app/main_window/text_setting.h"
#include "host/toolkit/message_module.h"

#include <QLocale>

namespace orvanta::review {

namespace {
constexpr const char* kLanguage = "Language";
}

std::vector<std::string> TextLanguages() {
    const PModule* texts = PModule::Named("Orvanta");
    return texts != nullptr ? texts->Languages() : std::vector<std::string>();
}

QString LanguageName(const std::string& language) {
    QString code = QString::fromStdString(language);
    const QLocale locale(code);
    // Without a region it is not that of one.
    QString name = locale.language() == QLocale::English && !code.contains('-')
                       ? QLocale::languageToString(QLocale::English)
                       : locale.nativeLanguageName();
    if (locale.language() == QLocale::C || name.isEmpty()) {
        return code;
    }
    return name.replace(0, 1, name.first(1).toUpper());
}

std::string StoredLanguage(const GenericPlatform& platform) {
    return ReadText(platform, kLanguage);
}

std::string StoredLanguage(const std::string& settingsFile) {
    return platform::SettingsStore(settingsFile).Get(kHostSection, kLanguage).value_or("");
}

void StoreLanguage(GenericPlatform& platform, const std::string& language) {
    WriteText(platform, kLanguage, language);
}

} // namespace orvanta::review
