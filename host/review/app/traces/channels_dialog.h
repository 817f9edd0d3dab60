// SPDX-License-Identifier: GPL-3.0-or-later
// Which channels are shown and which are bad.
#pragma once

#include "host/review/app/traces/trace_channel.h"
#include "host/toolkit/form.h"

#include <memory>
#include <set>
#include <string>
#include <vector>

namespace Ui {
class TFormTraceChannels;
}

namespace orvanta::review {

/// A row for each line with a check box for shown and one for bad.
class ChannelsDialog final : public owl::TForm {
public:
    ChannelsDialog(HWND parent, const std::vector<TraceChannel>& channels,
                   const std::set<std::string>& hidden);
    ~ChannelsDialog() override;

    // As checked; names of lines.
    std::set<std::string> Hidden() const;
    std::set<std::string> Bad() const;

private:
    void SetAll(int column, Qt::CheckState state);
    /// Checks the selected rows as the first of them is not.
    void ToggleSelected(int column);
    std::set<std::string> NamesWith(int column, Qt::CheckState state) const;

    bool eventFilter(QObject* object, QEvent* event) override;

    std::unique_ptr<Ui::TFormTraceChannels> ui_;
};

} // namespace orvanta::review
