// SPDX-License-Identifier: GPL-3.0-or-later
// A box for one line of text.
#pragma once

#include "host/toolkit/modal_gateway.h"

#include <QDialog>

class QLineEdit;

namespace owl {

/// Title, prompt, one edit ("edit") that takes so many characters, OK and Cancel.
class ORVANTA_TOOLKIT_API TInputDialog final : public QDialog {
public:
    TInputDialog(HWND owner, const TextQuestion& question);

    std::string Text() const;

private:
    QLineEdit* edit_;
};

} // namespace owl
