// SPDX-License-Identifier: GPL-3.0-or-later
// Texts of messages, made fit for a box on a screen.
#pragma once

#include "host/toolkit/export.h"

#include <QString>

namespace owl {

/// Lets words that are longer than 40 characters, as paths are, break over lines: after slashes, "_" and "-",
/// else every 10 characters. The marks are invisible and of no width.
ORVANTA_TOOLKIT_API QString WithBreaks(const QString& text);

/// The first 20 lines and 1,000 characters with "…" behind them; the text itself when it has no more.
ORVANTA_TOOLKIT_API QString Shortened(const QString& text);

} // namespace owl
