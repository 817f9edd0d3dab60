// SPDX-License-Identifier: GPL-3.0-or-later
// Main entry of the window layer's applications.
#pragma once

/// A module is no application: says so in a message box and answers 0; at once and silently without
/// arguments.
int OwlMain(int argumentCount, char* arguments[]);
