// SPDX-License-Identifier: GPL-3.0-or-later
// Descriptions of settings and analyses in a memo.
#pragma once

#include <string>

class QPlainTextEdit;

namespace orvanta::side_bar {

/// Shows lines "Name: value" from the first on, the names stressed. \param text UTF-8
void ShowDescription(QPlainTextEdit& memo, const std::string& text);

} // namespace orvanta::side_bar
