// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/manual_page.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QKeyEvent>
#include <QScrollBar>
#include <QTextBlock>

#include <algorithm>

namespace orvanta::review {

namespace {

constexpr int kFitAfter = 150; // ms without a further change of the width

bool Holds(const QString& file, const QString& text) {
    QFile page(file);
    return page.open(QIODevice::ReadOnly) &&
           QString::fromUtf8(page.readAll()).simplified().contains(text.simplified(), Qt::CaseInsensitive);
}

} // namespace

QString TargetOf(const QString& heading) {
    QString target;
    for (const QChar letter : heading.trimmed().toLower()) {
        if (letter.isSpace() || letter == '-') {
            target += '-';
        } else if (letter.isLetterOrNumber() || letter == '_') {
            target += letter;
        }
    }
    return target;
}

ManualPage::ManualPage(QWidget* parent) : QTextBrowser(parent) {
    fit_.setSingleShot(true);
    fit_.setInterval(kFitAfter);
    connect(&fit_, &QTimer::timeout, this, [this] { FitPictures(); });
}

QVariant ManualPage::loadResource(int type, const QUrl& name) {
    QVariant content = QTextBrowser::loadResource(type, name);
    QImage image;
    if (type != QTextDocument::ImageResource || !image.loadFromData(content.toByteArray())) {
        return content;
    }
    const double dots = devicePixelRatioF();
    const int room = std::max(1, viewport()->width() - 2 * static_cast<int>(document()->documentMargin()));
    if (image.width() > room) {
        image = image.scaledToWidth(qRound(std::min<double>(image.width(), room * dots)),
                                    Qt::SmoothTransformation);
        image.setDevicePixelRatio(double(image.width()) / room);
    }
    return image;
}

void ManualPage::doSetSource(const QUrl& url, QTextDocument::ResourceType type) {
    fitted_ = viewport()->width();
    {
        // Laid out once: a page is read piece by piece, and each would lay out the table that it belongs to.
        QTextCursor block(document());
        block.beginEditBlock();
        QTextBrowser::doSetSource(url, type);
        MakeHeadingsTargets();
        block.endEditBlock();
    }
    if (url.hasFragment()) {
        scrollToAnchor(url.fragment());
    }
}

void ManualPage::MakeHeadingsTargets() {
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        if (block.blockFormat().headingLevel() > 0 && block.length() > 1) {
            QTextCursor first(block);
            first.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor);
            QTextCharFormat target;
            target.setAnchor(true);
            target.setAnchorNames({TargetOf(block.text())});
            first.mergeCharFormat(target);
        }
    }
}

void ManualPage::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Backspace || event->matches(QKeySequence::Back)) {
        backward();
    } else {
        QTextBrowser::keyPressEvent(event);
    }
}

void ManualPage::resizeEvent(QResizeEvent* event) {
    QTextBrowser::resizeEvent(event);
    if (fitted_ != 0 && fitted_ != viewport()->width()) {
        fit_.start();
    }
}

void ManualPage::FitPictures() {
    QScrollBar& bar = *verticalScrollBar();
    const double place = bar.maximum() > 0 ? double(bar.value()) / bar.maximum() : 0;
    fitted_ = viewport()->width();
    reload();
    bar.setValue(qRound(place * bar.maximum()));
}

bool ManualPage::Find(const QString& text) {
    const bool found = !text.isEmpty() && (find(text) || FindFurther(text));
    // The selection is hardly seen while the search has the focus.
    QTextEdit::ExtraSelection mark;
    mark.cursor = found ? textCursor() : QTextCursor();
    mark.format.setBackground(palette().brush(QPalette::Active, QPalette::Highlight));
    mark.format.setForeground(palette().brush(QPalette::Active, QPalette::HighlightedText));
    setExtraSelections(found ? QList{mark} : QList<QTextEdit::ExtraSelection>());
    return found;
}

bool ManualPage::FindFurther(const QString& text) {
    const QString here = source().toLocalFile();
    const QDir folder = QFileInfo(here).dir();
    QStringList pages = folder.entryList({"*.md"}, QDir::Files, QDir::Name);
    // This page last, from its begin.
    const auto next = std::upper_bound(pages.begin(), pages.end(), QFileInfo(here).fileName());
    std::rotate(pages.begin(), next, pages.end());
    for (const QString& page : pages) {
        const QString file = folder.filePath(page);
        if (file == here) {
            moveCursor(QTextCursor::Start);
        } else if (Holds(file, text)) {
            setSource(QUrl::fromLocalFile(file), QTextDocument::MarkdownResource);
        } else {
            continue;
        }
        if (find(text)) { // and not only a link's target or a picture's name
            return true;
        }
    }
    return false;
}

} // namespace orvanta::review
