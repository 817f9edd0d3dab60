// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/review_entry.h"

#include "host/platform/host_platform.h"
#include "host/platform/interrupts.h"
#include "host/platform/user_folders.h"
#include "host/review/app/application.h"
#include "host/review/app/gallery/gallery.h"
#include "host/review/app/gui.h"
#include "host/review/app/host_strings.h"
#include "host/review/app/macro_editing.h"
#include "host/review/app/main_window/review_run.h"
#include "host/review/app/main_window/starter_macros.h"
#include "host/review/app/module_library.h"
#include "host/review/app/render/cartoon.h"
#include "host/review/app/render/map_rendering.h"
#include "host/review/app/render/render.h"
#include "host/review/cli/exit_status.h"
#include "host/review/cli/output.h"
#include "host/review/cli/watch.h"
#include "host/toolkit/message_module.h"

namespace orvanta::review {

namespace {

int Serve(const EditMacroRequest& request) {
    MacroEditing editing(request);
    Application application(Screen::Required);
    application.SetStyle(request.style);
    const ModuleLibrary module(LibraryFolder());
    SupplyHostStrings(PModule::Named("Orvanta"));
    if (request.file.empty()) {
        // Before its folder is made for the list.
        InstallStarterMacros(platform::DefaultDataFolder() + "MACRO/", PModule::Named("Orvanta"));
    }
    const Gui gui;
    const platform::HostPlatform platform(gui);
    const std::string said = editing.Run(module.Bridge(), platform);
    if (platform::WasInterrupted()) {
        throw cli::Interrupted();
    }
    if (!said.empty()) {
        cli::WriteOutput("-", said + '\n');
    }
    return cli::kDone;
}

int Serve(const GalleryRequest& request) {
    return RunGallery(request);
}

int Serve(const RenderRequest& request) {
    return RunRender(request);
}

int Serve(const ReviewRequest& request) {
    return RunReview(request);
}

int Serve(const RenderMapsRequest& request) {
    return RunRenderMaps(request);
}

int Serve(const RenderCartoonRequest& request) {
    return RunRenderCartoon(request);
}

} // namespace

} // namespace orvanta::review

extern "C" __attribute__((visibility("default"))) int OrvantaReview(const orvanta::review::Request& request) {
    return std::visit([](const auto& what) { return orvanta::review::Serve(what); }, request);
}
