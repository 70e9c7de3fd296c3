#include "controller/PhoneRoster.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using pevrix::PhoneRoster;

namespace {

PhoneRoster::Phone phone(int id, const QString& deviceId, const QString& name)
{
    return {id, deviceId, {}, name, u"Model"_s, u"OS 1"_s, false};
}

QStringList names(const PhoneRoster& roster)
{
    QStringList list;
    for (const QVariant& entry : roster.toVariantList()) {
        list.append(entry.toMap().value(u"name"_s).toString());
    }
    return list;
}

} // namespace

TEST(PhoneRoster, ListsPhonesInOrderOfConnectionAndTheFirstIsActive)
{
    PhoneRoster roster;
    EXPECT_EQ(roster.activeId(), PhoneRoster::kNoPhone);
    EXPECT_TRUE(roster.add(phone(7, u"a"_s, u"A"_s)));
    EXPECT_FALSE(roster.add(phone(3, u"b"_s, u"B"_s)));
    EXPECT_EQ(roster.activeId(), 7);
    const QVariantMap first = roster.toVariantList().constFirst().toMap();
    EXPECT_EQ(first, (QVariantMap{{u"id"_s, 7},
                                  {u"deviceId"_s, u"a"_s},
                                  {u"name"_s, u"A"_s},
                                  {u"phoneName"_s, u"A"_s},
                                  {u"model"_s, u"Model"_s},
                                  {u"os"_s, u"OS 1"_s},
                                  {u"usb"_s, false}}));
    EXPECT_EQ(names(roster), (QStringList{u"A"_s, u"B"_s}));
}

TEST(PhoneRoster, MakesTheFirstRemainingPhoneActiveWhenTheActiveOneLeaves)
{
    PhoneRoster roster;
    for (int id : {1, 2, 3}) {
        roster.add(phone(id, QString::number(id), u"P"_s));
    }
    EXPECT_FALSE(roster.remove(99));
    EXPECT_TRUE(roster.setActive(2));
    EXPECT_FALSE(roster.setActive(2));
    EXPECT_FALSE(roster.setActive(99));
    EXPECT_FALSE(roster.remove(1)); // not the active one
    EXPECT_TRUE(roster.remove(2));
    EXPECT_EQ(roster.activeId(), 3);
    EXPECT_TRUE(roster.remove(3));
    EXPECT_TRUE(roster.isEmpty());
    EXPECT_EQ(roster.activeId(), PhoneRoster::kNoPhone);
}

TEST(PhoneRoster, KeepsAPhoneThatGreetsAgainOnceInItsPlace)
{
    PhoneRoster roster;
    roster.add(phone(1, u"a"_s, u"A"_s));
    roster.add(phone(2, u"b"_s, u"B"_s));
    roster.add(phone(1, u"a"_s, u"A2"_s));
    EXPECT_EQ(names(roster), (QStringList{u"A2"_s, u"B"_s}));
}

TEST(PhoneRoster, RemembersTheUsersNamesByDevice)
{
    PhoneRoster roster;
    roster.setNames({{u"b"_s, u"Hall"_s}});
    roster.add(phone(1, u"a"_s, u"A"_s));
    roster.add(phone(2, u"b"_s, u"B"_s));
    EXPECT_EQ(names(roster), (QStringList{u"A"_s, u"Hall"_s}));

    EXPECT_FALSE(roster.rename(99, u"X"_s));
    EXPECT_TRUE(roster.rename(1, u"  Kitchen \t"_s));
    EXPECT_EQ(roster.names(), (PhoneRoster::Names{{u"a"_s, u"Kitchen"_s}, {u"b"_s, u"Hall"_s}}));

    roster.remove(1); // it comes back with a new session
    roster.add(phone(5, u"a"_s, u"A"_s));
    EXPECT_EQ(names(roster), (QStringList{u"Hall"_s, u"Kitchen"_s}));

    EXPECT_TRUE(roster.rename(5, u"   "_s));
    EXPECT_EQ(names(roster), (QStringList{u"Hall"_s, u"A"_s}));
}
