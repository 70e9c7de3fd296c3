#include "phone/PlainText.h"

#include <algorithm>

namespace pevrix {

namespace {

bool isBreak(QChar c)
{
    return c.category() == QChar::Other_Control || c.category() == QChar::Separator_Line ||
           c.category() == QChar::Separator_Paragraph;
}

// Joiners are not among them: they belong to pictograms and to the writing of Persian and Hindi.
bool isHidden(QChar c)
{
    const char16_t unit = c.unicode();
    return unit == 0x061C || unit == 0x200B || unit == 0x200E || unit == 0x200F ||
           (unit >= 0x202A && unit <= 0x202E) || (unit >= 0x2060 && unit <= 0x206F) ||
           unit == 0xFEFF || (unit >= 0xFFF9 && unit <= 0xFFFB);
}

// Half a character, as in "\ud83d" alone, would not survive being stored.
bool isLoneHalf(QStringView text, qsizetype i)
{
    const QChar c = text[i];
    return (c.isHighSurrogate() && (i + 1 == text.size() || !text[i + 1].isLowSurrogate())) ||
           (c.isLowSurrogate() && (i == 0 || !text[i - 1].isHighSurrogate()));
}

} // namespace

QString plainText(const QString& text, qsizetype maxLength)
{
    QString plain;
    // The rest of an endless text is not even looked at.
    const qsizetype end = std::min(text.size(), 4 * maxLength);
    plain.reserve(std::min(end, maxLength + 1));
    for (qsizetype i = 0; i < end && plain.size() <= maxLength; ++i) {
        const QChar c = text[i];
        if (!isHidden(c)) {
            plain += isBreak(c) ? QChar(u' ') : isLoneHalf(text, i) ? QChar(0xFFFD) : c;
        }
    }
    if (plain.size() > maxLength) {
        const bool splits = plain[maxLength - 2].isHighSurrogate();
        plain.truncate(maxLength - (splits ? 2 : 1));
        plain += QChar(0x2026);
    }
    return plain;
}

} // namespace pevrix
