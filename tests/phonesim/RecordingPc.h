#pragma once

#include "phone/PhoneServer.h"

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>

namespace pevrix {

// The real server on a port of its own, remembering everything that phones tell it. It wants video
// from every phone, unless `wantsVideo` is false.
class RecordingPc : public QObject
{
public:
    struct Frame
    {
        int id = 0;
        QByteArray bytes;
        qint64 ptsUsec = 0;
        bool keyframe = false;
    };

    static inline const QString kToken = QStringLiteral("Abcdefghijklmnopqrstu-");

    explicit RecordingPc(const PhoneServerTimings& timings = {})
        : server(timings)
    {
        server.setToken(kToken);
        connect(&server, &PhoneServer::phoneConnected, this,
                [this](int id, const QString& deviceId, const QString& name, const QString& model,
                       const QString& os) {
                    phones.append({deviceId, name, model, os});
                    lastId = id;
                    if (wantsVideo) {
                        server.setActive(id, true);
                    }
                });
        connect(&server, &PhoneServer::phoneDisconnected, this, [this] { ++disconnects; });
        connect(&server, &PhoneServer::devicePaired, this, [this] { ++pairings; });
        connect(&server, &PhoneServer::thumbnail, this,
                [this](int, const QByteArray& jpeg) { thumbnails.append(jpeg); });
        connect(&server, &PhoneServer::streamInfo, this, [this](int, int w, int h, int fps) {
            infos.append({w, h, fps});
            order += u'i';
        });
        connect(&server, &PhoneServer::videoConfig, this, [this](int, const QByteArray& sets) {
            configs.append(sets);
            annexB += sets;
            order += u'c';
        });
        connect(&server, &PhoneServer::videoFrame, this,
                [this](int id, const QByteArray& bytes, qint64 ptsUsec, bool keyframe) {
                    frames.append({id, bytes, ptsUsec, keyframe});
                    annexB += bytes;
                    order += keyframe ? u'K' : u'f';
                });
        listening = server.listen(0);
    }

    // What a phone needs to know to connect, and then `more`.
    [[nodiscard]] QStringList arguments(const QStringList& more) const
    {
        return QStringList{QStringLiteral("--port"), QString::number(server.port()),
                           QStringLiteral("--token"), kToken} +
               more;
    }

    PhoneServer server;
    bool listening = false;
    bool wantsVideo = true;
    int lastId = 0;
    int disconnects = 0;
    int pairings = 0;
    QList<QStringList> phones; // device, name, model, system
    QList<QByteArray> thumbnails;
    QList<StreamDescription> infos;
    QList<QByteArray> configs;
    QList<Frame> frames;
    QByteArray annexB; // parameter sets and frames as they came
    QString order;     // i: stream info, c: parameter sets, K: keyframe, f: other frame
};

} // namespace pevrix
