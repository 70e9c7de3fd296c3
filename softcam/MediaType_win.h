#pragma once

// DirectShow's description of a stream, and what this camera understands of it.

#include "softcam/PictureFormat.h"

#include <optional>
#include <windows.h>
// After windows.h, whose types it uses.
#include <strmif.h>

namespace pevrix {

// What a reader agrees on: everything that a media type says about this camera's stream.
struct StreamFormat
{
    PixelLayout layout = PixelLayout::None;
    CameraFormat picture;

    [[nodiscard]] REFERENCE_TIME interval() const { return picture.interval().count() / 100; }
};

// The rate that has this interval in units of 100 ns, within 1 to 1000 pictures a second; 30 when
// the interval is not positive.
void setInterval(CameraFormat& format, REFERENCE_TIME interval);

// Owns the memory that a media type refers to. An empty one has no major type.
class MediaType
{
public:
    MediaType() = default;
    MediaType(MediaType&& other) noexcept;
    ~MediaType();
    MediaType& operator=(MediaType&&) = delete;

    // Empty when memory is short.
    [[nodiscard]] static MediaType of(const StreamFormat& format);

    [[nodiscard]] const AM_MEDIA_TYPE* get() const { return &m_type; }
    [[nodiscard]] explicit operator bool() const { return m_type.pbFormat != nullptr; }

    // Gives the content away, to be freed by who takes it.
    [[nodiscard]] AM_MEDIA_TYPE release();

    // The same in memory of its own; null when memory is short.
    [[nodiscard]] static AM_MEDIA_TYPE* allocate(const StreamFormat& format);

    // Frees what allocate() returned, or another owner of memory like it.
    static void free(AM_MEDIA_TYPE* type);

private:
    AM_MEDIA_TYPE m_type{};
};

// Empty when this camera does not make such a stream. The type comes from outside, and each of its
// fields is looked at.
[[nodiscard]] std::optional<StreamFormat> streamFormatOf(const AM_MEDIA_TYPE& type);

// How far apart, in pixels, the rows of memory are that a type asks for which is attached to a
// sample of this format: the picture's width or more. Empty when the type is of another picture.
[[nodiscard]] std::optional<std::uint32_t> rowWidthOf(const AM_MEDIA_TYPE& type,
                                                      const StreamFormat& format);

// Whether a type that may leave out what does not matter takes in this format.
[[nodiscard]] bool matches(const AM_MEDIA_TYPE& partial, const StreamFormat& format);

} // namespace pevrix
