#pragma once

#include <QString>

#include <vector>

namespace pevrix {

struct HostileName
{
    QString sent;
    QString shown;
};

// The text in JSON, halves of a character included.
inline QByteArray jsonOf(const QString& text)
{
    QByteArray json = "\"";
    for (const QChar c : text) {
        const bool plain = c >= u' ' && c < u'\x7f' && c != u'"' && c != u'\\';
        json += plain ? QByteArray(1, c.toLatin1())
                      : "\\u" + QByteArray::number(c.unicode(), 16).rightJustified(4, '0');
    }
    return json + '"';
}

// What a phone may call itself, and what of it is shown, stored and logged.
inline std::vector<HostileName> hostileNames()
{
    using namespace Qt::StringLiterals;
    const QString endless(20'000, u'x');
    const QString pictograms = u"\U0001F4F1"_s.repeated(40);
    return {
        {u"<b>Bold</b><img src=http://x/>"_s, u"<b>Bold</b><img src=http://x/>"_s},
        {u"[x](http://x) &lt; %1 %s %n"_s, u"[x](http://x) &lt; %1 %s %n"_s},
        {u"../../etc/passwd"_s, u"../../etc/passwd"_s},
        {u"=1+1;\"quoted\"\\n"_s, u"=1+1;\"quoted\"\\n"_s},
        {u"two\nPevrix: stopped\r\tlines"_s, u"two Pevrix: stopped  lines"_s},
        {u"bell\u0007 nul"_s + QChar(0) + u" c1\u0085 ls\u2028 ps\u2029"_s,
         u"bell  nul  c1  ls  ps "_s},
        {u"gpj.\u202Eexe \u2066x\u2069 \u200Fy\uFEFF"_s, u"gpj.exe x y"_s},
        {u"half "_s + QChar(0xD83D) + u" pair"_s, u"half \uFFFD pair"_s},
        {u"\u06A9\u062A\u0627\u0628\u200C\u0647\u0627"_s,
         u"\u06A9\u062A\u0627\u0628\u200C\u0647\u0627"_s},
        {endless, endless.left(63) + u"\u2026"_s},
        {u"x"_s + pictograms, u"x"_s + pictograms.left(62) + u"\u2026"_s},
    };
}

} // namespace pevrix
