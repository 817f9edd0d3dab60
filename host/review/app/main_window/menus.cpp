// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/menus.h"

#include "host/chart_view/the_child.h"
#include "host/review/app/main_window/commands.h"
#include "host/review/app/main_window/host_text.h"
#include "host/review/app/main_window/language.h"
#include "host/toolkit/control_text.h"
#include "host/toolkit/event_guard.h"

#include <QActionGroup>
#include <QFileInfo>
#include <QMenuBar>

#include <array>
#include <functional>
#include <utility>

namespace orvanta::review {

namespace {

/// Key, which names the item, too, and built-in text.
struct Caption {
    const char *key, *text;

    QString Text() const { return HostQText(key, text); }
};

template <typename Run>
QAction* Add(QMenu& menu, const Caption& caption, const QKeySequence& shortcut, Run run) {
    QAction* action =
        menu.addAction(caption.Text(), shortcut, [run = std::move(run)] { owl::RunGuarded(run); });
    action->setObjectName(caption.key);
    return action;
}

QMenu* AddMenu(QMenuBar& bar, const Caption& caption) {
    QMenu* menu = bar.addMenu(caption.Text());
    menu->setObjectName(caption.key);
    return menu;
}

/// "Undo Add Artifact"
void ShowChange(QAction& action, const QString& verb, const std::string& change) {
    action.setText(change.empty() ? verb : verb + ' ' + owl::AsCaption(QString::fromStdString(change)));
    action.setEnabled(!change.empty());
}

QString MenuTitle(const std::string& view) {
    // Only one of them is there at a time: they share a mnemonic.
    for (const auto& [name, caption] : {std::pair("Spectrum", Caption{"spectrumMenu", "&Spectrum"}),
                                        std::pair("SpectMap", Caption{"mapsMenu", "Map&s"}),
                                        std::pair("Traces", Caption{"tracesMenu", "Trace&s"})}) {
        if (view == name) {
            return caption.Text();
        }
    }
    return QString::fromStdString(view);
}

} // namespace

Menus::Menus(QMenuBar& bar, Commands& commands) : bar_(bar), commands_(commands) {
    AddFile();
    AddEdit();
    AddView();
    AddAnalysis();
    AddMontage();
    AddTools();
    AddWindow();
    AddHelp();
    Update();
}

void Menus::AddFile() {
    QMenu& menu = *AddMenu(bar_, Caption{"menuFile", "&File"});
    Add(menu, Caption{"fileOpen", "&Open..."}, QKeySequence::Open, [this] { commands_.AskForFile(); });
    recent_ = menu.addMenu(HostQText("fileRecent", "Open &Recent"));
    recent_->setObjectName("fileRecent");
    QObject::connect(recent_, &QMenu::aboutToShow, recent_, [this] { FillRecent(); });
    close_ = Add(menu, Caption{"fileClose", "&Close"}, QKeySequence(Qt::CTRL | Qt::Key_W),
                 [this] { commands_.CloseFile(); });
    menu.addSeparator();
    save_ = Add(menu, Caption{"fileSaveEvents", "&Save Events"}, QKeySequence::Save,
                [this] { commands_.SaveEvents(); });
    saveEventsAs_ = Add(menu, Caption{"fileSaveEventsAs", "Save Events &As..."}, {},
                        [this] { commands_.SaveEventsAs(); });
    openEvents_ =
        Add(menu, Caption{"fileOpenEvents", "Open E&vents..."}, {}, [this] { commands_.OpenEvents(); });
    menu.addSeparator();
    savePicture_ = Add(menu, Caption{"fileSavePicture", "Save P&icture..."},
                       QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S), [this] { commands_.SavePicture(); });
    copyPicture_ = Add(menu, Caption{"fileCopyPicture", "Copy Pict&ure"},
                       QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C), [this] { commands_.CopyPicture(); });
    print_ = Add(menu, Caption{"filePrint", "&Print..."}, QKeySequence::Print,
                 [this] { commands_.PrintPicture(); });
    menu.addSeparator();
    Add(menu, Caption{"fileQuit", "&Quit"}, QKeySequence(Qt::CTRL | Qt::Key_Q), [this] { commands_.Quit(); });
    QObject::connect(&menu, &QMenu::aboutToShow, &menu, [this] { Update(); });
}

