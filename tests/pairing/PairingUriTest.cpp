#include "pairing/PairingUri.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using namespace pevrix;

namespace {

const QString kToken = u"AbCdEfGhIjKlMnOpQrSt-_"_s;

} // namespace

TEST(PairingUri, IsWrittenExactly)
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
        EXPECT_EQ(writePairingUri({c.pcName, kToken, c.endpoints}).toStdString(), c.written);
    }
}
