// SPDX-License-Identifier: GPL-3.0-or-later
// Windows: widgets that answer events through response tables and draw outside of Qt's paint events.
#pragma once

#include "host/toolkit/backing_image.h"
#include "host/toolkit/dc.h"
#include "host/toolkit/response_table.h"

#include <QWidget>

#include <optional>

namespace owl {

class TModule;

/// A widget and an event handler. Coordinates are whole logical pixels in the window. GUI thread.
///
/// Draw never runs inside a paint event: what Invalidate damages is drawn in a step of its own from the event
/// queue, after input, into a picture that paint events copy. So Draw may compute, open dialogs, invalidate
/// (one more step follows) or end the window; steps never nest.
class ORVANTA_TOOLKIT_API TWindow : public QWidget, public TEventHandler {
public:
    /// \param parent owns the window; may be null
    /// \param module of its resources and texts; null for the parent's
    explicit TWindow(TWindow* parent = nullptr, TModule* module = nullptr);
    ~TWindow() override;

    HWND GetHandle() { return HWND(this); }
    /// May be null.
    TModule* GetModule() const;

    /// Sets the window up, once; showing it does so, too.
    void Create();
    /// From Create to Destroy.
    bool IsCreated() const { return life_ == Life::Created; }
    /// Ends the window: windows in it first, then it is hidden and draws and hears no more; the object stays.
    /// Closing the window does so. What overrides it calls the base at some point.
    virtual void Destroy(int retVal = 0);

    /// \param erase lay the background first
    void Invalidate(bool erase = true);
    void InvalidateRect(const TRect& rect, bool erase = true);
    /// Draws now what is damaged, unless Draw is running.
    void UpdateWindow();

    TRect GetClientRect() const;
    void SetFocus();
    /// A window that is disabled gives the focus to no other.
    void EnableWindow(bool enable);

    /// \return what the method that answers returns, 0 when none does
    LPARAM SendMessage(unsigned id, WPARAM wParam = 0, LPARAM lParam = 0);
    /// The same from the event queue; forgotten when the window ends before.
    void PostMessage(unsigned id, WPARAM wParam = 0, LPARAM lParam = 0);

    const TResponseEntry* Find(const TEventKey& key) const override;
    void setVisible(bool visible) override;

protected:
    static const TResponseTable __entries; // NOLINT(clang-diagnostic-reserved-identifier): the family's

    /// Sets windows up that are in it. What overrides it calls the base.
    virtual void SetupWindow();
    /// \param erase the background has been laid
    /// \param rect what is damaged; nothing outside of it is taken over
    virtual void Draw(TDC& dc, bool erase, TRect& rect);

    // What happens to an event by default; what answers one in a derived class calls these first.
    void EvSize(unsigned sizeType, const TSize& size);
    void EvSetFocus(HWND lost);
    void EvKillFocus(HWND got);
    void EvKeyDown(unsigned key, unsigned repeat, unsigned flags);
    void EvLButtonDown(unsigned modKeys, const TPoint& point);
    void EvLButtonUp(unsigned modKeys, const TPoint& point);
    void EvLButtonDblClk(unsigned modKeys, const TPoint& point);
    void EvMouseMove(unsigned modKeys, const TPoint& point);
    void EvMouseWheel(unsigned modKeys, int delta, const TPoint& point);

    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    enum class Life { Constructed, Created, Destroyed };

    template <typename Args>
    void Answer(WindowEvent kind, const Args& args, QEvent& event);
    void AnswerMouse(WindowEvent kind, QMouseEvent& event, Qt::MouseButton button);
    BackingImage::Surface Surface() const;
    void QueueStep();
    void Step();

    TModule* module_;
    Life life_ = Life::Constructed;
    BackingImage picture_;
    std::optional<BackingImage::Damage> damage_;
    bool stepQueued_ = false;
    bool drawing_ = false;
    bool* passOn_ = nullptr; ///< set by default handling: the event goes on to the parent
};

} // namespace owl
