// SPDX-License-Identifier: GPL-3.0-or-later
// Files, pictures and what can be undone.
#include "host/review/app/events/event_editor.h"
#include "host/review/app/main_window/document.h"
#include "host/review/app/main_window/documents.h"
#include "host/review/app/main_window/event_saving.h"
#include "host/review/app/main_window/menus.h"
#include "host/review/app/main_window/shell.h"
#include "host/review/app/main_window/view_pictures.h"
#include "host/review/app/main_window/work_gui.h"
#include "host/toolkit/control_text.h"

#include <QFileInfo>
#include <QMenu>

namespace orvanta::review {

namespace {

/// Null without a recording.
EventEditor* EventsOf(const Documents& documents) {
    const Document* document = documents.Current();
    return document != nullptr ? &document->Events() : nullptr;
}

void FillRecent(QMenu& menu, Documents& documents) {
    menu.clear();
    int number = 0;
    for (const std::string& path : documents.Recent().Paths()) {
        const QFileInfo file(QString::fromStdString(path));
        ++number;
        const QString mnemonic = number < 10 ? QString("&%1 ").arg(number) : QString("%1 ").arg(number);
        QAction* action = menu.addAction(mnemonic + owl::AsCaption(file.fileName()), &menu,
                                         [&documents, path] { documents.Open(path); });
        action->setToolTip(file.filePath());
        action->setEnabled(file.exists());
    }
    menu.setToolTipsVisible(true);
    menu.addSeparator();
    AddItem(menu, Caption{"fileClearRecent", "&Clear List"}, {}, [&documents] {
        documents.Recent().Clear();
    }).setEnabled(number > 0);
}

void AddEvents(MenuItems& items, QMenu& menu, const MenuParts& parts) {
    const auto has = [&documents = parts.documents] { return documents.Current() != nullptr; };
    const auto add = [&](const Caption& caption, const QKeySequence& shortcut, auto run,
                         const std::function<bool()>& enabled) {
        items.Add(menu, caption, shortcut,
                  [&documents = parts.documents, &shell = parts.shell, run] {
                      if (EventEditor* events = EventsOf(documents)) {
                          run(HWND(&shell), *events);
                      }
                  },
                  {.enabled = enabled});
    };
    add(Caption{"fileSaveEvents", "&Save Events"}, QKeySequence::Save, SaveEvents,
        [&documents = parts.documents] {
            const EventEditor* events = EventsOf(documents);
            return events != nullptr && events->IsChanged();
        });
    add(Caption{"fileSaveEventsAs", "Save Events &As..."}, {}, SaveEventsAs, has);
    add(
        Caption{"fileOpenEvents", "Open E&vents..."}, {},
        [&gui = parts.gui](HWND window, EventEditor& events) {
            if (!gui.IsBusy()) {
                OpenEvents(window, events);
            }
        },
        has);
}

// No key with Ctrl and Shift: both held down begin a batch in the spectrum view.
void AddPictures(MenuItems& items, QMenu& menu, ViewPictures& pictures) {
    const ItemState state{.enabled = [&pictures] { return pictures.HasView(); }};
    items.Add(
        menu, Caption{"fileSavePicture", "Save P&icture..."}, QKeySequence(Qt::CTRL | Qt::ALT | Qt::Key_S),
        [&pictures] { pictures.Save(); }, state);
    items.Add(
        menu, Caption{"fileCopyPicture", "Copy Pict&ure"}, QKeySequence(Qt::CTRL | Qt::ALT | Qt::Key_C),
        [&pictures] { pictures.Copy(); }, state);
    items.Add(
        menu, Caption{"filePrint", "&Print..."}, QKeySequence::Print, [&pictures] { pictures.Print(); },
        state);
}

/// "Undo Add Artifact"
void ShowChange(QAction& action, const Caption& verb, const std::string& change) {
    action.setText(change.empty() ? verb.Text()
                                  : verb.Text() + ' ' + owl::AsCaption(QString::fromStdString(change)));
    action.setEnabled(!change.empty());
}

} // namespace

void AddFileMenu(MenuItems& items, const MenuParts& parts) {
    QMenu& menu = items.AddMenu(Caption{"menuFile", "&File"});
    Documents& documents = parts.documents;
    items.Add(menu, Caption{"fileOpen", "&Open..."}, QKeySequence::Open,
              [&documents] { documents.AskForFile(); });
    const Caption recent{"fileRecent", "Open &Recent"};
    QMenu& files = *menu.addMenu(recent.Text());
    files.setObjectName(recent.key);
    QObject::connect(&files, &QMenu::aboutToShow, &files,
                     [&files, &documents] { FillRecent(files, documents); });
    items.Add(menu, Caption{"fileClose", "&Close"}, QKeySequence(Qt::CTRL | Qt::Key_W),
              [&documents] { documents.Close(); },
              {.enabled = [&documents] { return documents.Current() != nullptr; }});
    menu.addSeparator();
    AddEvents(items, menu, parts);
    menu.addSeparator();
    AddPictures(items, menu, parts.pictures);
    menu.addSeparator();
    items.Add(menu, Caption{"fileQuit", "&Quit"}, QKeySequence(Qt::CTRL | Qt::Key_Q),
              [&shell = parts.shell] { shell.close(); });
}

void AddEditMenu(MenuItems& items, const MenuParts& parts) {
    QMenu& menu = items.AddMenu(Caption{"menuEdit", "&Edit"});
    Documents& documents = parts.documents;
    const Caption undo{"editUndo", "&Undo"};
    QAction& undoes = items.Add(menu, undo, QKeySequence(Qt::CTRL | Qt::Key_Z), [&documents] {
        if (EventEditor* events = EventsOf(documents); events != nullptr && events->CanUndo()) {
            events->Undo();
        }
    });
    const Caption redo{"editRedo", "&Redo"};
    QAction& redoes = items.Add(menu, redo, QKeySequence(Qt::CTRL | Qt::Key_Y), [&documents] {
        if (EventEditor* events = EventsOf(documents); events != nullptr && events->CanRedo()) {
            events->Redo();
        }
    });
    items.AddUpdate([&documents, &undoes, &redoes, undo, redo] {
        const EventEditor* events = EventsOf(documents);
        ShowChange(undoes, undo, events != nullptr ? events->UndoText() : std::string());
        ShowChange(redoes, redo, events != nullptr ? events->RedoText() : std::string());
    });
}

} // namespace orvanta::review
