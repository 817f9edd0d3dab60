// SPDX-License-Identifier: GPL-3.0-or-later
// Dialogs known by their number, their controls by numbers too.
#pragma once

#include "host/toolkit/message_module.h"
#include "host/toolkit/window_handle.h"

#include <QDialog>

#include <functional>
#include <string>

namespace owl {

/// Lays the controls out in an empty dialog, as a form designer's setupUi does.
using DialogTemplate = void (*)(QDialog& dialog);

/// From now on dialogs of this number look like so; null forgets the number, which a library that is going
/// to be unloaded does for what it registered.
ORVANTA_TOOLKIT_API void RegisterDialogTemplate(unsigned number, DialogTemplate build);

/// A dialog whose layout comes from the template of its number; empty when there is none. A control carries
/// its number as dynamic property `controlId`; OK is 1 and Cancel 2, also in a button box, where Close counts
/// as OK. A number that no control has answers nothing and takes nothing. Texts are UTF-8. GUI thread.
class ORVANTA_TOOLKIT_API TDialog : public QDialog {
public:
    /// \param parent may be null
    /// \param module where translations come from, in section "DIALOG_N" of dialog N (see TranslateForm); may
    /// be null
    TDialog(HWND parent, unsigned dialogNumber, const PModule* module);

    /// Shows the dialog through the modal gateway until it closes. \return kIdOk or kIdCancel
    int Execute();
    HWND GetHandle() { return HWND(this); }

    QWidget* GetDlgItem(int controlId) const;
    /// The control as what it is; null when it is something else.
    template <typename Control>
    Control* Item(int controlId) const {
        return qobject_cast<Control*>(GetDlgItem(controlId));
    }

    /// The text is shown as it is: "&" marks no mnemonic.
    void SetDlgItemText(int controlId, const std::string& text);
    /// \param max bytes of UTF-8; the text is cut before the first character that does not fit
    std::string GetDlgItemText(int controlId, int max) const;
    void CheckDlgButton(int controlId, bool checked);
    bool IsDlgButtonChecked(int controlId) const;
    /// Checks one button of \p first to \p last and unchecks the others; all of them when \p checked is none
    /// of them.
    void CheckRadioButton(int first, int last, int checked);
    void EnableDlgItem(int controlId, bool enabled);

    /// Closes the dialog with kIdOk or kIdCancel; called once. What overrides it calls the base first, which
    /// hides the dialog and emits its signals, and then reads the controls, which live as long as the dialog.
    /// A dialog that was never set up closes without it.
    virtual void Destroy(int retValue);

    void setVisible(bool visible) override;
    void done(int result) override;

protected:
    /// Fills the controls. Called once before the dialog comes up or is rendered.
    virtual void SetupWindow();

    // Notifications by number. Clicks are the user's; texts are told whoever changes them.
    void OnClick(int controlId, std::function<void()> handler);
    void OnTextChange(int controlId, std::function<void()> handler);

    /// May be null.
    const PModule* GetModule() const { return module_; }

    bool event(QEvent* event) override;

private:
    void SetUpOnce();

    const PModule* module_;
    bool open_ = false; ///< set up and not closed since
};

} // namespace owl

/// A dialog with texts of its module.
class ORVANTA_TOOLKIT_API PDialog : public owl::TDialog {
public:
    using TDialog::TDialog;

    /// Gives a control the module's text for this key, section "DIALOG", "&" marking the mnemonic; the text
    /// of the layout stays when the module has none.
    void SetDlgItemMsg(const char* key, int controlId);
};
