// SPDX-License-Identifier: GPL-3.0-or-later
// The window of the manual.
#pragma once

#include <QDialog>

namespace orvanta::review {

/// A page of the manual, with buttons for back, forward and the contents, and a search. Stays beside the
/// application's window until it is closed. GUI thread.
class ManualWindow final : public QDialog {
public:
    /// \param page file of the first page, which is the table of contents
    ManualWindow(QWidget* parent, const QString& page);
};

} // namespace orvanta::review
