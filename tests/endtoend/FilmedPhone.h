#pragma once

#include "tools/phonesim/PatternSource_linux.h"
#include "tools/phonesim/Phone.h"

#include <QFile>
#include <QSize>

#include <memory>

namespace pevrix {

// A simulated phone that encodes pictures with its name in them, and what it has sent.
struct FilmedPhone
{
    explicit FilmedPhone(const QString& name_, QSize size, int fps = 30)
        : name(name_)
        , phone(std::make_unique<PatternSource>(StreamDescription{size.width(), size.height(), fps},
                                                name_),
                {.deviceId = name_, .name = name_})
    {
        QObject::connect(&phone, &Phone::frameSent, &phone,
                         [this](QByteArrayView unit) { video += unit; });
    }

    // In the network, with the token that the program has left in this file.
    void connectTo(int port, const QString& tokenFile)
    {
        QFile file(tokenFile);
        const QString token = file.open(QIODevice::ReadOnly)
                                  ? QString::fromUtf8(file.readAll()).trimmed()
                                  : QString();
        phone.connectTo(QStringLiteral("127.0.0.1"), static_cast<quint16>(port), token);
    }

    const QString name;
    QByteArray video; // the access units in a row
    Phone phone;
};

} // namespace pevrix
