// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/gallery/gallery.h"

#include "host/platform/console_gui.h"
#include "host/platform/interrupts.h"
#include "host/review/app/application.h"
#include "host/review/app/gallery/host_pages.h"
#include "host/review/app/gallery/picture.h"
#include "host/review/app/gallery/sample.h"
#include "host/review/app/gallery/trace_pages.h"
#include "host/review/app/gallery/window_pages.h"
#include "host/review/app/host_strings.h"
#include "host/review/app/main_window/log.h"
#include "host/review/app/module_library.h"
#include "host/review/cli/exit_status.h"
#include "host/review/cli/output.h"
#include "host/review/cli/watch.h"
#include "host/toolkit/message_module.h"

#include <QWidget>

#include <algorithm>
#include <clocale>
#include <filesystem>
#include <iostream>
#include <memory>

namespace orvanta::review {

namespace {

void MakeFolder(const std::string& folder) {
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (error) {
        throw cli::UsageError(folder + ": cannot be made: " + error.message() +
                              " (choose another folder with --out)");
    }
}

/// Null, after a warning, when there is no module.
std::unique_ptr<ModuleLibrary> LoadModule() {
    try {
        return std::make_unique<ModuleLibrary>(LibraryFolder());
    } catch (const std::runtime_error& error) {
        platform::ConsoleGui(std::cerr, {})
            .ShowWarning(std::string("without the module's windows: ") + error.what());
        return nullptr;
    }
}

std::vector<GalleryPage> MakePages(const ModuleLibrary* module, const GallerySample& sample) {
    std::vector<GalleryPage> pages;
    if (module != nullptr) {
        pages = module->Bridge().MakeGalleryPages(sample);
    }
    std::ranges::move(MakeHostPages(sample), std::back_inserter(pages));
    std::ranges::move(MakeTracePages(sample), std::back_inserter(pages));
    std::ranges::move(MakeWindowPages(sample, module != nullptr ? &module->Bridge() : nullptr),
                      std::back_inserter(pages));
    return pages;
}

std::string NamesOf(const std::vector<GalleryPage>& pages) {
    std::string names;
    for (const GalleryPage& page : pages) {
        names += (names.empty() ? "" : ", ") + page.name;
    }
    return names;
}

} // namespace

std::string PictureName(const std::string& page, Style style, double scale) {
    const char* styleName = style == Style::Dark ? "dark" : "light";
    std::string text = cli::FixedText(scale, 2);
    text.erase(text.find_last_not_of('0') + 1);
    if (text.ends_with('.')) {
        text.pop_back();
    }
    return page + '-' + styleName + '-' + text + "x.png";
}

std::vector<GalleryPage> ChoosePages(std::vector<GalleryPage> pages, const std::vector<std::string>& names) {
    if (names.empty()) {
        return pages;
    }
    std::vector<GalleryPage> chosen;
    for (const std::string& name : names) {
        const auto page = std::ranges::find(pages, name, &GalleryPage::name);
        if (page == pages.end()) {
            throw cli::UsageError("--only " + name + ": no such window (there are " + NamesOf(pages) + ")");
        }
        chosen.push_back(*page);
    }
    return chosen;
}

std::vector<std::string> TakePictures(const std::vector<GalleryPage>& pages, const std::string& folder,
                                      Style style, double scale) {
    std::vector<std::string> files;
    for (const GalleryPage& page : pages) {
        if (platform::WasInterrupted()) {
            throw cli::Interrupted();
        }
        const auto file = std::filesystem::path(folder) / PictureName(page.name, style, scale);
        page.show([&file](QWidget& window) {
            SavePicture(window, file);
            window.hide();
        });
        files.push_back(file);
    }
    return files;
}

int RunGallery(const GalleryRequest& request) {
    MakeFolder(request.out);
    const std::unique_ptr<ModuleLibrary> module = LoadModule();
    std::string listed;
    for (const double scale : request.scales) {
        Application application(Screen::None, scale);
        const Log log({}); // keeps what is for a log only
        application.SetLanguage(request.language);
        SupplyHostStrings(PModule::Named("Orvanta"));
        // The same pictures for every user.
        std::setlocale(LC_NUMERIC, "C");
        QApplication::setCursorFlashTime(0);
        DemoSample sample;
        const std::vector<GalleryPage> pages =
            ChoosePages(MakePages(module.get(), sample.Get()), request.only);
        for (const Style style : {Style::Light, Style::Dark}) {
            application.SetStyle(style);
            for (const std::string& file : TakePictures(pages, request.out, style, scale)) {
                listed += file + '\n';
            }
        }
    }
    cli::WriteOutput("-", listed);
    return cli::kDone;
}

} // namespace orvanta::review
