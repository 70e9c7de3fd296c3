#include "video/FFmpegModule_linux.h"
#include "video/Recording_ffmpeg.h"
#include "video/StreamDecoder_ffmpeg.h"

// The one thing that the program looks for in here.
extern "C" [[gnu::visibility("default")]] const pevrix::FFmpegModule* pevrixFFmpegModule()
{
    using pevrix::FFmpegModule;
    static constexpr FFmpegModule kModule{.version = FFmpegModule::kVersion,
                                          .openDecoder = pevrix::openStreamDecoder,
                                          .openRecording = pevrix::openRecording};
    return &kModule;
}
