// The catalogs against the sources that they translate. Needs the tools of the building machine.
#include "tools/doubles/Program.h"
#include "ui/Translator.h"

#include <gmock/gmock.h>

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTranslator>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace pevrix;

namespace {

QString contentOf(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(path);
    return QString::fromUtf8(file.readAll());
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

// After a change of the texts: ./dev translations, which changes nothing more here.
TEST(Catalogs, TranslateEveryTextOfTheInterfaceAndNothingElse)
{
    static const QRegularExpression message(
        u"<source>(.*?)</source>.*?<translation>(.*?)</translation>"_s,
        QRegularExpression::DotMatchesEverythingOption);
    const QDir catalogs(QStringLiteral(PEVRIX_SOURCE_DIR "/i18n"));
    const QStringList names = catalogs.entryList({u"*.ts"_s});
    ASSERT_EQ(names.size(), Translator::supportedLanguages().size() - 1);
    const QTemporaryDir copies;
    QStringList arguments = words("-silent -no-obsolete -locations none") +
                            QStringList{QStringLiteral(PEVRIX_SOURCE_DIR "/qml"),
                                        QStringLiteral(PEVRIX_SOURCE_DIR "/app"), u"-ts"_s};
    for (const QString& name : names) {
        ASSERT_TRUE(QFile::copy(catalogs.filePath(name), copies.filePath(name)));
        arguments << copies.filePath(name);
    }
    Program lupdate(QStringLiteral(PEVRIX_LUPDATE), arguments);
    EXPECT_EQ(lupdate.awaitExit(), 0) << qPrintable(lupdate.errors());
    for (const QString& name : names) {
        SCOPED_TRACE(name.toStdString());
        const QString catalog = contentOf(catalogs.filePath(name));
        EXPECT_TRUE(contentOf(copies.filePath(name)) == catalog) << "is not up to date";
        EXPECT_FALSE(catalog.contains("type=\"unfinished\""_L1));
        for (const auto& text : message.globalMatch(catalog)) {
            EXPECT_FALSE(text.captured(2).isEmpty()) << qPrintable(text.captured(1));
            EXPECT_EQ(placeholders(text.captured(2)), placeholders(text.captured(1)));
        }
        QTranslator compiled;
        EXPECT_TRUE(compiled.load(u":/i18n/"_s + name.chopped(3) + u".qm"_s));
    }
}
