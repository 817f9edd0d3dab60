// SPDX-License-Identifier: GPL-3.0-or-later
// A line at the top that tells of something the user should know but need not answer.
#pragma once

#include <QFrame>

#include <functional>

class QLabel;
class QToolButton;

namespace orvanta::review {

/// Hidden until it has something to say; can be closed.
class NoticeStrip final : public QFrame {
public:
    explicit NoticeStrip(QWidget* parent = nullptr);

    /// \param lines plain text; the first is shown, the others as a tip and behind a button. None hides.
    void Tell(const QString& heading, const QStringList& lines);
    QString Text() const;
    /// A button that does what the text speaks of.
    void AddAction(const QString& name, const QString& caption, std::function<void()> run);
    /// \param tip of the close button \param closed called when the user closed the strip
    void WhenClosed(const QString& tip, std::function<void()> closed);

private:
    QLabel* text_;
    QToolButton *more_, *close_;
    QString heading_;
    QStringList lines_;
};

} // namespace orvanta::review
