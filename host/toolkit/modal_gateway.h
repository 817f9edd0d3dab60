// SPDX-License-Identifier: GPL-3.0-or-later
// The one way to whatever waits for the user: message boxes, choosers, dialogs and forms run modally.
#pragma once

#include "host/toolkit/dc.h"
#include "host/toolkit/export.h"
#include "host/toolkit/window_handle.h"

#include <optional>
#include <string>

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

/// What a chooser for files starts with.
struct FileQuestion {
    std::string title;        ///< empty for the system's own
    std::string filter;       ///< pairs "NAME|*.ext", all joined with "|"
    std::string extension;    ///< "txt" or, as a pattern, "*.txt"; added to a name that has none
    std::string folder;       ///< to start in; empty for the current one
    std::string name;         ///< suggested
    bool askOverwrite = true; ///< saving only

    bool operator==(const FileQuestion&) const = default;
};

/// What an input box for one line of text starts with.
struct TextQuestion {
    std::string title;
    std::string prompt;
    std::string text; ///< suggested
    int limit = 255;  ///< characters

    bool operator==(const TextQuestion&) const = default;
};

/// Replaceable, so that a test can answer in the user's place. GUI thread. An owner may be null. A chooser
/// answers nothing when the user cancelled it.
class ORVANTA_TOOLKIT_API ModalGateway {
public:
    virtual ~ModalGateway();
    /// \param type sum of kMb constants
    /// \return kIdOk, kIdYes or kIdNo
    virtual int ShowMessage(HWND owner, const std::string& text, const std::string& caption,
                            unsigned type) = 0;
    /// Shows the dialog until it closes. \return kIdOk or kIdCancel
    virtual int RunModal(QDialog& dialog) = 0;
    /// \return full path
    virtual std::optional<std::string> AskFileToOpen(HWND owner, const FileQuestion& question) = 0;
    virtual std::optional<std::string> AskFileToSave(HWND owner, const FileQuestion& question) = 0;
    virtual std::optional<TColor> AskColor(HWND owner, TColor color) = 0;
    virtual std::optional<TFont> AskFont(HWND owner, const TFont& font) = 0;
    virtual std::optional<std::string> AskText(HWND owner, const TextQuestion& question) = 0;
};

/// The gateway in use. The default one shows Qt's dialogs. Without a GUI application it writes messages to
/// standard error, answers OK or No, and cancels everything else.
ORVANTA_TOOLKIT_API ModalGateway& CurrentModalGateway();

/// From now on this gateway is used; null for the default. Answers what was set before.
ORVANTA_TOOLKIT_API ModalGateway* ReplaceModalGateway(ModalGateway* gateway);

} // namespace owl
