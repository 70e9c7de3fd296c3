#pragma once

#include "softcam/softcam.h"
#include "tests/softcam/Picture.h"
#include "tests/softcam/PipeWireSession.h"

#include <atomic>
#include <chrono>
#include <stop_token>
#include <thread>

namespace pevrix::test {

// A camera that shows a numbered sequence of its picture, faster than its rate, until it ends.
class TestCamera
{
public:
    explicit TestCamera(int width = 640, int height = 360, float rate = 30)
        : TestCamera(Picture::quadrants(width, height), rate)
    {}
    explicit TestCamera(const Picture& picture, float rate = 30)
        : m_picture(picture)
        , m_camera(scCreateCamera(picture.width(), picture.height(), rate))
        , m_sender([this](const std::stop_token& stop) { send(stop); })
    {
        EXPECT_NE(m_camera, nullptr);
    }
    ~TestCamera() { stop(); }

    // Deletes the camera. Once only, and nothing else afterwards.
    void stop()
    {
        if (m_sender.joinable()) {
            m_sender.request_stop();
            m_sender.join();
            scDeleteCamera(m_camera);
        }
    }

    [[nodiscard]] bool isConnected() const { return scIsConnected(m_camera) != 0; }
    [[nodiscard]] const Picture& picture() const { return m_picture; }

    // How many pictures the camera has taken; grows as long as it holds nobody up.
    [[nodiscard]] int sent() const { return m_sent; }

private:
    void send(const std::stop_token& stop)
    {
        Picture picture = m_picture;
        while (!stop.stop_requested()) {
            picture.setNumber(static_cast<std::uint8_t>(++m_sent));
            scSendFrame(m_camera, picture.bytes());
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
    }

    const Picture m_picture;
    const scCamera m_camera;
    std::atomic<int> m_sent = 0;
    std::jthread m_sender;
};

// A camera in a daemon that knows it already.
struct LiveCamera
{
    explicit LiveCamera(int width = 640, int height = 360)
        : camera(width, height)
    {
        session.startDaemon();
        static_cast<void>(session.waitForCamera(width));
    }

    PipeWireSession session;
    TestCamera camera;
};

// A program that watches the camera and writes to a file what it sees, without end when `pictures`
// is 0.
class Reader
{
public:
    // Asks for the size of this picture, whatever the camera's is. `tail` goes between the camera
    // and the file.
    Reader(const Picture& picture, const QString& format, int pictures,
           const QStringList& tail = {})
        : m_process(u"gst-launch-1.0"_s,
                    QStringList{u"-q"_s, u"--no-fault"_s, u"pipewiresrc"_s,
                                u"target-object=pevrix-camera"_s,
                                u"num-buffers=%1"_s.arg(pictures > 0 ? pictures : -1), u"!"_s,
                                u"video/x-raw,format=%1,width=%2,height=%3"_s.arg(format)
                                    .arg(picture.width())
                                    .arg(picture.height()),
                                u"!"_s} +
                        tail + QStringList{u"filesink"_s, u"location="_s + m_file})
    {}

    // All of the `pictures` that were asked for, each of `size` bytes.
    [[nodiscard]] QByteArray wait(int pictures, qsizetype size)
    {
        EXPECT_TRUE(m_process.waitForFinished(kPatienceMs)) << "the pictures stopped";
        EXPECT_EQ(m_process.exitCode(), 0);
        QByteArray content = written();
        EXPECT_EQ(content.size(), pictures * size);
        return content.size() == pictures * size ? content : QByteArray();
    }

    // What was written until now.
    [[nodiscard]] QByteArray written() const
    {
        QFile file(m_file);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    [[nodiscard]] qint64 writtenBytes() const { return QFile(m_file).size(); }

    [[nodiscard]] qint64 processId() const { return m_process.processId(); }
    void kill() { m_process.end(); }

private:
    QTemporaryDir m_folder;
    QString m_file = m_folder.filePath(u"pictures"_s);
    Program m_process;
};

} // namespace pevrix::test
