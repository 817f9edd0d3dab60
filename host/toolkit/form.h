// SPDX-License-Identifier: GPL-3.0-or-later
// A form: a dialog laid out by a form designer, its controls known by their names.
#pragma once

#include "host/toolkit/export.h"
#include "host/toolkit/window_handle.h"

#include <QDialog>

class QAbstractButton;

namespace owl {

/// Stands at the centre of the screen when it is first shown, large enough for what it scrolls where the
/// screen has the room, and no larger than the screen unless its controls need more. What gets the focus is
/// scrolled into view.
class ORVANTA_TOOLKIT_API TForm : public QDialog {
public:
    /// \param parent window that the form belongs to; may be null
    explicit TForm(HWND parent);

    /// Shows the form through the modal gateway until it closes. \return kIdOk or kIdCancel
    int ShowModal();
    HWND GetHandle() { return HWND(this); }

protected:
    /// The button that the Escape key presses; without one the key cancels the form. A button that cannot be
    /// pressed swallows the key.
    void SetCancelButton(QAbstractButton* button) { cancelButton_ = button; }

    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    QAbstractButton* cancelButton_ = nullptr;
    bool placed_ = false;
};

} // namespace owl
