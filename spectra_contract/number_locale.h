// SPDX-License-Identifier: GPL-3.0-or-later
// Numerals for a scope.
#pragma once

#include "spectra_contract/api.h"

#include <memory>

/// While it lives, the C library's number conversions on this thread use English numerals ("." as decimal
/// sign).
class ORVANTA_API TempNumEngLocale {
public:
    TempNumEngLocale();
    ~TempNumEngLocale();
    TempNumEngLocale(const TempNumEngLocale&) = delete;
    TempNumEngLocale& operator=(const TempNumEngLocale&) = delete;

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};
