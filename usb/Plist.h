#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QVariantMap>

namespace pevrix {

// The XML property lists that the usbmux daemon speaks: a writer for our flat requests and a reader
// for its replies and notifications. Pure functions, callable from any thread.

// Elements may be nested this deep; the daemon's own messages need four levels.
inline constexpr int kPlistMaxDepth = 32;

// The UTF-8 property list of `map`, its keys in code-unit order, without a line feed at the end.
// Strings are written as strings, everything else as its value converted to a 64-bit integer:
// no request carries any other kind.
[[nodiscard]] QByteArray buildPlist(const QVariantMap& map);

// The first dictionary of a property list: strings, 64-bit integers, booleans and nested maps.
// Other kinds (arrays, data, dates, reals) and integers that do not fit leave an empty value under
// their key. Malformed XML and too deep nesting end the reading with what was read so far. A
// document without a dictionary gives an empty map, and so does one that declares entities,
// attributes or elements itself or has thousands of quotes.
[[nodiscard]] QVariantMap parsePlist(QByteArrayView bytes);

} // namespace pevrix
