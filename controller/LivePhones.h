#pragma once

#include "controller/PhoneRoster.h"

#include <QHash>
#include <QSize>

namespace pevrix {

// Carries out what follows when phones come and go: tells the phones and the video pipeline.
class IVideoSwitch
{
public:
    IVideoSwitch() = default;
    IVideoSwitch(const IVideoSwitch&) = delete;
    IVideoSwitch& operator=(const IVideoSwitch&) = delete;
    virtual ~IVideoSwitch() = default;

    // The phone is asked to send its video, or to hold it.
    virtual void askForVideo(int id, bool on) = 0;

    // The active phone's video begins, or goes on in another size. `direct`: it comes over a
    // cable.
    virtual void startStream(QSize size, bool direct) = 0;

    virtual void setFrameRate(int fps) = 0;

    // The last phone has left.
    virtual void goIdle() = 0;
};

// Whose picture is live: the connected phones, the active one of them, and what each said about
// its stream. GUI thread.
class LivePhones
{
public:
    // `video` must outlive this object.
    explicit LivePhones(IVideoSwitch& video)
        : m_video(video)
    {}

    // A phone that comes while none is active becomes the active one.
    void add(PhoneRoster::Phone phone);

    // When the active phone leaves, the first of those that remain takes over.
    void remove(int id);

    // A stream may be described before the phone has said hello: the description counts then. The
    // rate counts at once whoever announces it, the size when it is the phone's turn.
    void setStream(int id, QSize size, int fps);

    // Makes a connected phone the active one. False when it is not listed or active already.
    bool activate(int id);

    [[nodiscard]] bool isActive(int id) const { return id == m_roster.activeId(); }

    [[nodiscard]] const PhoneRoster& roster() const { return m_roster; }
    [[nodiscard]] PhoneRoster& roster() { return m_roster; }

private:
    void askForStream();
    void startStream(QSize size);

    IVideoSwitch& m_video;
    PhoneRoster m_roster;
    QHash<int, QSize> m_streamSizes; // what each connected phone last announced
    // Described on a connection that has not said hello. Only the latest is kept, because anybody
    // may send one.
    struct
    {
        int id = PhoneRoster::kNoPhone;
        QSize size;
        int fps = 0;
    } m_early;
};

} // namespace pevrix
