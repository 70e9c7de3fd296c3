#include "app/CaptureOptions.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using pevrix::CaptureOptions;
using pevrix::parseCaptureOptions;

namespace {

// The defaults but for one option.
template <typename T>
CaptureOptions with(T CaptureOptions::* option, T value)
{
    CaptureOptions options;
    options.*option = value;
    return options;
}

} // namespace

TEST(CaptureOptions, AreReadFromTheArgumentsAndFallBackWhereOneCannotBeUsed)
{
    struct Case
    {
        const char* arguments;
        CaptureOptions expected;
    };
    const Case cases[] = {
        {"--shot", {}},
        {"--shot foo", {}},
        {"--shot 800x600", with(&CaptureOptions::size, QSize(800, 600))},
        {"--shot 200x200", with(&CaptureOptions::size, QSize(200, 200))},
        {"--shot 1280x", with(&CaptureOptions::size, QSize(1280, 640))},
        {"--shot 100x900", with(&CaptureOptions::size, QSize(540, 900))},
        {"--shot x", {}},
        {"--shot 640x480x300", with(&CaptureOptions::size, QSize(640, 640))},
        {"--shot 99999999999x300000", {}},
        {"--out a.png --shot", with(&CaptureOptions::output, u"a.png"_s)},
        {"--shot-view settings --shot", with(&CaptureOptions::view, u"settings"_s)},
        {"--shot --shot-active Phone --lang ja", with(&CaptureOptions::phone, u"Phone"_s)},
        {"--shot --shot-delay 200", with(&CaptureOptions::delay, 200ms)},
        {"--shot --shot-delay 150", {}},
        {"--shot --shot-delay soon", {}},
        {"--shot --shot-delay", {}},
        {"--shot --shot-theme 2", with(&CaptureOptions::theme, std::optional(2))},
        {"--shot --shot-theme dark", with(&CaptureOptions::theme, std::optional(0))},
        {"--shot --shot-theme 3", {}},
        {"--shot --shot-theme -1", {}},
        {"--shot --shot-theme", {}},
    };
    for (const auto& [arguments, expected] : cases) {
        EXPECT_EQ(parseCaptureOptions(QString::fromLatin1(arguments).split(u' ')), expected)
            << arguments;
    }
    EXPECT_EQ(parseCaptureOptions({u"pevrix"_s, u"--out"_s, u"a.png"_s, u"--shot-theme"_s}),
              std::nullopt);
}
