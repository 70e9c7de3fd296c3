#pragma once

#include "softcam/Camera.h"
#include "softcam/KernelObjects_win.h"
#include "softcam/Lock_win.h"
#include "softcam/SharedPictures.h"

#include <memory>
#include <optional>
#include <vector>

namespace pevrix {

// The camera of this session: puts its pictures where the filters in other programs find them (see
// SharedPictures.h). It has no thread; who reads is looked up within the calls, at most four times
// a second.
class CameraSender final : public Camera
{
public:
    // Null when there is a camera already, or the kernel does not give what is needed.
    [[nodiscard]] static std::unique_ptr<CameraSender> make(const CameraFormat& format);
    ~CameraSender() override;
    CameraSender(const CameraSender&) = delete;
    CameraSender& operator=(const CameraSender&) = delete;

    void sendFrame(const std::uint8_t* bgr) override;
    bool isConnected() override;

private:
    CameraSender() = default;

    [[nodiscard]] bool open(const CameraFormat& format);
    [[nodiscard]] bool openPictures(const CameraFormat& format);
    [[nodiscard]] SharedDirectory& directory() const;
    void lookForReaders();

    UniqueHandle m_sender; // first, so that it goes last: the next camera comes when all is undone
    UniqueHandle m_alive;
    MappedView m_directory;
    std::uint64_t m_id = 0;
    MappedView m_pictures;
    std::optional<PictureWriter> m_writer;

    Lock m_lock; // guards the rest
    std::vector<UniqueHandle> m_readers;
    std::optional<ULONGLONG> m_lookedAt; // milliseconds since the system's start
};

} // namespace pevrix