void Menus::AddEdit() {
    QMenu& menu = *AddMenu(bar_, Caption{"menuEdit", "&Edit"});
    undo_ = Add(menu, Caption{"editUndo", "&Undo"}, QKeySequence(Qt::CTRL | Qt::Key_Z),
                [this] { commands_.Undo(); });
    redo_ = Add(menu, Caption{"editRedo", "&Redo"}, QKeySequence(Qt::CTRL | Qt::Key_Y),
                [this] { commands_.Redo(); });
    QObject::connect(&menu, &QMenu::aboutToShow, &menu, [this] { Update(); });
}

void Menus::FillRecent() {
    recent_->clear();
    int number = 0;
    for (const std::string& path : commands_.RecentPaths()) {
        const QFileInfo file(QString::fromStdString(path));
        ++number;
        const QString mnemonic = number < 10 ? QString("&%1 ").arg(number) : QString("%1 ").arg(number);
        QAction* action = recent_->addAction(mnemonic + owl::AsCaption(file.fileName()), recent_,
                                             [this, path] { commands_.OpenFile(path); });
        action->setToolTip(file.filePath());
        action->setEnabled(file.exists());
    }
    recent_->setToolTipsVisible(true);
    recent_->addSeparator();
    Add(*recent_, Caption{"fileClearRecent", "&Clear List"}, {}, [this] {
        commands_.ClearRecent();
    })->setEnabled(number > 0);
}

void Menus::AddView() {
    QMenu& menu = *AddMenu(bar_, Caption{"menuView", "&View"});
    struct View {
        ViewKind kind;
        Caption caption;
    };
    for (const View& view : {View{ViewKind::Traces, Caption{"viewTraces", "&Traces"}},
                             View{ViewKind::Spectrum, Caption{"viewSpectrum", "&Spectrum"}},
                             View{ViewKind::Maps, Caption{"viewMaps", "Spectral &Maps"}},
                             View{ViewKind::Heads, Caption{"viewHeads", "&3D Spectral Maps"}}}) {
        QAction* action = Add(menu, view.caption, {}, [] {});
        action->setCheckable(true);
        QObject::connect(action, &QAction::triggered, &menu,
                         [this, kind = view.kind] { commands_.Show(kind, !commands_.IsShown(kind)); });
        QObject::connect(&menu, &QMenu::aboutToShow, action, [this, action, kind = view.kind] {
            action->setEnabled(commands_.CanShow(kind));
            action->setChecked(commands_.IsShown(kind));
        });
    }
    menu.addSeparator();
    sideBar_ = Add(menu, Caption{"viewSideBar", "Si&de Bar"}, kPanelKey,
                   [this] { commands_.ShowSideBar(!commands_.IsSideBarShown()); });
    sideBar_->setCheckable(true);
    events_ = Add(menu, Caption{"viewEvents", "&Events"}, QKeySequence(Qt::CTRL | Qt::Key_E), [] {});
    events_->setCheckable(true);
    QObject::connect(events_, &QAction::triggered, &menu,
                     [this] { commands_.ShowEvents(!commands_.ShowsEvents()); });
    QObject::connect(&menu, &QMenu::aboutToShow, &menu, [this] { Update(); });
}

