#pragma once

#include "tools/camreader/RawPicture.h"

#include <windows.h>
// After windows.h, whose types it uses.
#include <dshow.h>
#include <memory>

namespace pevrix {

struct FreeMediaType
{
    void operator()(AM_MEDIA_TYPE* type) const;
};
// As a camera hands it out: with its format block.
using UniqueMediaType = std::unique_ptr<AM_MEDIA_TYPE, FreeMediaType>;

// What of a media type matters to a reader of pictures.
struct VideoFormat
{
    RawLayout layout = RawLayout::None;
    int width = 0;
    int height = 0;
    std::int64_t interval = 0; // between pictures, in units of 100 ns

    [[nodiscard]] double rate() const
    {
        return interval > 0 ? 10'000'000.0 / static_cast<double>(interval) : 0;
    }
};

// A layout of None when the type is no uncompressed video of a layout that is known here, or says
// contradicting things of its size.
[[nodiscard]] VideoFormat videoFormat(const AM_MEDIA_TYPE& type);

[[nodiscard]] bool copyMediaType(AM_MEDIA_TYPE& to, const AM_MEDIA_TYPE& from);
void clearMediaType(AM_MEDIA_TYPE& type);

} // namespace pevrix
