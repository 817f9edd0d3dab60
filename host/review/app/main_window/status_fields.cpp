// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/status_fields.h"

#include "host/signal_base/recording.h"

namespace orvanta::review {

namespace {

QString DurationText(double seconds) {
    constexpr qint64 kHour = 3600;
    constexpr qint64 kMinute = 60;
    const auto whole = static_cast<qint64>(seconds);
    return QString("%1:%2:%3")
        .arg(whole / kHour)
        .arg(whole % kHour / kMinute, 2, 10, QChar('0'))
        .arg(whole % kMinute, 2, 10, QChar('0'));
}

} // namespace

StatusFields StatusOf(const EEGFileInfoType& recording) {
    const signal::Recording& opened = *recording.GetRecording();
    SensorList sensors;
    recording.GetTraceInfo()->GetSensorsListOfType(sensors, Sensor::EegFamily, Sensor::Class::Eeg);
    const double rate = opened.Rate() > 0 ? opened.Rate() : opened.Time().Rate();
    const TraceCursorType& cursor = *recording.GetTraceCursor();
    const std::int64_t sample = cursor.GetSample(cursor.GetStartRecTime(), Sample::Mode::Memory, 0);
    const std::string place = cursor.GetTimeStrFromSmpl(Sample::Mode::Memory, cursor.GetMemDataSR(), sample,
                                                        XTime::DTMode::Time, XTime::ARMode::Clock);
    return {QString("%1 EEG, %2 Hz, %3")
                .arg(sensors.size())
                .arg(rate)
                .arg(DurationText(opened.Time().Duration())),
            QString::fromStdString(recording.GetTraceInfo()->GetMtg().GetName()),
            QString::fromStdString(place.substr(0, place.rfind('.')))};
}

} // namespace orvanta::review
