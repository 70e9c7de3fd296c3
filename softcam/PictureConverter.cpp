#include "softcam/PictureConverter.h"

#include <libyuv.h>

#include <algorithm>
#include <cassert>
#include <cstring>
#include <numeric>

namespace pevrix {

namespace {

// A strip of 1280 pixels with 4 bytes each stays in a core's cache. Even, for 4:2:0.
constexpr std::uint32_t kStripRows = 32;

constexpr std::uint32_t kBlackLuma = 16;
constexpr std::uint32_t kGrayChroma = 128;
constexpr std::uint32_t kBlackYuy2 = 0x80108010; // in memory: Y0 U Y1 V

// The planes of a 4:2:0 picture, one after the other; chroma covers odd sides, too.
struct I420Planes
{
    I420Planes(std::uint8_t* bytes, std::uint32_t wide, std::uint32_t high)
        : width(static_cast<int>(wide))
        , height(static_cast<int>(high))
        , chromaWidth((width + 1) / 2)
        , chromaHeight((height + 1) / 2)
        , y(bytes)
        , u(y + std::size_t{wide} * high)
        , v(u + chromaSize())
    {}

    [[nodiscard]] std::size_t chromaSize() const
    {
        return static_cast<std::size_t>(chromaWidth) * static_cast<std::size_t>(chromaHeight);
    }
    static std::size_t size(std::uint32_t wide, std::uint32_t high)
    {
        return std::size_t{wide} * high + std::size_t{2} * ((wide + 1) / 2) * ((high + 1) / 2);
    }

