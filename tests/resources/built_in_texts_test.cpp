// SPDX-License-Identifier: GPL-3.0-or-later
// The texts that the code falls back to against the English file.
#include "tests/resources/designer_texts.h"
#include "tests/resources/message_file.h"

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <gtest/gtest.h>

namespace {

using orvanta::test::ShippedTexts;

struct BuiltIn {
    QString key; ///< "SECTION/KEY"
    QString text;
    QString file;
};

/// A call that names a key and its built-in text, and the section of the file it stands in.
struct Call {
    const char* function; ///< with its opening bracket and what comes before the key
    const char* section;  ///< empty: the call itself names it
};

constexpr Call kCalls[] = {
    {R"(MacroText\()", "MACRO"},
    {R"(FormText\()", "TFormSpectrumMacro"},
    {R"(ExportText\()", "TSpectraExportForm"},
    {R"(ResultsText\()", "TFormBCIResults"},
    {R"(SpectraText\()", "TFormListenerSpectra1"},
    {R"(BCIText\()", "TFormListenerSpectraBCI"},
    {R"(ShowCode\()", "TFormListenerSpectraBCI"},
    {R"(StarterMacro\{)", "STARTER_MACROS"},
    {R"(Reason\{)", "REASONS"},
    {R"(Word\{)", "DESCRIPTION"},
    {R"(Title\()", "HOST"},
    {R"(HostQ?Text\()", "HOST"},
    {R"(Caption(?: \w+)?\{)", "HOST"},
    {R"(EventText\()", "EVENTS"},
    {R"(TraceText\()", "TRACES"},
    {R"(MontageWords\()", "MONTAGES"},
    {R"(TraceRow\{kCm[A-Za-z]+,)", "TRACES"},
    {R"re(TextOr\([^;]*?"([A-Za-z_0-9]+)",)re", ""},
};

constexpr const char* kRooms[] = {"side_bar",      "module",      "spectrum_view",
                                  "spectral_maps", "host/review", "host/toolkit"};

QString Unescaped(QString literals) {
    // Neighbouring literals are one text.
    static const QRegularExpression seam(R"("\s+")");
    return literals.remove(seam).mid(1).chopped(1).replace("\\n", "\n").replace("\\\"", "\"");
}

template <class Visit>
void ForEachSource(const Visit& visit) {
    for (const char* room : kRooms) {
        QDirIterator files(QString(ORVANTA_RESOURCES "/../%1").arg(room), {"*.cpp"}, QDir::Files,
                           QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile file(files.next());
            EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << file.fileName().toStdString();
            visit(file.fileName(), QString::fromUtf8(file.readAll()));
        }
    }
}

void ReadCalls(const Call& call, const QString& file, const QString& code, QList<BuiltIn>& texts) {
    const QRegularExpression pattern(QString(call.function) +
                                     R"re(\s*"([A-Za-z_]+)",\s*((?:"(?:[^"\\]|\\.)*"\s*)+))re");
    const bool named = *call.section != '\0';
    for (auto matches = pattern.globalMatch(code); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        const QString section = named ? QString(call.section) : match.captured(1);
        texts << BuiltIn{section + '/' + match.captured(named ? 1 : 2),
                         Unescaped(match.captured(named ? 2 : 3).trimmed()), file};
    }
}

QList<BuiltIn> BuiltInTexts() {
    QList<BuiltIn> texts;
    ForEachSource([&](const QString& file, const QString& code) {
        for (const Call& call : kCalls) {
            ReadCalls(call, file, code, texts);
        }
    });
    return texts;
}

TEST(BuiltInTexts, AreThoseOfTheEnglishFile) {
    const QMap<QString, QString> english = ShippedTexts("en");
    const QList<BuiltIn> texts = BuiltInTexts();
    EXPECT_GE(texts.size(), 20);
    for (const BuiltIn& text : texts) {
        EXPECT_EQ(english.value(text.key).toStdString(), text.text.toStdString())
            << text.key.toStdString() << " in " << text.file.toStdString();
    }
}

/// Names that the code gives to controls which no Designer file has.
QSet<QString> NamedInCode() {
    static const QRegularExpression naming(R"re(setObjectName\((?:QStringLiteral\()?"(\w+)"\))re");
    QSet<QString> names;
    ForEachSource([&](const QString&, const QString& code) {
        for (auto matches = naming.globalMatch(code); matches.hasNext();) {
            names << matches.next().captured(1);
        }
    });
    return names;
}

TEST(BuiltInTexts, UseEveryTextOfFormsAndMessageBoxes) {
    QSet<QString> used;
    for (const BuiltIn& text : BuiltInTexts()) {
        used << text.key;
    }
    for (const QString& file : orvanta::test::DesignerFiles()) {
        const orvanta::test::DesignerTexts form = orvanta::test::ReadDesignerTexts(file);
        for (const QString& key : form.texts.keys()) {
            used << form.section + '/' + key;
        }
    }
    const QSet<QString> namedInCode = NamedInCode();
    const QMap<QString, QString> english = ShippedTexts("en");
    for (const QString& key : english.keys()) {
        if (key.startsWith("TForm") || key.startsWith("DIALOG_") || key.startsWith("MACRO/") ||
            key.startsWith("MODULE/") || key.startsWith("HOST/") || key.startsWith("EVENTS/") ||
            key.startsWith("TRACES/") || key.startsWith("MONTAGES/")) {
            const QString control = key.section('/', 1).section('.', 0, 0);
            EXPECT_TRUE(used.contains(key) || namedInCode.contains(control))
                << key.toStdString() << " is used nowhere";
        }
    }
}

} // namespace
