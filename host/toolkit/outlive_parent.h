// SPDX-License-Identifier: GPL-3.0-or-later
// Dialogs that belong to those who run them.
#pragma once

#include "host/toolkit/export.h"

class QDialog;

namespace owl {

/// A dialog that is run belongs to its maker, also when the window that it stands over goes meanwhile: then
/// it is cancelled and has no parent any more.
ORVANTA_TOOLKIT_API void OutliveParent(QDialog& dialog);

} // namespace owl