    int width;
    int height;
    int chromaWidth;
    int chromaHeight;
    std::uint8_t* y;
    std::uint8_t* u;
    std::uint8_t* v;
};

struct Plane
{
    std::uint8_t* bytes;
    std::size_t row; // bytes
    std::uint32_t rows;
};

// Calls fill(first byte, bytes of a row, bytes and rows to fill) for what lies around the area,
// whose x and width are bytes here.
template <typename Fill>
void fillAround(const PictureArea& area, const Plane& plane, const Fill& fill)
{
    const auto fillPart = [&](std::size_t x, std::uint32_t y, std::size_t width,
                              std::uint32_t height) {
        if (width > 0 && height > 0) {
            fill(plane.bytes + plane.row * y + x, static_cast<int>(plane.row),
                 static_cast<int>(width), static_cast<int>(height));
        }
    };
    const std::size_t right = std::size_t{area.x} + area.width;
    const std::uint32_t below = area.y + area.height;
    fillPart(0, 0, plane.row, area.y);
    fillPart(0, area.y, area.x, area.height);
    fillPart(right, area.y, plane.row - right, area.height);
    fillPart(0, below, plane.row, plane.rows - below);
}

auto withByte(std::uint32_t value)
{
    return [value](std::uint8_t* bytes, int row, int width, int height) {
        libyuv::SetPlane(bytes, row, width, height, value);
    };
}

// Averages all the pixels that become one where the picture shrinks.
libyuv::FilterMode filterFor(const BgrPicture& picture, const PictureArea& area)
{
    const bool shrinks = area.width < picture.width || area.height < picture.height;
    return shrinks ? libyuv::kFilterBox : libyuv::kFilterBilinear;
}

// In place. It does not overflow, because no sample was brighter than white before the loss.
void addToPlane(std::uint8_t* plane, int stride, int width, int height, std::uint8_t value)
{
    for (int y = 0; y < height; ++y) {
        std::uint8_t* row = plane + std::ptrdiff_t{stride} * y;
        for (int x = 0; x < width; ++x) {
            row[x] = static_cast<std::uint8_t>(row[x] + value);
        }
    }
}

// The side that belongs to `side` of a picture in which `other` becomes `otherTo`.
std::uint32_t proportional(std::uint32_t side, std::uint32_t other, std::uint32_t otherTo)
{
    return static_cast<std::uint32_t>(std::uint64_t{side} * otherTo / other);
}

std::uint32_t stepsOf(std::uint32_t value, std::uint32_t step)
{
    return value / step * step;
}

} // namespace

PictureArea pictureArea(const BgrPicture& picture, const CameraFormat& reader, std::uint32_t step)
{
    const bool barsBeside = std::uint64_t{picture.width} * reader.height <=
                            std::uint64_t{picture.height} * reader.width;
    const std::uint32_t width =
        barsBeside ? proportional(picture.width, picture.height, reader.height) : reader.width;
    const std::uint32_t height =
        barsBeside ? reader.height : proportional(picture.height, picture.width, reader.width);
    PictureArea area;
    area.width = std::max(stepsOf(width, step), step);
    area.height = std::max(stepsOf(height, step), step);
    area.x = stepsOf((reader.width - area.width) / 2, step);
    area.y = stepsOf((reader.height - area.height) / 2, step);
    return area;
}

std::uint8_t* PictureConverter::Buffer::ofSize(std::size_t size)
{
    if (m_size != size) {
        m_bytes.reset(); // before the new one, so that both are never held
        m_size = 0;
        m_bytes = std::make_unique_for_overwrite<std::uint8_t[]>(size);
        m_size = size;
    }
    return m_bytes.get();
}

PictureConverter::PictureConverter(PixelLayout layout, const CameraFormat& reader)
    : m_layout(layout)
    , m_reader(reader)
{}

void PictureConverter::convert(const BgrPicture& picture, std::span<std::uint8_t> to)
{
    assert(to.size() >= pictureSize(m_layout, m_reader));
    const bool sameSize = picture.width == m_reader.width && picture.height == m_reader.height;
    const bool bgr = m_layout == PixelLayout::Bgr || m_layout == PixelLayout::BgrBottomUp;
    if (sameSize && m_layout == PixelLayout::Bgr) {
        std::memcpy(to.data(), picture.pixels, m_reader.bgrSize());
    } else if (sameSize) {
        convertStrips(picture, to.data());
    } else if (bgr) {
        scaleBgr(picture, to.data());
    } else {
        scaleYuv(picture, to.data());
    }
}

void PictureConverter::convertStrips(const BgrPicture& picture, std::uint8_t* to)
{
    const auto width = static_cast<int>(m_reader.width);
    if (m_layout == PixelLayout::BgrBottomUp) {
        libyuv::CopyPlane(picture.pixels, 3 * width, to,
                          static_cast<int>(rowSize(m_layout, m_reader)), 3 * width,
                          -static_cast<int>(m_reader.height));
        return;
    }
    std::uint8_t* strip = m_source.ofSize(std::size_t{4} * m_reader.width * kStripRows);
    for (std::uint32_t row = 0; row < m_reader.height; row += kStripRows) {
        const std::uint32_t rows = std::min(kStripRows, m_reader.height - row);
        const std::size_t offset = std::size_t{3} * m_reader.width * row;
        libyuv::RGB24ToARGB(picture.pixels + offset, 3 * width, strip, 4 * width, width,
                            static_cast<int>(rows));
        convertStrip(row, rows, to);
    }
}

void PictureConverter::convertStrip(std::uint32_t row, std::uint32_t rows, std::uint8_t* to)
{
    const auto width = static_cast<int>(m_reader.width);
    const auto height = static_cast<int>(rows);
    const std::size_t pixels = std::size_t{m_reader.width} * m_reader.height;
    const std::size_t above = std::size_t{m_reader.width} * row;
    const std::uint8_t* strip = m_source.ofSize(std::size_t{4} * m_reader.width * kStripRows);
    switch (m_layout) {
    case PixelLayout::None:
    case PixelLayout::Bgr:
    case PixelLayout::BgrBottomUp:
        break;
    case PixelLayout::Yuy2:
        libyuv::ARGBToYUY2(strip, 4 * width, to + 2 * above, 2 * width, width, height);
        break;
    case PixelLayout::Nv12:
        libyuv::ARGBToNV12(strip, 4 * width, to + above, width, to + pixels + above / 2, width,
                           width, height);
        break;
    case PixelLayout::I420: {
        std::uint8_t* u = to + pixels + above / 4;
        libyuv::ARGBToI420(strip, 4 * width, to + above, width, u, width / 2, u + pixels / 4,
                           width / 2, width, height);
        break;
    }
    }
}

// Scales 4:2:0 planes, which is half the work of scaling pixels. What the reader's layout has in
// one piece is scaled into its place; the rest goes through a picture in between.
void PictureConverter::scaleYuv(const BgrPicture& picture, std::uint8_t* to)
{
    const PictureArea area = pictureArea(picture, m_reader, 2);
    const libyuv::FilterMode filter = filterFor(picture, area);
    const std::uint8_t loss = lossOf(picture, area);
    const I420Planes from(m_source.ofSize(I420Planes::size(picture.width, picture.height)),
                          picture.width, picture.height);
    libyuv::RGB24ToI420(picture.pixels, 3 * from.width, from.y, from.width, from.u,
                        from.chromaWidth, from.v, from.chromaWidth, from.width, from.height);

    I420Planes scaled(m_scaled.ofSize(I420Planes::size(area.width, area.height)), area.width,
                      area.height);
    fillBars(area, to);
    const std::size_t pixels = std::size_t{m_reader.width} * m_reader.height;
    const std::size_t luma = std::size_t{m_reader.width} * area.y + area.x;
    const auto stride = static_cast<int>(m_reader.width);
    int scaledStride = scaled.width;
    int scaledChromaStride = scaled.chromaWidth;
    if (m_layout != PixelLayout::Yuy2) {
        scaled.y = to + luma;
        scaledStride = stride;
    }
    if (m_layout == PixelLayout::I420) {
        scaledChromaStride = stride / 2;
        scaled.u = to + pixels + std::size_t{m_reader.width} / 2 * (area.y / 2) + area.x / 2;
        scaled.v = scaled.u + pixels / 4;
    }
    libyuv::I420Scale(from.y, from.width, from.u, from.chromaWidth, from.v, from.chromaWidth,
                      from.width, from.height, scaled.y, scaledStride, scaled.u, scaledChromaStride,
                      scaled.v, scaledChromaStride, scaled.width, scaled.height, filter);
    if (loss > 0) {
        addToPlane(scaled.y, scaledStride, scaled.width, scaled.height, loss);
        addToPlane(scaled.u, scaledChromaStride, scaled.chromaWidth, scaled.chromaHeight, loss);
        addToPlane(scaled.v, scaledChromaStride, scaled.chromaWidth, scaled.chromaHeight, loss);
    }
    if (m_layout == PixelLayout::Yuy2) {
        libyuv::I420ToYUY2(scaled.y, scaledStride, scaled.u, scaledChromaStride, scaled.v,
                           scaledChromaStride, to + 2 * luma, 2 * stride, scaled.width,
                           scaled.height);
    } else if (m_layout == PixelLayout::Nv12) {
        std::uint8_t* chroma = to + pixels + std::size_t{m_reader.width} * (area.y / 2) + area.x;
        libyuv::MergeUVPlane(scaled.u, scaledChromaStride, scaled.v, scaledChromaStride, chroma,
                             stride, scaled.chromaWidth, scaled.chromaHeight);
    }
}

// The box filter rounds means down. At some ratios it loses one in most of a flat area, which is
// visible as a tinge. How much is tried out once for each size, with a flat picture.
std::uint8_t PictureConverter::lossOf(const BgrPicture& picture, const PictureArea& area)
{
    if (m_known.width == picture.width && m_known.height == picture.height) {
        return m_known.loss;
    }
    constexpr std::uint8_t kFlat = 128;
    const auto width = static_cast<int>(picture.width);
    const auto height = static_cast<int>(picture.height);
    std::uint8_t* flat = m_source.ofSize(I420Planes::size(picture.width, picture.height));
    std::uint8_t* scaled = m_scaled.ofSize(I420Planes::size(area.width, area.height));
    libyuv::SetPlane(flat, width, width, height, kFlat);
    libyuv::ScalePlane(flat, width, width, height, scaled, static_cast<int>(area.width),
                       static_cast<int>(area.width), static_cast<int>(area.height),
                       filterFor(picture, area));
    const std::size_t pixels = std::size_t{area.width} * area.height;
    const auto sum = std::accumulate(scaled, scaled + pixels, std::uint64_t{0});
    const auto mean = static_cast<std::uint8_t>((sum + pixels / 2) / pixels);
    m_known = {.width = picture.width,
               .height = picture.height,
               .loss = static_cast<std::uint8_t>(kFlat - std::min(mean, kFlat))};
    return m_known.loss;
}

void PictureConverter::scaleBgr(const BgrPicture& picture, std::uint8_t* to)
{
    const auto width = static_cast<int>(picture.width);
    const auto height = static_cast<int>(picture.height);
    std::uint8_t* from = m_source.ofSize(std::size_t{4} * picture.width * picture.height);
    libyuv::RGB24ToARGB(picture.pixels, 3 * width, from, 4 * width, width, height);

    const PictureArea area = pictureArea(picture, m_reader, 1);
    const auto areaWidth = static_cast<int>(area.width);
    const auto areaHeight = static_cast<int>(area.height);
    std::uint8_t* scaled = m_scaled.ofSize(std::size_t{4} * area.width * area.height);
    libyuv::ARGBScale(from, 4 * width, width, height, scaled, 4 * areaWidth, areaWidth, areaHeight,
                      filterFor(picture, area));
    const bool bottomUp = m_layout == PixelLayout::BgrBottomUp;
    PictureArea inMemory = area;
    if (bottomUp) {
        inMemory.y = m_reader.height - area.y - area.height;
    }
    fillBars(inMemory, to);
    const std::size_t row = rowSize(m_layout, m_reader);
    libyuv::ARGBToRGB24(scaled, 4 * areaWidth, to + row * inMemory.y + std::size_t{3} * area.x,
                        static_cast<int>(row), areaWidth, bottomUp ? -areaHeight : areaHeight);
}

void PictureConverter::fillBars(const PictureArea& area, std::uint8_t* to) const
{
    const std::size_t pixels = std::size_t{m_reader.width} * m_reader.height;
    const Plane first{.bytes = to, .row = rowSize(m_layout, m_reader), .rows = m_reader.height};
    const Plane chroma{.bytes = to + pixels, .row = m_reader.width, .rows = m_reader.height / 2};
    const PictureArea inChroma{area.x, area.y / 2, area.width, area.height / 2};
    switch (m_layout) {
    case PixelLayout::None:
        break;
    case PixelLayout::Bgr:
    case PixelLayout::BgrBottomUp:
        fillAround({3 * area.x, area.y, 3 * area.width, area.height}, first, withByte(0));
        break;
    case PixelLayout::Yuy2:
        fillAround({2 * area.x, area.y, 2 * area.width, area.height}, first,
                   [](std::uint8_t* bytes, int row, int width, int height) {
                       libyuv::ARGBRect(bytes, row, 0, 0, width / 4, height, kBlackYuy2);
                   });
        break;
    case PixelLayout::Nv12:
        fillAround(area, first, withByte(kBlackLuma));
        fillAround(inChroma, chroma, withByte(kGrayChroma));
        break;
    case PixelLayout::I420: {
        fillAround(area, first, withByte(kBlackLuma));
        const PictureArea inHalf{area.x / 2, area.y / 2, area.width / 2, area.height / 2};
        Plane half{.bytes = to + pixels, .row = m_reader.width / 2, .rows = m_reader.height / 2};
        fillAround(inHalf, half, withByte(kGrayChroma));
        half.bytes += pixels / 4;
        fillAround(inHalf, half, withByte(kGrayChroma));
        break;
    }
    }
}

} // namespace pevrix
