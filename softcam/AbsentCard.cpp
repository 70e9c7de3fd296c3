#include "softcam/AbsentCard.h"

#include <algorithm>
#include <cmath>

namespace pevrix {
namespace {

constexpr float kGround = 18;
constexpr float kInk = 150;

struct Point
{
    float x;
    float y;
};

// Distances to a shape's edge, negative inside; the sign is drawn in a square from -1 to 1.
float toBox(Point p, Point middle, Point half, float radius)
{
    const float x = std::abs(p.x - middle.x) - half.x + radius;
    const float y = std::abs(p.y - middle.y) - half.y + radius;
    return std::hypot(std::max(x, 0.0F), std::max(y, 0.0F)) + std::min(std::max(x, y), 0.0F) -
           radius;
}

float toLine(Point p, Point from, Point to)
{
    const Point way{to.x - from.x, to.y - from.y};
    const float along =
        ((p.x - from.x) * way.x + (p.y - from.y) * way.y) / (way.x * way.x + way.y * way.y);
    const float t = std::clamp(along, 0.0F, 1.0F);
    return std::hypot(p.x - from.x - t * way.x, p.y - from.y - t * way.y);
}

// The lens side: a funnel to the right of the body.
float toFunnel(Point p)
{
    const float left = 0.40F - p.x;
    const float right = p.x - 0.78F;
    const float slope = std::abs(p.y) - 0.12F - (p.x - 0.40F) * 0.6F;
    return std::max({left, right, slope * 0.86F});
}

float toSign(Point p)
{
    const float camera = std::min(toBox(p, {-0.2F, 0}, {0.54F, 0.42F}, 0.12F), toFunnel(p));
    const float line = toLine(p, {-0.72F, -0.66F}, {0.72F, 0.66F});
    return std::min(std::max(camera, 0.13F - line), line - 0.05F);
}

} // namespace

std::vector<std::uint8_t> absentCard(const CameraFormat& size)
{
    std::vector<std::uint8_t> card(size.bgrSize(), static_cast<std::uint8_t>(kGround));
    const std::uint32_t shorter = std::min(size.width, size.height);
    const float radius = static_cast<float>(shorter) / 6; // of the sign, in pixels
    const auto reach = static_cast<std::uint32_t>(radius) + 1;
    const std::uint32_t middleX = size.width / 2;
    const std::uint32_t middleY = size.height / 2;
    const auto lowest = [&](std::uint32_t middle) {
        return middle - std::min(reach, middle);
    };
    for (std::uint32_t y = lowest(middleY); y < std::min(middleY + reach, size.height); ++y) {
        for (std::uint32_t x = lowest(middleX); x < std::min(middleX + reach, size.width); ++x) {
            const Point p{(static_cast<float>(x) - static_cast<float>(middleX)) / radius,
                          (static_cast<float>(y) - static_cast<float>(middleY)) / radius};
            // Half a pixel on each side of the edge is what smooths it.
            const float cover = std::clamp(0.5F - toSign(p) * radius, 0.0F, 1.0F);
            const auto shade = static_cast<std::uint8_t>(kGround + (kInk - kGround) * cover);
            std::fill_n(&card[(std::size_t{y} * size.width + x) * 3], 3, shade);
        }
    }
    return card;
}

} // namespace pevrix