void Menus::AddWindow() {
    QMenu& menu = *AddMenu(bar_, Caption{"menuWindow", "&Window"});
    auto* active = new QActionGroup(&menu);
    active->setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional);
    struct View {
        ViewKind kind;
        Caption caption;
        Qt::Key key;
    };
    for (const View& view : {View{ViewKind::Traces, Caption{"windowTraces", "&Traces"}, Qt::Key_1},
                             View{ViewKind::Spectrum, Caption{"windowSpectrum", "&Spectrum"}, Qt::Key_2},
                             View{ViewKind::Maps, Caption{"windowMaps", "Spectral &Maps"}, Qt::Key_3},
                             View{ViewKind::Heads, Caption{"windowHeads", "&3D Spectral Maps"}, Qt::Key_4}}) {
        QAction* action = Add(menu, view.caption, QKeySequence(Qt::CTRL | view.key),
                              [this, kind = view.kind] { commands_.Activate(kind); });
        action->setCheckable(true);
        active->addAction(action);
        views_.emplace_back(view.kind, action);
    }
    QObject::connect(&menu, &QMenu::aboutToShow, &menu, [this] { Update(); });
    menu.addSeparator();
    fill_ = Add(menu, Caption{"viewFillWindow", "&Fill Window with Active View"}, kFillKey,
                [this] { commands_.FillOrShowAll(); });
    fill_->setCheckable(true);
    showAll_ = Add(menu, Caption{"viewShowAll", "Sho&w All Views"}, Qt::Key_Escape,
                   [this] { commands_.FillOrShowAll(); });
    nextPane_ =
        Add(menu, Caption{"viewNextPane", "&Next Pane"}, Qt::Key_F6, [this] { commands_.GoToPane(true); });
    previousPane_ = Add(menu, Caption{"viewPreviousPane", "&Previous Pane"}, Qt::SHIFT | Qt::Key_F6,
                        [this] { commands_.GoToPane(false); });
    menu.addSeparator();
    struct Place {
        Arrangement arrangement;
        Caption caption;
    };
    auto* group = new QActionGroup(&menu);
    for (const Place& place :
         {Place{Arrangement::TracesAbove, Caption{"windowTracesAbove", "Traces &Above"}},
          Place{Arrangement::TracesBeside, Caption{"windowTracesBeside", "Traces on the &Left"}},
          Place{Arrangement::Rows, Caption{"windowRows", "Each &Below the Other"}}}) {
        QAction* action =
            Add(menu, place.caption, {}, [this, to = place.arrangement] { commands_.Arrange(to); });
        action->setCheckable(true);
        group->addAction(action);
        QObject::connect(&menu, &QMenu::aboutToShow, action, [this, action, to = place.arrangement] {
            action->setChecked(commands_.GetArrangement() == to);
        });
    }
}

void Menus::AddAnalysis() {
    QMenu& menu = *AddMenu(bar_, Caption{"menuAnalysis", "&Analysis"});
    newAnalysis_ = Add(menu, Caption{"analysisNew", "&New Analysis..."}, QKeySequence::New,
                       [this] { commands_.NewAnalysis(); });
    recompute_ = Add(menu, Caption{"analysisRecompute", "&Recompute"}, QKeySequence::Refresh,
                     [this] { commands_.Recompute(); });
    QObject::connect(&menu, &QMenu::aboutToShow, &menu, [this] { Update(); });
}

void Menus::AddMontage() {
    montage_ = AddMenu(bar_, Caption{"menuMontage", "&Montage"});
    beforeChild_ = montage_->menuAction();
    QObject::connect(montage_, &QMenu::aboutToShow, montage_, [this] { FillMontages(); });
}

void Menus::FillMontages() {
    montage_->clear();
    const std::vector<std::string> names = commands_.MontageNames();
    for (std::size_t i = 0; i < names.size(); ++i) {
        QAction* action = montage_->addAction(owl::AsCaption(QString::fromStdString(names[i])), montage_,
                                              [this, i] { commands_.ChooseMontage(i); });
        action->setCheckable(true);
        action->setChecked(i == commands_.CurrentMontage());
    }
    if (names.empty()) {
        montage_->addAction(HostQText("montageNone", "No recording is open"))->setEnabled(false);
    }
    montage_->addSeparator();
    Add(*montage_, Caption{"montageEdit", "&Montages..."}, {}, [this] { commands_.EditMontages(); });
    Add(*montage_, Caption{"montageAverage", "Common &Average Electrodes..."}, {}, [this] {
        commands_.ChooseAverageElectrodes();
    })->setEnabled(commands_.CanAnalyse());
}

