// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/montage/montage_texts.h"

#include "host/review/app/refusal_text.h"
#include "host/signal_base/recording_error.h"
#include "host/toolkit/form_texts.h"
#include "host/toolkit/message_module.h"

namespace orvanta::review {

QString MontageWords(const char* key, const char* builtIn) {
    return QString::fromStdString(owl::TextOr(PModule::Named("Orvanta"), "MONTAGES", key, builtIn));
}

QString ReasonText(const signal::RecordingError& error) {
    const QString text = QString::fromStdString(ReasonText(error, PModule::Named("Orvanta")));
    return text.left(1).toUpper() + text.mid(1);
}

} // namespace orvanta::review
