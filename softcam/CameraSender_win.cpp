#include "softcam/CameraSender_win.h"

#include <mutex>

namespace pevrix {
namespace {

// Soon enough for a reader's first picture and to notice when a reader has died, and cheap.
constexpr ULONGLONG kLookForReadersMs = 250;

constexpr DWORD kReadAndWrite = FILE_MAP_READ | FILE_MAP_WRITE;

// Different for each camera of each process, so that no reader takes old pictures for new ones.
std::uint64_t newId()
{
    LARGE_INTEGER ticks{};
    QueryPerformanceCounter(&ticks);
    return std::uint64_t{GetCurrentProcessId()} << 32U ^ static_cast<std::uint64_t>(ticks.QuadPart);
}

// An event that nobody had made; null when somebody had.
UniqueHandle makeOnlyEvent(const wchar_t* name)
{
    SharedWith shared(SharedWith::Writers::ThisLevel);
    SetLastError(ERROR_SUCCESS);
    UniqueHandle event(CreateEventW(shared.get(), TRUE, FALSE, name));
    return GetLastError() == ERROR_SUCCESS ? std::move(event) : nullptr;
}

enum class MayExist
{
    Yes,
    No
};

UniqueHandle makeSection(const std::wstring& name, std::size_t size, MayExist mayExist)
{
    SharedWith shared(SharedWith::Writers::ThisLevel);
    SetLastError(ERROR_SUCCESS);
    UniqueHandle section(CreateFileMappingW(INVALID_HANDLE_VALUE, shared.get(), PAGE_READWRITE, 0,
                                            static_cast<DWORD>(size), name.c_str()));
    const bool isNew = GetLastError() != ERROR_ALREADY_EXISTS;
    return isNew || mayExist == MayExist::Yes ? std::move(section) : nullptr;
}

} // namespace

std::unique_ptr<Camera> Camera::make(const CameraFormat& format)
{
    return CameraSender::make(format);
}

std::unique_ptr<CameraSender> CameraSender::make(const CameraFormat& format)
{
    std::unique_ptr<CameraSender> sender(new CameraSender);
    return sender->open(format) ? std::move(sender) : nullptr;
}

bool CameraSender::open(const CameraFormat& format)
{
    m_sender = makeOnlyEvent(kSenderName);
    if (!m_sender) {
        return false;
    }
    // Readers may have the old one open for a moment; that does not matter here.
    SharedWith shared(SharedWith::Writers::ThisLevel);
    m_alive.reset(CreateEventW(shared.get(), TRUE, FALSE, kAliveName));
    m_directory = MappedView::map(
        makeSection(kDirectoryName, sizeof(SharedDirectory), MayExist::Yes), kReadAndWrite);
    if (!m_alive || m_directory.bytes().size() < sizeof(SharedDirectory) || !openPictures(format)) {
        return false;
    }
    announce(directory(), {.id = m_id, .format = format});
    return true;
}

bool CameraSender::openPictures(const CameraFormat& format)
{
    m_id = newId();
    const std::size_t size = picturesSize(format);
    m_pictures =
        MappedView::map(makeSection(picturesName(m_id), size, MayExist::No), kReadAndWrite);
    if (m_pictures.bytes().size() < size) {
        return false;
    }
    m_writer.emplace(m_pictures.bytes(), format);
    return true;
}

CameraSender::~CameraSender()
{
    if (m_writer) {
        withdraw(directory());
    }
}

SharedDirectory& CameraSender::directory() const
{
    return *reinterpret_cast<SharedDirectory*>(m_directory.bytes().data());
}

void CameraSender::sendFrame(const std::uint8_t* bgr)
{
    const std::lock_guard lock(m_lock);
    lookForReaders();
    if (m_readers.empty()) {
        return;
    }
    m_writer->write(bgr);
    for (const UniqueHandle& reader : m_readers) {
        SetEvent(reader.get());
    }
}

bool CameraSender::isConnected()
{
    const std::lock_guard lock(m_lock);
    lookForReaders();
    return !m_readers.empty();
}

void CameraSender::lookForReaders()
{
    const ULONGLONG now = GetTickCount64();
    if (m_lookedAt && now - *m_lookedAt < kLookForReadersMs) {
        return;
    }
    m_lookedAt = now;
    const bool hadReaders = !m_readers.empty();
    m_readers.clear(); // an event whose reader died vanishes with our handle
    for (std::size_t index = 0; index < kMaxReaders; ++index) {
        UniqueHandle reader(OpenEventW(EVENT_MODIFY_STATE, FALSE, readerName(index).c_str()));
        if (reader) {
            m_readers.push_back(std::move(reader));
        }
    }
    if (hadReaders && m_readers.empty()) {
        m_writer->forget(); // so that the next reader does not see an old picture first
    }
}

} // namespace pevrix
