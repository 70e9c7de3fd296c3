#include "softcam/PipeWireSource.h"

#include <cerrno>
#include <new>
#include <spa/buffer/meta.h>
#include <spa/param/param.h>
#include <stdexcept>

namespace pevrix {

namespace {

// How long to wait for a daemon that is not there. A try costs one attempt to open a socket.
constexpr int kRetrySeconds = 1;

pw_properties* contextProperties()
{
    // Pictures need no real-time thread, nor the system service that grants one.
    return pw_properties_new("module.rt", "false", nullptr);
}

// By class, role and description, portals, session managers and browsers recognise a camera; the
// description is the name that they show.
pw_properties* nodeProperties()
{
    return pw_properties_new(PW_KEY_MEDIA_TYPE, "Video", PW_KEY_MEDIA_CLASS, "Video/Source",
                             PW_KEY_MEDIA_ROLE, "Camera", PW_KEY_NODE_NAME, "pevrix-camera",
                             PW_KEY_NODE_DESCRIPTION, "Pevrix", PW_KEY_NODE_VIRTUAL, "true",
                             nullptr);
}

} // namespace

struct PipeWireSource::Callbacks
{
    static PipeWireSource& self(void* data) { return *static_cast<PipeWireSource*>(data); }

    static void coreError(void* data, std::uint32_t id, int, int result, const char*)
    {
        if (id == PW_ID_CORE && result == -EPIPE) {
            self(data).reconnectLater();
        }
    }

    static void stateChanged(void* data, pw_stream_state, pw_stream_state state, const char*)
    {
        // An error concerns one consumer, which asked for a format that is not offered; the node
        // stays and serves the next consumer.
        self(data).setStreaming(state == PW_STREAM_STATE_STREAMING);
        if (state == PW_STREAM_STATE_UNCONNECTED) {
            self(data).reconnectLater();
        }
    }

    static void paramChanged(void* data, std::uint32_t id, const spa_pod* param)
    {
        if (id == SPA_PARAM_Format) {
            self(data).agreeOnFormat(param);
        }
    }

    static void process(void* data) { self(data).fillBuffer(); }
    static void retry(void* data, std::uint64_t) { self(data).connect(); }

    static constexpr pw_core_events kCore = [] {
        pw_core_events events{};
        events.version = PW_VERSION_CORE_EVENTS;
        events.error = coreError;
        return events;
    }();

