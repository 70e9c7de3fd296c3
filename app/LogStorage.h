#pragma once

#include <QtTypes>

class QByteArray;
class QString;

namespace pevrix {

// Makes the folder of the log and deletes a log of more than `maxBytes`. Failure is not reported.
void prepareLogFolder(const QString& path, qint64 maxBytes);

// Appends to the log, in the platform's form of text, where that can be done safely. One thread at
// a time.
void appendToLog(const QString& path, const QByteArray& text);

} // namespace pevrix
