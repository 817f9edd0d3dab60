// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/refusal_text.h"

#include "host/signal_base/recording_error.h"
#include "host/toolkit/form_texts.h"

#include <QRegularExpression>

namespace orvanta::review {

namespace {

/// A reason or a remedy; "%s" stands for numbers, names and what the system says.
struct Reason {
    const char* key;
    const char* english;
};

constexpr Reason kReasons[] = {
    Reason{"missing", "does not exist"},
    Reason{"checkName", "check the name and the folder"},
    Reason{"folder", "is a folder"},
    Reason{"device", "is no regular file"},
    Reason{"chooseRecording", "choose a recording file"},
    Reason{"notOpened", "cannot be opened: %s"},
    Reason{"checkPermissions", "check the permissions of the file"},
    Reason{"empty", "the file is empty"},
    Reason{"emptyFrom", "byte %s: the file is empty"},
    Reason{"unknownFormat", "it is no recording of a known format"},
    Reason{"openKnown", "open an EDF, EDF+, BDF, BDF+ or BrainVision file, or export to one of these"},
    Reason{"tooShort", "byte %s: %s bytes wanted, but the file ends at byte %s"},
    Reason{"copyWhole", "the file is shorter than its header says; copy it again"},
    Reason{"notRead", "byte %s cannot be read: %s"},
    Reason{"checkDisk", "check the disk or the network and open the file again"},
    Reason{"cut", "byte %s: the file was cut while open"},
    Reason{"changed", "was changed while open"},
    Reason{"openAgain", "open the file again"},
    Reason{"tooLarge", "has %s bytes, more than the %s that such a file may have"},
    Reason{"checkFile", "check that it is the right file"},
    Reason{"copyAgain", "copy the file again"},
    Reason{"headerCut", "byte %s: the file is shorter than a header of %s bytes"},
    Reason{"chooseEdf", "choose an EDF or BDF recording, or copy the file again"},
};

/// \p english in the user's language where it is one of the reasons.
QString Translated(const QString& english, const PModule* messages) {
    for (const Reason& reason : kReasons) {
        const QString pattern = QRegularExpression::escape(reason.english).replace("\\%s", "(.+)");
        const QRegularExpressionMatch match =
            QRegularExpression(QRegularExpression::anchoredPattern(pattern)).match(english);
        if (match.hasMatch()) {
            QString text =
                QString::fromStdString(owl::TextOr(messages, "REASONS", reason.key, reason.english));
            for (int i = 1; i <= match.lastCapturedIndex(); ++i) {
                text.replace(text.indexOf("%s"), 2, match.captured(i));
            }
            return text;
        }
    }
    return english;
}

} // namespace

std::string RefusalText(const std::exception& error, const PModule* messages) {
    const auto* refused = dynamic_cast<const signal::RecordingError*>(&error);
    if (refused == nullptr) {
        return error.what();
    }
    const auto told = [messages](const std::string& english) {
        return Translated(QString::fromStdString(english), messages).toStdString();
    };
    return refused->File() + ": " + told(refused->Reason()) + " (" + told(refused->Remedy()) + ")";
}

} // namespace orvanta::review
