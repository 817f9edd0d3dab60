// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/review_run.h"

#include "host/platform/user_folders.h"
#include "host/review/app/application.h"
#include "host/review/app/host_strings.h"
#include "host/review/app/main_window/language.h"
#include "host/review/app/main_window/log.h"
#include "host/review/app/main_window/settling.h"
#include "host/review/app/main_window/shell.h"
#include "host/review/app/main_window/starter_macros.h"
#include "host/review/app/main_window/stored_macro.h"
#include "host/review/app/main_window/unattended.h"
#include "host/review/app/main_window/workbench.h"
#include "host/review/app/module_library.h"
#include "host/review/cli/exit_status.h"
#include "host/review/cli/output.h"
#include "host/signal_base/recording.h"
#include "host/toolkit/message_module.h"

#include <QScreen>

#include <algorithm>
#include <memory>
#include <stdexcept>

namespace orvanta::review {

namespace {

/// Null, and why, when there is no module that fits.
std::unique_ptr<ModuleLibrary> LoadModule(std::string& problem) {
    try {
        return std::make_unique<ModuleLibrary>(LibraryFolder());
    } catch (const std::runtime_error& error) {
        problem = error.what();
        qInfo("%s", error.what());
        return nullptr;
    }
}

/// \return the language that the texts are in this time; empty for the system's
std::string LanguageOf(const ReviewRequest& request, const std::string& settingsFile) {
    return !request.language.empty() ? request.language : StoredLanguage(settingsFile);
}

/// \throws cli::UsageError
void CheckLanguage(const std::string& language) {
    const std::vector<std::string> known = TextLanguages();
    if (language.empty() || known.empty() || std::ranges::count(known, language) > 0) {
        return;
    }
    std::string names;
    for (const std::string& name : known) {
        names += (names.empty() ? "" : ", ") + name;
    }
    throw cli::UsageError("language \"" + language + "\": there are no texts in it (there are: " + names +
                          ')');
}

/// \throws cli::UsageError; signal::RecordingError for a file that is refused
void Paint(const Workbench::Setup& setup, const ReviewRequest& request) {
    const Unattended unattended;
    if (!request.file.empty()) {
        signal::OpenRecording(request.file); // what the window would tell its user
    }
    Workbench workbench(setup);
    workbench.Start(request.file);
    workbench.Window().showNormal(); // a small screen is filled, less a frame
    workbench.Window().resize(workbench.Window().screen()->availableSize());
    LetItSettle([&workbench] { return workbench.IsSettled(); });
    if (!workbench.Window().grab().save(QString::fromStdString(request.picture), "PNG")) {
        throw cli::UsageError(request.picture + ": cannot be written (choose another file or folder)");
    }
    cli::WriteOutput("-", "written " + request.picture + ": the window\n");
}

} // namespace

int RunReview(const ReviewRequest& request) {
    const bool painted = !request.picture.empty();
    Application application(painted ? Screen::None : Screen::Required);
    const Log log(request.log);
    application.SetStyle(request.style);
    Workbench::Setup setup;
    if (!request.safeMode && !painted) {
        setup.settingsFile = platform::DefaultSettingsFile();
    }
    setup.dataFolder = platform::DefaultDataFolder();
    setup.savesEvents = !painted;
    setup.quiet = painted;
    application.SetTextLanguage(LanguageOf(request, setup.settingsFile));
    const std::unique_ptr<ModuleLibrary> module = LoadModule(setup.moduleProblem);
    if (module != nullptr) {
        setup.bridge = &module->Bridge();
    }
    CheckLanguage(request.language);
    InstallStarterMacros(setup.dataFolder + "MACRO/", PModule::Named("Orvanta"));
    if (!request.macro.empty()) {
        setup.macro = FindMacro(request.macro, setup.dataFolder + "MACRO/");
    }
    SupplyHostStrings(PModule::Named("Orvanta"));
    if (painted) {
        Paint(setup, request);
        return cli::kDone;
    }
    Workbench workbench(setup);
    workbench.Start(request.file);
    QApplication::exec();
    return cli::kDone;
}

} // namespace orvanta::review
