#pragma once

#include "tools/phonesim/Pattern.h"

#include <QCommandLineParser>
#include <QSize>
#include <QString>

#include <chrono>
#include <cmath>
#include <optional>

namespace pevrix {

/// Takes values out of the command line's parser, which must outlive it, and keeps the first
/// complaint.
class OptionReader
{
public:
    explicit OptionReader(const QCommandLineParser& parser)
        : m_parser(parser)
    {}

    [[nodiscard]] QString error() const { return m_error; }
    [[nodiscard]] bool isSet(const char* name) const { return m_parser.isSet(text(name)); }
    [[nodiscard]] QString string(const char* name) const { return m_parser.value(text(name)); }

    void complain(const QString& what)
    {
        if (m_error.isEmpty()) {
            m_error = what;
        }
    }

    int integer(const char* name, int lowest, int highest)
    {
        bool ok = false;
        const int value = string(name).toInt(&ok);
        if (!ok || value < lowest || value > highest) {
            complain(QStringLiteral("--%1 must be a whole number from %2 to %3, not \"%4\"")
                         .arg(text(name))
                         .arg(lowest)
                         .arg(highest)
                         .arg(string(name)));
        }
        return value;
    }

    std::chrono::milliseconds seconds(const char* name)
    {
        bool ok = false;
        const double value = string(name).toDouble(&ok);
        if (!ok || !(value >= 0 && value <= kMaxSeconds)) {
            complain(QStringLiteral("--%1 must be a number of seconds, not \"%2\"")
                         .arg(text(name), string(name)));
            return {};
        }
        return std::chrono::milliseconds(std::llround(value * 1000));
    }

    // Nothing when the option is absent.
    std::optional<std::chrono::milliseconds> optionalSeconds(const char* name)
    {
        return isSet(name) ? std::optional(seconds(name)) : std::nullopt;
    }

    // Zero, like absence, means nothing.
    std::optional<std::chrono::milliseconds> positiveSeconds(const char* name)
    {
        const auto value = string(name).isEmpty() ? std::chrono::milliseconds{} : seconds(name);
        return value.count() > 0 ? std::optional(value) : std::nullopt;
    }

    QSize size(const char* name)
    {
        const QStringList parts = string(name).split(u'x');
        const QSize size = parts.size() == 2 ? QSize(parts[0].toInt(), parts[1].toInt()) : QSize();
        const auto good = [](int side) {
            return side >= Pattern::kMinSize && side <= Pattern::kMaxSize && side % 2 == 0;
        };
        if (!good(size.width()) || !good(size.height())) {
            complain(QStringLiteral("--%1 must be WIDTHxHEIGHT, even and from %2 to %3 pixels, "
                                    "not \"%4\"")
                         .arg(text(name))
                         .arg(Pattern::kMinSize)
                         .arg(Pattern::kMaxSize)
                         .arg(string(name)));
        }
        return size;
    }

private:
    static constexpr double kMaxSeconds = 1e6; // eleven days

    static QString text(const char* name) { return QString::fromLatin1(name); }

    const QCommandLineParser& m_parser;
    QString m_error;
};

} // namespace pevrix
