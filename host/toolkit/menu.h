// SPDX-License-Identifier: GPL-3.0-or-later
// Menus made of tables of numbers and texts.
#pragma once

#include "host/toolkit/export.h"

#include <QMenu>

#include <span>
#include <string_view>

namespace owl {

class TEventHandler;

/// A line of a menu: the command's number, 0 for a separator, and its text with mnemonic.
struct MenuItem {
    unsigned id;
    const char* text;
};

/// Runs the commands of an event handler. Before it opens, the enablers run. A check mark is set by the
/// program alone, never by the click. An operation on a number that neither the menu nor a TMenu below it has
/// does nothing. GUI thread.
class ORVANTA_TOOLKIT_API TMenu : public QMenu {
public:
    /// \param handler must outlive the menu; may be null
    explicit TMenu(std::span<const MenuItem> items, TEventHandler* handler = nullptr,
                   QWidget* parent = nullptr);

    void CheckMenuItem(unsigned id, bool check);
    void EnableMenuItem(unsigned id, bool enable);
    /// The item keeps its number, check mark and state.
    void SetItemText(unsigned id, std::string_view text);
    void DeleteItem(unsigned id);
    /// \param id 0 appends a separator
    void AppendItem(unsigned id, std::string_view text);

    /// The item of this number; null when there is none.
    QAction* Item(unsigned id) const;

private:
    void RunEnablers();
    void Run(QAction& item, bool checked);

    TEventHandler* handler_;
};

} // namespace owl
