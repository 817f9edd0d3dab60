// SPDX-License-Identifier: GPL-3.0-or-later
// Mouse and keys as they come from a screen.
#pragma once

#include <QImage>
#include <QPoint>
#include <QString>

class QComboBox;
class QMenu;
class QMenuBar;
class QWidget;

namespace orvanta::test {

/// Sends what a mouse and a keyboard send, through the windows of the screen; what is not there or cannot be
/// used fails the test. Afterwards everything that was queued has happened.
class Hand final {
public:
    /// \param at in the widget; its middle when left out
    void Click(QWidget& widget, QPoint at = {}, Qt::KeyboardModifiers modifiers = {}) const;
    void DoubleClick(QWidget& widget, QPoint at = {}) const;
    void Drag(QWidget& widget, QPoint from, QPoint to, Qt::MouseButton button = Qt::LeftButton) const;
    void Turn(QWidget& widget, QPoint at, int notches, Qt::KeyboardModifiers modifiers = {}) const;
    /// To the window that is in front.
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const;

    /// Opens a menu and clicks one of its items. \param item caption without mnemonic and dots, or its
    /// beginning when only one item begins so
    void Choose(QMenuBar& bar, const QString& menu, const QString& item) const;
    /// The item of a menu that is shown, by its caption as above.
    void ClickItem(QMenu& menu, const QString& item) const;
    /// Chooses an entry of a box with the mouse. \param entry its beginning
    void ChooseEntry(QComboBox& box, const QString& entry) const;

private:
    /// Scrolls to it when it must.
    static bool CanReach(QWidget& widget);
};

/// The window of the screen that stands over all others: a menu, a dialog, the application's; null without
/// any.
QWidget* FrontWindow();
/// What is on the screen: the visible windows, those in front over the others.
QImage Screenshot(QWidget& main);

} // namespace orvanta::test
