#include "pairing/PairingToken.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>

#include <array>

using namespace Qt::StringLiterals;

namespace pevrix {

QString makePairingToken()
{
    std::array<quint32, 4> words{};
    QRandomGenerator64::global()->fillRange(words.data(), qsizetype(words.size()));
    const QByteArray bytes(reinterpret_cast<const char*>(words.data()), sizeof words);
    return QString::fromLatin1(
        bytes.toBase64(QByteArray::Base64UrlEncoding | QByteArray::OmitTrailingEquals));
}

void writeTokenFile(const QString& folder, const QString& token)
{
    constexpr QFile::Permissions kOwnerOnly = QFile::ReadOwner | QFile::WriteOwner;
    QFile file(QDir(folder).filePath(u"pairing-token.txt"_s));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate, kOwnerOnly)) {
        return;
    }
    // open() gives permissions only to a file that it creates; an older one may be readable by all.
    file.setPermissions(kOwnerOnly);
    file.write(token.toUtf8());
}

} // namespace pevrix
