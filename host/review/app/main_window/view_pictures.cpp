// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/view_pictures.h"

#include "host/chart_view/the_child.h"
#include "host/review/app/main_window/document.h"
#include "host/review/app/main_window/documents.h"
#include "host/review/app/main_window/host_text.h"
#include "host/review/app/main_window/main_window.h"
#include "host/review/app/main_window/shell.h"
#include "host/review/app/main_window/work_gui.h"
#include "host/review/app/pictures_out/view_picture.h"
#include "spectra_contract/file_path.h"
#include "spectra_contract/recording.h"

namespace orvanta::review {

bool ViewPictures::HasView() const {
    return documents_.Current() != nullptr && middle_.GetActiveChild() != nullptr;
}

void ViewPictures::Take(const std::function<void(const ViewToShow&)>& take) {
    if (!HasView() || gui_.IsBusy()) {
        return;
    }
    TheChild& view = *middle_.GetActiveChild();
    QString kind = view.GetMenu().title().remove('&');
    if (kind.isEmpty()) {
        kind = QString::fromStdString(view.GetChildName());
    }
    const std::string file = documents_.Current()->Recording().GetFileNameText();
    try {
        take({view, file + " - " + kind.toStdString(),
              FilePath(file).GetFile() + '_' + kind.toLower().toStdString()});
    } catch (const std::exception& error) {
        gui_.ShowError(error.what());
    }
}

void ViewPictures::Save() {
    Take([this](const ViewToShow& shown) {
        if (const auto file = SavePicture(HWND(&shell_), shown, *middle_.GetPlatform())) {
            shell_.ShowText(
                HostQText("pictureSaved", "Written: %1").arg(QString::fromStdString(*file)).toStdString());
        }
    });
}

void ViewPictures::Print() {
    Take([this](const ViewToShow& shown) { PrintPicture(HWND(&shell_), shown); });
}

void ViewPictures::Copy() {
    Take([this](const ViewToShow& shown) {
        const owl::TSize size = CopyPicture(shown);
        shell_.ShowText(HostQText("pictureCopied", "In the clipboard: a picture of %1 × %2 pixels")
                            .arg(size.cx)
                            .arg(size.cy)
                            .toStdString());
    });
}

} // namespace orvanta::review
