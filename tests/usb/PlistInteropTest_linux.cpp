#include "tools/doubles/Program.h"
#include "usb/Plist.h"

#include <gmock/gmock.h>

#include <QTemporaryFile>

using namespace Qt::StringLiterals;

namespace pevrix {
namespace {

// Runs the property-list tool of another project over a document.
QByteArray converted(const QByteArray& document, const QString& format)
{
    QTemporaryFile file;
    EXPECT_TRUE(file.open() && file.write(document) == document.size() && file.flush());
    Program tool(u"plistutil"_s, {u"-i"_s, file.fileName(), u"-f"_s, format, u"-o"_s, u"-"_s});
    EXPECT_EQ(tool.awaitExit(), 0) << qPrintable(tool.errors());
    return tool.readAllStandardOutput();
}

TEST(PlistInterop, AnotherReaderUnderstandsTheWriter)
{
    const QByteArray json =
        converted(buildPlist({{u"a&b<c>"_s, u"1 < 2 & \"3\" é"_s}, {u"DeviceID"_s, 4294967296LL}}),
                  u"json"_s);
    EXPECT_THAT(json.toStdString(), testing::HasSubstr("\"a&b<c>\": \"1 < 2 & \\\"3\\\" é\""));
    EXPECT_THAT(json.toStdString(), testing::HasSubstr("\"DeviceID\": 4294967296"));
}

TEST(PlistInterop, TheReaderUnderstandsAnotherWriter)
{
    const QByteArray source = R"(<plist version="1.0"><!-- a phone --><dict>
        <key>MessageType</key><string>Attached &lt;&amp;&gt; é</string>
        <key>Properties</key><dict><key>ConnectionType</key><string>USB</string>
            <key>Inner</key><dict><key>DeviceID</key><integer>9</integer></dict></dict>
        <key>Bytes</key><data>AAECAwQ=</data><key>When</key><date>2024-02-29T12:00:00Z</date>
        <key>Ratio</key><real>0.5</real><key>Yes</key><true/>
        <key>List</key><array><string>a</string><array><dict/></array></array></dict></plist>)";
    // Through the binary format, so that the text is the other writer's own.
    const QVariantMap map = parsePlist(converted(converted(source, u"bin"_s), u"xml"_s));
    const QVariantMap inner{{u"DeviceID"_s, 9LL}};
    EXPECT_EQ(map, (QVariantMap{{u"MessageType"_s, u"Attached <&> é"_s},
                                {u"Properties"_s,
                                 QVariantMap{{u"ConnectionType"_s, u"USB"_s}, {u"Inner"_s, inner}}},
                                {u"Bytes"_s, {}},
                                {u"When"_s, {}},
                                {u"Ratio"_s, {}},
                                {u"Yes"_s, true},
                                {u"List"_s, {}}}));
}

} // namespace
} // namespace pevrix