    static constexpr pw_stream_events kStream = [] {
        pw_stream_events events{};
        events.version = PW_VERSION_STREAM_EVENTS;
        events.state_changed = stateChanged;
        events.param_changed = paramChanged;
        events.process = process;
        return events;
    }();
};

PipeWireSource::PipeWireSource(pw_loop* loop, PictureMailbox& mailbox)
    : m_loop(loop)
    , m_mailbox(mailbox)
    , m_context(pw_context_new(loop, contextProperties(), 0))
    , m_retryTimer(pw_loop_add_timer(loop, Callbacks::retry, this))
{
    if (!m_context || m_retryTimer == nullptr) {
        throw std::runtime_error("no PipeWire context");
    }
}

void PipeWireSource::offer(const CameraFormat& format)
{
    m_camera = format;
    if (!m_connection) {
        connect();
    } else if (!m_reader && m_connection->stream) {
        offerFormats();
    } // else once there is nobody who reads, or a daemon
}

void PipeWireSource::withdraw()
{
    m_camera.reset();
    setRetryTimer(0);
    disconnect();
}

void PipeWireSource::showIfDue(PictureSchedule::Clock::time_point now)
{
    // Runs a cycle of the readers' graph, which asks for the picture with fillBuffer().
    if (m_streaming && m_schedule.isDue(now)) {
        m_schedule.handedOn(now);
        pw_stream_trigger_process(m_connection->stream.get());
    }
}

// Also takes down what is left of the connection before.
void PipeWireSource::connect()
{
    disconnect();
    m_connection = std::make_unique<Connection>();
    Connection& connection = *m_connection;
    connection.core.reset(pw_context_connect(m_context.get(), nullptr, 0));
    if (!connection.core || !offerNode(connection)) {
        reconnectLater();
    }
}

void PipeWireSource::disconnect()
{
    setStreaming(false);
    m_reader.reset();
    m_connection.reset();
}

bool PipeWireSource::offerNode(Connection& connection)
{
    pw_core_add_listener(connection.core.get(), connection.coreListener.hook(), &Callbacks::kCore,
                         this);
    connection.stream.reset(pw_stream_new(connection.core.get(), "Pevrix", nodeProperties()));
    if (!connection.stream) {
        return false;
    }
    pw_stream_add_listener(connection.stream.get(), connection.streamListener.hook(),
                           &Callbacks::kStream, this);
    m_offered = m_camera.value_or(m_offered);
    PipeWireParams params;
    params.addFormats(m_offered);
    // The camera gives the pace, and a consumer links to it when it likes.
    constexpr auto kFlags =
        // NOLINTNEXTLINE(clang-analyzer-optin.core.EnumCastOutOfRange): flags
        static_cast<pw_stream_flags>(PW_STREAM_FLAG_DRIVER | PW_STREAM_FLAG_MAP_BUFFERS);
    return pw_stream_connect(connection.stream.get(), PW_DIRECTION_OUTPUT, PW_ID_ANY, kFlags,
                             params.list(), params.count()) >= 0;
}

// Nobody must be reading: with another list a reader is made to agree on a format anew, which
// browsers do not survive.
void PipeWireSource::offerFormats()
{
    if (m_camera && m_offered != *m_camera) {
        m_offered = *m_camera;
        PipeWireParams params;
        params.addFormats(m_offered);
        pw_stream_update_params(m_connection->stream.get(), params.list(), params.count());
    }
}

// From a callback of a connection too, which cannot be freed there.
void PipeWireSource::reconnectLater()
{
    setStreaming(false);
    setRetryTimer(kRetrySeconds);
}

void PipeWireSource::setRetryTimer(int seconds)
{
    timespec delay{.tv_sec = seconds, .tv_nsec = 0}; // zero: never
    pw_loop_update_timer(m_loop, m_retryTimer, &delay, nullptr, false);
}

void PipeWireSource::setStreaming(bool streaming)
{
    if (streaming && !m_streaming && m_reader) {
        m_schedule = PictureSchedule(m_reader->agreed.picture);
        m_mailbox.clear();
    }
    m_streaming = streaming && m_reader;
}

void PipeWireSource::agreeOnFormat(const spa_pod* param)
{
    const auto agreed = param == nullptr ? std::nullopt : agreedFormat(param, m_offered);
    if (!agreed) {
        m_reader.reset();
        offerFormats();
        return;
    }
    m_reader.emplace(*agreed);
    PipeWireParams params;
    params.addBuffers(agreed->layout, agreed->picture);
    pw_stream_update_params(m_connection->stream.get(), params.list(), params.count());
}

void PipeWireSource::fillBuffer()
{
    const BgrPicture picture = m_mailbox.newest();
    if (picture.pixels == nullptr || !m_reader) {
        return;
    }
    pw_stream* stream = m_connection->stream.get();
    pw_buffer* buffer = pw_stream_dequeue_buffer(stream);
    if (buffer == nullptr) { // slow consumers have them all: this picture is left out
        return;
    }
    const bool written = writePicture(*m_reader, picture, *buffer->buffer);
    spa_meta_header* header = static_cast<spa_meta_header*>(
        spa_buffer_find_meta_data(buffer->buffer, SPA_META_Header, sizeof(spa_meta_header)));
    if (header != nullptr) {
        header->flags = written ? 0 : SPA_META_HEADER_FLAG_CORRUPTED;
        header->seq = m_sequence++;
        header->pts = static_cast<std::int64_t>(pw_stream_get_nsec(stream));
        header->dts_offset = 0;
    }
    pw_stream_queue_buffer(stream, buffer);
}

// The buffer comes from the daemon: it is checked, whatever was agreed on.
bool PipeWireSource::writePicture(Reader& reader, const BgrPicture& picture, spa_buffer& buffer)
{
    if (buffer.n_datas < 1) {
        return false;
    }
    spa_data& block = buffer.datas[0];
    const AgreedFormat& agreed = reader.agreed;
    const std::size_t size = pictureSize(agreed.layout, agreed.picture);
    const bool fits = block.data != nullptr && block.maxsize >= size;
    const bool written =
        fits && reader.write(picture, {static_cast<std::uint8_t*>(block.data), block.maxsize});
    block.chunk->offset = 0;
    block.chunk->size = written ? static_cast<std::uint32_t>(size) : 0;
    block.chunk->stride = static_cast<std::int32_t>(rowSize(agreed.layout, agreed.picture));
    block.chunk->flags = 0;
    return written;
}

bool PipeWireSource::Reader::write(const BgrPicture& picture, std::span<std::uint8_t> to)
{
    try {
        converter.convert(picture, to);
        return true;
    } catch (const std::bad_alloc&) { // PipeWire's callbacks are C
        return false;
    }
}

} // namespace pevrix
