#include "tools/doubles/Program.h"
#include "usb/Plist.h"

#include <gtest/gtest.h>

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

TEST(PlistInterop, AnotherReaderAndWriterUnderstandOurs)
{
    const QVariantMap map{{u"a&b<c>"_s, u"1 < 2 & \"3\" \u00e9"_s}, {u"DeviceID"_s, 4294967296LL}};
    // Through the binary format, so that the text is the other writer's own.
    EXPECT_EQ(parsePlist(converted(converted(buildPlist(map), u"bin"_s), u"xml"_s)), map);
}

} // namespace
} // namespace pevrix
