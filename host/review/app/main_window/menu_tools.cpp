// SPDX-License-Identifier: GPL-3.0-or-later
// Tools and help.
#include "host/review/app/macro_labels.h"
#include "host/review/app/main_window/analysis_runner.h"
#include "host/review/app/main_window/document.h"
#include "host/review/app/main_window/documents.h"
#include "host/review/app/main_window/help.h"
#include "host/review/app/main_window/host_text.h"
#include "host/review/app/main_window/language.h"
#include "host/review/app/main_window/menus.h"
#include "host/review/app/main_window/shell.h"
#include "host/review/app/module_bridge.h"
#include "host/toolkit/modal_gateway.h"
#include "spectra_contract/events.h"
#include "spectra_contract/platform.h"
#include "spectra_contract/recording.h"
#include "spectra_contract/spectra_macro.h"

#include <QActionGroup>
#include <QMenu>

namespace orvanta::review {

namespace {

void EditMacros(const MenuParts& parts) {
    if (parts.bridge == nullptr) {
        return;
    }
    constexpr int kModeEdit = 2;
    EventsManager ownEvents;
    EventsManager* events = &ownEvents;
    SensorList sensors;
    if (const Document* document = parts.documents.Current()) {
        events = document->Recording().GetEventsManager();
        document->Recording().GetTraceInfo()->GetSensorsListOfType(sensors, Sensor::EegFamily,
                                                                   Sensor::Class::Eeg);
    } else {
        AddLabelsOf(MacrosIn(parts.platform.GetAppFolder("MACRO")), ownEvents);
    }
    SpectraMacro macro;
    parts.bridge->SelectMacro(HWND(&parts.shell), macro, events, sensors, kModeEdit, parts.platform);
}

void ChooseLanguage(Shell& shell, GenericPlatform& platform, const std::string& language) {
    if (language != StoredLanguage(platform)) {
        StoreLanguage(platform, language);
        owl::CurrentModalGateway().ShowMessage(
            HWND(&shell),
            HostText("languageNext", "The texts are in this language from the next start of Orvanta on."),
            HostText("languageTitle", "Language"), owl::kMbOk);
    }
}

void FillLanguages(QMenu& menu, Shell& shell, GenericPlatform& platform) {
    menu.clear();
    auto* group = new QActionGroup(&menu);
    const auto add = [&](const QString& caption, const std::string& language) {
        QAction* action = menu.addAction(
            caption, &menu, [&shell, &platform, language] { ChooseLanguage(shell, platform, language); });
        action->setCheckable(true);
        action->setChecked(language == StoredLanguage(platform));
        group->addAction(action);
    };
    add(HostQText("languageSystem", "As the &System"), {});
    for (const std::string& language : TextLanguages()) {
        add(LanguageName(language), language);
    }
}

} // namespace

void AddToolsMenu(MenuItems& items, const MenuParts& parts) {
    QMenu& menu = items.AddMenu(Caption{"menuTools", "&Tools"});
    const auto hasModule = [bridge = parts.bridge] { return bridge != nullptr; };
    items.Add(menu, Caption{"toolsMacros", "&Macros..."}, {}, [parts] { EditMacros(parts); },
              {.enabled = hasModule});
    const Caption language{"toolsLanguage", "&Language"};
    QMenu& languages = *menu.addMenu(language.Text());
    languages.setObjectName(language.key);
    QObject::connect(&languages, &QMenu::aboutToShow, &languages,
                     [&languages, &shell = parts.shell, &platform = parts.platform] {
                         FillLanguages(languages, shell, platform);
                     });
    AnalysisRunner& analyses = parts.analyses;
    items.Add(menu, Caption{"toolsRegression", "&Regression of Contrast Values"}, {},
              [&analyses] { analyses.UseRegression(!analyses.UsesRegression()); },
              {.enabled = hasModule, .checked = [&analyses] { return analyses.UsesRegression(); }});
}

void AddHelpMenu(MenuItems& items, const MenuParts& parts) {
    QMenu& menu = items.AddMenu(Caption{"menuHelp", "&Help"});
    Shell& shell = parts.shell;
    items.Add(menu, Caption{"helpManual", "&Manual"}, QKeySequence::HelpContents,
              [&shell] { ShowManual(shell); });
    items.Add(menu, Caption{"helpLog", "&Log..."}, {}, [&shell] { ShowLog(shell); });
    menu.addSeparator();
    items.Add(menu, Caption{"helpAbout", "&About Orvanta"}, {}, [&shell] { ShowAbout(shell); });
}

} // namespace orvanta::review
