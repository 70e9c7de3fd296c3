#include "ui/PhoneModel.h"

#include <QVariantMap>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace pevrix {

namespace {

struct Role
{
    const char* name;      // for a card; "id" and "model" mean something else there
    QLatin1StringView key; // in the controller's maps
};

constexpr std::array kRoles{Role{"phoneId", "id"_L1}, Role{"name", "name"_L1},
                            Role{"deviceModel", "model"_L1}, Role{"deviceOs", "os"_L1},
                            Role{"usb", "usb"_L1}};

int idOf(const QVariant& phone)
{
    return phone.toMap().value("id"_L1).toInt();
}

} // namespace

void PhoneModel::setPhones(const QVariantList& phones)
{
    if (phones == m_phones) {
        return;
    }
    removeAllBut(phones);
    for (int row = 0; row < phones.size(); ++row) {
        placePhone(row, phones[row]);
    }
    Q_EMIT phonesChanged();
}

void PhoneModel::removeRow(int row)
{
    beginRemoveRows({}, row, row);
    m_phones.removeAt(row);
    endRemoveRows();
}

void PhoneModel::removeAllBut(const QVariantList& phones)
{
    for (int row = rowCount() - 1; row >= 0; --row) {
        const int id = idOf(m_phones[row]);
        if (std::ranges::none_of(phones, [id](const QVariant& p) { return idOf(p) == id; })) {
            removeRow(row);
        }
    }
}

// The rows above are in order already.
void PhoneModel::placePhone(int row, const QVariant& phone)
{
    for (int known = row; known < rowCount(); ++known) {
        if (idOf(m_phones[known]) != idOf(phone)) {
            continue;
        }
        if (known != row) {
            beginMoveRows({}, known, known, {}, row);
            m_phones.move(known, row);
            endMoveRows();
        }
        if (m_phones[row] != phone) {
            m_phones[row] = phone;
            Q_EMIT dataChanged(index(row), index(row));
        }
        return;
    }
    beginInsertRows({}, row, row);
    m_phones.insert(row, phone);
    endInsertRows();
}

int PhoneModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_phones.size());
}

QVariant PhoneModel::data(const QModelIndex& index, int role) const
{
    const int which = role - Qt::UserRole;
    if (!checkIndex(index, CheckIndexOption::IndexIsValid) || which < 0 ||
        which >= static_cast<int>(kRoles.size())) {
        return {};
    }
    return m_phones[index.row()].toMap().value(kRoles[static_cast<std::size_t>(which)].key);
}

QHash<int, QByteArray> PhoneModel::roleNames() const
{
    QHash<int, QByteArray> names;
    for (int role = Qt::UserRole; const Role& entry : kRoles) {
        names.insert(role++, entry.name);
    }
    return names;
}

} // namespace pevrix
