#pragma once

#include "softcam/PictureMailbox.h"
#include "softcam/PipeWireSource.h"
#include "softcam/V4l2Output.h"

#include <atomic>
#include <chrono>
#include <mutex>
#include <optional>

namespace pevrix {

// Hands out the pictures of one camera after the other: to a PipeWire source, and to the first free
// v4l2loopback device where there is one. Both go on while cameras are deleted and created again.
//
//   closed -- open() --> open -- close() --> waiting for another camera -- the grace --> closed
//                          ^------------------- open() ---------------------|
//
// While it waits, readers get the last picture again. A thread of its own runs everything that
// speaks with the daemon, so that the functions here, which any thread may call, wait for nobody;
// the destructor waits for that thread to end.
class CameraOutlet
{
public:
    // How long readers wait for another camera. Making one anew takes a tenth of a second, starting
    // the program again a few seconds.
    static constexpr std::chrono::seconds kGrace{5};

    // Throws std::bad_alloc or std::runtime_error when there is no thread or memory left.
    explicit CameraOutlet(std::chrono::seconds grace = kGrace);
    ~CameraOutlet();
    CameraOutlet(const CameraOutlet&) = delete;
    CameraOutlet& operator=(const CameraOutlet&) = delete;

    void open(const CameraFormat& format);
    void close();

    // Copies the picture for the outlet's thread; does nothing while nobody watches. One thread at
    // a time. Throws std::bad_alloc.
    void sendFrame(const BgrPicture& picture);

    // Whether a program is reading now.
    [[nodiscard]] bool isConnected() const { return m_source.isStreaming(); }

private:
    struct Callbacks; // PipeWire's, which come in the loop's thread

    void setCamera(std::optional<CameraFormat> format);
    void followCamera();
    void endReaders();
    void showDuePictures();
    void armPictureTimer();

    const std::chrono::seconds m_grace;
    std::mutex m_mutex;
    std::optional<CameraFormat> m_camera; // guarded by it
    PictureMailbox m_mailbox;
    std::atomic<bool> m_feedsLoopback = false;

    pw::Library m_library;
    pw::ThreadLoop m_loop;

    // The rest belongs to the loop's thread while that runs.
    PipeWireSource m_source;
    std::optional<V4l2Output> m_loopback;
    spa_source* m_cameraChanged = nullptr; // these are owned by the loop
    spa_source* m_pictureCame = nullptr;
    spa_source* m_pictureTimer = nullptr;
    spa_source* m_graceTimer = nullptr;
};

} // namespace pevrix
