// SPDX-License-Identifier: GPL-3.0-or-later
// Going from pane to pane with the keyboard.
#pragma once

class QMainWindow;

namespace orvanta::review {

class MainWindow;

/// Gives the focus to the pane after, or before, the one that has it: the views with what stands beside them,
/// the notices, and the docked panels, as far as they can be seen. Nothing when there is no other.
void GoToPane(const QMainWindow& shell, const MainWindow& middle, bool next);

} // namespace orvanta::review
