// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/wording.h"

#include "host/toolkit/form_texts.h"

#include <QRegularExpression>

namespace owl {

namespace {

/// The text of the store with these in place of its "%s", in order.
QString Filled(const std::string& text, const QStringList& values) {
    QString filled = QString::fromStdString(text);
    qsizetype at = 0;
    for (const QString& value : values) {
        at = filled.indexOf("%s", at);
        if (at < 0) {
            break;
        }
        filled.replace(at, 2, value);
        at += value.size();
    }
    return filled;
}

QString SentenceInUsersWords(const PModule* module, const char* section, std::span<const Wording> wordings,
                             const QString& english) {
    for (const Wording& wording : wordings) {
        const QString pattern = QRegularExpression::escape(wording.english).replace("\\%s", "(.+)");
        const QRegularExpressionMatch match =
            QRegularExpression(QRegularExpression::anchoredPattern(pattern)).match(english);
        if (match.hasMatch()) {
            return Filled(TextOr(module, section, wording.key, wording.english),
                          match.capturedTexts().mid(1));
        }
    }
    return english;
}

} // namespace

std::string InUsersWords(const PModule* module, const char* section, std::span<const Wording> wordings,
                         const std::string& english) {
    static const QRegularExpression line(QRegularExpression::anchoredPattern("line (\\d+): (.+)"));
    const QString text = QString::fromStdString(english);
    if (const QRegularExpressionMatch match = line.match(text); match.hasMatch()) {
        return Filled(TextOr(module, section, "line", "line %s: %s"),
                      {match.captured(1), SentenceInUsersWords(module, section, wordings, match.captured(2))})
            .toStdString();
    }
    return SentenceInUsersWords(module, section, wordings, text).toStdString();
}

} // namespace owl
