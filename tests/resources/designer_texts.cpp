// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/resources/designer_texts.h"

#include "tests/resources/message_file.h"

#include <QDir>
#include <QDomDocument>
#include <QFile>
#include <gtest/gtest.h>

namespace orvanta::test {

namespace {

QList<QDomElement> Children(const QDomElement& parent, const QString& tag) {
    QList<QDomElement> children;
    for (QDomElement child = parent.firstChildElement(tag); !child.isNull();
         child = child.nextSiblingElement(tag)) {
        children << child;
    }
    return children;
}

QString Property(const QDomElement& owner, const QString& name, const QString& type) {
    for (const QDomElement& property : Children(owner, "property")) {
        if (property.attribute("name") == name) {
            return property.firstChildElement(type).text();
        }
    }
    return {};
}

class Reader {
public:
    void ReadControl(const QDomElement& control, const QString& key) {
        for (const char* property : {"text", "title", "windowTitle"}) {
            Add(key, Property(control, property, "string"));
        }
        Add(key + ".tip", Property(control, "toolTip", "string"));
        for (const char* kind : {"column", "item"}) {
            const QList<QDomElement> parts = Children(control, kind);
            for (qsizetype i = 0; i < parts.size(); ++i) {
                Add(key + '.' + QString::number(i), Property(parts[i], "text", "string"));
            }
        }
        const QString caption = Property(control, "text", "string");
        if (control.attribute("class") == "QLabel" && !MnemonicOf(caption).isEmpty() &&
            Property(control, "buddy", "cstring").isEmpty()) {
            texts.buddies << caption;
        }
    }

    DesignerTexts texts;

private:
    void Add(const QString& key, const QString& text) {
        if (text.trimmed().isEmpty() || IsSymbol(text)) {
            return;
        }
        if (key.isEmpty() || key.startsWith('.')) {
            texts.unnamed << text;
        } else {
            texts.texts[key] = text;
        }
    }
};

} // namespace

DesignerTexts ReadDesignerTexts(const QString& path) {
    QFile file(path);
    QDomDocument document;
    EXPECT_TRUE(file.open(QIODevice::ReadOnly) && document.setContent(&file)) << path.toStdString();
    const QDomElement form = document.documentElement().firstChildElement("widget");
    Reader reader;
    reader.texts.section = form.attribute("name");
    EXPECT_FALSE(reader.texts.section.isEmpty()) << path.toStdString();
    reader.ReadControl(form, "caption");
    const QDomNodeList controls = form.elementsByTagName("widget");
    for (int i = 0; i < controls.size(); ++i) {
        const QDomElement control = controls.at(i).toElement();
        reader.ReadControl(control, control.attribute("name"));
    }
    return reader.texts;
}

QStringList DesignerFiles() {
    QStringList files;
    for (const char* folder : {ORVANTA_RESOURCES "/dialogs", ORVANTA_RESOURCES "/forms"}) {
        for (const QFileInfo& file : QDir(folder).entryInfoList({"*.ui"})) {
            files << file.filePath();
        }
    }
    return files;
}

} // namespace orvanta::test
