// SPDX-License-Identifier: GPL-3.0-or-later
// A page of the manual on the screen.
#pragma once

#include <QTextBrowser>
#include <QTimer>

namespace orvanta::review {

/// Shows Markdown pages. Pictures are never wider than the page, links lead to pages and to headings, the
/// Back key and Backspace lead back. GUI thread.
class ManualPage final : public QTextBrowser {
public:
    explicit ManualPage(QWidget* parent = nullptr);

    /// Finds the text on this page behind the cursor, else on the next pages of the folder, and marks it.
    /// \return false when no page has it
    bool Find(const QString& text);

    QVariant loadResource(int type, const QUrl& name) override;

protected:
    void doSetSource(const QUrl& url, QTextDocument::ResourceType type) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    /// On the pages behind this one, then before it, then on it from its begin.
    bool FindFurther(const QString& text);
    void MakeHeadingsTargets();
    /// The room for pictures has changed.
    void FitPictures();

    QTimer fit_;
    int fitted_ = 0; ///< width that the pictures were made for
};

/// The target of a heading: "## Keys and mouse" is "keys-and-mouse".
QString TargetOf(const QString& heading);

} // namespace orvanta::review