void Menus::AddTools() {
    QMenu& menu = *AddMenu(bar_, Caption{"menuTools", "&Tools"});
    macros_ = Add(menu, Caption{"toolsMacros", "&Macros..."}, {}, [this] { commands_.EditMacros(); });
    AddLanguages(menu);
    regression_ = Add(menu, Caption{"toolsRegression", "&Regression of Contrast Values"}, {}, [] {});
    regression_->setCheckable(true);
    QObject::connect(regression_, &QAction::triggered, &menu,
                     [this] { commands_.UseRegression(!commands_.UsesRegression()); });
    QObject::connect(&menu, &QMenu::aboutToShow, &menu, [this] { Update(); });
}

void Menus::AddLanguages(QMenu& tools) {
    QMenu& menu = *tools.addMenu(HostQText("toolsLanguage", "&Language"));
    menu.setObjectName("toolsLanguage");
    QObject::connect(&menu, &QMenu::aboutToShow, &menu, [this, &menu] {
        menu.clear();
        auto* group = new QActionGroup(&menu);
        const auto add = [&](const QString& caption, const std::string& language) {
            QAction* action =
                menu.addAction(caption, &menu, [this, language] { commands_.ChooseLanguage(language); });
            action->setCheckable(true);
            action->setChecked(language == commands_.Language());
            group->addAction(action);
        };
        add(HostQText("languageSystem", "As the &System"), {});
        for (const std::string& language : commands_.Languages()) {
            add(LanguageName(language), language);
        }
    });
}

void Menus::AddHelp() {
    QMenu& menu = *AddMenu(bar_, Caption{"menuHelp", "&Help"});
    Add(menu, Caption{"helpManual", "&Manual"}, QKeySequence::HelpContents,
        [this] { commands_.ShowManual(); });
    Add(menu, Caption{"helpLog", "&Log..."}, {}, [this] { commands_.ShowLog(); });
    menu.addSeparator();
    Add(menu, Caption{"helpAbout", "&About Orvanta"}, {}, [this] { commands_.ShowAbout(); });
}

void Menus::Update() {
    fill_->setEnabled(commands_.IsFilled() || commands_.HasActiveView());
    fill_->setChecked(commands_.IsFilled());
    showAll_->setEnabled(commands_.IsFilled());
    sideBar_->setEnabled(commands_.HasSideBar());
    sideBar_->setChecked(commands_.IsSideBarShown());
    for (QAction* pane : {nextPane_, previousPane_}) {
        pane->setEnabled(commands_.HasDocument());
    }
    events_->setEnabled(commands_.HasDocument());
    events_->setChecked(commands_.ShowsEvents());
    for (const auto& [kind, action] : views_) {
        action->setEnabled(commands_.IsShown(kind));
        action->setChecked(commands_.IsActive(kind));
    }
    close_->setEnabled(commands_.HasDocument());
    saveEventsAs_->setEnabled(commands_.HasDocument());
    openEvents_->setEnabled(commands_.HasDocument());
    save_->setEnabled(commands_.HasChangedEvents());
    for (QAction* picture : {savePicture_, copyPicture_, print_}) {
        picture->setEnabled(commands_.HasActiveView());
    }
    ShowChange(*undo_, HostQText("editUndo", "&Undo"), commands_.UndoText());
    ShowChange(*redo_, HostQText("editRedo", "&Redo"), commands_.RedoText());
    newAnalysis_->setEnabled(commands_.CanAnalyse());
    recompute_->setEnabled(commands_.CanAnalyse());
    macros_->setEnabled(commands_.HasModule());
    regression_->setEnabled(commands_.HasModule());
    regression_->setChecked(commands_.UsesRegression());
}

void Menus::ShowMenuOf(TheChild* child) {
    if (child_) {
        bar_.removeAction(child_);
        child_ = nullptr;
    }
    if (child != nullptr) {
        QMenu& menu = child->GetMenu();
        if (menu.title().isEmpty()) {
            menu.setTitle(MenuTitle(child->GetChildName()));
        }
        child_ = menu.menuAction();
        bar_.insertAction(beforeChild_, child_);
    }
}

} // namespace orvanta::review
