// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures of the active view.
#include "host/chart_view/the_child.h"
#include "host/review/app/main_window/document.h"
#include "host/review/app/main_window/host_text.h"
#include "host/review/app/main_window/main_window.h"
#include "host/review/app/main_window/menus.h"
#include "host/review/app/main_window/shell.h"
#include "host/review/app/main_window/workbench.h"
#include "host/review/app/pictures_out/view_picture.h"
#include "spectra_contract/file_path.h"
#include "spectra_contract/recording.h"

namespace orvanta::review {

bool Workbench::HasActiveView() const {
    return document_ != nullptr && middle_->GetActiveChild() != nullptr;
}

void Workbench::TakePicture(const std::function<void(const ViewToShow&)>& take) {
    if (!HasActiveView() || gui_.IsBusy()) {
        return;
    }
    TheChild& view = *middle_->GetActiveChild();
    QString kind = view.GetMenu().title().remove('&');
    if (kind.isEmpty()) {
        kind = QString::fromStdString(view.GetChildName());
    }
    const std::string file = document_->Recording().GetFileNameText();
    try {
        take({view, file + " - " + kind.toStdString(),
              FilePath(file).GetFile() + '_' + kind.toLower().toStdString()});
    } catch (const std::exception& error) {
        gui_.ShowError(error.what());
    }
}

void Workbench::SavePicture() {
    TakePicture([this](const ViewToShow& shown) {
        if (const auto file = review::SavePicture(HWND(shell_.get()), shown, platform_)) {
            shell_->ShowText(
                HostQText("pictureSaved", "Written: %1").arg(QString::fromStdString(*file)).toStdString());
        }
    });
}

void Workbench::PrintPicture() {
    TakePicture([this](const ViewToShow& shown) { review::PrintPicture(HWND(shell_.get()), shown); });
}

void Workbench::CopyPicture() {
    TakePicture([this](const ViewToShow& shown) {
        const owl::TSize size = review::CopyPicture(shown);
        shell_->ShowText(HostQText("pictureCopied", "In the clipboard: a picture of %1 × %2 pixels")
                             .arg(size.cx)
                             .arg(size.cy)
                             .toStdString());
    });
}

} // namespace orvanta::review
