// SPDX-License-Identifier: GPL-3.0-or-later
// Annotations as rows of a table of expected values.
#pragma once

#include "host/signal_base/recording_data.h"

#include <ostream>
#include <string>
#include <vector>

namespace orvanta::test {

constexpr double kSpot = -1; ///< stands for "no duration"

struct EventRow {
    double onset = 0;
    double duration = kSpot;
    std::string text;

    bool operator==(const EventRow&) const = default;
    friend std::ostream& operator<<(std::ostream& out, const EventRow& row) {
        return out << row.onset << ' ' << row.duration << ' ' << row.text;
    }
};
using EventRows = std::vector<EventRow>;

inline EventRows RowsOf(const std::vector<signal::Annotation>& annotations) {
    EventRows rows;
    for (const signal::Annotation& annotation : annotations) {
        rows.push_back({annotation.onset_s, annotation.duration_s.value_or(kSpot), annotation.text});
    }
    return rows;
}

} // namespace orvanta::test
