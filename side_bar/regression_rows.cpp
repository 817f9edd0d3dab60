// SPDX-License-Identifier: GPL-3.0-or-later
#include "side_bar/regression_rows.h"

#include "spectra_contract/sensor.h"

#include <QLocale>

#include <cmath>

namespace orvanta::side_bar {

namespace {

QString NumberText(double value, char format, int precision) {
    if (!std::isfinite(value)) {
        return QStringLiteral("n/a");
    }
    QLocale locale;
    locale.setNumberOptions(QLocale::OmitGroupSeparator | QLocale::IncludeTrailingZeroesAfterDot);
    return locale.toString(value, format, precision);
}

QString NameOf(const BCIReg& row) {
    return QString::fromStdString(row.Sensor->GetName());
}

double ValueOf(const BCIReg& row, int column) {
    switch (column) {
    case kFrequency:
        return row.FreqHz;
    case kR:
        return row.R;
    case kK:
        return row.K;
    case kM:
        return row.M;
    default:
        return static_cast<double>(row.Count);
    }
}

} // namespace

bool StandsOut(const BCIReg& row) {
    return std::abs(row.R) >= kCorrelationLimit;
}

QString RegressionText(const BCIReg& row, int column) {
    switch (column) {
    case kSensor:
        return NameOf(row);
    case kFrequency:
        return NumberText(row.FreqHz, 'f', 2);
    case kR:
        return NumberText(row.R, 'f', 3);
    case kK:
    case kM:
        return NumberText(ValueOf(row, column), 'g', 4);
    default:
        return QString::number(row.Count);
    }
}

bool StandsAbove(const BCIReg& a, const BCIReg& b, int column, Qt::SortOrder order) {
    const bool ascending = order == Qt::AscendingOrder;
    if (column == kSensor) {
        const int names = QString::compare(NameOf(a), NameOf(b), Qt::CaseInsensitive);
        return ascending ? names < 0 : names > 0;
    }
    const double first = ValueOf(a, column);
    const double second = ValueOf(b, column);
    if (std::isnan(first) || std::isnan(second)) {
        return !std::isnan(first) && std::isnan(second);
    }
    return ascending ? first < second : first > second;
}

} // namespace orvanta::side_bar
