// SPDX-License-Identifier: GPL-3.0-or-later
// The base of the views in the application's main window.
#pragma once

#include "host/chart_view/global_window.h"
#include "host/toolkit/gadget_bar.h"
#include "host/toolkit/menu.h"
#include "host/toolkit/message_module.h"
#include "host/toolkit/window.h"
#include "spectra_contract/api.h"

#include <QPointer>

#include <map>
#include <string>

class QSplitter;

/// Numbers of a child window's resources.
struct ChildResInfo {
    unsigned command = 0;   ///< of the menu's title item, with which the application opens the view
    unsigned bitmap = 0;    ///< of the button for the same
    unsigned menu = 0;      ///< template of the menu
    unsigned icon = 0;      ///< of the window
    unsigned smallIcon = 0; ///< of its tab
};

/// A view: a window with a menu, a tool bar and a section of the user's settings, in a splitter that also
/// takes what stands beside the view. The splitter belongs to the main window, which shows it; it ends with
/// the view. GUI thread.
class ORVANTA_API TheChild : public owl::TWindow {
public:
    /// \param name of the class, and of its section of the settings
    /// \param module of menu texts and other texts; may be null
    TheChild(GlobalWindow& window, std::string name, PModule* module, const ChildResInfo& resources);
    ~TheChild() override;

    GlobalWindow& GW() const { return window_; }
    const std::string& GetChildName() const { return name_; }
    const ChildResInfo& GetResInfo() const { return resources_; }
    /// May be null.
    const PModule* GetMessages() const { return messages_; }
    owl::TMenu& GetMenu() { return menu_; }
    /// Hidden until the main window shows it.
    owl::GadgetBar& GetToolBar() const { return *toolBar_; }
    /// The gadget of the table that has this key; null when there is none.
    QWidget* GetGadget(int key) const;
    /// The view is one of its panes.
    QSplitter& Panes() const;
    const owl::TFont& GetViewFont() const { return viewFont_; }
    /// Logical dots per inch of the screen.
    int GetDPI() const { return logicalDpiX(); }

    /// Draws the view with the windows in it on white paper of this size, in the colours of the light
    /// appearance; what is shown on the screen does not change. \param fineness pixels to a logical one of
    /// what the view draws as pixels
    virtual void DrawPicture(owl::TDC& dc, const owl::TSize& size, double fineness);

    /// The number of the picture that fits the screen: pictures are drawn at every resolution, so their own.
    static constexpr unsigned DPI_AWARE_BMP_ID(unsigned bitmap) { return bitmap; }

    /// Puts what the user set in the view among the settings: when it ends, and before that whenever the
    /// application wants to be safe. What overrides it calls the base first.
    virtual void StoreUserSettings() const {}

    void Destroy(int retVal = 0) override;
    const owl::TResponseEntry* Find(const owl::TEventKey& key) const override;

protected:
    static const owl::TResponseTable __entries; // NOLINT(clang-diagnostic-reserved-identifier): the family's

    /// Makes this the active child, loads the settings, then makes the gadgets. What overrides it calls this
    /// first.
    void SetupWindow() override;
    /// What overrides it calls the base first.
    virtual void LoadUserSettings();
    /// Fills the tool bar. What overrides it calls the base first.
    virtual void CreateGadgets();

    /// Draws the view of its present size with the windows in it.
    virtual void DrawAll(owl::TDC& dc, double fineness);

    // The view's section of the settings.
    int ReadChildInt(const char* key, int defaultValue) const;
    double ReadChildDouble(const char* key, double defaultValue) const;
    void WriteChildInt(const char* key, int value) const;
    void WriteChildDouble(const char* key, double value) const;

    /// From now on the gadget has this key.
    void SetGadget(int key, QWidget* gadget) { gadgets_[key] = gadget; }
    /// Nothing for a gadget that is not a button of two states.
    void PressToolBtn(int key, bool down) const;
    void CheckMenu(unsigned id, bool check) { menu_.CheckMenuItem(id, check); }
    /// Lets the user choose another font, which is kept. \return true when one was chosen
    bool ChooseChildFont();
    void SetMessageBar(const std::string& text) const { window_.SetMessageText(text); }

    static void CopyStringToClipboard(const std::string& text);
    /// Lays a colour over the rectangle. \param alpha 0 invisible, 255 opaque
    static void MyAlphaBlend(owl::TDC& dc, const owl::TRect& rect, owl::TColor color, std::uint8_t alpha);

    void EvSetFocus(HWND lost);
    /// Opens the view's menu at the mouse.
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    GlobalWindow& window_;
    std::string name_;
    PModule* messages_;
    ChildResInfo resources_;
    owl::TMenu menu_;
    owl::TFont viewFont_;
    QPointer<owl::GadgetBar> toolBar_;
    std::map<int, QPointer<QWidget>> gadgets_; ///< by key
    QSplitter* panes_;                         ///< null once it ends
};
