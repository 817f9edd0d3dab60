// SPDX-License-Identifier: GPL-3.0-or-later
#include "side_bar/description.h"

#include <QPlainTextEdit>
#include <QTextCursor>

namespace orvanta::side_bar {

void ShowDescription(QPlainTextEdit& memo, const std::string& text) {
    memo.clear();
    QTextCursor cursor(memo.document());
    QTextCharFormat names;
    names.setFontWeight(QFont::DemiBold);
    for (const QString& line : QString::fromStdString(text).split('\n')) {
        const qsizetype value = line.indexOf(": ") + 1; // 0 where there is no name
        if (!cursor.atStart()) {
            cursor.insertBlock();
        }
        cursor.insertText(line.first(value), names);
        cursor.insertText(line.sliced(value), QTextCharFormat());
    }
    memo.moveCursor(QTextCursor::Start);
    memo.setCurrentCharFormat(QTextCharFormat()); // of the text that replaces this one
}

} // namespace orvanta::side_bar
