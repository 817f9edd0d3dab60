// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures of windows.
#pragma once

#include <functional>
#include <string>

class QWidget;

namespace orvanta::review {

/// Shows the window and, when it is painted, saves its picture as PNG in the window's device pixels.
/// \throws std::runtime_error "FILE: reason (remedy)" when it cannot be written
void SavePicture(QWidget& window, const std::string& file);

/// Calls \p open, which shows a window modally, and while that window is shown \p look with it; then closes
/// it. \throws std::logic_error when no window came up
void LookAtModal(const std::function<void()>& open, const std::function<void(QWidget&)>& look);

} // namespace orvanta::review
