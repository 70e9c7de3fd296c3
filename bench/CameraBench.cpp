// What the camera library does for a reader of another size, beside libyuv's own scaling and
// conversion of the same picture, without bars; and what a picture costs its sender while nobody
// reads. All candidates take turns in every round; ratios are medians over the rounds.
#include "bench/VideoBench.h"
#include "softcam/PictureConverter.h"
#include "softcam/softcam.h"

#include <libyuv.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <vector>

using namespace pevrix;

namespace {

constexpr int kRounds = 21;
constexpr int kPicturesPerRound = 10;
constexpr int kUnreadPictures = 100'000;

template <typename Work>
double cpuSecondsPerPicture(int pictures, const Work& work)
{
    const auto start = bench::cpuTime();
    for (int i = 0; i < pictures; ++i) {
        work();
    }
    return (bench::cpuTime() - start).count() / pictures;
}

std::vector<std::uint8_t> noise(std::size_t size)
{
    std::vector<std::uint8_t> bytes(size);
    std::mt19937 random(1);
    std::generate(bytes.begin(), bytes.end(), [&] { return static_cast<std::uint8_t>(random()); });
    return bytes;
}

// A 4:2:0 picture of even sides.
struct Planes
{
    Planes(int wide, int high)
        : width(wide)
        , height(high)
        , bytes(static_cast<std::size_t>(wide) * static_cast<std::size_t>(high) * 3 / 2)
    {}
    std::uint8_t* y() { return bytes.data(); }
    std::uint8_t* u() { return y() + width * height; }
    std::uint8_t* v() { return u() + width * height / 4; }

    int width;
    int height;
    std::vector<std::uint8_t> bytes;
};

void benchScaling(int width, int height, int readerWidth, int readerHeight)
{
    const CameraFormat from = *cameraFormat(width, height, 30);
    const CameraFormat reader = *cameraFormat(readerWidth, readerHeight, 30);
    const std::vector<std::uint8_t> bgr = noise(from.bgrSize());
    const BgrPicture picture{bgr.data(), from.width, from.height};
    const PictureArea area = pictureArea(picture, reader, 2);
    std::vector<std::uint8_t> ours(pictureSize(PixelLayout::Yuy2, reader));
    std::vector<std::uint8_t> theirs(ours.size());
    Planes whole(width, height);
    Planes scaled(static_cast<int>(area.width), static_cast<int>(area.height));
    PictureConverter converter(PixelLayout::Yuy2, reader);
    const bool shrinks = scaled.width < width || scaled.height < height;

    std::vector<double> ourTimes;
    std::vector<double> theirTimes;
    for (int round = 0; round < kRounds; ++round) {
        ourTimes.push_back(
            cpuSecondsPerPicture(kPicturesPerRound, [&] { converter.convert(picture, ours); }));
        theirTimes.push_back(cpuSecondsPerPicture(kPicturesPerRound, [&] {
            libyuv::RGB24ToI420(bgr.data(), 3 * width, whole.y(), width, whole.u(), width / 2,
                                whole.v(), width / 2, width, height);
            libyuv::I420Scale(whole.y(), width, whole.u(), width / 2, whole.v(), width / 2, width,
                              height, scaled.y(), scaled.width, scaled.u(), scaled.width / 2,
                              scaled.v(), scaled.width / 2, scaled.width, scaled.height,
                              shrinks ? libyuv::kFilterBox : libyuv::kFilterBilinear);
            libyuv::I420ToYUY2(scaled.y(), scaled.width, scaled.u(), scaled.width / 2, scaled.v(),
                               scaled.width / 2, theirs.data(), 2 * scaled.width, scaled.width,
                               scaled.height);
        }));
    }
    std::printf("%dx%d for a reader of %dx%d: %.3f ms/picture, libyuv %.3f\n", width, height,
                readerWidth, readerHeight, bench::median(ourTimes) * 1e3,
                bench::median(theirTimes) * 1e3);
    std::printf("ratio camera_%dx%d_for_%dx%d_to_libyuv %.3f\n", width, height, readerWidth,
                readerHeight, bench::medianRatio(ourTimes, theirTimes));
}

bool benchUnread()
{
    const scCamera camera = scCreateCamera(1280, 720, 30);
    if (camera == nullptr) {
        std::fprintf(stderr, "the camera library makes no camera\n");
        return false;
    }
    const std::vector<std::uint8_t> picture = noise(std::size_t{3} * 1280 * 720);
    const double seconds =
        cpuSecondsPerPicture(kUnreadPictures, [&] { scSendFrame(camera, picture.data()); });
    scDeleteCamera(camera);
    std::printf("a picture that nobody reads: %.0f ns\n", seconds * 1e9);
    return true;
}

} // namespace

int main()
{
    benchScaling(1280, 720, 640, 360);
    benchScaling(1920, 1080, 1280, 720);
    benchScaling(720, 1280, 1280, 720);
    benchScaling(640, 480, 1280, 720);
    return benchUnread() ? EXIT_SUCCESS : EXIT_FAILURE;
}
