// SPDX-License-Identifier: GPL-3.0-or-later
// Which views there are, and how they stand.
#include "host/chart_view/the_child.h"
#include "host/review/app/main_window/analysis_runner.h"
#include "host/review/app/main_window/documents.h"
#include "host/review/app/main_window/event_dock.h"
#include "host/review/app/main_window/main_window.h"
#include "host/review/app/main_window/menus.h"
#include "host/review/app/main_window/open_views.h"
#include "host/review/app/main_window/pane_ring.h"
#include "host/review/app/main_window/panel_beside.h"
#include "host/review/app/main_window/shell.h"
#include "host/review/app/main_window/view_pictures.h"

#include <QActionGroup>
#include <QMenu>

namespace orvanta::review {

namespace {

void FillOrShowAll(const MainWindow& middle) {
    ViewArea& area = middle.Views();
    const TheChild* active = middle.GetActiveChild();
    if (area.IsFilled()) {
        area.ShowAll();
    } else if (active != nullptr) {
        for (const ViewKind kind : kViewKinds) {
            if (area.ViewOf(kind) == active) {
                area.Fill(kind);
            }
        }
    }
}

void AddSideBar(MenuItems& items, QMenu& menu, const ViewArea& area) {
    items.Add(menu, Caption{"viewSideBar", "Si&de Bar"}, kPanelKey,
              [&items, &area] {
                  if (PanelBeside* sideBar = area.SideBar()) {
                      sideBar->Show(!sideBar->IsShown());
                  }
                  items.Update();
              },
              {.enabled = [&area] { return area.SideBar() != nullptr; },
               .checked = [&area] { return area.SideBar() != nullptr && area.SideBar()->IsShown(); }});
}

void AddActivation(MenuItems& items, QMenu& menu, OpenViews& views) {
    auto* active = new QActionGroup(&menu);
    active->setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional);
    struct View {
        ViewKind kind;
        Caption caption;
        Qt::Key key;
    };
    for (const View& view : {View{ViewKind::Traces, Caption{"windowTraces", "&Traces"}, Qt::Key_1},
                             View{ViewKind::Spectrum, Caption{"windowSpectrum", "&Spectrum"}, Qt::Key_2},
                             View{ViewKind::Maps, Caption{"windowMaps", "Spectral &Maps"}, Qt::Key_3},
                             View{ViewKind::Heads, Caption{"windowHeads", "&3D Spectral Maps"}, Qt::Key_4}}) {
        active->addAction(
            &items.Add(menu, view.caption, QKeySequence(Qt::CTRL | view.key),
                       [&views, kind = view.kind] { views.Activate(kind); },
                       {.enabled = [&views, kind = view.kind] { return views.IsShown(kind); },
                        .checked = [&views, kind = view.kind] { return views.IsActive(kind); }}));
    }
}

void AddFilling(MenuItems& items, QMenu& menu, const MainWindow& middle, const ViewPictures& pictures) {
    const auto toggle = [&items, &middle] {
        FillOrShowAll(middle);
        items.Update();
    };
    const auto isFilled = [&middle] { return middle.Views().IsFilled(); };
    items.Add(
        menu, Caption{"viewFillWindow", "&Fill Window with Active View"}, kFillKey, toggle,
        {.enabled = [isFilled, &pictures] { return isFilled() || pictures.HasView(); }, .checked = isFilled});
    items.Add(menu, Caption{"viewShowAll", "Sho&w All Views"}, Qt::Key_Escape, toggle, {.enabled = isFilled});
}

void AddArrangements(MenuItems& items, QMenu& menu, OpenViews& views, const ViewArea& area) {
    struct Place {
        Arrangement arrangement;
        Caption caption;
    };
    auto* group = new QActionGroup(&menu);
    for (const Place& place :
         {Place{Arrangement::TracesAbove, Caption{"windowTracesAbove", "Traces &Above"}},
          Place{Arrangement::TracesBeside, Caption{"windowTracesBeside", "Traces on the &Left"}},
          Place{Arrangement::Rows, Caption{"windowRows", "Each &Below the Other"}}}) {
        group->addAction(
            &items.Add(menu, place.caption, {}, [&views, to = place.arrangement] { views.Arrange(to); },
                       {.checked = [&area, to = place.arrangement] { return area.GetArrangement() == to; }}));
    }
}

} // namespace

void ToggleView(const MenuParts& parts, ViewKind kind) {
    if (parts.views.IsShown(kind)) {
        parts.views.Hide(kind);
    } else {
        parts.analyses.Show(kind);
    }
}

void AddViewMenu(MenuItems& items, const MenuParts& parts) {
    QMenu& menu = items.AddMenu(Caption{"menuView", "&View"});
    OpenViews& views = parts.views;
    struct View {
        ViewKind kind;
        Caption caption;
    };
    for (const View& view : {View{ViewKind::Traces, Caption{"viewTraces", "&Traces"}},
                             View{ViewKind::Spectrum, Caption{"viewSpectrum", "&Spectrum"}},
                             View{ViewKind::Maps, Caption{"viewMaps", "Spectral &Maps"}},
                             View{ViewKind::Heads, Caption{"viewHeads", "&3D Spectral Maps"}}}) {
        items.Add(menu, view.caption, {}, [parts, kind = view.kind] { ToggleView(parts, kind); },
                  {.enabled = [&views, kind = view.kind] { return views.CanShow(kind); },
                   .checked = [&views, kind = view.kind] { return views.IsShown(kind); }});
    }
    menu.addSeparator();
    AddSideBar(items, menu, parts.middle.Views());
    const auto hasEvents = [&documents = parts.documents] { return documents.Current() != nullptr; };
    const auto showsEvents = [hasEvents, &list = parts.eventList] { return hasEvents() && list.IsWanted(); };
    items.Add(menu, Caption{"viewEvents", "&Events"}, QKeySequence(Qt::CTRL | Qt::Key_E),
              [showsEvents, &list = parts.eventList, &views] {
                  const bool show = !showsEvents();
                  list.Want(show);
                  if (!show) {
                      views.Focus();
                  }
              },
              {.enabled = hasEvents, .checked = showsEvents});
}

void AddWindowMenu(MenuItems& items, const MenuParts& parts) {
    QMenu& menu = items.AddMenu(Caption{"menuWindow", "&Window"});
    AddActivation(items, menu, parts.views);
    menu.addSeparator();
    AddFilling(items, menu, parts.middle, parts.pictures);
    const ItemState state{
        .enabled = [&documents = parts.documents] { return documents.Current() != nullptr; }};
    items.Add(
        menu, Caption{"viewNextPane", "&Next Pane"}, Qt::Key_F6,
        [&shell = parts.shell, &middle = parts.middle] { GoToPane(shell, middle, true); }, state);
    items.Add(
        menu, Caption{"viewPreviousPane", "&Previous Pane"}, Qt::SHIFT | Qt::Key_F6,
        [&shell = parts.shell, &middle = parts.middle] { GoToPane(shell, middle, false); }, state);
    menu.addSeparator();
    AddArrangements(items, menu, parts.views, parts.middle.Views());
}

} // namespace orvanta::review
