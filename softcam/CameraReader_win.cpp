#include "softcam/CameraReader_win.h"

#include "softcam/AbsentCard.h"

#include <utility>

namespace pevrix {
namespace {

using namespace std::chrono_literals;

constexpr auto kLookForSender = 250ms;

// A camera that comes back in another size leaves a gap of a tenth of a second, and a sender needs
// a quarter to notice a new reader: both are bridged. Longer than that, the last picture would be
// taken for a live one.
constexpr auto kGrace = 1s;

// A sender that overwrites the picture this often while it is read gets no further try until the
// next picture.
constexpr int kTries = 3;

bool isSenderAlive()
{
    const UniqueHandle alive(OpenEventW(SYNCHRONIZE, FALSE, kAliveName));
    return alive != nullptr;
}

// The first place that no other reader has; null when all are taken. Such a reader is not
// announced, and gets its pictures while another one is.
UniqueHandle announceReader()
{
    SharedWith shared(SharedWith::Writers::AnyLevel);
    for (std::size_t index = 0; index < kMaxReaders; ++index) {
        SetLastError(ERROR_SUCCESS);
        UniqueHandle event(CreateEventW(shared.get(), FALSE, FALSE, readerName(index).c_str()));
        if (event && GetLastError() != ERROR_ALREADY_EXISTS) {
            return event;
        }
    }
    return UniqueHandle(CreateEventW(nullptr, FALSE, FALSE, nullptr));
}

} // namespace

std::optional<CameraFormat> presentCamera()
{
    const auto directory = MappedView::openForReading(kDirectoryName);
    const auto camera = announcedCamera(directory.bytes());
    return camera && isSenderAlive() ? std::optional(camera->format) : std::nullopt;
}

CameraReader::CameraReader(const StreamFormat& format, Clock::time_point now)
    : m_format(format)
    , m_converter(format.layout, format.picture)
    , m_wakeUp(announceReader())
    , m_nextLook(now)
    , m_begin(now)
    , m_cardAt(now)
    , m_picture(pictureSize(format.layout, format.picture))
    , m_next(m_picture.size())
{}

bool CameraReader::look(Clock::time_point now)
{
    if (now >= m_nextLook) {
        m_nextLook = now + kLookForSender;
        lookForSender();
    }
    follow(m_alive ? announcedCamera(m_directory.bytes()) : std::nullopt);
    if (!m_pictures) {
        return false;
    }
    m_cardAt = (m_shown == Shown::Nothing ? m_begin : now) + kGrace;
    const std::uint32_t newest = m_pictures->newest();
    return newest != 0 && newest != m_taken;
}

void CameraReader::lookForSender()
{
    m_alive = isSenderAlive();
    if (m_alive && !m_directory) {
        m_directory = MappedView::openForReading(kDirectoryName);
    }
}

void CameraReader::follow(const std::optional<AnnouncedCamera>& camera)
{
    if (!camera) {
        m_pictures.reset();
        m_section = {};
        m_camera = {};
        return;
    }
    if (m_pictures && camera->id == m_camera.id) {
        return;
    }
    m_pictures.reset();
    m_camera = *camera;
    m_section = MappedView::openForReading(picturesName(camera->id).c_str());
    m_pictures = PictureView::of(m_section.bytes(), camera->format);
    m_taken = 0;
}

std::span<const std::uint8_t> CameraReader::picture(Clock::time_point now)
{
    if (takeNewest()) {
        m_shown = Shown::Picture;
    } else if (m_shown != Shown::Card && now >= m_cardAt) {
        showCard();
    }
    return m_shown == Shown::Nothing ? std::span<const std::uint8_t>() : m_picture;
}

bool CameraReader::takeNewest()
{
    for (int tries = 0; m_pictures && tries < kTries; ++tries) {
        const std::uint32_t newest = m_pictures->newest();
        if (newest == 0 || newest == m_taken) {
            return false;
        }
        const bool whole = m_pictures->read(newest, [this](const std::uint8_t* pixels) {
            m_converter.convert({pixels, m_camera.format.width, m_camera.format.height}, m_next);
        });
        if (whole) {
            m_taken = newest;
            m_picture.swap(m_next);
            return true;
        }
    }
    return false;
}

void CameraReader::showCard()
{
    const auto card = absentCard(m_format.picture);
    m_converter.convert({card.data(), m_format.picture.width, m_format.picture.height}, m_picture);
    m_shown = Shown::Card;
}

} // namespace pevrix
