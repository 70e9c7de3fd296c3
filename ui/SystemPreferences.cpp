#include "ui/SystemPreferences.h"

namespace pevrix {

SystemPreferences::SystemPreferences(QObject* parent)
    : QObject(parent)
    , m_watch(watchSystem([this](const SystemWishes& wishes) { take(wishes); }))
{}

void SystemPreferences::take(const SystemWishes& wishes)
{
    if (wishes != m_wishes) {
        m_wishes = wishes;
        Q_EMIT changed();
    }
}

} // namespace pevrix
