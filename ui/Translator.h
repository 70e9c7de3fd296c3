#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

#include <optional>

class QCoreApplication;
class QQmlEngine;
class QTranslator;

namespace pevrix {

// The language of the interface: keeps the choice, installs its catalogs into the application and
// makes the QML engine set all texts again when the choice changes. A missing catalog is skipped,
// so that its texts stay English. GUI thread.
class Translator final : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString language READ language NOTIFY languageChanged)

public:
    // Installs the catalogs of the stored language, or of the one named by "--lang" in the
    // application's arguments, which lasts for this run only. Neither pointer is owned; both
    // objects must outlive this one.
    Translator(QCoreApplication* application, QQmlEngine* engine, QObject* parent = nullptr);
    ~Translator() override;

    // The choice as it was made: "auto" or a code.
    [[nodiscard]] QString language() const { return m_language; }

    // The codes that have catalogs, and "en", whose strings are the source.
    [[nodiscard]] static const QStringList& supportedLanguages();

    // The code to use for a choice on a system whose locale has this name ("fr_CA").
    [[nodiscard]] static QString effectiveLanguage(const QString& choice,
                                                   const QString& systemLocale);

    // The language that command-line arguments ask for. Anything but a supported code is ignored.
    [[nodiscard]] static std::optional<QString> languageArgument(const QStringList& arguments);

public Q_SLOTS:
    // Stores the choice and shows it at once, also when it is the present one.
    void setLanguage(const QString& code);

Q_SIGNALS:
    void languageChanged();

private:
    void install();
    void remove(QTranslator*& translator);
    [[nodiscard]] QTranslator* load(const QString& catalog);

    QCoreApplication* m_application;
    QQmlEngine* m_engine;
    QTranslator* m_appTranslator = nullptr; // our texts
    QTranslator* m_qtTranslator = nullptr;  // those of Qt's own dialogs and buttons
    QString m_language;
};

} // namespace pevrix
