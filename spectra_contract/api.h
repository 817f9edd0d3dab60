// SPDX-License-Identifier: GPL-3.0-or-later
// Visibility of what a host library or the module offers to others; everything else stays inside its library.
#pragma once

#define ORVANTA_API __attribute__((visibility("default")))
