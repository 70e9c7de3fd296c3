#pragma once

#include "softcam/PictureConverter.h"
#include "softcam/PictureMailbox.h"
#include "softcam/PictureSchedule.h"
#include "softcam/PipeWireHandles.h"
#include "softcam/PipeWireParams.h"

#include <atomic>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>

namespace pevrix {

// The camera as a node of PipeWire, which browsers and video-call programs reach directly or
// through the desktop's camera portal.
//
//   withdrawn -- offer() --> no connection -- retry timer --> offered <-- readers --> streaming
//
// From the last two back to "no connection" when the daemon goes away, and from everywhere to
// "withdrawn" with withdraw().
//
// All readers at one time have the format on which the first one agreed, and keep it while cameras
// of other sizes are offered. It belongs to the loop's thread, in which its callbacks run.
class PipeWireSource
{
public:
    // Takes the pictures from the mailbox, whose reading side it is. Loop and mailbox outlive it.
    // Throws std::runtime_error when memory or descriptors are short.
    PipeWireSource(pw_loop* loop, PictureMailbox& mailbox);
    PipeWireSource(const PipeWireSource&) = delete;
    PipeWireSource& operator=(const PipeWireSource&) = delete;

    // Makes the node, or has it follow a camera of another format: new readers are offered that one
    // first as soon as nobody reads.
    void offer(const CameraFormat& format);

    // Takes the node away from its readers.
    void withdraw();

    // Hands on the newest picture if it is time.
    void showIfDue(PictureSchedule::Clock::time_point now);
    [[nodiscard]] PictureSchedule& schedule() { return m_schedule; }

    // Whether a program is reading now. Any thread.
    [[nodiscard]] bool isStreaming() const { return m_streaming; }

private:
    // One connection to the daemon with the node in it; the members end in reverse order.
    struct Connection
    {
        pw::Core core;
        pw::Listener coreListener;
        pw::Stream stream;
        pw::Listener streamListener;
    };
    // What the programs that are linked to the node have agreed on.
    struct Reader
    {
        explicit Reader(const AgreedFormat& format)
            : agreed(format)
            , converter(format.layout, format.picture)
        {}
        [[nodiscard]] bool write(const BgrPicture& picture, std::span<std::uint8_t> to);

        AgreedFormat agreed;
        PictureConverter converter;
    };
    struct Callbacks; // PipeWire's

    void connect();
    void disconnect();
    [[nodiscard]] bool offerNode(Connection& connection);
    void offerFormats();
    void reconnectLater();
    void setRetryTimer(int seconds);
    void setStreaming(bool streaming);
    void agreeOnFormat(const spa_pod* param);
    void fillBuffer();
    [[nodiscard]] static bool writePicture(Reader& reader, const BgrPicture& picture,
                                           spa_buffer& buffer);

    std::atomic<bool> m_streaming = false;
    pw_loop* m_loop;
    PictureMailbox& m_mailbox;
    pw::Context m_context;
    spa_source* m_retryTimer; // owned by the loop
    std::unique_ptr<Connection> m_connection;
    std::optional<CameraFormat> m_camera; // none: withdrawn
    CameraFormat m_offered;               // what the node offers first
    std::optional<Reader> m_reader;       // none: nobody is linked
    PictureSchedule m_schedule{{.rateNumerator = 30}};
    std::uint64_t m_sequence = 0;
};

} // namespace pevrix
