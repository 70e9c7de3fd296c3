#pragma once

#include <QAbstractListModel>
#include <QVariantList>

namespace pevrix {

// The connected phones, one row each, in the order of the controller's list. A row lasts as long
// as its phone stays in the list: what the interface keeps for a phone, such as a renaming that is
// under way, survives every change of the others. GUI thread.
class PhoneModel : public QAbstractListModel
{
    Q_OBJECT
    // The controller's list: maps with "id", "name", "model", "os" and "usb".
    Q_PROPERTY(QVariantList phones READ phones WRITE setPhones NOTIFY phonesChanged FINAL)

public:
    using QAbstractListModel::QAbstractListModel;

    [[nodiscard]] QVariantList phones() const { return m_phones; }
    void setPhones(const QVariantList& phones);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void phonesChanged();

private:
    void removeRow(int row);
    void removeAllBut(const QVariantList& phones);
    void placePhone(int row, const QVariant& phone);

    QVariantList m_phones;
};

} // namespace pevrix
