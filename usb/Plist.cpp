#include "usb/Plist.h"

#include <QString>
#include <QXmlStreamReader>

#include <optional>

using namespace Qt::StringLiterals;

namespace pevrix {
namespace {

constexpr QByteArrayView kDocumentHead = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                         "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                                         "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
                                         "<plist version=\"1.0\"><dict>";
constexpr QByteArrayView kDocumentTail = "</dict></plist>";

// The ampersand goes first, so that the entities written after it stay whole.
QByteArray escaped(const QString& text)
{
    return text.toUtf8().replace('&', "&amp;").replace('<', "&lt;").replace('>', "&gt;");
}

// Whether the XML reader's work stays in proportion to the document. It does not when the document
// declares entities, attributes or elements itself, nor with tags of very many attributes: each is
// compared with every other. An attribute has two quotes, of which real documents have a dozen.
bool isHarmless(QByteArrayView bytes)
{
    constexpr qsizetype kMaxQuotes = 4096;
    return !bytes.contains("<!ENTITY") && !bytes.contains("<!ATTLIST") &&
           !bytes.contains("<!ELEMENT") && bytes.count('"') + bytes.count('\'') <= kMaxQuotes;
}

class PlistReader
{
public:
    // The bytes are decoded here: the XML reader would follow whatever encoding the document names,
    // and so could read declarations that isHarmless() did not see.
    explicit PlistReader(QByteArrayView bytes)
        : m_xml(QString::fromUtf8(bytes))
    {
        m_xml.setNamespaceProcessing(false);
    }

    QVariantMap firstDictionary()
    {
        while (advance()) {
            if (m_xml.isStartElement() && m_xml.name() == "dict"_L1) {
                return dictionary();
            }
        }
        return {};
    }

private:
    // Moves to the next token; false at the end of the document and at the first error.
    bool advance()
    {
        if (m_xml.hasError()) {
            return false;
        }
        m_xml.readNext();
        if (m_xml.isStartElement() && ++m_depth > kPlistMaxDepth) {
            m_xml.raiseError();
        } else if (m_xml.isEndElement()) {
            --m_depth;
        }
        return !m_xml.hasError() && !m_xml.isEndDocument();
    }

    // Every function below starts at a start element and ends at its end element, or at an error.
    QVariantMap dictionary()
    {
        QVariantMap map;
        std::optional<QString> key;
        while (advance() && !m_xml.isEndElement()) {
            if (!m_xml.isStartElement()) {
                continue;
            }
            if (m_xml.name() == "key"_L1) {
                key = text();
                continue;
            }
            const QVariant entry = value();
            const bool cutShort = m_xml.hasError() && entry.typeId() != QMetaType::QVariantMap;
            if (key && !cutShort) {
                map.insert(*key, entry);
            }
            key.reset();
        }
        return map;
    }

    QVariant value()
    {
        if (m_xml.name() == "dict"_L1) {
            return dictionary();
        }
        if (m_xml.name() == "string"_L1) {
            return text();
        }
        if (m_xml.name() == "integer"_L1) {
            bool fits = false;
            const qlonglong number = text().toLongLong(&fits);
            return fits ? QVariant(number) : QVariant();
        }
        const bool isTrue = m_xml.name() == "true"_L1;
        const bool isBoolean = isTrue || m_xml.name() == "false"_L1;
        text();
        return isBoolean ? QVariant(isTrue) : QVariant();
    }

    // The element's own text; elements inside it are stepped over.
    QString text()
    {
        QString text;
        const int depth = m_depth;
        while (advance() && m_depth >= depth) {
            if (m_xml.isCharacters() && m_depth == depth) {
                text += m_xml.text();
            }
        }
        return text;
    }

    QXmlStreamReader m_xml;
    int m_depth = 0;
};

} // namespace

QByteArray buildPlist(const QVariantMap& map)
{
    QByteArray plist = kDocumentHead.toByteArray();
    for (const auto& [key, value] : map.asKeyValueRange()) {
        plist += "<key>" + escaped(key) + "</key>";
        if (value.typeId() == QMetaType::QString) {
            plist += "<string>" + escaped(value.toString()) + "</string>";
        } else {
            plist += "<integer>" + QByteArray::number(value.toLongLong()) + "</integer>";
        }
    }
    return plist.append(kDocumentTail);
}

QVariantMap parsePlist(QByteArrayView bytes)
{
    // The first check is for speed: a flood of empty packets then costs no XML readers.
    if (bytes.indexOf("<dict") < 0 || !isHarmless(bytes)) {
        return {};
    }
    return PlistReader(bytes).firstDictionary();
}

} // namespace pevrix
