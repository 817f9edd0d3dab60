// SPDX-License-Identifier: GPL-3.0-or-later
// Numbers as the user reads and types them, in the user's numerals.
#pragma once

#include <QString>

#include <optional>

namespace orvanta::side_bar {

/// \p value rounded to \p significant digits, then printed with \p decimals decimals and no grouping: 500 /
/// 512 with 3 and 5 is "0.97700". Halves of the shortest decimal that stands for the value are rounded away
/// from zero. \param value finite \param significant at least 1
QString FixedText(double value, int significant, int decimals);

/// The finite number that the whole text stands for, blanks around it allowed; nothing for any other text,
/// digit grouping included.
std::optional<double> ParseNumber(const QString& text);

} // namespace orvanta::side_bar
