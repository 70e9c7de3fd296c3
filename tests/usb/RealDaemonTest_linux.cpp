#include "tools/doubles/Program.h"
#include "usb/UsbMuxClient.h"

#include <gmock/gmock.h>

#include <QDir>
#include <QRegularExpression>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace pevrix {
namespace {

// The usbmux daemon of this system, with its socket, lock and pairing records in a folder of ours:
// it knows only fixed paths, so that it gets a file system view of its own. Without root rights, a
// user namespace gives the right to mount.
std::unique_ptr<Program> startDaemon(const QString& folder)
{
    const QString command = u"unshare -m true 2>/dev/null || own=-r; exec unshare -m $own "
                            "--kill-child=KILL sh -c 'mount --bind run /run && "
                            "mount --bind lib /var/lib && exec usbmuxd --foreground'"_s;
    return std::make_unique<Program>(u"sh"_s,
                                     QStringList{u"-c"_s, u"cd \"$0\" && "_s + command, folder});
}

TEST(RealUsbMuxDaemon, IsFoundLostAndFoundAgain)
{
    const QTemporaryDir folder;
    ASSERT_TRUE(QDir(folder.path()).mkpath(u"run"_s) && QDir(folder.path()).mkpath(u"lib"_s));
    // Its socket is a Unix one here; this makes the TCP port of it that the client looks for, on
    // any free one.
    Program bridge(u"socat"_s, {u"-d"_s, u"-d"_s, u"TCP-LISTEN:0,bind=127.0.0.1,fork"_s,
                                u"UNIX-CONNECT:"_s + folder.filePath(u"run/usbmuxd"_s)});
    static const QRegularExpression listening(u"listening on .*:(\\d+)\\n"_s);
    QRegularExpressionMatch match;
    ASSERT_TRUE(waitUntil([&] { return (match = listening.match(bridge.errors())).hasMatch(); }));
    UsbMuxClient client({.address = QHostAddress(QHostAddress::LocalHost),
                         .port = match.captured(1).toUShort(),
                         .reconnectInterval = std::chrono::milliseconds(50),
                         .tunnelInterval = std::chrono::milliseconds(50)});
    std::vector<bool> changes;
    QObject::connect(&client, &UsbMuxClient::availabilityChanged, &client,
                     [&](bool available) { changes.push_back(available); });
    client.start();
    auto daemon = startDaemon(folder.path());
    ASSERT_TRUE(waitUntil([&] { return client.available(); })) << daemon->errors().toStdString();
    daemon.reset();
    ASSERT_TRUE(waitUntil([&] { return !client.available(); }));
    daemon = startDaemon(folder.path());
    ASSERT_TRUE(waitUntil([&] { return client.available(); })) << daemon->errors().toStdString();
    EXPECT_THAT(changes, testing::ElementsAre(true, false, true));
}

} // namespace
} // namespace pevrix
