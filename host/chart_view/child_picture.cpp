// SPDX-License-Identifier: GPL-3.0-or-later
// How a view is drawn on paper.
#include "host/chart_view/the_child.h"
#include "host/toolkit/appearance.h"

#include <QPalette>
#include <QScopeGuard>

namespace {

QPalette Paper() {
    QPalette paper = owl::AppearancePalette(false);
    for (const QPalette::ColorRole role : {QPalette::Window, QPalette::Base}) {
        paper.setColor(role, Qt::white);
    }
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text}) {
        paper.setColor(role, Qt::black);
    }
    return paper;
}

} // namespace

void TheChild::DrawPicture(owl::TDC& dc, const owl::TSize& size, double fineness) {
    const QPointer<TheChild> alive(this);
    const QRect place = geometry();
    const bool ownColors = testAttribute(Qt::WA_SetPalette);
    const QPalette colors = palette();
    const bool updates = updatesEnabled();
    const auto back = qScopeGuard([&] {
        if (alive) {
            setPalette(ownColors ? colors : QPalette());
            setGeometry(place);
            setUpdatesEnabled(updates);
            Invalidate();
        }
    });
    setUpdatesEnabled(false);
    setPalette(Paper());
    resize(size.cx, size.cy);
    DrawAll(dc, fineness);
}

void TheChild::DrawAll(owl::TDC& dc, double /*fineness*/) {
    owl::TRect all = GetClientRect();
    Draw(dc, true, all);
}
