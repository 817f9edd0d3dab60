// SPDX-License-Identifier: GPL-3.0-or-later
// What the user says of spectra that are to be saved.
#pragma once

#include "host/toolkit/dialog.h"
#include "spectra_contract/api.h"
#include "spectrum_view/saving/comments_history.h"

class QComboBox;
struct SpectralComments;

namespace owl {
class TWindow;
}

/// Dialog 1629. Protocol names that were entered before are offered. OK fills the comments and adds the names
/// to the history; Cancel changes neither. A history that cannot be read or written is not told. GUI thread.
class ORVANTA_API SpectralCommentsDlg final : public PDialog {
public:
    static constexpr unsigned kNumber = 1629;
    /// Characters of a field that are kept.
    static constexpr int kMostCharacters = 255;

    /// \param parent may be null
    /// \param comments must outlive the dialog
    /// \param platform knows where names go that cannot be saved beside the program; may be null
    SpectralCommentsDlg(owl::TWindow* parent, SpectralComments* comments,
                        const GenericPlatform* platform = nullptr);
    ~SpectralCommentsDlg() override;

    void Destroy(int retValue) override;

protected:
    void SetupWindow() override;

private:
    /// The box of protocol 0 to 2.
    QComboBox* Protocol(std::size_t index) const;
    void LimitTexts();
    void ShowHistory();
    std::string Text(int control) const;
    orvanta::spectrum_view::CommentsHistory ShownHistory() const;

    SpectralComments* comments_;
    orvanta::spectrum_view::HistoryFiles files_;
    orvanta::spectrum_view::CommentsHistory loaded_;
};
