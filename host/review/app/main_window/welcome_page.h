// SPDX-License-Identifier: GPL-3.0-or-later
// What is shown while no recording is open.
#pragma once

#include <QWidget>

namespace orvanta::review {

class Documents;

/// Opens a recording: by a button, from the list of the recent ones, or by dropping a file.
class WelcomePage final : public QWidget {
public:
    /// \param documents must outlive the page
    explicit WelcomePage(Documents& documents, QWidget* parent = nullptr);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void FillRecent();

    Documents& documents_;
    QWidget* recent_;
};

} // namespace orvanta::review
