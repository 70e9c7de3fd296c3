#include "softcam/SharedPictures.h"

#include <cstring>

namespace pevrix {
namespace {

constexpr std::uint32_t kDirectoryMagic = 0x44435650; // "PVCD"
constexpr std::uint32_t kPicturesMagic = 0x50435650;  // "PVCP"
constexpr std::uint32_t kLayoutVersion = 1;
constexpr std::uint32_t kMaxRate = 1000;

constexpr auto kRelaxed = std::memory_order_relaxed;
constexpr auto kAcquire = std::memory_order_acquire;
constexpr auto kRelease = std::memory_order_release;

std::size_t slotSize(const CameraFormat& format)
{
    return (format.bgrSize() + kSlotAlignment - 1) / kSlotAlignment * kSlotAlignment;
}

// Whether cameraFormat() could have made it.
bool isPossible(const CameraFormat& format)
{
    const auto size =
        cameraFormat(static_cast<int>(format.width), static_cast<int>(format.height), 0);
    return size && format.rateDenominator > 0 && format.rateNumerator >= format.rateDenominator &&
           format.rateNumerator / format.rateDenominator <= kMaxRate;
}

// Changes the directory between an odd sequence and the next even one.
template <typename Change>
void change(SharedDirectory& directory, Change makeChange)
{
    const std::uint32_t writing = directory.sequence.load(kRelaxed) | 1U;
    directory.sequence.store(writing, kRelaxed);
    std::atomic_thread_fence(kRelease);
    makeChange();
    directory.magic.store(kDirectoryMagic, kRelaxed);
    directory.layoutVersion.store(kLayoutVersion, kRelaxed);
    directory.sequence.store(writing + 1, kRelease);
}

} // namespace

void announce(SharedDirectory& directory, const AnnouncedCamera& camera)
{
    change(directory, [&] {
        directory.idLow.store(static_cast<std::uint32_t>(camera.id), kRelaxed);
        directory.idHigh.store(static_cast<std::uint32_t>(camera.id >> 32U), kRelaxed);
        directory.width.store(camera.format.width, kRelaxed);
        directory.height.store(camera.format.height, kRelaxed);
        directory.rateNumerator.store(camera.format.rateNumerator, kRelaxed);
        directory.rateDenominator.store(camera.format.rateDenominator, kRelaxed);
        directory.present.store(1, kRelaxed);
    });
}

void withdraw(SharedDirectory& directory)
{
    change(directory, [&] { directory.present.store(0, kRelaxed); });
}

std::optional<AnnouncedCamera> announcedCamera(std::span<const std::byte> mapping)
{
    if (mapping.size() < sizeof(SharedDirectory)) {
        return std::nullopt;
    }
    const auto& directory = *reinterpret_cast<const SharedDirectory*>(mapping.data());
    const std::uint32_t before = directory.sequence.load(kAcquire);
    const bool present = directory.magic.load(kRelaxed) == kDirectoryMagic &&
                         directory.layoutVersion.load(kRelaxed) == kLayoutVersion &&
                         directory.present.load(kRelaxed) == 1;
    const AnnouncedCamera camera{
        .id =
            std::uint64_t{directory.idHigh.load(kRelaxed)} << 32U | directory.idLow.load(kRelaxed),
        .format = {.width = directory.width.load(kRelaxed),
                   .height = directory.height.load(kRelaxed),
                   .rateNumerator = directory.rateNumerator.load(kRelaxed),
                   .rateDenominator = directory.rateDenominator.load(kRelaxed)}};
    std::atomic_thread_fence(kAcquire);
    const bool settled = before % 2 == 0 && directory.sequence.load(kRelaxed) == before;
    if (!present || !settled || !isPossible(camera.format)) {
        return std::nullopt;
    }
    return camera;
}

std::size_t picturesSize(const CameraFormat& format)
{
    return kSlotAlignment + kSlots * slotSize(format);
}

PictureWriter::PictureWriter(std::span<std::byte> section, const CameraFormat& format)
    : m_header(*reinterpret_cast<SharedPicturesHeader*>(section.data()))
    , m_slots(section.data() + kSlotAlignment)
    , m_format(format)
{
    m_header.magic.store(kPicturesMagic, kRelaxed);
    m_header.layoutVersion.store(kLayoutVersion, kRelaxed);
    m_header.width.store(format.width, kRelaxed);
    m_header.height.store(format.height, kRelaxed);
}

void PictureWriter::write(const std::uint8_t* bgr)
{
    m_number = m_number == UINT32_MAX ? 1 : m_number + 1;
    const std::size_t slot = m_number % kSlots;
    m_header.number[slot].store(0, kRelaxed);
    std::atomic_thread_fence(kRelease);
    std::memcpy(m_slots + slot * slotSize(m_format), bgr, m_format.bgrSize());
    m_header.number[slot].store(m_number, kRelease);
    m_header.newest.store(m_number, kRelease);
}

void PictureWriter::forget()
{
    m_header.newest.store(0, kRelaxed);
    for (SharedField& number : m_header.number) {
        number.store(0, kRelaxed);
    }
}

std::optional<PictureView> PictureView::of(std::span<const std::byte> mapping,
                                           const CameraFormat& format)
{
    if (!isPossible(format) || mapping.size() < picturesSize(format)) {
        return std::nullopt;
    }
    const auto& header = *reinterpret_cast<const SharedPicturesHeader*>(mapping.data());
    if (header.magic.load(kRelaxed) != kPicturesMagic ||
        header.layoutVersion.load(kRelaxed) != kLayoutVersion ||
        header.width.load(kRelaxed) != format.width ||
        header.height.load(kRelaxed) != format.height) {
        return std::nullopt;
    }
    return PictureView(header, mapping.data() + kSlotAlignment, slotSize(format));
}

std::uint32_t PictureView::newest() const
{
    return m_header->newest.load(kAcquire);
}

bool PictureView::isWhole(std::uint32_t number) const
{
    return m_header->number[number % kSlots].load(kAcquire) == number;
}

const std::uint8_t* PictureView::pixels(std::uint32_t number) const
{
    return reinterpret_cast<const std::uint8_t*>(m_slots + number % kSlots * m_slotSize);
}

} // namespace pevrix
