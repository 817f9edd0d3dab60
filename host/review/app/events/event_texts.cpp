// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/events/event_texts.h"

#include "host/toolkit/form_texts.h"
#include "host/toolkit/message_module.h"

#include <QLocale>
#include <QString>

namespace orvanta::review {

namespace {

QString EventText(const char* key, const char* builtIn) {
    return QString::fromStdString(owl::TextOr(PModule::Named("Orvanta"), "EVENTS", key, builtIn));
}

} // namespace

std::string AddText(const std::string& label) {
    return EventText("add", "Add %1").arg(QString::fromStdString(label)).toStdString();
}

std::string ChangeText(const std::string& label) {
    return EventText("change", "Change %1").arg(QString::fromStdString(label)).toStdString();
}

std::string DeleteText(const std::string& label) {
    return EventText("delete", "Delete %1").arg(QString::fromStdString(label)).toStdString();
}

std::string DeleteText(std::size_t events) {
    return EventText("deleteMany", "Delete %1 Events").arg(events).toStdString();
}

std::string SecondsOf(const XTime& time) {
    return QString::number(time.Seconds(), 'f', QLocale::FloatingPointShortest).toStdString();
}

} // namespace orvanta::review
