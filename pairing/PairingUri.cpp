#include "pairing/PairingUri.h"

#include <QHash>
#include <QStringDecoder>
#include <QUrl>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace pevrix {
namespace {

constexpr QStringView kPrefix = u"pevrix://pair?";

// The most bytes that the largest QR symbol holds at the error-correction level that we use.
constexpr qsizetype kMaxUriLength = 2331;
// A program advertises no more; a longer list only costs the phone time.
constexpr qsizetype kMaxEndpoints = 4;
// Ours has 22 characters; the room above lets a later program use 256 bits.
constexpr qsizetype kMaxTokenLength = 64;

bool isAsciiAlphanumeric(QChar c)
{
    return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z') || (c >= u'0' && c <= u'9');
}

bool isHexDigit(QChar c)
{
    return (c >= u'0' && c <= u'9') || (c >= u'A' && c <= u'F') || (c >= u'a' && c <= u'f');
}

bool isToken(QStringView text)
{
    return !text.isEmpty() && text.size() <= kMaxTokenLength &&
           std::ranges::all_of(
               text, [](QChar c) { return isAsciiAlphanumeric(c) || c == u'-' || c == u'_'; });
}

// Qt's own decoding passes malformed escapes through as text, so the form is checked first.
bool isPercentEncoded(QStringView text)
{
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == u'%') {
            if (text.size() - i < 3 || !isHexDigit(text[i + 1]) || !isHexDigit(text[i + 2])) {
                return false;
            }
            i += 2;
        } else if (!isAsciiAlphanumeric(text[i]) && !QStringView(u"-._~").contains(text[i])) {
            return false;
        }
    }
    return true;
}

std::optional<QString> decodeName(QStringView encoded)
{
    if (!isPercentEncoded(encoded)) {
        return std::nullopt;
    }
    // Stateless, so that a sequence cut off at the end counts as an error.
    QStringDecoder decoder(QStringConverter::Utf8, QStringConverter::Flag::Stateless |
                                                       QStringConverter::Flag::ConvertInitialBom);
    QString name = decoder(QByteArray::fromPercentEncoding(encoded.toLatin1()));
    if (decoder.hasError()) {
        return std::nullopt;
    }
    return name;
}

std::optional<QStringList> decodeEndpoints(QStringView joined)
{
    QStringList endpoints;
    for (const QStringView text : joined.tokenize(u',')) {
        if (endpoints.size() == kMaxEndpoints || !parsePairingEndpoint(text)) {
            return std::nullopt;
        }
        endpoints.append(text.toString());
    }
    return endpoints;
}

// Splits "key=value&key=value"; nothing when a key is empty or comes twice.
std::optional<QHash<QStringView, QStringView>> splitQuery(QStringView query)
{
    QHash<QStringView, QStringView> fields;
    for (const QStringView field : query.tokenize(u'&')) {
        const qsizetype equals = field.indexOf(u'=');
        if (equals < 1 || fields.contains(field.first(equals))) {
            return std::nullopt;
        }
        fields.insert(field.first(equals), field.sliced(equals + 1));
    }
    return fields;
}

} // namespace

QString writePairingUri(const PairingUri& uri)
{
    QString text = kPrefix.toString() + u"v=1&pc="_s +
                   QString::fromLatin1(QUrl::toPercentEncoding(uri.pcName)) + u"&t="_s + uri.token;
    if (!uri.endpoints.isEmpty()) {
        text += u"&h="_s + uri.endpoints.join(u',');
    }
    return text;
}

std::optional<PairingUri> parsePairingUri(QStringView text)
{
    if (text.size() > kMaxUriLength || !text.startsWith(kPrefix)) {
        return std::nullopt;
    }
    const auto fields = splitQuery(text.sliced(kPrefix.size()));
    if (!fields || fields->value(u"v") != u"1" || !fields->contains(u"pc")) {
        return std::nullopt;
    }
    const QStringView token = fields->value(u"t");
    const auto pcName = decodeName(fields->value(u"pc"));
    const auto endpoints =
        fields->contains(u"h") ? decodeEndpoints(fields->value(u"h")) : QStringList();
    if (!isToken(token) || !pcName || !endpoints) {
        return std::nullopt;
    }
    return PairingUri{*pcName, token.toString(), *endpoints};
}

std::optional<PairingEndpoint> parsePairingEndpoint(QStringView text)
{
    const qsizetype colon = text.indexOf(u':');
    if (colon < 0) {
        return std::nullopt;
    }
    const QString addressText = text.first(colon).toString();
    const QStringView portText = text.sliced(colon + 1);
    const QHostAddress address(addressText);
    const quint16 port = portText.toUShort();
    // Qt also reads short, octal and padded forms; only what it would write itself is accepted.
    if (address.protocol() != QAbstractSocket::IPv4Protocol || address.toString() != addressText ||
        port == 0 || QString::number(port) != portText) {
        return std::nullopt;
    }
    return PairingEndpoint{address, port};
}

} // namespace pevrix
