#pragma once

#include "tools/phonesim/MuxDaemon.h"
#include "tools/phonesim/Phone.h"
#include "tools/soak/CameraReader.h"
#include "tools/soak/Clips.h"
#include "tools/soak/Crowd.h"
#include "tools/soak/Subject.h"
#include "tools/soak/Verdicts.h"

#include <chrono>
#include <memory>
#include <vector>

namespace pevrix {

// What the storms over all builds saw.
struct Tally
{
    int broken = 0;
    int bare = 0;
    int visitors = 0;
    int visitorsTurnedAway = 0;
    int daemonRestarts = 0;
    int recordings = 0;
    int recordingsThatPlay = 0;
    int lostPhones = 0; // the good phone's connection ended though it did not want to
    int mostHeld = 0;   // strangers that were served at once
    int sizes = 0;      // changes of the stream's size
    Silence silence;
    Times greetedBesideSlow;
    Times greetedAfterCrowd;
    Times cable; // from the plug until the phone is served
    Times cableAfterDaemon;
    Times paused;               // until the paused card is seen
    Times resumed;              // until the video is seen again
    Times idle;                 // until the idle card is seen after a phone's end
    double slowestVideo = 1000; // pictures a second that another program saw beside slow strangers
};

// One running program, phones and strangers that come and go around it, again and again, and what
// is left of them in the quiet after each round.
class Storm
{
public:
    Storm(Subject& subject, const Build& build, const Clips& clips, Verdicts& verdicts,
          Tally& tally);

    // For this long, and at least for three rounds.
    void run(std::chrono::seconds time);

private:
    using Point = std::chrono::steady_clock::time_point;

    void round();
    void quiet();
    void judge();
    [[nodiscard]] Address address() const;

    // Phones
    [[nodiscard]] std::unique_ptr<Phone> makePhone(const QString& name, QSize size) const;
    [[nodiscard]] double join(std::unique_ptr<Phone>& phone, const QString& name, QSize size);
    [[nodiscard]] double echo(Phone& phone);

    // What happens in a round, in its order
    void streamAndRecord();
    void stallAndResume();
    void breakAndFallSilent();
    void meetSlowStrangers();
    void meetTheCrowd();
    void bearTheFlood();
    void plugIn();
    void leave();
    void sleep();

    void restartDaemon();
    [[nodiscard]] Times settledChange(Point since, std::chrono::milliseconds quiet);

    Subject& m_subject;
    const Build& m_build;
    const Clips& m_clips;
    Verdicts& m_verdicts;
    Tally& m_tally;
    CameraReader m_reader;
    Visitors m_visitors;
    MuxDaemon m_daemon;
    QTimer m_daemonTimer;
    bool m_daemonRestarts = true;
    bool m_daemonGone = false; // and could not come back yet
    std::unique_ptr<Phone> m_cable;
    std::unique_ptr<Phone> m_good;
    std::unique_ptr<Phone> m_second; // held, for echoes
    int m_round = 0;
    Resources m_before;
    std::vector<Resources> m_samples; // in the quiet after each round
    CameraReader::Gaps m_gaps;
    std::vector<double> m_rates; // of the camera, a round each
    bool m_stampsRise = true;
    Times m_echoes;              // beside a flood
    double m_crowdMegabytes = 0; // what the crowd made the program grow by
    Times m_awake;               // from the end of a stop until a phone is answered
    double m_pushedMegabytes = 0;
};

} // namespace pevrix
