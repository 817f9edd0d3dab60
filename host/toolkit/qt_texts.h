// SPDX-License-Identifier: GPL-3.0-or-later
// Qt's own texts (OK, Cancel, file and colour choosers) in the user's language.
#pragma once

#include "host/toolkit/export.h"

class QApplication;

namespace owl {

/// Loads Qt's translation for the default locale and uses it for as long as the application lives. Without a
/// translation of the language, and for English, Qt's texts stay English. Call it once, before the first
/// window. \return whether the language's texts are in use
ORVANTA_TOOLKIT_API bool UseQtTexts(QApplication& application);

} // namespace owl
