// SPDX-License-Identifier: GPL-3.0-or-later
// A mark beside a row of edits that says what will become of it.
#pragma once

#include <QString>

#include <initializer_list>

class QLabel;
class QWidget;

namespace orvanta::spectrum_view {

enum class MarkKind {
    Note,   ///< it is read otherwise than it looks
    Warning ///< it is not stored, or changed
};

/// Shows \p remark as an icon with a tip in \p mark and as the tip of \p edits; takes both away when it is
/// empty. Null controls are left out.
void MarkRow(QLabel* mark, std::initializer_list<QWidget*> edits, MarkKind kind, const QString& remark);

} // namespace orvanta::spectrum_view
