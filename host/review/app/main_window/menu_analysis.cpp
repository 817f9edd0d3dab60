// SPDX-License-Identifier: GPL-3.0-or-later
// Analyses, and the montages that they are made in.
#include "host/review/app/main_window/analysis_runner.h"
#include "host/review/app/main_window/document.h"
#include "host/review/app/main_window/documents.h"
#include "host/review/app/main_window/host_text.h"
#include "host/review/app/main_window/main_window.h"
#include "host/review/app/main_window/menus.h"
#include "host/review/app/main_window/shell.h"
#include "host/review/app/main_window/work_gui.h"
#include "host/review/app/montage/average_electrodes.h"
#include "host/review/app/montage/montage_editor.h"
#include "host/toolkit/control_text.h"
#include "spectra_contract/platform.h"
#include "spectra_contract/recording.h"

#include <QActionGroup>
#include <QMenu>

namespace orvanta::review {

namespace {

/// One item for each montage of the open recording.
void AddMontages(QMenu& menu, const MenuParts& parts) {
    const Document* document = parts.documents.Current();
    if (document == nullptr) {
        menu.addAction(HostQText("montageNone", "No recording is open"))->setEnabled(false);
        return;
    }
    const MontageList& montages = *document->Recording().GetMontageList();
    auto* group = new QActionGroup(&menu);
    std::size_t at = 0;
    for (const auto& montage : montages) {
        QAction* action = menu.addAction(owl::AsCaption(QString::fromStdString(montage->GetName())), &menu,
                                         [at, &documents = parts.documents, &gui = parts.gui] {
                                             if (documents.Current() != nullptr && !gui.IsBusy()) {
                                                 // Which is told.
                                                 documents.Current()->Recording().ChangeMntg(at, true);
                                             }
                                         });
        action->setCheckable(true);
        action->setChecked(at == montages.GetCurrentIndex());
        group->addAction(action);
        ++at;
    }
}

void EditTheMontages(const MenuParts& parts) {
    if (!parts.gui.IsBusy()) {
        const Document* document = parts.documents.Current();
        EditMontages(HWND(&parts.shell), parts.platform.GetAppFolder(kMontageFolder),
                     document != nullptr ? &document->Recording() : nullptr);
    }
}

void ChooseElectrodes(const MenuParts& parts) {
    if (parts.analyses.CanAnalyse() && !parts.gui.IsBusy()) {
        ChooseAverageElectrodes(HWND(&parts.middle), *parts.bridge, parts.documents.Current()->Recording(),
                                parts.platform);
    }
}

void FillMontages(QMenu& menu, const MenuParts& parts) {
    menu.clear();
    AddMontages(menu, parts);
    menu.addSeparator();
    AddItem(menu, Caption{"montageEdit", "&Montages..."}, {}, [parts] { EditTheMontages(parts); });
    AddItem(menu, Caption{"montageAverage", "Common &Average Electrodes..."}, {}, [parts] {
        ChooseElectrodes(parts);
    }).setEnabled(parts.analyses.CanAnalyse());
}

void GoToNextSelection(const MenuParts& parts) {
    if (parts.analyses.HasSelections() && !parts.gui.IsBusy() && !parts.analyses.GoToNextSelection()) {
        parts.shell.ShowText(HostText("lastSelection", "There is no later selection."));
    }
}

} // namespace

void AddAnalysisMenu(MenuItems& items, const MenuParts& parts) {
    QMenu& menu = items.AddMenu(Caption{"menuAnalysis", "&Analysis"});
    AnalysisRunner& analyses = parts.analyses;
    const ItemState state{.enabled = [&analyses] { return analyses.CanAnalyse(); }};
    items.Add(
        menu, Caption{"analysisNew", "&New Analysis..."}, QKeySequence::New, [&analyses] { analyses.New(); },
        state);
    items.Add(
        menu, Caption{"analysisRecompute", "&Recompute"}, QKeySequence::Refresh,
        [&analyses] { analyses.Recompute(); }, state);
    items.Add(menu, Caption{"analysisNextSelection", "Next &Selection"}, Qt::Key_F7,
              [parts] { GoToNextSelection(parts); },
              {.enabled = [&analyses] { return analyses.HasSelections(); }});
}

QMenu& AddMontageMenu(MenuItems& items, const MenuParts& parts) {
    QMenu& menu = items.AddMenu(Caption{"menuMontage", "&Montage"});
    QObject::connect(&menu, &QMenu::aboutToShow, &menu, [&menu, parts] { FillMontages(menu, parts); });
    return menu;
}

} // namespace orvanta::review
