// SPDX-License-Identifier: GPL-3.0-or-later
// What the panels and forms that list analyses have in common.
#pragma once

#include "host/toolkit/report_list.h"
#include "host/toolkit/window_handle.h"

class SpectMacroResult;
class SpectraMgr;

namespace orvanta::side_bar {

/// A report list whose rows carry analyses of a manager. An analysis that the manager has no more counts as
/// none, so a row may outlive it. GUI thread.
class AnalysisList {
public:
    static constexpr int kNoColumn = -1;

    /// \param list shows the rows \param manager of the analyses; may be null. Both must outlive this.
    /// \param colorColumn its cells are filled with the colour of the row's analysis
    AnalysisList(owl::ReportList& list, const SpectraMgr* manager, int colorColumn = kNoColumn);

    /// Adds the row of an analysis: its name, the number of its epochs, then the \p further texts. Not
    /// selected.
    QTreeWidgetItem* Add(SpectMacroResult& analysis, const QStringList& further = {});
    /// Removes all rows; tells no one.
    void Clear() { list_.ClearRows(); }

    /// The analysis that a row carries; null for none and for no row.
    SpectMacroResult* Of(const QTreeWidgetItem* row) const;
    /// The first selected row; null without one.
    QTreeWidgetItem* SelectedRow() const;
    SpectMacroResult* Selected() const { return Of(SelectedRow()); }

    owl::ReportList& Widget() const { return list_; }

private:
    owl::ReportList& list_;
    const SpectraMgr* manager_;
};

/// Gives the keyboard to a view. Nothing without one.
void FocusView(HWND view);
/// Has a view drawn anew. Nothing without one. \param erase lay the background first
void RepaintView(HWND view, bool erase);

} // namespace orvanta::side_bar
