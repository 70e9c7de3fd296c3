#include "pairing/PairingUri.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using namespace pevrix;

namespace {

const QString kToken = u"AbCdEfGhIjKlMnOpQrSt-_"_s;

} // namespace

TEST(PairingUri, IsWrittenExactlyAndReadBack)
{
    struct Case
    {
        QString pcName;
        QStringList endpoints;
        const char* written;
    };
    const Case cases[] = {
        {u"DESK-7"_s,
         {u"192.168.1.7:8788"_s, u"10.0.0.5:8788"_s, u"172.16.0.1:65535"_s},
         "pevrix://pair?v=1&pc=DESK-7&t=AbCdEfGhIjKlMnOpQrSt-_"
         "&h=192.168.1.7:8788,10.0.0.5:8788,172.16.0.1:65535"},
        {u"My PC"_s, {}, "pevrix://pair?v=1&pc=My%20PC&t=AbCdEfGhIjKlMnOpQrSt-_"},
        {u"\ufeffBüro\u00a0水😀"_s,
         {u"10.0.0.5:1"_s},
         "pevrix://"
         "pair?v=1&pc=%EF%BB%BFB%C3%BCro%C2%A0%E6%B0%B4%F0%9F%98%80&t=AbCdEfGhIjKlMnOpQrSt-_"
         "&h=10.0.0.5:1"},
        {u"a&t=x%2,+/?#=~._"_s,
         {},
         "pevrix://pair?v=1&pc=a%26t%3Dx%252%2C%2B%2F%3F%23%3D~._&t=AbCdEfGhIjKlMnOpQrSt-_"},
        {QString(), {}, "pevrix://pair?v=1&pc=&t=AbCdEfGhIjKlMnOpQrSt-_"},
    };
    for (const Case& c : cases) {
        const PairingUri uri{c.pcName, kToken, c.endpoints};
        const QString written = writePairingUri(uri);
        EXPECT_EQ(written.toStdString(), c.written);
        EXPECT_EQ(parsePairingUri(written), uri) << c.written;
    }
}

TEST(PairingUri, MayCarryUnknownKeysAndAnyOrder)
{
    EXPECT_EQ(parsePairingUri(u"pevrix://pair?h=10.0.0.5:8788&x=&t=T&pc=P%c3%bc&v=1&y=a=b"),
              (PairingUri{u"Pü"_s, u"T"_s, {u"10.0.0.5:8788"_s}}));
}

TEST(PairingUri, IsRefusedWhenAnyPartIsMalformed)
{
    const QString valid = u"pevrix://pair?v=1&pc=P&t=T"_s;
    ASSERT_TRUE(parsePairingUri(valid));
    const char* const hostile[] = {
        "", "pevrix:", "pevrix://pair?", "pevrix://pair", "pevrix://pair?v=1",
        " pevrix://pair?v=1&pc=P&t=T", "https://pair?v=1&pc=P&t=T", "pevrix://pairs?v=1&pc=P&t=T",
        // the version and the keys
        "pevrix://pair?pc=P&t=T", "pevrix://pair?v=2&pc=P&t=T", "pevrix://pair?v=01&pc=P&t=T",
        "pevrix://pair?v=1&t=T", "pevrix://pair?v=1&pc=P", "pevrix://pair?v=1&pc=P&t=T&t=U",
        "pevrix://pair?v=1&pc=P&t=T&", "pevrix://pair?v=1&pc=P&t=T&=x", "pevrix://pair?v=1&pc&t=T",
        // the token
        "pevrix://pair?v=1&pc=P&t=", "pevrix://pair?v=1&pc=P&t=T%41",
        "pevrix://pair?v=1&pc=P&t=T=", "pevrix://pair?v=1&pc=P&t=Tö",
        // the name: raw characters, broken escapes, broken UTF-8
        "pevrix://pair?v=1&pc=a b&t=T", "pevrix://pair?v=1&pc=ü&t=T", "pevrix://pair?v=1&pc=%&t=T",
        "pevrix://pair?v=1&pc=%4&t=T", "pevrix://pair?v=1&pc=%4G&t=T",
        "pevrix://pair?v=1&pc=%FF&t=T", "pevrix://pair?v=1&pc=%C3&t=T",
        "pevrix://pair?v=1&pc=%ED%A0%80&t=T"};
    for (const char* text : hostile) {
        EXPECT_FALSE(parsePairingUri(QString::fromUtf8(text))) << text;
    }
    EXPECT_TRUE(parsePairingUri(valid + QString(63, u'T')));
    EXPECT_FALSE(parsePairingUri(valid + QString(64, u'T')));
    EXPECT_TRUE(parsePairingUri(valid + u"&x="_s + QString(2331 - 29, u'a')));
    EXPECT_FALSE(parsePairingUri(valid + u"&x="_s + QString(2332 - 29, u'a')));
    EXPECT_FALSE(parsePairingUri(valid + u"&h="_s + QString(10'000'000, u',')));
}

TEST(PairingUri, IsRefusedWithAnyBadEndpoint)
{
    const QString prefix = u"pevrix://pair?v=1&pc=P&t=T&h="_s;
    for (const char* endpoints : {"10.0.0.1:8788", "255.255.255.255:1,0.0.0.0:65535",
                                  "1.1.1.1:1,1.1.1.1:2,1.1.1.1:3,1.1.1.1:4"}) {
        EXPECT_TRUE(parsePairingUri(prefix + QString::fromUtf8(endpoints))) << endpoints;
    }
    for (const char* endpoints : {"",
                                  ",",
                                  "10.0.0.1:1,",
                                  "10.0.0.1",
                                  "10.0.0.1:",
                                  ":1",
                                  "10.0.0.1:0",
                                  "10.0.0.1:65536",
                                  "10.0.0.1:-1",
                                  "10.0.0.1:+1",
                                  "10.0.0.1: 1",
                                  "10.0.0.1:01",
                                  "10.0.0.1:1:1",
                                  "10.0.1:1",
                                  "10.0.0.01:1",
                                  "10.0.0.256:1",
                                  "0x0a000001:1",
                                  "167772161:1",
                                  " 10.0.0.1:1",
                                  "[::1]:1",
                                  "localhost:1",
                                  "10.0.0.1:99999999999999999999",
                                  "10.0.0.1:\u0661",
                                  "1.1.1.1:1,1.1.1.1:2,1.1.1.1:3,1.1.1.1:4,1.1.1.1:5"}) {
        EXPECT_FALSE(parsePairingUri(prefix + QString::fromUtf8(endpoints))) << endpoints;
    }
    const auto endpoint = parsePairingEndpoint(u"192.168.1.7:8788");
    ASSERT_TRUE(endpoint);
    EXPECT_EQ(endpoint->address, QHostAddress(0xC0A80107));
    EXPECT_EQ(endpoint->port, 8788);
}
