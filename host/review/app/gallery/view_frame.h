// SPDX-License-Identifier: GPL-3.0-or-later
// A window around one view, for the gallery.
#pragma once

#include "host/chart_view/the_child.h"
#include "host/review/app/plain_window.h"

#include <QSplitter>
#include <QVBoxLayout>

namespace orvanta::review {

/// Tool bar and panes of one view.
class ViewFrame final : public PlainWindow {
public:
    explicit ViewFrame(GenericPlatform& platform) : platform_(platform) {}

    GenericPlatform* GetPlatform() const override { return &platform_; }

    void Take(TheChild& view) {
        auto* rows = new QVBoxLayout(this);
        rows->setContentsMargins(0, 0, 0, 0);
        rows->setSpacing(0);
        rows->addWidget(&view.GetToolBar());
        rows->addWidget(&view.Panes(), 1);
        view.GetToolBar().show();
    }

private:
    GenericPlatform& platform_;
};

} // namespace orvanta::review
