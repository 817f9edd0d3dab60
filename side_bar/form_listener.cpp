// SPDX-License-Identifier: GPL-3.0-or-later
#include "side_bar/form_listener.h"

TFormListener::TFormListener(HWND parent) : QWidget(parent.Widget()) {}

TFormListener::~TFormListener() = default;
