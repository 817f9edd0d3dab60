// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/edf/edf_channel.h"

#include "host/signal_base/text.h"
#include "host/signal_base/units.h"

#include <cmath>

namespace orvanta::signal {

namespace {

void Calibrate(EdfFields& fields, EdfSignal& signal, const EdfField& physicalMin,
               const EdfField& physicalMax) {
    const std::optional<double> low = fields.Number(physicalMin);
    const std::optional<double> high = fields.Number(physicalMax);
    const auto raw = [&](const char* reason) {
        signal.header.calibrated = false;
        fields.Repaired(physicalMin, std::string(reason) + ", raw values without calibration");
    };
    if (!low || !high) {
        return raw("the physical minimum or maximum is no number");
    }
    if (!signal.digital_min || !signal.digital_max) {
        return raw("the digital minimum or maximum is no number");
    }
    if (*low == *high) {
        return raw("physical minimum and maximum are equal");
    }
    if (*signal.digital_min == *signal.digital_max) {
        return raw("digital minimum and maximum are equal");
    }
    const double gain = (*high - *low) / (*signal.digital_max - *signal.digital_min);
    const double offset = *low - gain * *signal.digital_min;
    if (!std::isfinite(gain) || !std::isfinite(offset) || gain == 0) {
        return raw("the physical or digital range is impossible");
    }
    signal.header.gain = gain;
    signal.header.offset = offset;
    if (*low > *high) {
        fields.Repaired(physicalMin, "physical minimum above the maximum, taken as a negative gain");
    }
    if (*signal.digital_min > *signal.digital_max) {
        fields.Repaired(physicalMin, "digital minimum above the maximum, taken as a negative gain");
    }
}

} // namespace

EdfSignal ReadEdfChannel(EdfFields& fields, std::size_t channel, std::size_t channels) {
    const auto column = [&](const EdfField& field) { return InColumn(field, channel, channels); };
    EdfSignal signal;
    signal.channel = channel;
    const EdfField labelField = column(edf_field::kLabel);
    const std::string label = fields.Text(labelField);
    SignalHeader& header = signal.header;
    header.annotations = label == "EDF Annotations" || label == "BDF Annotations";
    header.status = SameText(label, "Status");
    header.label = label;
    if (label.empty()) {
        header.label = "Channel " + std::to_string(channel);
        fields.Repaired(labelField, "no label, named by its number");
    }
    header.transducer = fields.Text(column(edf_field::kTransducer));
    header.prefilter = fields.Text(column(edf_field::kPrefilter));
    header.unit = NormalUnit(fields.Text(column(edf_field::kUnit)));
    if (header.annotations) {
        return signal; // its bytes are text, its ranges mean nothing
    }
    signal.digital_min = fields.Number(column(edf_field::kDigitalMin));
    signal.digital_max = fields.Number(column(edf_field::kDigitalMax));
    Calibrate(fields, signal, column(edf_field::kPhysicalMin), column(edf_field::kPhysicalMax));
    return signal;
}

} // namespace orvanta::signal
