#include "tools/phonesim/MuxReplies.h"

#include "usb/MuxPacket.h"

#include <QString>
#include <QVariantMap>
#include <QXmlStreamWriter>

using namespace Qt::StringLiterals;

namespace pevrix {

namespace {

void writeMap(QXmlStreamWriter& writer, const QVariantMap& map)
{
    writer.writeStartElement(u"dict"_s);
    for (const auto& [key, value] : map.asKeyValueRange()) {
        writer.writeTextElement(u"key"_s, key);
        if (value.typeId() == QMetaType::QVariantMap) {
            writeMap(writer, value.toMap());
        } else {
            const bool isText = value.typeId() == QMetaType::QString;
            writer.writeTextElement(isText ? u"string"_s : u"integer"_s, value.toString());
        }
    }
    writer.writeEndElement();
}

// The program's own writer makes requests only, which are flat.
QByteArray packet(const QVariantMap& map, std::uint32_t tag)
{
    QByteArray payload;
    QXmlStreamWriter writer(&payload);
    writer.setAutoFormatting(true);
    writer.setAutoFormattingIndent(-1); // one tabulator
    writer.writeStartDocument();
    writer.writeDTD(u"<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                    "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">"_s);
    writer.writeStartElement(u"plist"_s);
    writer.writeAttribute(u"version"_s, u"1.0"_s);
    writeMap(writer, map);
    writer.writeEndDocument();
    return buildMuxHeader(payload.size(), tag) + payload;
}

} // namespace

QByteArray muxResult(MuxResult result, std::uint32_t tag)
{
    return packet({{u"MessageType"_s, u"Result"_s}, {u"Number"_s, static_cast<int>(result)}}, tag);
}

QByteArray muxAttached(int deviceId, bool overNetwork)
{
    QVariantMap properties{{u"ConnectionType"_s, overNetwork ? u"Network"_s : u"USB"_s},
                           {u"DeviceID"_s, deviceId},
                           {u"SerialNumber"_s, u"%1"_s.arg(deviceId, 40, 10, QChar(u'0'))}};
    if (!overNetwork) {
        properties.insert(u"ConnectionSpeed"_s, 480'000'000);
        properties.insert(u"LocationID"_s, 0x10000 + deviceId);
        properties.insert(u"ProductID"_s, 0x12a8);
    }
    return packet({{u"DeviceID"_s, deviceId},
                   {u"MessageType"_s, u"Attached"_s},
                   {u"Properties"_s, properties}},
                  0);
}

QByteArray muxDetached(int deviceId)
{
    return packet({{u"DeviceID"_s, deviceId}, {u"MessageType"_s, u"Detached"_s}}, 0);
}

QByteArray muxCorruptHeader()
{
    return buildMuxHeader(kMuxMaxPacketSize, 0); // the header itself comes on top
}

} // namespace pevrix
