// SPDX-License-Identifier: GPL-3.0-or-later
// A message with its buttons.
#pragma once

#include "host/toolkit/modal_gateway.h"

#include <QMessageBox>

namespace owl {

/// Plain text of any length: long words break, and what is too long for a screen is told in full under
/// details. A warning that asks has No as its default, since what it warns of cannot be undone.
class ORVANTA_TOOLKIT_API TMessageBox final : public QMessageBox {
public:
    /// \param type sum of kMb constants
    TMessageBox(HWND owner, const std::string& text, const std::string& caption, unsigned type);

    /// Shows the box. \return kIdOk, kIdYes or kIdNo
    int Ask();

protected:
    /// The copy key copies the text without the marks that break its lines.
    void keyPressEvent(QKeyEvent* event) override;

private:
    void WidenForLongText();

    QString whole_;
};

} // namespace owl
