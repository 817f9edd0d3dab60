// SPDX-License-Identifier: GPL-3.0-or-later
// The language of the texts.
#pragma once

#include <QString>

#include <string>
#include <vector>

class GenericPlatform;

namespace orvanta::review {

/// Languages that there are texts in ("de", "en"), sorted; none without the module.
std::vector<std::string> TextLanguages();
/// What a language calls itself: "Deutsch".
QString LanguageName(const std::string& language);

// The user's choice among the settings; empty for the language of the system. It counts from the next start.
std::string StoredLanguage(const GenericPlatform& platform);
std::string StoredLanguage(const std::string& settingsFile);
void StoreLanguage(GenericPlatform& platform, const std::string& language);

} // namespace orvanta::review
