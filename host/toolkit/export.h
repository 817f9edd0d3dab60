// SPDX-License-Identifier: GPL-3.0-or-later
// Visibility of what the window layer offers.
#pragma once

#define ORVANTA_TOOLKIT_API __attribute__((visibility("default")))
