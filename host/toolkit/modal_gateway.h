// SPDX-License-Identifier: GPL-3.0-or-later
// The one way to whatever waits for the user: message boxes, dialogs and forms run modally.
#pragma once

#include "host/toolkit/export.h"
#include "host/toolkit/window_handle.h"

#include <string>
#include <string_view>

class QDialog;

namespace owl {

// Type of a message box: buttons and icon, added.
constexpr unsigned kMbOk = 0;
constexpr unsigned kMbYesNo = 4;
constexpr unsigned kMbIconStop = 16;
constexpr unsigned kMbIconExclamation = 48;

// The user's answer.
constexpr int kIdOk = 1;
constexpr int kIdCancel = 2;
constexpr int kIdYes = 6;
constexpr int kIdNo = 7;

/// A form that is shown modally.
class ORVANTA_TOOLKIT_API ModalForm {
public:
    ModalForm() = default;
    virtual ~ModalForm();
    ModalForm(const ModalForm&) = delete;
    ModalForm& operator=(const ModalForm&) = delete;

    /// The window that shows it; null for a form without one.
    virtual QDialog* Dialog() { return nullptr; }
    /// Does what a click on the control of this name does; false when there is none.
    virtual bool Click(std::string_view control) = 0;
};

/// Replaceable, so that a test can answer in the user's place. GUI thread.
class ORVANTA_TOOLKIT_API ModalGateway {
public:
    virtual ~ModalGateway();
    /// \param owner window that the box belongs to, or null
    /// \param type sum of kMb constants
    /// \return kIdOk, kIdCancel, kIdYes or kIdNo
    virtual int ShowMessage(HWND owner, const std::string& text, const std::string& caption,
                            unsigned type) = 0;
    /// Shows the form until it closes. \return kIdOk or kIdCancel
    virtual int RunModal(ModalForm& form) = 0;
};

/// The gateway in use. The default one shows Qt's message boxes and runs a form's Dialog(); a form without
/// one is cancelled at once. Without a GUI application it writes messages to standard error and answers OK or
/// No.
ORVANTA_TOOLKIT_API ModalGateway& CurrentModalGateway();

/// From now on this gateway is used; null for the default. Answers what was set before.
ORVANTA_TOOLKIT_API ModalGateway* ReplaceModalGateway(ModalGateway* gateway);

} // namespace owl
