// SPDX-License-Identifier: GPL-3.0-or-later
// What every panel of the side bar is.
#pragma once

#include "host/toolkit/window_handle.h"
#include "spectra_contract/api.h"

#include <QWidget>

/// A panel that fills its tab; the window title is the tab's text. GUI thread.
class ORVANTA_API TFormListener : public QWidget {
public:
    /// \param parent may be null
    explicit TFormListener(HWND parent);
    ~TFormListener() override;

    /// The spectra or the view have changed: what overrides it fills the panel anew.
    virtual void SomethingChanged() {}
};
