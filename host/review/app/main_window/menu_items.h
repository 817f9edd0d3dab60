// SPDX-License-Identifier: GPL-3.0-or-later
// Items of menus that know by themselves whether they can be chosen.
#pragma once

#include <QKeySequence>
#include <QString>

#include <functional>
#include <vector>

class QAction;
class QMenu;
class QMenuBar;

namespace orvanta::review {

/// Key in section HOST of the message store, which names the menu or item, too, and built-in text.
struct Caption {
    const char *key, *text;

    QString Text() const;
};

/// An item for as long as its menu is not filled anew. What \p run throws is told.
QAction& AddItem(QMenu& menu, const Caption& caption, const QKeySequence& shortcut,
                 std::function<void()> run);

/// How an item is looked up each time; without, it can always be chosen and is not checkable.
struct ItemState {
    std::function<bool()> enabled = {};
    std::function<bool()> checked = {};
};

/// The menus of a bar. GUI thread.
class MenuItems {
public:
    /// \param bar must outlive this
    explicit MenuItems(QMenuBar& bar) : bar_(bar) {}

    /// At the end of the bar. Its items are looked up when it opens.
    QMenu& AddMenu(const Caption& caption);
    QAction& Add(QMenu& menu, const Caption& caption, const QKeySequence& shortcut, std::function<void()> run,
                 ItemState state = {});
    /// Something else that depends on the state of things.
    void AddUpdate(std::function<void()> update);
    /// Looks all of them up; shortcuts work by it.
    void Update() const;

private:
    QMenuBar& bar_;
    std::vector<std::function<void()>> updates_;
};

} // namespace orvanta::review
