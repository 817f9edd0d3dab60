// SPDX-License-Identifier: GPL-3.0-or-later
// The side bar of the application's main window.
#pragma once

#include "spectra_contract/api.h"

class QWidget;

/// Shows the panels of the child window that has the focus. Owns none of them. GUI thread.
class ORVANTA_API SideBarManager {
public:
    virtual ~SideBarManager();

    /// \param show show it at once
    /// \param activate bring it before the others
    virtual void AddPanel(QWidget& panel, bool show, bool activate) = 0;
    /// Nothing for a panel that was not added.
    virtual void RemovePanel(QWidget& panel) = 0;
    /// Arranges the panels anew after some came or went.
    virtual void Update() = 0;
};
