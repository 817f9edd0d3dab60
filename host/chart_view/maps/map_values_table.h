// SPDX-License-Identifier: GPL-3.0-or-later
// The values of the maps as a table.
#pragma once

#include "host/chart_view/maps/map_values.h"

#include <QTableView>

namespace orvanta::chart {

/// Electrodes in rows, maps in columns, numbers as copied. Ctrl+C copies what is selected, with
/// its titles. GUI thread.
class ORVANTA_API MapValuesTable final : public QTableView {
public:
    /// \param platform must outlive the table
    MapValuesTable(const std::vector<ElectInfo>& electrodes, const GenericPlatform& platform);

    void SetMaps(std::span<const MapContent> maps);

    QSize sizeHint() const override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    class Model;

    void CopySelection() const;

    Model* model_;
};

} // namespace orvanta::chart
