// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/saving/statistics_launch.h"

#include "host/toolkit/services.h"
#include "spectra_contract/file_path.h"
#include "spectrum_view/saving/text_setting.h"

#include <QtGlobal>

namespace orvanta::spectrum_view {

namespace {

std::string StatisticsProgram(const GenericPlatform& platform) {
    return TextSetting(platform, "Tabulix", R"(c:\quorvex\quorvex.exe)");
}

bool CanRead(const std::string& file) {
    return owl::CurrentServices().files->Access(file, owl::FileAccess::kReadable) == 0;
}

/// A quote inside would end the argument.
bool Launch(const std::string& program, const std::string& file) {
    const bool sayable = (program + file).find('"') == std::string::npos;
    return sayable && owl::CurrentServices().processes->Launch("\"" + program + "\" \"" + file + "\"",
                                                               FilePath(program).GetFolder());
}

} // namespace

bool HasStatisticsProgram(const GenericPlatform& platform) {
    return CanRead(StatisticsProgram(platform));
}

void LaunchStatistics(const GenericPlatform& platform, const std::string& spectraFile) {
    const std::string program = StatisticsProgram(platform);
    if (CanRead(spectraFile) && CanRead(program) && !Launch(program, spectraFile)) {
        qInfo("%s: could not be started on %s", program.c_str(), spectraFile.c_str());
    }
}

} // namespace orvanta::spectrum_view
