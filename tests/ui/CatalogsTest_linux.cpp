// The catalogs against the sources that they translate. Needs the tools of the building machine.
#include "tools/doubles/Program.h"
#include "ui/Translator.h"

#include <gmock/gmock.h>

#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTranslator>
#include <QXmlStreamReader>

#include <algorithm>
#include <array>
#include <map>

using namespace Qt::StringLiterals;
using pevrix::Program;

namespace {

using Text = std::array<QString, 3>; // context, source, comment for the translator
using Catalog = std::map<Text, QString>;

// The texts of a .ts file, with an empty translation where it is not finished.
Catalog readCatalog(const QString& path)
{
    Catalog catalog;
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(path);
    QXmlStreamReader xml(&file);
    Text text;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement) {
            continue;
        }
        if (xml.name() == "name"_L1) {
            text[0] = xml.readElementText();
        } else if (xml.name() == "message"_L1) {
            text[2].clear();
        } else if (xml.name() == "source"_L1) {
            text[1] = xml.readElementText();
        } else if (xml.name() == "comment"_L1) {
            text[2] = xml.readElementText();
        } else if (xml.name() == "translation"_L1) {
            const bool finished = !xml.attributes().hasAttribute("type"_L1);
            const QString translation = xml.readElementText();
            catalog[text] = finished ? translation : QString();
        }
    }
    EXPECT_FALSE(xml.hasError()) << qPrintable(xml.errorString());
    return catalog;
}

Catalog textsOfTheSources()
{
    const QTemporaryDir folder;
    Program lupdate(QStringLiteral(PEVRIX_LUPDATE),
                    {u"-silent"_s, QStringLiteral(PEVRIX_SOURCE_DIR "/qml"),
                     QStringLiteral(PEVRIX_SOURCE_DIR "/app"), u"-ts"_s,
                     folder.filePath(u"sources.ts"_s)});
    EXPECT_EQ(lupdate.awaitExit(), 0) << qPrintable(lupdate.errors());
    return readCatalog(folder.filePath(u"sources.ts"_s));
}

QStringList placeholders(const QString& text)
{
    static const QRegularExpression pattern(u"%(n|L?\\d+)"_s);
    QStringList found;
    for (const auto& match : pattern.globalMatch(text)) {
        found << match.captured();
    }
    std::ranges::sort(found);
    return found;
}

} // namespace

// After a change of the texts: ./dev translations.
TEST(Catalogs, TranslateEveryTextOfTheInterfaceAndNothingElse)
{
    const Catalog sources = textsOfTheSources();
    ASSERT_GT(sources.size(), 10U);
    for (const QString& code : pevrix::Translator::supportedLanguages().sliced(1)) {
        const Catalog catalog =
            readCatalog(QStringLiteral(PEVRIX_SOURCE_DIR "/i18n/pevrix_%1.ts").arg(code));
        QTranslator ours;
        ASSERT_TRUE(ours.load(u":/i18n/pevrix_%1.qm"_s.arg(code))) << qPrintable(code);
        for (const auto& [text, nothing] : sources) {
            const auto found = catalog.find(text);
            const QString translation = found == catalog.end() ? QString() : found->second;
            EXPECT_FALSE(translation.isEmpty())
                << "untranslated in " << qPrintable(code) << ": " << qPrintable(text[1]);
            EXPECT_EQ(placeholders(translation), placeholders(text[1]))
                << qPrintable(code) << ": " << qPrintable(translation);
            EXPECT_EQ(ours.translate(qPrintable(text[0]), text[1].toUtf8(), text[2].toUtf8()),
                      translation);
        }
        EXPECT_EQ(catalog.size(), sources.size())
            << "texts that are no more in " << qPrintable(code);
    }
}
