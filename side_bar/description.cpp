// SPDX-License-Identifier: GPL-3.0-or-later
#include "side_bar/description.h"

#include "host/toolkit/message_module.h"
#include "host/toolkit/wording.h"

#include <QPlainTextEdit>
#include <QTextCursor>

namespace orvanta::side_bar {

namespace {

using Word = owl::Wording; // of descriptions, which come in English

constexpr Word kWords[] = {
    Word{"fftWindow", "FFT window"},
    Word{"overlap", "Overlap"},
    Word{"windowing", "Windowing"},
    Word{"interval", "Interval"},
    Word{"allRecording", "All recording"},
    Word{"byDuration", "By duration"},
    Word{"byStates", "By state events"},
    Word{"bySpots", "By spot events"},
    Word{"duration", "Duration"},
    Word{"states", "State events"},
    Word{"spots", "Spot events"},
    Word{"preTrigger", "Pre-trigger"},
    Word{"segment", "Segment duration"},
    Word{"steps", "Steps"},
    Word{"exclude", "Events to exclude"},
    Word{"none", "None"},
    Word{"epochs", "Epochs"},
    Word{"all", "All"},
    Word{"first", "First %s"},
    Word{"random", "Random %s in time order"},
    Word{"contrast", "Contrast value"},
    Word{"name", "Name"},
    Word{"montage", "Montage"},
    Word{"rate", "Rate"},
    Word{"samples", "FFT samples"},
    Word{"resolution", "Resolution"},
    Word{"used", "Epochs used"},
    Word{"computed", "Computed"},
    Word{"yes", "yes"},
    Word{"no", "no"},
};

QString Translated(const QString& english) {
    return QString::fromStdString(
        owl::InUsersWords(PModule::Named("Orvanta"), "DESCRIPTION", kWords, english.toStdString()));
}

/// What stands behind a name. Names of files, montages and events are the user's own words.
QString TranslatedValue(const QString& name, const QString& value) {
    static const QStringList kOwnWords{"Name", "Montage", "Windowing"};
    static const QStringList kLabels{"State events", "Spot events", "Events to exclude"};
    if (kOwnWords.contains(name) || (kLabels.contains(name) && value != "None")) {
        return value;
    }
    return Translated(value);
}

} // namespace

void ShowDescription(QPlainTextEdit& memo, const std::string& text) {
    memo.clear();
    QTextCursor cursor(memo.document());
    QTextCharFormat names;
    names.setFontWeight(QFont::DemiBold);
    for (const QString& line : QString::fromStdString(text).split('\n')) {
        if (!cursor.atStart()) {
            cursor.insertBlock();
        }
        const qsizetype colon = line.indexOf(": "); // -1 where there is no name
        if (colon < 0) {
            cursor.insertText(line, QTextCharFormat());
            continue;
        }
        const QString name = line.first(colon);
        cursor.insertText(Translated(name) + ':', names);
        cursor.insertText(' ' + TranslatedValue(name, line.sliced(colon + 2)), QTextCharFormat());
    }
    memo.moveCursor(QTextCursor::Start);
    memo.setCurrentCharFormat(QTextCharFormat()); // of the text that replaces this one
}

} // namespace orvanta::side_bar
