#pragma once

#include <QQmlApplicationEngine>
#include <QSize>
#include <QString>
#include <QStringList>

#include <memory>

class QQuickWindow;

namespace pevrix {

// The real window around a scripted controller, photographed view by view.
class Gallery
{
public:
    struct Options
    {
        QString folder;
        bool dark = true;
        QSize size;
        QStringList views; // empty: all
        QString suffix;    // of the files' names, before the theme
    };

    explicit Gallery(const Options& options);
    ~Gallery();

    // For the translator, before load().
    [[nodiscard]] QQmlEngine* engine() { return &m_engine; }

    // False when the interface does not load; Qt's warnings tell why.
    [[nodiscard]] bool load();

    // Writes a PNG of every view into the folder. Returns the files that could not be written.
    [[nodiscard]] QStringList takePictures();

private:
    [[nodiscard]] std::unique_ptr<QObject> make(const QString& component,
                                                const QVariantMap& properties = {});

    const Options m_options;
    std::unique_ptr<QObject> m_app;
    std::unique_ptr<QObject> m_updater;
    QQmlApplicationEngine m_engine; // ends before what its window uses
    std::unique_ptr<QObject> m_views;
    QQuickWindow* m_window = nullptr;
};

} // namespace pevrix
