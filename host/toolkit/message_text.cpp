// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/message_text.h"

#include <algorithm>

namespace owl {

namespace {

constexpr qsizetype kLongWord = 40;
constexpr qsizetype kPiece = 10;
constexpr qsizetype kMostLines = 20;
constexpr qsizetype kMostCharacters = 1000;
constexpr QChar kBreak(0x200B);

qsizetype WordEnd(const QString& text, qsizetype from) {
    const auto end = std::find_if(text.begin() + from, text.end(), [](QChar c) { return c.isSpace(); });
    return end - text.begin();
}

bool BreaksAfter(QChar character) {
    return QStringView(u"/\\_-").contains(character);
}

void AppendInPieces(QString& result, QStringView word) {
    qsizetype piece = 0;
    for (qsizetype i = 0; i + 1 < word.size(); ++i) {
        result += word[i];
        ++piece;
        // Two halves of one character stay together.
        const bool full = piece >= kPiece && !BreaksAfter(word[i + 1]) && !word[i].isHighSurrogate();
        if (full || BreaksAfter(word[i])) {
            result += kBreak;
            piece = 0;
        }
    }
    result += word.back();
}

} // namespace

QString WithBreaks(const QString& text) {
    QString result;
    for (qsizetype at = 0; at < text.size();) {
        const qsizetype end = WordEnd(text, at);
        const QStringView word = QStringView(text).sliced(at, end - at);
        if (word.size() > kLongWord) {
            AppendInPieces(result, word);
        } else {
            result += word;
        }
        at = end;
        if (at < text.size()) {
            result += text[at++];
        }
    }
    return result;
}

QString Shortened(const QString& text) {
    qsizetype end = std::min(text.size(), kMostCharacters);
    qsizetype lines = 0;
    for (qsizetype i = 0; i < end; ++i) {
        if (text[i] == '\n' && ++lines == kMostLines) {
            end = i;
        }
    }
    if (end == text.size()) {
        return text;
    }
    if (text[end - 1].isHighSurrogate()) {
        --end;
    }
    return text.first(end) + u'…';
}

} // namespace owl
