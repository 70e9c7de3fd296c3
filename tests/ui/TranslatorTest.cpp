#include "ui/Translator.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <memory>

using namespace Qt::StringLiterals;
using pevrix::Translator;

namespace {

QString ours()
{
    return QCoreApplication::translate("tray", "Quit");
}

QString qts()
{
    return QCoreApplication::translate("QPlatformTheme", "Cancel");
}

// The translator with settings of its own.
class TranslatorTest : public testing::Test
{
protected:
    TranslatorTest()
    {
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_folder.path());
    }

    static QSettings store()
    {
        return {QSettings::IniFormat, QSettings::UserScope, u"Pevrix"_s, u"Pevrix"_s};
    }

    QQmlEngine m_engine;

private:
    QTemporaryDir m_folder;
};

} // namespace

TEST_F(TranslatorTest, FindsTheLanguageOfTheSystem)
{
    const char* const cases[][2] = {
        {"fr_CA", "fr"},    {"pt_BR", "pt"}, {"ja", "ja"},    {"zh_TW", "zh_CN"},
        {"zh_CN", "zh_CN"}, {"nl_NL", "en"}, {"en_GB", "en"}, {"C", "en"},
    };
    for (const auto& [locale, expected] : cases) {
        EXPECT_EQ(Translator::effectiveLanguage(u"auto"_s, QString::fromLatin1(locale)),
                  QString::fromLatin1(expected))
            << locale;
        EXPECT_EQ(Translator::effectiveLanguage(u"de"_s, QString::fromLatin1(locale)), u"de"_s);
    }
}

TEST_F(TranslatorTest, TakesOnlyCodesThatItHasFromTheCommandLine)
{
    const char* const cases[][2] = {
        {"pevrix --lang ja", "ja"},     {"pevrix --shot --lang zh_CN x", "zh_CN"},
        {"pevrix --lang en", "en"},     {"pevrix --lang JA", "none"},
        {"pevrix --lang auto", "none"}, {"pevrix --lang zh", "none"},
        {"pevrix --lang", "none"},      {"pevrix ja", "none"},
    };
    for (const auto& [arguments, expected] : cases) {
        const QStringList list = QString::fromLatin1(arguments).split(u' ');
        EXPECT_EQ(Translator::languageArgument(list).value_or(u"none"_s),
                  QString::fromLatin1(expected))
            << arguments;
    }
}

TEST_F(TranslatorTest, SpeaksTheStoredLanguageFromTheStartAndEnglishAfterTheEnd)
{
    store().setValue("language"_L1, u"pt"_s);
    {
        const Translator translator(QCoreApplication::instance(), &m_engine);
        EXPECT_EQ(translator.language(), u"pt"_s);
        EXPECT_EQ(ours(), u"Sair"_s);
        EXPECT_EQ(qts(), u"Cancelar"_s);
    }
    EXPECT_EQ(ours(), u"Quit"_s);
    EXPECT_EQ(qts(), u"Cancel"_s);
}

TEST_F(TranslatorTest, ChangesTheLanguageOfEverythingThatIsShown)
{
    QQmlComponent component(&m_engine);
    component.setData(
        "import QtQml\nQtObject { property string text: qsTranslate('tray', 'Quit') }", QUrl());
    const std::unique_ptr<QObject> shown(component.create());
    Translator translator(QCoreApplication::instance(), &m_engine);
    QSignalSpy changes(&translator, &Translator::languageChanged);

    const QString texts[][3] = {{u"ja"_s, u"終了"_s, u"キャンセル"_s},
                                {u"de"_s, u"Beenden"_s, u"Abbrechen"_s},
                                {u"de"_s, u"Beenden"_s, u"Abbrechen"_s},
                                {u"xx"_s, u"Quit"_s, u"Cancel"_s}, // no catalog, no harm
                                {u"ja"_s, u"終了"_s, u"キャンセル"_s},
                                {u"en"_s, u"Quit"_s, u"Cancel"_s}};
    for (const auto& [code, our, qt] : texts) {
        store().remove("language"_L1);
        translator.setLanguage(code);
        EXPECT_EQ(shown->property("text").toString(), our);
        EXPECT_EQ(qts(), qt);
        EXPECT_EQ(store().value("language"_L1).toString(), code);
    }
    EXPECT_EQ(changes.count(), 6);
}
