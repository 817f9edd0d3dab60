// SPDX-License-Identifier: GPL-3.0-or-later
// What the side bar and its panels are.
#pragma once

#include "host/toolkit/window_handle.h"
#include "spectra_contract/api.h"

#include <QWidget>

/// A borderless form that can be told of changes. GUI thread.
class ORVANTA_API TChangeListener : public QWidget {
public:
    using QWidget::QWidget;
    ~TChangeListener() override;

    /// The spectra or the view have changed: what overrides it fills the form anew.
    virtual void SomethingChanged() {}
    HWND GetHandle() { return HWND(this); }
};

/// A panel that fills its tab; the window title is the tab's text.
class ORVANTA_API TFormListener : public TChangeListener {
public:
    /// \param parent may be null
    explicit TFormListener(HWND parent);
    ~TFormListener() override;
};
