// SPDX-License-Identifier: GPL-3.0-or-later
// What the application and Qt say while it runs.
#pragma once

#include <QStringList>

#include <string>

namespace orvanta::review {

/// Keeps the last 1,000 messages, with time and kind, and appends all to a file; warnings still go to
/// standard error. One at a time.
class Log {
public:
    /// \param file empty for none \throws cli::UsageError when it cannot be written
    explicit Log(const std::string& file);
    ~Log();
    Log(const Log&) = delete;
    Log& operator=(const Log&) = delete;

    /// Of the log that lives; empty without one.
    static QStringList Lines();
};

} // namespace orvanta::review
