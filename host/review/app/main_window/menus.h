// SPDX-License-Identifier: GPL-3.0-or-later
// The application's menus.
#pragma once

#include "host/review/app/main_window/menu_items.h"
#include "host/review/app/main_window/view_area.h"

#include <QPointer>

class GenericPlatform;
class TheChild;

namespace orvanta::review {

class AnalysisRunner;
class Documents;
class EventDock;
class MainWindow;
class ModuleBridge;
class OpenViews;
class Shell;
class ViewPictures;
class WorkGui;

/// What the menus ask for what is chosen. Must outlive them.
struct MenuParts {
    Shell& shell;
    MainWindow& middle;
    EventDock& eventList;
    Documents& documents;
    OpenViews& views;
    AnalysisRunner& analyses;
    ViewPictures& pictures;
    const WorkGui& gui;
    GenericPlatform& platform;
    ModuleBridge* bridge = nullptr; ///< null without the module
};

// Each adds one menu.
void AddFileMenu(MenuItems& items, const MenuParts& parts);
void AddEditMenu(MenuItems& items, const MenuParts& parts);
void AddViewMenu(MenuItems& items, const MenuParts& parts);
void AddAnalysisMenu(MenuItems& items, const MenuParts& parts);
QMenu& AddMontageMenu(MenuItems& items, const MenuParts& parts);
void AddToolsMenu(MenuItems& items, const MenuParts& parts);
void AddWindowMenu(MenuItems& items, const MenuParts& parts);
void AddHelpMenu(MenuItems& items, const MenuParts& parts);

/// Shows a view, or closes it.
void ToggleView(const MenuParts& parts, ViewKind kind);

/// Fills a menu bar; the active view's own menu stands between the others. GUI thread.
class Menus {
public:
    Menus(QMenuBar& bar, const MenuParts& parts);

    /// Shows the menu of this view in place of the one before; null for none.
    void ShowMenuOf(TheChild* child);
    /// Enables what may be chosen now; shortcuts work by it.
    void Update() const { items_.Update(); }

private:
    /// The first item of a view's menu shows whether the view of this kind is there, shows and closes it.
    void AnswerFirst(TheChild& child, ViewKind kind);

    QMenuBar& bar_;
    MenuParts parts_;
    MenuItems items_;
    QAction* beforeChild_; ///< the view's menu stands before it
    QPointer<QAction> child_;
};

} // namespace orvanta::review
