// SPDX-License-Identifier: GPL-3.0-or-later
// A handle to a native window.
#pragma once

class QWidget;

/// Wraps a widget without knowing it; null allowed. Stable for the window's life and not owning.
class HWND {
public:
    constexpr HWND() = default;
    constexpr HWND(decltype(nullptr)) {}
    constexpr explicit HWND(QWidget* widget) : widget_(widget) {}

    constexpr QWidget* Widget() const { return widget_; }
    constexpr explicit operator bool() const { return widget_ != nullptr; }
    constexpr bool operator==(const HWND&) const = default;

private:
    QWidget* widget_ = nullptr;
};
