// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/review_run.h"

#include "host/platform/user_folders.h"
#include "host/review/app/application.h"
#include "host/review/app/host_strings.h"
#include "host/review/app/main_window/log.h"
#include "host/review/app/main_window/starter_macros.h"
#include "host/review/app/main_window/workbench.h"
#include "host/review/app/module_library.h"
#include "host/review/cli/exit_status.h"
#include "host/toolkit/message_module.h"

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

} // namespace

int RunReview(const ReviewRequest& request) {
    Application application(Screen::Required);
    const Log log(request.log);
    application.SetStyle(request.style);
    Workbench::Setup setup;
    if (!request.safeMode) {
        setup.settingsFile = platform::DefaultSettingsFile();
    }
    setup.dataFolder = platform::DefaultDataFolder();
    setup.savesEvents = true;
    const std::unique_ptr<ModuleLibrary> module = LoadModule(setup.moduleProblem);
    if (module != nullptr) {
        setup.bridge = &module->Bridge();
    }
    InstallStarterMacros(setup.dataFolder + "MACRO/", PModule::Named("Orvanta"));
    SupplyHostStrings(PModule::Named("Orvanta"));
    Workbench workbench(setup);
    workbench.Start(request.file);
    QApplication::exec();
    return cli::kDone;
}

} // namespace orvanta::review
