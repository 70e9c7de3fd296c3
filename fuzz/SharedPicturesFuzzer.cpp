// Arbitrary memory in the place of what the camera's sender shares: a directory, two bytes that say
// how large the section of pictures is, and the start of that section.
#include "softcam/SharedPictures.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <span>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr std::size_t kDirectorySize = sizeof(pevrix::SharedDirectory);
    const std::span input(reinterpret_cast<const std::byte*>(data), size);
    const auto head = input.first(std::min(size, kDirectorySize));
    const std::vector<std::byte> directory(head.begin(), head.end());
    const auto camera = pevrix::announcedCamera(directory);
    if (!camera || size < kDirectorySize + 2) {
        return 0;
    }
    const std::size_t sectionSize = data[kDirectorySize] + 256U * data[kDirectorySize + 1];
    std::vector<std::byte> section(sectionSize);
    const auto start = input.subspan(kDirectorySize + 2);
    std::ranges::copy(start.first(std::min(sectionSize, start.size())), section.begin());
    const auto pictures = pevrix::PictureView::of(section, camera->format);
    if (!pictures) {
        return 0;
    }
    std::vector<std::uint8_t> copy(camera->format.bgrSize());
    const bool whole = pictures->read(pictures->newest(), [&](const std::uint8_t* pixels) {
        std::memcpy(copy.data(), pixels, copy.size());
    });
    if (whole && pictures->newest() == 0) {
        std::abort();
    }
    return 0;
}
