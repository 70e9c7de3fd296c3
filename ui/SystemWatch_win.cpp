#include "ui/SystemWatch.h"

#include <QAbstractNativeEventFilter>
#include <QCoreApplication>

#include <utility>

#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>

namespace pevrix {

namespace {

QColor systemColor(int index)
{
    const COLORREF color = GetSysColor(index);
    return {GetRValue(color), GetGValue(color), GetBValue(color)};
}

SystemWishes readWishes()
{
    SystemWishes wishes;
    BOOL animations = TRUE;
    if (SystemParametersInfoW(SPI_GETCLIENTAREAANIMATION, 0, &animations, 0)) {
        wishes.lessMotion = !animations;
    }
    HIGHCONTRASTW contrast = {};
    contrast.cbSize = sizeof(contrast);
    if (SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof(contrast), &contrast, 0) &&
        (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0) {
        wishes.moreContrast = true;
        wishes.window = systemColor(COLOR_WINDOW);
        wishes.text = systemColor(COLOR_WINDOWTEXT);
        wishes.highlight = systemColor(COLOR_HIGHLIGHT);
        wishes.highlightedText = systemColor(COLOR_HIGHLIGHTTEXT);
    }
    return wishes;
}

// Every top-level window is told of changes: the messages pass here on their way to ours.
class MessageWatch final : public QAbstractNativeEventFilter, public ISystemWatch
{
public:
    explicit MessageWatch(std::function<void(const SystemWishes&)> callback)
        : m_callback(std::move(callback))
    {
        QCoreApplication::instance()->installNativeEventFilter(this);
        m_callback(readWishes());
    }

    bool nativeEventFilter(const QByteArray&, void* message, qintptr*) override
    {
        const UINT kind = static_cast<const MSG*>(message)->message;
        if (kind == WM_SETTINGCHANGE || kind == WM_SYSCOLORCHANGE || kind == WM_THEMECHANGED) {
            m_callback(readWishes());
        }
        return false;
    }

private:
    const std::function<void(const SystemWishes&)> m_callback;
};

} // namespace

std::unique_ptr<ISystemWatch> watchSystem(std::function<void(const SystemWishes&)> callback)
{
    return std::make_unique<MessageWatch>(std::move(callback));
}

} // namespace pevrix
