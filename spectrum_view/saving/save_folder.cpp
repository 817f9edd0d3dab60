// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/saving/save_folder.h"

#include "host/toolkit/services.h"
#include "spectra_contract/file_path.h"
#include "spectrum_view/saving/text_setting.h"

#include <QtGlobal>

#include <system_error>

namespace orvanta::spectrum_view {

std::string SaveFolder(const GenericPlatform& platform) {
    const std::string setting = TextSetting(platform, "SaveDir", "");
    if (setting.empty()) {
        return {};
    }
    const bool ended = setting.back() == '/' || setting.back() == '\\';
    return FilePath(ended ? setting : setting + FilePath::Separator).GetFolder();
}

std::string PrepareSaveFolder(const GenericPlatform& platform) {
    std::string folder = SaveFolder(platform);
    const int error = folder.empty() ? 0 : owl::CurrentServices().files->MakeFolders(folder);
    if (error != 0) {
        qInfo("%s: cannot be made: %s", folder.c_str(), std::generic_category().message(error).c_str());
    }
    return folder;
}

} // namespace orvanta::spectrum_view
