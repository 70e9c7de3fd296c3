#pragma once

// The memory through which the camera's sender, a 64-bit program, hands pictures to the filters in
// the programs that read the camera, which may have 32 bits and may be hostile or end at any time.
// This header is the whole protocol; CameraSender_win.cpp and CameraReader_win.cpp hold the kernel
// objects behind it, all of them in the session's own name space.
//
//   Directory   section, fixed name: which camera there is. Read-only to readers, who keep it, so
//               that it may outlive every sender; the next one writes it anew.
//
//   Sender      event, exists while a sender does. Whoever finds it there makes no second camera.
//
//   Alive       event, the same, but opened by readers: with it gone, the sender is, however it
//               ended.
//
//   Pictures.*  section, a new one per camera, named in the directory. Read-only to readers.
//
//   Reader.N    auto-reset event, made by a reader while it streams. The sender opens all N names
//               anew four times a second, and sets those that exist after each picture.
//
// Nobody ever waits for a lock that another process holds. What is written in several steps carries
// a sequence, and readers look at it again when they are done. A sender that is killed while it
// writes the directory leaves an odd sequence, which reads as no camera until the next one comes.
// Every field has 32 bits, and all else follows from a picture's width and height: a reader
// believes no offset and no length.

#include "softcam/PictureFormat.h"

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace pevrix {

// The number is the layout's version: programs of another version do not see each other.
inline constexpr wchar_t kDirectoryName[] = L"Local\\Pevrix.Camera.1.Directory";
inline constexpr wchar_t kSenderName[] = L"Local\\Pevrix.Camera.1.Sender";
inline constexpr wchar_t kAliveName[] = L"Local\\Pevrix.Camera.1.Alive";
inline constexpr wchar_t kPicturesPrefix[] =
    L"Local\\Pevrix.Camera.1.Pictures.";                                      // + the id, in hex
inline constexpr wchar_t kReaderPrefix[] = L"Local\\Pevrix.Camera.1.Reader."; // + 0 to 15
inline constexpr std::size_t kMaxReaders = 16;

using SharedField = std::atomic<std::uint32_t>;
static_assert(SharedField::is_always_lock_free && sizeof(SharedField) == 4);

struct SharedDirectory
{
    SharedField magic;
    SharedField layoutVersion;
    SharedField sequence; // odd while the fields below are written
    SharedField present;  // 1 while there is a camera
    SharedField idLow;    // of the camera's section of pictures
    SharedField idHigh;
    SharedField width;
    SharedField height;
    SharedField rateNumerator;
    SharedField rateDenominator;
};
static_assert(sizeof(SharedDirectory) == 40);

// At the start of a section of pictures. Picture N, counted from 1, lies in slot N % kSlots; the
// slots follow the first kSlotAlignment bytes, each a multiple of those.
inline constexpr std::size_t kSlots = 3;
inline constexpr std::size_t kSlotAlignment = 4096;
struct SharedPicturesHeader
{
    SharedField magic;
    SharedField layoutVersion;
    SharedField width;
    SharedField height;
    SharedField newest; // its number; 0: no picture
    std::array<SharedField, kSlots>
        number; // of the whole picture in each slot; 0 while it is written
};
static_assert(sizeof(SharedPicturesHeader) == 32);

// A camera as the directory tells of it.
struct AnnouncedCamera
{
    std::uint64_t id = 0;
    CameraFormat format;
};

// Says that there is this camera, or none; one sender at a time. Makes a directory of a new or a
// half-written one.
void announce(SharedDirectory& directory, const AnnouncedCamera& camera);
void withdraw(SharedDirectory& directory);

// Empty when the mapping holds no directory, tells of no camera or of an impossible one, or is
// being written.
[[nodiscard]] std::optional<AnnouncedCamera> announcedCamera(std::span<const std::byte> mapping);

// Bytes of a section for pictures of this format.
[[nodiscard]] std::size_t picturesSize(const CameraFormat& format);

// The sender's side of a section; one thread at a time. The section must outlive it.
class PictureWriter
{
public:
    // `section` has picturesSize() bytes, all zero, and is aligned to a page.
    PictureWriter(std::span<std::byte> section, const CameraFormat& format);

    // Copies a picture of bgrSize() bytes in and makes it the newest.
    void write(const std::uint8_t* bgr);

    // Nobody shall see the last picture any more.
    void forget();

private:
    SharedPicturesHeader& m_header;
    std::byte* m_slots;
    CameraFormat m_format;
    std::uint32_t m_number = 0;
};

// A reader's side of a section; must not outlive it.
class PictureView
{
public:
    // Empty when the mapping does not hold pictures of this format.
    [[nodiscard]] static std::optional<PictureView> of(std::span<const std::byte> mapping,
                                                       const CameraFormat& format);

    // Number of the newest picture; 0 when there is none.
    [[nodiscard]] std::uint32_t newest() const;

    // Calls use() with the bytes of a picture and tells whether they were that picture all the
    // time: when not, what came of them must not be shown.
    template <typename Use>
    [[nodiscard]] bool read(std::uint32_t number, Use use) const
    {
        if (number == 0 || !isWhole(number)) {
            return false;
        }
        use(pixels(number));
        std::atomic_thread_fence(std::memory_order_acquire);
        return isWhole(number);
    }

private:
    PictureView(const SharedPicturesHeader& header, const std::byte* slots, std::size_t slotSize)
        : m_header(&header)
        , m_slots(slots)
        , m_slotSize(slotSize)
    {}

    [[nodiscard]] bool isWhole(std::uint32_t number) const;
    [[nodiscard]] const std::uint8_t* pixels(std::uint32_t number) const;

    const SharedPicturesHeader* m_header;
    const std::byte* m_slots;
    std::size_t m_slotSize;
};

} // namespace pevrix
