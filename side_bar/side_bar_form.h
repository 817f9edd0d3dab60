// SPDX-License-Identifier: GPL-3.0-or-later
// The side bar of a view: panels behind tabs.
#pragma once

#include "host/toolkit/geometry.h"
#include "side_bar/form_listener.h"

namespace owl {
class TForm;
class TPageControl;
} // namespace owl

/// A borderless form with one tab for each panel. Panels in tabs end with it. GUI thread.
class ORVANTA_API TSideBarFormBase : public TChangeListener {
public:
    /// \param parent the view that hosts the side bar; may be null
    explicit TSideBarFormBase(HWND parent);
    /// \param owner may be null
    explicit TSideBarFormBase(owl::TForm* owner);
    ~TSideBarFormBase() override;

    /// Moves the panel into a tab of its own behind the others, with the panel's window title as its text.
    /// Not null.
    void AddPage(TFormListener* panel);
    /// Takes the panel out and destroys its tab; the panel is the caller's from then on. Nothing for a panel
    /// that is in no tab. Not null.
    void RemovePage(TFormListener* panel);
    int GetPageCount() const;
    /// Brings the tab of this number, from 0, to the front; nothing when there is none.
    void SetActivePage(int index);

    /// The view of the first constructor, else null.
    HWND GetParentWindow() const { return parent_; }

    /// The colour that the chooser for panels starts with and leaves, 0x00BBGGRR.
    owl::TColor cdChnColor = 0;
    /// Lets the user choose it. \return false when cancelled
    bool ExecuteChnColor();

private:
    void SetUp();

    HWND parent_;
    owl::TPageControl* pgSideBar_ = nullptr;
};
