// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/qt_texts.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QTranslator>

#include <memory>

namespace owl {

bool UseQtTexts(QApplication& application) {
    auto translator = std::make_unique<QTranslator>();
    if (!translator->load(QLocale(), "qtbase", "_", QLibraryInfo::path(QLibraryInfo::TranslationsPath)) ||
        !QApplication::installTranslator(translator.get())) {
        return false;
    }
    translator.release()->setParent(&application);
    return true;
}

} // namespace owl
