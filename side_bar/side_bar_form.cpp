// SPDX-License-Identifier: GPL-3.0-or-later
#include "side_bar/side_bar_form.h"

#include "host/toolkit/form.h"
#include "host/toolkit/modal_gateway.h"
#include "host/toolkit/page_control.h"

#include <QVBoxLayout>

TSideBarFormBase::TSideBarFormBase(HWND parent) : TChangeListener(parent.Widget()), parent_(parent) {
    SetUp();
}

TSideBarFormBase::TSideBarFormBase(owl::TForm* owner) : TChangeListener(owner) {
    SetUp();
}

TSideBarFormBase::~TSideBarFormBase() = default;

void TSideBarFormBase::SetUp() {
    setObjectName(QStringLiteral("SideBar"));
    pgSideBar_ = new owl::TPageControl(this);
    pgSideBar_->setObjectName(QStringLiteral("pgSideBar"));
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(1, 1, 1, 1);
    rows->addWidget(pgSideBar_);
}

void TSideBarFormBase::AddPage(TFormListener* panel) {
    pgSideBar_->AddPage(panel->windowTitle()).Take(*panel);
}

void TSideBarFormBase::RemovePage(TFormListener* panel) {
    auto* sheet = dynamic_cast<owl::TTabSheet*>(panel->parentWidget());
    if (sheet != nullptr) {
        panel->setParent(nullptr);
        delete sheet;
    }
}

int TSideBarFormBase::GetPageCount() const {
    return pgSideBar_->GetPageCount();
}

void TSideBarFormBase::SetActivePage(int index) {
    pgSideBar_->SetActivePage(index);
}

bool TSideBarFormBase::ExecuteChnColor() {
    const std::optional<owl::TColor> chosen = owl::CurrentModalGateway().AskColor(GetHandle(), cdChnColor);
    cdChnColor = chosen.value_or(cdChnColor);
    return chosen.has_value();
}
