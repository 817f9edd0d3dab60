// SPDX-License-Identifier: GPL-3.0-or-later
#include "side_bar/form_listener.h"

TChangeListener::~TChangeListener() = default;

TFormListener::TFormListener(HWND parent) : TChangeListener(parent.Widget()) {}

TFormListener::~TFormListener() = default;
