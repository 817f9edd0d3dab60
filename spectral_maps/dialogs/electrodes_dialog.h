// SPDX-License-Identifier: GPL-3.0-or-later
// Choice of the electrodes whose mean is the common average reference.
#pragma once

#include "host/toolkit/dialog.h"
#include "spectra_contract/api.h"
#include "spectra_contract/sensor.h"

#include <list>

class QListWidget;

namespace owl {
class TWindow;
}

/// Dialog 1634. OK replaces the selection by the selected sensors in the order in which they are offered;
/// Cancel leaves it alone. GUI thread.
class ORVANTA_API CARElectSelDlg final : public PDialog {
public:
    static constexpr unsigned kNumber = 1634;

    /// \param parent may be null
    /// \param selected what is selected at first, and after OK; one that is not offered is not shown and lost
    /// \param all the sensors offered; both lists must outlive the dialog
    CARElectSelDlg(owl::TWindow* parent, std::list<const SensorType*>& selected,
                   const std::list<const SensorType*>& all);
    ~CARElectSelDlg() override;

    void Destroy(int retVal) override;

protected:
    void SetupWindow() override;

private:
    QListWidget* list_; ///< null when there is no layout for this dialog
    std::list<const SensorType*>& selected_;
    const std::list<const SensorType*>& all_;
};
