// SPDX-License-Identifier: GPL-3.0-or-later
// Manual, log and facts about the program.
#pragma once

class QWidget;

namespace orvanta::review {

/// Opens the manual in a window of its own, or says where it is missing.
void ShowManual(QWidget& parent);
/// What was logged since the start, in a window of its own.
void ShowLog(QWidget& parent);
void ShowAbout(QWidget& parent);

} // namespace orvanta::review
