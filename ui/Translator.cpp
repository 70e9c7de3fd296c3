#include "ui/Translator.h"

#include <QCoreApplication>
#include <QLocale>
#include <QQmlEngine>
#include <QSettings>
#include <QTranslator>

#include <memory>

using namespace Qt::StringLiterals;

namespace pevrix {

namespace {

constexpr auto kAuto = "auto"_L1;
constexpr auto kSource = "en"_L1;
constexpr auto kSimplifiedChinese = "zh_CN"_L1;

// The program's own settings file, which other settings live in too.
class StoredLanguage
{
public:
    [[nodiscard]] QString read() const { return m_store.value(kKey, kAuto).toString(); }
    void write(const QString& code) { m_store.setValue(kKey, code); }

private:
    static constexpr auto kKey = "language"_L1;
    QSettings m_store{QSettings::IniFormat, QSettings::UserScope, u"Pevrix"_s, u"Pevrix"_s};
};

} // namespace

const QStringList& Translator::supportedLanguages()
{
    static const QStringList codes{u"en"_s, u"fr"_s, u"es"_s, u"de"_s,    u"it"_s,
                                   u"pt"_s, u"ru"_s, u"tr"_s, u"zh_CN"_s, u"ja"_s};
    return codes;
}

// Readers of traditional Chinese are served better by simplified Chinese than by English.
QString Translator::effectiveLanguage(const QString& choice, const QString& systemLocale)
{
    if (choice != kAuto) {
        return choice;
    }
    const QString language = systemLocale.section(u'_', 0, 0);
    if (language == "zh"_L1) {
        return kSimplifiedChinese;
    }
    return supportedLanguages().contains(language) ? language : kSource;
}

std::optional<QString> Translator::languageArgument(const QStringList& arguments)
{
    const qsizetype option = arguments.indexOf("--lang"_L1);
    if (option < 0 || option + 1 >= arguments.size() ||
        !supportedLanguages().contains(arguments[option + 1])) {
        return std::nullopt;
    }
    return arguments[option + 1];
}

Translator::Translator(QCoreApplication* application, QQmlEngine* engine, QObject* parent)
    : QObject(parent)
    , m_application(application)
    , m_engine(engine)
    , m_language(StoredLanguage().read())
{
    if (const auto argument = languageArgument(QCoreApplication::arguments())) {
        m_language = *argument;
    }
    install();
}

Translator::~Translator()
{
    remove(m_appTranslator);
    remove(m_qtTranslator);
}

void Translator::setLanguage(const QString& code)
{
    m_language = code;
    StoredLanguage().write(code);
    install();
    m_engine->retranslate();
    Q_EMIT languageChanged();
}

void Translator::install()
{
    remove(m_appTranslator);
    remove(m_qtTranslator);
    const QString code = effectiveLanguage(m_language, QLocale::system().name());
    if (code == kSource) {
        return;
    }
    m_appTranslator = load(u":/i18n/pevrix_"_s + code + u".qm"_s);
    // Qt's own texts exist in Brazilian Portuguese only.
    m_qtTranslator = load(u":/i18n/qtbase_"_s + (code == "pt"_L1 ? u"pt_BR"_s : code) + u".qm"_s);
}

void Translator::remove(QTranslator*& translator)
{
    if (translator) {
        m_application->removeTranslator(translator);
        delete translator;
        translator = nullptr;
    }
}

QTranslator* Translator::load(const QString& catalog)
{
    auto translator = std::make_unique<QTranslator>(this);
    if (!translator->load(catalog)) {
        return nullptr;
    }
    m_application->installTranslator(translator.get());
    return translator.release();
}

} // namespace pevrix
