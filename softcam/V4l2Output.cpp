#include "softcam/V4l2Output.h"

#include <fcntl.h>
#include <filesystem>
#include <linux/videodev2.h>
#include <new>
#include <set>
#include <span>
#include <string_view>
#include <sys/ioctl.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace pevrix {

namespace {

// Devices without hardware. Others are not even opened: that wakes some webcams up.
constexpr auto kVirtualDevices = "/sys/devices/virtual/video4linux";
constexpr std::string_view kDriver = "v4l2 loopback";

std::set<std::string> virtualDevices()
{
    std::set<std::string> paths;
    std::error_code error;
    for (std::filesystem::directory_iterator entry(kVirtualDevices, error), end;
         !error && entry != end; entry.increment(error)) {
        paths.insert("/dev/" + entry->path().filename().string());
    }
    return paths;
}

bool isLoopbackForOutput(int device)
{
    v4l2_capability capability{};
    if (ioctl(device, VIDIOC_QUERYCAP, &capability) < 0) {
        return false;
    }
    const std::string_view driver(reinterpret_cast<const char*>(capability.driver),
                                  sizeof(capability.driver));
    // With a producer attached a device may stop to announce output.
    return driver.starts_with(kDriver) && (capability.device_caps & V4L2_CAP_VIDEO_OUTPUT) != 0;
}

// YUYV is what most programs read from such devices; odd widths get BGR.
PixelLayout layoutFor(const CameraFormat& format)
{
    return suits(PixelLayout::Yuy2, format) ? PixelLayout::Yuy2 : PixelLayout::Bgr;
}

bool agreeOnFormat(int device, const CameraFormat& camera)
{
    const PixelLayout layout = layoutFor(camera);
    const std::uint32_t pixelFormat =
        layout == PixelLayout::Yuy2 ? V4L2_PIX_FMT_YUYV : V4L2_PIX_FMT_BGR24;
    v4l2_format format{};
    format.type = V4L2_BUF_TYPE_VIDEO_OUTPUT;
    v4l2_pix_format& picture = format.fmt.pix;
    picture.width = camera.width;
    picture.height = camera.height;
    picture.pixelformat = pixelFormat;
    picture.field = V4L2_FIELD_NONE;
    picture.bytesperline = static_cast<std::uint32_t>(rowSize(layout, camera));
    picture.sizeimage = static_cast<std::uint32_t>(pictureSize(layout, camera));
    picture.colorspace = V4L2_COLORSPACE_SRGB; // its YUV is BT.601, limited range
    return ioctl(device, VIDIOC_S_FMT, &format) == 0 && picture.width == camera.width &&
           picture.height == camera.height && picture.pixelformat == pixelFormat &&
           picture.bytesperline == rowSize(layout, camera) &&
           picture.sizeimage == pictureSize(layout, camera);
}

} // namespace

std::optional<V4l2Output> V4l2Output::openFirstFree(const CameraFormat& format)
{
    for (const std::string& path : virtualDevices()) {
        if (auto output = open(path, format)) {
            return output;
        }
    }
    return std::nullopt;
}

std::optional<V4l2Output> V4l2Output::open(const std::string& path, const CameraFormat& format)
try {
    Device device(::open(path.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC));
    if (device.descriptor() < 0) {
        return std::nullopt;
    }
    if (!isLoopbackForOutput(device.descriptor()) || !agreeOnFormat(device.descriptor(), format)) {
        return std::nullopt;
    }
    return V4l2Output(std::move(device), format);
} catch (const std::bad_alloc&) { // PipeWire's callbacks are C
    return std::nullopt;
}

V4l2Output::V4l2Output(Device device, const CameraFormat& format)
    : m_device(std::move(device))
    , m_size(pictureSize(layoutFor(format), format))
    , m_converter(layoutFor(format), format)
    , m_schedule(format)
    , m_picture(std::make_unique_for_overwrite<std::uint8_t[]>(m_size))
{}

V4l2Output::Device::~Device()
{
    if (m_descriptor >= 0) {
        close(m_descriptor);
    }
}

void V4l2Output::show(const BgrPicture& picture)
{
    try {
        m_converter.convert(picture, std::span(m_picture.get(), m_size));
    } catch (const std::bad_alloc&) {
        return;
    }
    // A picture that the device refuses is lost; there is nothing that we could do.
    [[maybe_unused]] const ssize_t written = write(m_device.descriptor(), m_picture.get(), m_size);
}

} // namespace pevrix
