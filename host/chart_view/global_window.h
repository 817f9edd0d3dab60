// SPDX-License-Identifier: GPL-3.0-or-later
// The application's main window, as its child windows know it.
#pragma once

#include "host/toolkit/menu.h"
#include "host/toolkit/window.h"
#include "spectra_contract/api.h"
#include "spectra_contract/time.h"

#include <QPointer>

#include <string>

class GenericPlatform;
class SideBarManager;
class TheChild;
class UserType;

/// Offers services to the child windows, which it owns as widgets. GUI thread.
class ORVANTA_API GlobalWindow : public owl::TWindow {
public:
    GlobalWindow();
    ~GlobalWindow() override;

    /// Lives as long as the window.
    virtual GenericPlatform* GetPlatform() const = 0;
    UserType* GetUser() const;
    /// Title of boxes that tell of an error.
    virtual std::string GetErrorStr() const = 0;
    /// True while work shows no progress and goes on without the user.
    virtual bool IsQuiet() const = 0;
    /// The one line of text at the lower edge; empty for none.
    virtual void SetMessageText(const std::string& text) = 0;
    virtual SideBarManager& GetSideBar() = 0;

    // What a view points at, so that the other views show it, too; nothing happens by default.
    virtual void PointAtTime(const XTime& time);
    /// \param name of a channel or an electrode
    virtual void PointAtChannel(const std::string& name);

    /// Whose menu and tool bar are shown: the child that was made or had the focus last; may be null.
    TheChild* GetActiveChild() const;
    /// Menu of the active child; null without one.
    owl::TMenu* GetMenu() const;
    /// What overrides it shows the child's menu and tool bar, and calls the base.
    virtual void SetActiveChild(TheChild* child);

private:
    QPointer<TheChild> activeChild_;
};
