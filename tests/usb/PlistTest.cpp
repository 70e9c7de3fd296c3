#include "usb/Plist.h"

#include "usb/MuxPacket.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cstdio>
#include <ctime>

using namespace Qt::StringLiterals;

namespace pevrix {
namespace {

const QByteArray kHead = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                         "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                         "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
                         "<plist version=\"1.0\">";

QVariantMap parseDict(const QByteArray& entries)
{
    return parsePlist(kHead + "<dict>" + entries + "</dict></plist>");
}

TEST(PlistWriter, WritesToTheByte)
{
    EXPECT_EQ(buildPlist(listenRequest()),
              kHead + "<dict><key>ClientVersionString</key><string>Pevrix</string>"
                      "<key>MessageType</key><string>Listen</string>"
                      "<key>ProgName</key><string>Pevrix</string>"
                      "<key>kLibUSBMuxVersion</key><integer>3</integer></dict></plist>");
    EXPECT_EQ(buildPlist(connectRequest(7)),
              kHead + "<dict><key>ClientVersionString</key><string>Pevrix</string>"
                      "<key>DeviceID</key><integer>7</integer>"
                      "<key>MessageType</key><string>Connect</string>"
                      "<key>PortNumber</key><integer>42782</integer>"
                      "<key>ProgName</key><string>Pevrix</string></dict></plist>");
    // Markup is escaped once, and nothing else.
    EXPECT_EQ(
        buildPlist({{u"a&b<c>"_s, u"&lt; \"é\" '%1'"_s}, {u"b"_s, -9223372036854775807LL - 1}}),
        kHead + "<dict><key>a&amp;b&lt;c&gt;</key><string>&amp;lt; \"é\" '%1'</string>"
                "<key>b</key><integer>-9223372036854775808</integer></dict></plist>");
}

TEST(PlistReader, ReadsEveryKindOfValue)
{
    const struct
    {
        QByteArray entries;
        QVariantMap expected;
    } cases[] = {
        {"", {}},
        {"<key>a</key><string>x &amp; <![CDATA[<y>]]><!-- no --> &#233;</string>",
         {{u"a"_s, u"x & <y> é"_s}}},
        {" <key>a</key>\n\t<integer>-12</integer> ", {{u"a"_s, -12LL}}},
        {"<key>a</key><true/><key>b</key><false></false>", {{u"a"_s, true}, {u"b"_s, false}}},
        {"<key>a</key><dict><key>b</key><integer>1</integer></dict><key>c</key><string/>",
         {{u"a"_s, QVariantMap{{u"b"_s, 1LL}}}, {u"c"_s, u""_s}}},
        // Kinds that are skipped, with keys inside them that must not come out.
        {"<key>a</key><array><dict><key>x</key><integer>1</integer></dict></array>"
         "<key>b</key><data>AAAA</data><key>c</key><real>1.5</real><key>d</key><date/>",
         {{u"a"_s, {}}, {u"b"_s, {}}, {u"c"_s, {}}, {u"d"_s, {}}}},
        {"<key>a</key><integer>99999999999999999999</integer><key>b</key><integer>x</integer>",
         {{u"a"_s, {}}, {u"b"_s, {}}}},
        {"<string>no key</string><key>a</key><integer>1</integer><integer>2</integer>"
         "<key>b</key><key>c</key><true/><key>a</key><integer>3</integer>",
         {{u"a"_s, 3LL}, {u"c"_s, true}}},
    };
    for (const auto& [entries, expected] : cases) {
        EXPECT_EQ(parseDict(entries), expected) << entries.constData();
    }
}

TEST(PlistReader, KeepsWhatCameBeforeTheDamage)
{
    const QVariantMap first{{u"a"_s, 1LL}};
    const QByteArray dict = "<dict><key>a</key><integer>1</integer>";
    for (const QByteArray& damage :
         {QByteArray(), QByteArray("<key>b"), QByteArray("<key>b</key><integer>12"),
          QByteArray("</plist>"), QByteArray("<key>b</key><string>&unknown"), QByteArray(1, '\0'),
          "<key>b</key>" + QByteArray("<array>").repeated(kPlistMaxDepth)}) {
        EXPECT_EQ(parsePlist(dict + damage), first) << damage.constData();
    }
    EXPECT_EQ(parsePlist(dict + "</dict><dict>trailing"), first);
    EXPECT_EQ(parsePlist("\xFF\xFE<dict/>"), QVariantMap());
    EXPECT_EQ(parsePlist(" \t"), QVariantMap());
}

// Each of these is four megabytes at most and would cost a trusting reader gigabytes or minutes.
TEST(PlistReader, SurvivesBombs)
{
    const QByteArray dict = "<dict><key>a</key><string>&e;</string></dict>";
    const auto large = [](const QByteArray& part) {
        return part.repeated(4'000'000 / part.size());
    };
    QByteArray attributes = "<dict><key ";
    for (int i = 0; i < 300'000; ++i) {
        attributes += 'a' + QByteArray::number(i) + "='>' ";
    }
    const QByteArray bombs[] = {
        "<!DOCTYPE plist [<!ENTITY e 'text'>]>" + dict,
        "<?xml version='1.0' encoding='UTF-7'?><!DOCTYPE p [+ADwAIQ-ENTITY e 'text'>]>" + dict,
        "<!DOCTYPE plist [<!ATTLIST key b CDATA 'c'>]>" + dict,
        large("<dict><key>a</key>"),
        "<dict>" + large("<array>"),
        attributes + "/></dict>",
        "<!DOCTYPE plist [<!ELEMENT key (#PCDATA)>]><dict><key>a</key><string>text</string></dict>",
        "<!DOCTYPE p [<!ATTLIST key " + large("b CDATA #IMPLIED ") + ">]>" + dict,
        large("<!--"),
        large("<!DOCTYPE"),
        "<!DOCTYPE a [" + large("<!-- -->"),
        "<dict><key>a</key><string>" + QByteArray("&#65;").repeated(200'000),
        "<dict><key>" + QByteArray(1'000'000, 'a'),
    };
    double worstMs = 0; // of processor time, so that a busy machine has no say
    for (const QByteArray& bomb : bombs) {
        const std::clock_t start = std::clock();
        const QVariantMap map = parsePlist(bomb);
        const std::clock_t used = std::clock() - start;
        EXPECT_NE(map.value(u"a"_s).toString(), u"text") << bomb.left(80).constData();
        worstMs = std::max(worstMs, 1000.0 * static_cast<double>(used) / CLOCKS_PER_SEC);
    }
    std::printf("the worst of them took %.0f ms of processor time\n", worstMs);
    EXPECT_LE(worstMs, 250); // under a sanitizer
}

} // namespace
} // namespace pevrix
