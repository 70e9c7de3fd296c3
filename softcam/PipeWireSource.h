#pragma once

#include "softcam/PictureFormat.h"
#include "softcam/PictureMailbox.h"
#include "softcam/PipeWireHandles.h"

#include <atomic>
#include <cstdint>
#include <optional>

namespace pevrix {

// The camera as a node of PipeWire, which browsers and video-call programs reach directly or
// through the desktop's camera portal.
//
//   no connection -- retry timer --> node offered <-- a program links or leaves --> streaming
//         ^                              |                                              |
//         +------------------------- the daemon goes away <-----------------------------+
//
// A thread of its own runs everything that speaks with the daemon, so that the functions here wait
// for nobody; the destructor waits for that thread to end.
class PipeWireSource
{
public:
    // Throws std::bad_alloc or std::runtime_error when no thread or memory is to be had.
    explicit PipeWireSource(const CameraFormat& format);
    ~PipeWireSource();
    PipeWireSource(const PipeWireSource&) = delete;
    PipeWireSource& operator=(const PipeWireSource&) = delete;

    // Copies the picture (bgrSize() bytes) for the node's thread; not even that while nobody
    // watches. One thread at a time.
    void sendFrame(const std::uint8_t* bgr);

    // Whether a program is reading now.
    [[nodiscard]] bool isConnected() const { return m_streaming; }

private:
    // One connection to the daemon with the node in it; the members end in reverse order.
    struct Connection
    {
        pw::Core core;
        pw::Listener coreListener;
        pw::Stream stream;
        pw::Listener streamListener;
    };
    struct Callbacks; // PipeWire's, which come in the loop's thread

    void connect();
    [[nodiscard]] bool offerNode(Connection& connection);
    void reconnectLater();
    void setRetryTimer(int seconds, int nanoseconds);
    void agreeOnFormat(const spa_pod* param);
    void trigger();
    void fillBuffer();
    [[nodiscard]] bool writePicture(const std::uint8_t* picture, spa_buffer& buffer);

    const CameraFormat m_format;
    PictureMailbox m_mailbox;
    std::atomic<bool> m_streaming = false;

    pw::Library m_library;
    pw::ThreadLoop m_loop;

    // The rest belongs to the loop's thread while that runs.
    pw::Context m_context;
    spa_source* m_retryTimer = nullptr; // both are owned by the loop
    spa_source* m_pictureCame = nullptr;
    std::optional<Connection> m_connection;
    LayoutConverter m_converter;
    PixelLayout m_layout = PixelLayout::None;
    std::uint64_t m_sequence = 0;
};

} // namespace pevrix
