// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/the_child.h"

#include "host/chart_view/view_font.h"
#include "host/toolkit/menu_templates.h"
#include "host/toolkit/modal_gateway.h"
#include "host/toolkit/services.h"
#include "spectra_contract/platform.h"

#include <QContextMenuEvent>
#include <QSplitter>

#include <utility>

namespace {

/// Takes itself out of the view before it takes the view with it.
class ViewPanes final : public QSplitter {
public:
    ViewPanes(QWidget* parent, QSplitter*& ofView) : QSplitter(parent), ofView_(ofView) {}
    ~ViewPanes() override { ofView_ = nullptr; }

private:
    QSplitter*& ofView_;
};

} // namespace

constinit const owl::TResponseTable TheChild::__entries = {
    owl::On<owl::WindowEvent::SetFocus, &TheChild::EvSetFocus>(),
};

const owl::TResponseEntry* TheChild::Find(const owl::TEventKey& key) const {
    return owl::FindFirst<owl::TWindow>(__entries, *this, key);
}

TheChild::TheChild(GlobalWindow& window, std::string name, PModule* module, const ChildResInfo& resources)
    : TWindow(&window, module), window_(window), name_(std::move(name)), messages_(module),
      resources_(resources), menu_(owl::MenuTemplate(resources.menu), this),
      toolBar_(new owl::GadgetBar(*this, &window)), panes_(new ViewPanes(&window, panes_)) {
    toolBar_->hide();
    resize(0, 0); // nothing is laid out yet
    panes_->setChildrenCollapsible(false);
    panes_->addWidget(this);
}

TheChild::~TheChild() {
    delete toolBar_;
    if (panes_ != nullptr) {
        setParent(nullptr);
        delete panes_;
    }
}

QSplitter& TheChild::Panes() const {
    return *panes_;
}

void TheChild::SetupWindow() {
    window_.SetActiveChild(this);
    LoadUserSettings();
    TWindow::SetupWindow();
    CreateGadgets();
}

void TheChild::LoadUserSettings() {
    viewFont_ = StoredViewFont(*window_.GetPlatform(), name_.c_str(), {});
}

void TheChild::CreateGadgets() {}

void TheChild::Destroy(int retVal) {
    if (window_.GetActiveChild() == this) {
        window_.SetActiveChild(nullptr);
    }
    TWindow::Destroy(retVal);
    if (panes_ != nullptr) {
        panes_->hide();
    }
}

QWidget* TheChild::GetGadget(int key) const {
    const auto found = gadgets_.find(key);
    return found != gadgets_.end() ? found->second : nullptr;
}

void TheChild::PressToolBtn(int key, bool down) const {
    if (auto* button = dynamic_cast<owl::TwoStateButton*>(GetGadget(key))) {
        button->Press(down);
    }
}

int TheChild::ReadChildInt(const char* key, int defaultValue) const {
    return window_.GetUser()->GetInt(name_.c_str(), key, defaultValue);
}

double TheChild::ReadChildDouble(const char* key, double defaultValue) const {
    return window_.GetUser()->GetDouble(name_.c_str(), key, defaultValue);
}

void TheChild::WriteChildInt(const char* key, int value) const {
    window_.GetUser()->PutInt(name_.c_str(), key, value);
}

void TheChild::WriteChildDouble(const char* key, double value) const {
    window_.GetUser()->PutDouble(name_.c_str(), key, value);
}

bool TheChild::ChooseChildFont() {
    const QPointer<TheChild> alive(this);
    const std::optional<owl::TFont> font = owl::CurrentModalGateway().AskFont(GetHandle(), viewFont_);
    if (!alive) {
        return false;
    }
    if (font) {
        viewFont_ = *font;
        StoreViewFont(*window_.GetPlatform(), name_.c_str(), viewFont_);
    }
    return font.has_value();
}

void TheChild::CopyStringToClipboard(const std::string& text) {
    owl::CurrentServices().clipboard->SetText(text);
}

void TheChild::MyAlphaBlend(owl::TDC& dc, const owl::TRect& rect, owl::TColor color, std::uint8_t alpha) {
    dc.BlendRect(rect, color, alpha);
}

void TheChild::EvSetFocus(HWND lost) {
    TWindow::EvSetFocus(lost);
    window_.SetActiveChild(this);
}

void TheChild::contextMenuEvent(QContextMenuEvent* event) {
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    menu_.popup(byKey ? mapToGlobal(rect().center()) : event->globalPos());
}
