// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/events/event_texts.h"

#include "host/toolkit/form_texts.h"
#include "host/toolkit/message_module.h"

#include <QLocale>
#include <QStringList>

#include <cmath>

namespace orvanta::review {

namespace {

/// Numbers as the user types them, without marks between thousands.
QLocale Numerals() {
    QLocale numerals;
    numerals.setNumberOptions(QLocale::OmitGroupSeparator | QLocale::RejectGroupSeparator);
    return numerals;
}

std::string With(const QString& pattern, const std::string& label) {
    return pattern.arg(QString::fromStdString(label)).toStdString();
}

} // namespace

QString EventText(const char* key, const char* builtIn) {
    return QString::fromStdString(owl::TextOr(PModule::Named("Orvanta"), "EVENTS", key, builtIn));
}

QCollator Alphabet() {
    // Without a locale of the user's, bytes would be compared.
    const QLocale locale;
    QCollator alphabet(locale.language() == QLocale::C ? QLocale(QLocale::English) : locale);
    alphabet.setNumericMode(true);
    return alphabet;
}

std::string AddText(const std::string& label) {
    return With(EventText("add", "Add %1"), label);
}

std::string ChangeText(const std::string& label) {
    return With(EventText("change", "Change %1"), label);
}

std::string DeleteText(const std::string& label) {
    return With(EventText("delete", "Delete %1"), label);
}

std::string DeleteText(std::size_t events) {
    return EventText("deleteMany", "Delete %1 Events").arg(events).toStdString();
}

QString ClassText(EventClass eventClass) {
    return eventClass == EventClass::Spot ? EventText("spot", "Spot") : EventText("state", "State");
}

QString SourceText(EventSource source) {
    return source == EventSource::Table ? EventText("own", "Mine") : EventText("recorded", "Recording");
}

QString SecondsText(const XTime& time) {
    return Numerals().toString(time.Seconds(), 'f', QLocale::FloatingPointShortest);
}

std::optional<XTime> ParseSeconds(const QString& text) {
    constexpr double kFarthest = 1e9;
    constexpr int kSixty = 60;
    constexpr qsizetype kMostParts = 3;
    const QStringList parts = text.trimmed().split(u':');
    if (parts.size() > kMostParts) {
        return std::nullopt;
    }
    double seconds = 0;
    for (const QString& part : parts) {
        bool isNumber = false;
        const double value = Numerals().toDouble(part, &isNumber);
        const bool inner = &part != &parts.front();
        const bool last = &part == &parts.back();
        if (!isNumber || !std::isfinite(value) || (inner && (value < 0 || value >= kSixty)) ||
            (!last && (value < 0 || value != std::floor(value)))) {
            return std::nullopt;
        }
        seconds = seconds * kSixty + value;
    }
    return std::abs(seconds) <= kFarthest ? std::optional(XTime::FromSeconds(seconds)) : std::nullopt;
}

QString ClockText(const EEGFileInfoType& recording, const XTime& time) {
    constexpr unsigned kPerSecond = 1000;
    return QString::fromStdString(recording.GetTraceCursor()->GetTimeStrFromSmpl(
        Sample::Mode::Memory, kPerSecond, std::llround(time.Seconds() * kPerSecond), XTime::DTMode::Time,
        XTime::ARMode::Clock));
}

} // namespace orvanta::review
