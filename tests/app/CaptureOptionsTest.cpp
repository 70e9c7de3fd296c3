#include "app/CaptureOptions.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using pevrix::CaptureOptions;
using pevrix::parseCaptureOptions;

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
        {"--shot 800x600", {.size = {800, 600}}},
        {"--shot 200x200", {.size = {200, 200}}},
        {"--shot 1280x", {.size = {1280, 640}}},
        {"--shot 100x900", {.size = {540, 900}}},
        {"--shot x", {}},
        {"--shot 640x480x300", {.size = {640, 640}}},
        {"--shot 99999999999x300000", {}},
        {"--shot-view settings --out a.png --shot", {.output = u"a.png"_s, .view = u"settings"_s}},
        {"--shot --shot-active Phone --lang ja", {.phone = u"Phone"_s}},
        {"--shot --shot-delay 200", {.delay = 200ms}},
        {"--shot --shot-delay 150", {}},
        {"--shot --shot-delay soon", {}},
        {"--shot --shot-delay", {}},
        {"--shot --shot-theme 2", {.theme = 2}},
        {"--shot --shot-theme dark", {.theme = 0}},
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
