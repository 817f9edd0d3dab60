// SPDX-License-Identifier: GPL-3.0-or-later
// The module of resources and localised texts.
#pragma once

#include "host/toolkit/module.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

/// A module with texts that depend on the user's language. They are kept in INI files "NAME.LANGUAGE.ini"
/// (UTF-8; the language as "de-AT" or "de"; a text with ";" stands in quotes) in a folder "messages" beside
/// the module's file or among the program's Qt resources. A text is looked for in the user's languages in
/// their order, then in English, and each time in the folder first. Files are read when the first text is
/// asked for.
class ORVANTA_TOOLKIT_API PModule : public owl::TModule {
public:
    /// \param messageFolder where the texts lie; empty for "messages" beside the module's file
    PModule(const char* name, HINSTANCE instance, std::string messageFolder = {});

    /// UTF-8; empty when there is no such text.
    std::string GetMsg2(const char* section, const char* key) const;
    /// The text of a number: section "STRINGS", else the host's table; empty when neither has it.
    std::string LoadString(unsigned id) const;

    /// The module of this name among those that are loaded; null when there is none.
    static PModule* Named(const char* name);
    /// Languages that there are texts in, as in the names of their files, sorted.
    std::vector<std::string> Languages() const;

    /// Texts in this language ("de" or "de-AT") are taken before those in the user's languages; empty for
    /// none. It counts for modules whose first text is asked for after it.
    static void PreferLanguage(std::string language);
    /// Texts of the host, the same for all modules.
    static void SetHostStrings(std::map<unsigned, std::string> strings);

private:
    void ReadTexts() const;
    /// Where the texts lie, the first before the second.
    std::vector<std::string> MessageFolders() const;

    std::string messageFolder_;
    mutable bool read_ = false;
    mutable std::map<std::pair<std::string, std::string>, std::string> texts_; ///< by section and key
};
