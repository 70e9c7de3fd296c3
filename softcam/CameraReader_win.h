#pragma once

#include "softcam/KernelObjects_win.h"
#include "softcam/MediaType_win.h"
#include "softcam/PictureConverter.h"
#include "softcam/SharedPictures.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace pevrix {

// The camera of this session, as far as its directory tells; empty when there is none, or when its
// sender is gone. Any thread.
[[nodiscard]] std::optional<CameraFormat> presentCamera();

// One reader's way to the pictures, whoever sends them: cameras come, go and change their size, and
// the pictures keep the format that the reader agreed on. While one of these lives, the sender
// knows that somebody reads. Used by one thread.
//
//   nothing yet -- a picture came --> pictures <-- a picture came ------+
//       |                               |                              |
//       +-- no sender, or none of its --+-- no sender for a while --> the card
//           pictures for a while
class CameraReader
{
public:
    using Clock = std::chrono::steady_clock;

    CameraReader(const StreamFormat& format, Clock::time_point now);

    // Auto-reset; set after each new picture.
    [[nodiscard]] HANDLE pictureCame() const { return m_wakeUp.get(); }

    // Looks at what is in the shared memory now. True when there is a picture that has not been
    // handed on.
    [[nodiscard]] bool look(Clock::time_point now);

    // The picture to be handed on at this time, in the reader's format: a new one, the last one
    // again or the card. Empty before the first. Stays as it is until the next call. Throws
    // std::bad_alloc.
    [[nodiscard]] std::span<const std::uint8_t> picture(Clock::time_point now);

private:
    void lookForSender();
    void follow(const std::optional<AnnouncedCamera>& camera);
    [[nodiscard]] bool takeNewest();
    void showCard();

    const StreamFormat m_format;
    PictureConverter m_converter;
    UniqueHandle m_wakeUp;

    MappedView m_directory;
    Clock::time_point m_nextLook;
    bool m_alive = false;

    AnnouncedCamera m_camera;
    MappedView m_section;
    std::optional<PictureView> m_pictures; // of m_camera; empty while there is none
    std::uint32_t m_taken = 0;             // the newest picture that was

    enum class Shown
    {
        Nothing,
        Picture,
        Card
    } m_shown = Shown::Nothing;
    const Clock::time_point m_begin;
    Clock::time_point m_cardAt; // unless a picture comes before
    std::vector<std::uint8_t> m_picture;
    std::vector<std::uint8_t> m_next; // what is being made, swapped with m_picture when it is whole
};

} // namespace pevrix
