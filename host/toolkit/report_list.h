// SPDX-License-Identifier: GPL-3.0-or-later
// A list of rows and columns.
#pragma once

#include "host/toolkit/export.h"

#include <QStringList>
#include <QTreeWidget>

namespace owl {

/// Rows with a caption and further columns, selected as a whole, with grid lines, read-only. The selection
/// stays visible when the focus goes elsewhere.
class ORVANTA_TOOLKIT_API ReportList : public QTreeWidget {
public:
    explicit ReportList(QWidget* parent = nullptr);

    /// Gives the captions the room that the other columns leave; these keep their widths, or take those of
    /// their titles where these are wider.
    void StretchCaptions();
    /// Keeps the rows ordered by caption, case ignored.
    void SortByCaption();
    /// In a list ordered by caption, keeps a row behind all that are not put last.
    void PutLast(QTreeWidgetItem* row);
    void SetMultiSelect(bool multiple);

    /// Adds a row and answers it. \param payload the row's own, not owned
    QTreeWidgetItem* AddRow(const QStringList& texts, const void* payload = nullptr);
    const void* DataOf(const QTreeWidgetItem* row) const;
    /// Selects or deselects without touching other rows, but where only one may be selected: there the
    /// selected row is the current one, too.
    void SelectRow(QTreeWidgetItem* row, bool selected = true);
    /// Removes all rows; tells no one.
    void ClearRows();

protected:
    void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                 const QModelIndex& index) const override;
};

} // namespace owl
