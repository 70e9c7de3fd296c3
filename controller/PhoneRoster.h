#pragma once

#include <QHash>
#include <QString>
#include <QVariantList>

#include <vector>

namespace pevrix {

// The phones connected now, in order of connection, the active one, whose video is used, and the
// names that the user gave to phones. Plain logic without signals or storage: every operation
// returns what has changed, and the caller tells the phones and stores the names.
class PhoneRoster
{
public:
    static constexpr int kNoPhone = -1;

    struct Phone
    {
        int id = kNoPhone; // session id, unique for the life of the process
        QString deviceId;
        QString name;      // the user's name for this device, else phoneName
        QString phoneName; // the phone's own name
        QString model;
        QString os;
        bool usb = false;
    };

    using Names = QHash<QString, QString>; // device id to the user's name

    void setNames(Names names) { m_names = std::move(names); }
    [[nodiscard]] const Names& names() const { return m_names; }

    // Appends a phone, whose `name` is filled in here. A phone that greets again on the same
    // session keeps its place; all that is known of it is what it says now. True when it has become
    // the active phone.
    bool add(Phone phone);

    // Removes a phone. True when it was the active one; then the first remaining phone, if any,
    // is active now.
    bool remove(int id);

    // True when the phone is listed and was not active yet.
    bool setActive(int id);

    // Renames the device of a listed phone. White space around the name is dropped, and the rest
    // is as plainText() makes it; a name of white space alone gives the phone its own name back.
    // False when the phone is not listed.
    bool rename(int id, const QString& newName);

    [[nodiscard]] bool isEmpty() const { return m_phones.empty(); }
    [[nodiscard]] int activeId() const { return m_activeId; }
    [[nodiscard]] const Phone* find(int id) const;

    // The list for QML: maps with the keys "id", "deviceId", "name", "phoneName", "model", "os"
    // and "usb".
    [[nodiscard]] QVariantList toVariantList() const;

private:
    std::vector<Phone>::iterator iteratorOf(int id);
    QString displayName(const Phone& phone) const;

    std::vector<Phone> m_phones;
    Names m_names;
    int m_activeId = kNoPhone;
};

} // namespace pevrix
