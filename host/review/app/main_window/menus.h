// SPDX-License-Identifier: GPL-3.0-or-later
// The application's menus.
#pragma once

#include "host/review/app/main_window/view_area.h"

#include <QPointer>

#include <utility>
#include <vector>

class QAction;
class QMenu;
class QMenuBar;
class TheChild;

namespace orvanta::review {

class Commands;

/// Fills a menu bar; what may be chosen is found out when a menu opens. The active view's own menu stands
/// between the others. GUI thread.
class Menus {
public:
    /// \param commands must outlive the bar
    Menus(QMenuBar& bar, Commands& commands);

    /// Shows the menu of this view in place of the one before; null for none.
    void ShowMenuOf(TheChild* child);
    /// Enables what may be chosen now; shortcuts work by it.
    void Update();

private:
    void AddFile();
    void AddEdit();
    void AddView();
    void AddAnalysis();
    void AddMontage();
    void AddTools();
    void AddLanguages(QMenu& tools);
    void AddWindow();
    void AddHelp();
    void FillRecent();
    void FillMontages();

    QMenuBar& bar_;
    Commands& commands_;
    QMenu* recent_ = nullptr;
    QMenu* montage_ = nullptr;
    QAction* beforeChild_ = nullptr; ///< the view's menu stands before it
    QPointer<QAction> child_;
    QAction *fill_ = nullptr, *showAll_ = nullptr, *sideBar_ = nullptr, *nextPane_ = nullptr,
            *previousPane_ = nullptr;
    QAction* events_ = nullptr;
    std::vector<std::pair<ViewKind, QAction*>> views_; ///< which one is active
    QAction *undo_ = nullptr, *redo_ = nullptr, *save_ = nullptr, *saveEventsAs_ = nullptr,
            *openEvents_ = nullptr;
    QAction *savePicture_ = nullptr, *print_ = nullptr, *copyPicture_ = nullptr;
    QAction *close_ = nullptr, *newAnalysis_ = nullptr, *recompute_ = nullptr, *regression_ = nullptr,
            *macros_ = nullptr;
};

} // namespace orvanta::review
