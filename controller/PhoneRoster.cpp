#include "controller/PhoneRoster.h"

#include "phone/PlainText.h"

#include <QVariantMap>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace pevrix {

std::vector<PhoneRoster::Phone>::iterator PhoneRoster::iteratorOf(int id)
{
    return std::find_if(m_phones.begin(), m_phones.end(),
                        [id](const Phone& phone) { return phone.id == id; });
}

const PhoneRoster::Phone* PhoneRoster::find(int id) const
{
    const auto found = std::find_if(m_phones.begin(), m_phones.end(),
                                    [id](const Phone& phone) { return phone.id == id; });
    return found == m_phones.end() ? nullptr : &*found;
}

QString PhoneRoster::displayName(const Phone& phone) const
{
    return m_names.value(phone.deviceId, phone.phoneName);
}

bool PhoneRoster::add(Phone phone)
{
    phone.name = displayName(phone);
    const int id = phone.id;
    if (const auto known = iteratorOf(id); known != m_phones.end()) {
        *known = std::move(phone);
    } else {
        m_phones.push_back(std::move(phone));
    }
    if (m_activeId >= 0) {
        return false;
    }
    m_activeId = id;
    return true;
}

bool PhoneRoster::remove(int id)
{
    const auto phone = iteratorOf(id);
    if (phone == m_phones.end()) {
        return false;
    }
    m_phones.erase(phone);
    if (id != m_activeId) {
        return false;
    }
    m_activeId = m_phones.empty() ? kNoPhone : m_phones.front().id;
    return true;
}

bool PhoneRoster::setActive(int id)
{
    if (id == m_activeId || !find(id)) {
        return false;
    }
    m_activeId = id;
    return true;
}

bool PhoneRoster::rename(int id, const QString& newName)
{
    const auto phone = iteratorOf(id);
    if (phone == m_phones.end()) {
        return false;
    }
    const QString name = plainText(newName.trimmed(), kMaxNameLength);
    if (name.isEmpty()) {
        m_names.remove(phone->deviceId);
    } else {
        m_names.insert(phone->deviceId, name);
    }
    phone->name = displayName(*phone);
    return true;
}

QVariantList PhoneRoster::toVariantList() const
{
    QVariantList list;
    list.reserve(static_cast<qsizetype>(m_phones.size()));
    for (const Phone& phone : m_phones) {
        list.append(QVariantMap{{u"id"_s, phone.id},
                                {u"deviceId"_s, phone.deviceId},
                                {u"name"_s, phone.name},
                                {u"phoneName"_s, phone.phoneName},
                                {u"model"_s, phone.model},
                                {u"os"_s, phone.os},
                                {u"usb"_s, phone.usb}});
    }
    return list;
}

} // namespace pevrix
