#pragma once

#include "ui/SystemWatch.h"

#include <QColor>
#include <QObject>

#include <memory>

namespace pevrix {

// What the user asks of every program through the system's settings, kept up to date. Systems that
// cannot be asked ask for nothing. GUI thread.
class SystemPreferences final : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool lessMotion READ lessMotion NOTIFY changed FINAL)
    Q_PROPERTY(bool moreContrast READ moreContrast NOTIFY changed FINAL)
    Q_PROPERTY(QColor contrastWindow READ contrastWindow NOTIFY changed FINAL)
    Q_PROPERTY(QColor contrastText READ contrastText NOTIFY changed FINAL)
    Q_PROPERTY(QColor contrastHighlight READ contrastHighlight NOTIFY changed FINAL)
    Q_PROPERTY(QColor contrastHighlightedText READ contrastHighlightedText NOTIFY changed FINAL)

public:
    // Where the system answers late, nothing is asked for until then.
    explicit SystemPreferences(QObject* parent = nullptr);

    // Nothing should move that need not.
    [[nodiscard]] bool lessMotion() const { return m_wishes.lessMotion; }

    // Text and edges should stand out strongly, in the colours below, which are invalid where the
    // system leaves them to us.
    [[nodiscard]] bool moreContrast() const { return m_wishes.moreContrast; }
    [[nodiscard]] QColor contrastWindow() const { return m_wishes.window; }
    [[nodiscard]] QColor contrastText() const { return m_wishes.text; }
    [[nodiscard]] QColor contrastHighlight() const { return m_wishes.highlight; }
    [[nodiscard]] QColor contrastHighlightedText() const { return m_wishes.highlightedText; }

Q_SIGNALS:
    void changed();

private:
    void take(const SystemWishes& wishes);

    SystemWishes m_wishes;
    std::unique_ptr<ISystemWatch> m_watch; // ends before what it tells
};

} // namespace pevrix
