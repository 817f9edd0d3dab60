// SPDX-License-Identifier: GPL-3.0-or-later
// What a control says, whatever its kind.
#pragma once

#include "host/toolkit/export.h"

#include <QString>

class QWidget;

namespace owl {

/// Sets the caption of a label, button or group, where "&" marks the mnemonic. Another control stays.
ORVANTA_TOOLKIT_API void SetControlCaption(QWidget& control, const QString& caption);

/// The text as a caption that shows it character by character: "&" is no mark of a mnemonic.
ORVANTA_TOOLKIT_API QString AsCaption(QString text);

/// Sets the text of an edit, memo or combo box, or the caption of a label, button or group, character by
/// character: "&" and "<" stand for themselves. Another control stays.
ORVANTA_TOOLKIT_API void SetControlText(QWidget& control, const QString& text);

/// The text as the user reads it, without the marks of mnemonics; empty for a control without text.
ORVANTA_TOOLKIT_API QString ControlText(const QWidget& control);

} // namespace owl
