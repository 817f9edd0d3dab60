// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/menus.h"

#include "host/chart_view/the_child.h"
#include "host/review/app/main_window/commands.h"
#include "host/review/app/main_window/host_text.h"

#include <QActionGroup>
#include <QFileInfo>
#include <QMenuBar>

#include <array>
#include <functional>

namespace orvanta::review {

namespace {

template <typename Run>
QAction* Add(QMenu& menu, const char* key, const char* text, const QKeySequence& shortcut, Run run) {
    QAction* action = menu.addAction(HostQText(key, text), shortcut, run);
    action->setObjectName(key);
    return action;
}

QMenu* AddMenu(QMenuBar& bar, const char* key, const char* text) {
    QMenu* menu = bar.addMenu(HostQText(key, text));
    menu->setObjectName(key);
    return menu;
}

/// A file's name may hold '&'.
QString AsCaption(QString text) {
    return text.replace('&', "&&");
}

} // namespace

Menus::Menus(QMenuBar& bar, Commands& commands) : bar_(bar), commands_(commands) {
    AddFile();
    AddView();
    AddAnalysis();
    AddMontage();
    AddTools();
    AddHelp();
    Update();
}

void Menus::AddFile() {
    QMenu& menu = *AddMenu(bar_, "menu.file", "&File");
    Add(menu, "file.open", "&Open...", QKeySequence::Open, [this] { commands_.AskForFile(); });
    recent_ = menu.addMenu(HostQText("file.recent", "Open &Recent"));
    recent_->setObjectName("file.recent");
    QObject::connect(recent_, &QMenu::aboutToShow, recent_, [this] { FillRecent(); });
    close_ = Add(menu, "file.close", "&Close", QKeySequence(Qt::CTRL | Qt::Key_W),
                 [this] { commands_.CloseFile(); });
    menu.addSeparator();
    Add(menu, "file.quit", "&Quit", QKeySequence(Qt::CTRL | Qt::Key_Q), [this] { commands_.Quit(); });
    QObject::connect(&menu, &QMenu::aboutToShow, &menu, [this] { Update(); });
}

void Menus::FillRecent() {
    recent_->clear();
    int number = 0;
    for (const std::string& path : commands_.RecentPaths()) {
        const QFileInfo file(QString::fromStdString(path));
        ++number;
        const QString mnemonic = number < 10 ? QString("&%1 ").arg(number) : QString("%1 ").arg(number);
        QAction* action = recent_->addAction(mnemonic + AsCaption(file.fileName()), recent_,
                                             [this, path] { commands_.OpenFile(path); });
        action->setToolTip(file.filePath());
        action->setEnabled(file.exists());
    }
    recent_->setToolTipsVisible(true);
    recent_->addSeparator();
    Add(*recent_, "file.clearRecent", "&Clear List", {}, [this] {
        commands_.ClearRecent();
    })->setEnabled(number > 0);
}

void Menus::AddView() {
    QMenu& menu = *AddMenu(bar_, "menu.view", "&View");
    struct View {
        ViewKind kind;
        const char *key, *text;
    };
    for (const View& view : {View{ViewKind::Traces, "view.traces", "&Traces"},
                             View{ViewKind::Spectrum, "view.spectrum", "&Spectrum"},
                             View{ViewKind::Maps, "view.maps", "Spectral &Maps"}}) {
        QAction* action = Add(menu, view.key, view.text, {}, [] {});
        action->setCheckable(true);
        QObject::connect(action, &QAction::triggered, &menu,
                         [this, kind = view.kind](bool show) { commands_.Show(kind, show); });
        QObject::connect(&menu, &QMenu::aboutToShow, action, [this, action, kind = view.kind] {
            action->setEnabled(commands_.CanShow(kind));
            action->setChecked(commands_.IsShown(kind));
        });
    }
    menu.addSeparator();
    struct Place {
        Arrangement arrangement;
        const char *key, *text;
    };
    auto* group = new QActionGroup(&menu);
    for (const Place& place : {Place{Arrangement::TracesAbove, "view.tracesAbove", "Traces &Above"},
                               Place{Arrangement::TracesBeside, "view.tracesBeside", "Traces on the &Left"},
                               Place{Arrangement::Rows, "view.rows", "Each &Below the Other"}}) {
        QAction* action =
            Add(menu, place.key, place.text, {}, [this, to = place.arrangement] { commands_.Arrange(to); });
        action->setCheckable(true);
        group->addAction(action);
        QObject::connect(&menu, &QMenu::aboutToShow, action, [this, action, to = place.arrangement] {
            action->setChecked(commands_.GetArrangement() == to);
        });
    }
}

void Menus::AddAnalysis() {
    QMenu& menu = *AddMenu(bar_, "menu.analysis", "&Analysis");
    newAnalysis_ =
        Add(menu, "analysis.new", "&New Analysis...", QKeySequence::New, [this] { commands_.NewAnalysis(); });
    recompute_ = Add(menu, "analysis.recompute", "&Recompute", QKeySequence::Refresh,
                     [this] { commands_.Recompute(); });
    QObject::connect(&menu, &QMenu::aboutToShow, &menu, [this] { Update(); });
}

void Menus::AddMontage() {
    montage_ = AddMenu(bar_, "menu.montage", "&Montage");
    beforeChild_ = montage_->menuAction();
    QObject::connect(montage_, &QMenu::aboutToShow, montage_, [this] { FillMontages(); });
}

void Menus::FillMontages() {
    montage_->clear();
    const std::vector<std::string> names = commands_.MontageNames();
    for (std::size_t i = 0; i < names.size(); ++i) {
        QAction* action = montage_->addAction(AsCaption(QString::fromStdString(names[i])), montage_,
                                              [this, i] { commands_.ChooseMontage(i); });
        action->setCheckable(true);
        action->setChecked(i == commands_.CurrentMontage());
    }
    if (names.empty()) {
        montage_->addAction(HostQText("montage.none", "No recording is open"))->setEnabled(false);
    }
}

void Menus::AddTools() {
    QMenu& menu = *AddMenu(bar_, "menu.tools", "&Tools");
    macros_ = Add(menu, "tools.macros", "&Macros...", {}, [this] { commands_.EditMacros(); });
    regression_ = Add(menu, "tools.regression", "&Regression of Contrast Values", {}, [] {});
    regression_->setCheckable(true);
    QObject::connect(regression_, &QAction::triggered, &menu,
                     [this](bool use) { commands_.UseRegression(use); });
    QObject::connect(&menu, &QMenu::aboutToShow, &menu, [this] { Update(); });
}

void Menus::AddHelp() {
    QMenu& menu = *AddMenu(bar_, "menu.help", "&Help");
    Add(menu, "help.manual", "&Manual", QKeySequence::HelpContents, [this] { commands_.ShowManual(); });
    Add(menu, "help.log", "&Log...", {}, [this] { commands_.ShowLog(); });
    menu.addSeparator();
    Add(menu, "help.about", "&About Orvanta", {}, [this] { commands_.ShowAbout(); });
}

void Menus::Update() {
    close_->setEnabled(commands_.HasDocument());
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
            menu.setTitle(
                HostQText(("child." + child->GetChildName()).c_str(), child->GetChildName().c_str()));
        }
        child_ = menu.menuAction();
        bar_.insertAction(beforeChild_, child_);
    }
}

} // namespace orvanta::review
