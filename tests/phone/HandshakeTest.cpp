#include "phone/Handshake.h"

#include <gtest/gtest.h>

namespace pevrix {
namespace {

using namespace Qt::StringLiterals;
using enum Refusal;

TEST(Handshake, ReadsHellosWithDefaults)
{
    const Hello full = parseHello(
        R"({"v":1,"token":"T","deviceId":"D","name":"N","modelName":"M","model":"m","osVersion":"9"})");
    EXPECT_EQ(full.version, 1);
    EXPECT_EQ((QStringList{full.token, full.deviceId, full.name, full.model, full.os}),
              (QStringList{u"T"_s, u"D"_s, u"N"_s, u"M"_s, u"9"_s}));

    EXPECT_EQ(parseHello(R"({"modelName":7,"model":"m"})").model, u"m"_s);
    for (const char* const text :
         {"", "{", "[1]", "{}", R"({"v":"1","name":3,"token":{}})", "\xff"}) {
        const Hello hello = parseHello(text);
        EXPECT_EQ(hello.version, 0) << text;
        EXPECT_EQ(hello.name, u"Phone"_s) << text;
        EXPECT_EQ(hello.token + hello.deviceId + hello.model + hello.os, QString()) << text;
    }
    EXPECT_EQ(parseStreamInfo(R"({"width":640,"height":"480"})"),
              (StreamDescription{.width = 640, .height = 720, .fps = 30}));
}

TEST(Handshake, LetsInWhoHoldsTheCurrentTokenOrTheOneItWasTrustedWith)
{
    struct Case
    {
        const char* what;
        int version;
        QString token;
        QString deviceId;
        QString pairingToken;
        std::optional<Refusal> refusal;
        bool newlyTrusted;
    };
    const QHash<QString, QString> trusted{{u"known"_s, u"OLD"_s}, {u"odd"_s, {}}};
    const Case cases[] = {
        {"wrong version", 2, u"T"_s, u"new"_s, u"T"_s, VersionMismatch, false},
        {"no pairing, no token", 1, {}, u"new"_s, {}, {}, false},
        {"current token", 1, u"T"_s, u"new"_s, u"T"_s, {}, true},
        {"current token, trusted with another", 1, u"T"_s, u"known"_s, u"T"_s, {}, true},
        {"current token, trusted with it", 1, u"OLD"_s, u"known"_s, u"OLD"_s, {}, false},
        {"current token, nameless", 1, u"T"_s, {}, u"T"_s, {}, false},
        {"trusted token after a change", 1, u"OLD"_s, u"known"_s, u"T"_s, {}, false},
        {"somebody else's trusted token", 1, u"OLD"_s, u"new"_s, u"T"_s, NeedsPair, false},
        {"trusted, other token", 1, u"X"_s, u"known"_s, u"T"_s, NeedsPair, false},
        {"token in other case", 1, u"t"_s, u"new"_s, u"T"_s, NeedsPair, false},
        {"no token", 1, {}, u"known"_s, u"T"_s, NeedsPair, false},
        {"no token, none on record", 1, {}, u"odd"_s, u"T"_s, NeedsPair, false},
    };
    for (const Case& c : cases) {
        Hello hello;
        hello.version = c.version;
        hello.token = c.token;
        hello.deviceId = c.deviceId;
        const HelloVerdict verdict = judgeHello(hello, c.pairingToken, trusted);
        EXPECT_EQ(verdict.refusal, c.refusal) << c.what;
        EXPECT_EQ(verdict.newlyTrusted, c.newlyTrusted) << c.what;
    }
}

} // namespace
} // namespace pevrix
