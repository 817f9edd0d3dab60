// SPDX-License-Identifier: GPL-3.0-or-later
// The user's montages, made, changed and erased.
#pragma once

#include "host/review/app/montage/montage_folder.h"
#include "host/toolkit/form.h"

#include <memory>
#include <string>
#include <vector>

class EEGFileInfoType;

namespace orvanta::review {

/// A list of montages and the text of the selected one, which is checked as it is typed. It closes with OK
/// only when all of them can be stored; what does not fit the open recording is told and taken all the same.
class MontageEditor final : public owl::TForm {
public:
    /// \param recording null for none; must outlive this
    MontageEditor(HWND parent, std::vector<MontageFile> files, const EEGFileInfoType* recording);
    ~MontageEditor() override;

    /// As they are typed.
    const std::vector<MontageFile>& Files() const;

    /// Asks first when changes would be lost.
    void reject() override;

private:
    /// \param selected row; -1 for none
    void ShowList(int selected);
    void ShowSelected();
    void AddMontage();
    void EraseSelected();
    void Check();

    struct Impl;
    std::unique_ptr<Impl> impl_;
};

/// Lets the user edit the montages in a folder, stores them and offers them to the recording. Failures are
/// told, and the editor comes up again with what was typed.
/// \param recording null for none
void EditMontages(HWND parent, const std::string& folder, EEGFileInfoType* recording);

} // namespace orvanta::review
