// SPDX-License-Identifier: GPL-3.0-or-later
// Texts of a form in the user's language.
#pragma once

#include "host/toolkit/export.h"

#include <string>

class PModule;
class QWidget;

namespace owl {

/// Replaces the texts of a form and of the controls in it that have a name by those of the message store,
/// where it has them: keys "CONTROL" (caption, group title, label), "CONTROL.tip" (tool tip) and
/// "CONTROL.N" (from 0: column of a list, page of a tab control, entry of a combo box, radio button of a
/// group), and "caption" for the form itself.
/// \param module may be null
ORVANTA_TOOLKIT_API void TranslateForm(QWidget& form, const PModule* module, const char* section);

/// A text of the message store, else \p builtIn. \param module may be null
ORVANTA_TOOLKIT_API std::string TextOr(const PModule* module, const char* section, const char* key,
                                       const std::string& builtIn);

} // namespace owl
