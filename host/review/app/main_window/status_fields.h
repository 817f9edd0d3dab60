// SPDX-License-Identifier: GPL-3.0-or-later
// What the message bar tells of the open recording.
#pragma once

#include <QString>

class EEGFileInfoType;

namespace orvanta::review {

struct StatusFields {
    QString recording; ///< "19 EEG, 256 Hz, 0:05:00"
    QString montage;
    QString place; ///< time of the first sample shown
};

StatusFields StatusOf(const EEGFileInfoType& recording);

} // namespace orvanta::review
