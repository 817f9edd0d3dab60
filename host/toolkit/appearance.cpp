// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/appearance.h"

#include "host/toolkit/form_style.h"

#include <QApplication>
#include <QPalette>
#include <QToolTip>

#include <algorithm>
#include <array>

namespace owl {

namespace {

constexpr int kSmallestFontPoints = 9;
constexpr int kMiddleLightness = 128;

struct RoleColors {
    QPalette::ColorRole role;
    QRgb light;
    QRgb dark;
};

constexpr std::array kColors = {
    RoleColors{QPalette::Window, 0xFFF2F4F6, 0xFF34373C},
    RoleColors{QPalette::WindowText, 0xFF1B2026, 0xFFE6E9EC},
    RoleColors{QPalette::Base, 0xFFFFFFFF, 0xFF1E2023},
    RoleColors{QPalette::AlternateBase, 0xFFEEF2F6, 0xFF26292D},
    RoleColors{QPalette::Text, 0xFF1B2026, 0xFFE6E9EC},
    RoleColors{QPalette::PlaceholderText, 0xFF5F6974, 0xFF9CA5AF},
    RoleColors{QPalette::Button, 0xFFE9ECF0, 0xFF40454C},
    RoleColors{QPalette::ButtonText, 0xFF1B2026, 0xFFE6E9EC},
    RoleColors{QPalette::BrightText, 0xFFA3131F, 0xFFFFB3AC},
    RoleColors{QPalette::ToolTipBase, 0xFFFFF9E0, 0xFF4A5058},
    RoleColors{QPalette::ToolTipText, 0xFF1B2026, 0xFFF2F4F6},
    RoleColors{QPalette::Highlight, 0xFF1F5FA8, 0xFF3573B9},
    RoleColors{QPalette::HighlightedText, 0xFFFFFFFF, 0xFFFFFFFF},
    RoleColors{QPalette::Link, 0xFF0B57A4, 0xFF82BBF2},
    RoleColors{QPalette::LinkVisited, 0xFF6A3FA0, 0xFFC6AAF0},
    // Edges of raised and sunken controls.
    RoleColors{QPalette::Light, 0xFFFFFFFF, 0xFF5A6068},
    RoleColors{QPalette::Midlight, 0xFFF6F8FA, 0xFF4E545B},
    RoleColors{QPalette::Mid, 0xFFB9C0C8, 0xFF26292D},
    RoleColors{QPalette::Dark, 0xFF9AA3AD, 0xFF1A1C1F},
    RoleColors{QPalette::Shadow, 0xFF6B747E, 0xFF0C0D0E},
};

constexpr std::array kDisabledColors = {
    RoleColors{QPalette::WindowText, 0xFF6C7580, 0xFF969EA8},
    RoleColors{QPalette::Text, 0xFF6C7580, 0xFF969EA8},
    RoleColors{QPalette::PlaceholderText, 0xFF6C7580, 0xFF969EA8},
    RoleColors{QPalette::ButtonText, 0xFF6C7580, 0xFF969EA8},
    RoleColors{QPalette::Base, 0xFFF2F4F6, 0xFF34373C},
    RoleColors{QPalette::Highlight, 0xFFC5CDD6, 0xFF555C65},
    RoleColors{QPalette::HighlightedText, 0xFF3D454E, 0xFFC4CAD1},
    RoleColors{QPalette::Link, 0xFF6C7580, 0xFF969EA8},
    RoleColors{QPalette::LinkVisited, 0xFF6C7580, 0xFF969EA8},
};

/// What the desktop has, when no colours of ours are set.
bool IsDesktopDark() {
    QApplication::setPalette(QPalette());
    return QApplication::palette().color(QPalette::Window).lightness() < kMiddleLightness;
}

} // namespace

QPalette AppearancePalette(bool dark) {
    QPalette palette;
    for (const RoleColors& color : kColors) {
        palette.setColor(color.role, QColor(dark ? color.dark : color.light));
    }
    for (const RoleColors& color : kDisabledColors) {
        palette.setColor(QPalette::Disabled, color.role, QColor(dark ? color.dark : color.light));
    }
    return palette;
}

void ApplyAppearance(QApplication& application, Appearance appearance) {
    application.setStyle(new FormStyle);
    const bool dark = appearance == Appearance::System ? IsDesktopDark() : appearance == Appearance::Dark;
    const QPalette palette = AppearancePalette(dark);
    application.setPalette(palette);
    // Tool tips have colours of their own.
    QToolTip::setPalette(palette);
    QFont font = application.font();
    font.setPointSize(std::max(font.pointSize(), kSmallestFontPoints));
    application.setFont(font);
}

} // namespace owl
