#pragma once

#include "tools/soak/Clips.h"
#include "tools/soak/Media.h"
#include "tools/soak/Subject.h"
#include "tools/soak/Verdicts.h"

#include <random>

namespace pevrix {

class Phone;
class SharedShortage;

// Programs that are started and ended, or get less than they need. Each of these adds its rows.
class Endings
{
public:
    Endings(const QString& folder, const Clips& clips, Verdicts& verdicts)
        : m_folder(folder)
        , m_clips(clips)
        , m_verdicts(verdicts)
    {}

    // Asked to quit at random moments: while they start, connect, decode, record.
    void quitAtAnyMoment(const Build& build, int count);
    // Killed at random moments of a recording.
    void killWhileRecording(const Build& build, int count);
    // A disk that is full after some of the recording.
    void fillTheDisk(const Build& build, int count);
    // 64 descriptors, and a crowd that wants more.
    void runOutOfDescriptors(const Build& build);
    void runOutOfMemory(const Build& build);
    // Large allocations fail, one after the other, while it streams, records and feeds a camera.
    void failAllocations(const Build& build, int count);
    // The media service dies and comes again.
    void restartTheMedia(const Build& build, Media& media, int count);
    // Network interfaces that come and go.
    void flapInterfaces(const Build& build, int count);

private:
    [[nodiscard]] std::unique_ptr<Phone> phoneFor(const Subject& subject) const;
    [[nodiscard]] std::unique_ptr<Phone> takeMemory(Subject& subject,
                                                    const SharedShortage& shortage, int count);
    [[nodiscard]] int between(int low, int high);
    [[nodiscard]] QString folderOf(const char* name) const;

    const QString m_folder;
    const Clips& m_clips;
    Verdicts& m_verdicts;
    std::mt19937 m_random{20};
};

} // namespace pevrix
