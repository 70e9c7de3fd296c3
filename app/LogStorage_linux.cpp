#include "app/LogStorage.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace pevrix {

namespace {

// A file descriptor that is closed with the object; below 0 when there is none.
class Descriptor
{
public:
    explicit Descriptor(int number)
        : m_number(number)
    {}
    ~Descriptor()
    {
        if (m_number >= 0) {
            close(m_number);
        }
    }
    Descriptor(Descriptor&& other) noexcept
        : m_number(std::exchange(other.m_number, -1))
    {}
    Descriptor& operator=(Descriptor&&) = delete;

    [[nodiscard]] int get() const { return m_number; }

    // What it stands for belongs to us; `status` tells of it then.
    [[nodiscard]] bool isOurs(struct stat& status) const
    {
        return m_number >= 0 && fstat(m_number, &status) == 0 && status.st_uid == geteuid();
    }

private:
    int m_number;
};

// The log's folder, if it is ours and no link. Others lose the rights that an older program, or a
// generous umask, gave them.
Descriptor openFolder(const QString& path)
{
    const QByteArray folder = QFile::encodeName(QFileInfo(path).path());
    Descriptor opened(open(folder.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    struct stat status = {};
    if (!opened.isOurs(status) ||
        ((status.st_mode & (S_IWGRP | S_IWOTH)) != 0 && fchmod(opened.get(), S_IRWXU) != 0)) {
        return Descriptor(-1);
    }
    return opened;
}

QByteArray nameOf(const QString& path)
{
    return QFile::encodeName(QFileInfo(path).fileName());
}

} // namespace

void prepareLogFolder(const QString& path, qint64 maxBytes)
{
    const QString folder = QFileInfo(path).path();
    QDir().mkpath(QFileInfo(folder).path());
    mkdir(QFile::encodeName(folder).constData(), S_IRWXU);
    const Descriptor opened = openFolder(path);
    struct stat status = {};
    if (opened.get() >= 0 &&
        fstatat(opened.get(), nameOf(path).constData(), &status, AT_SYMLINK_NOFOLLOW) == 0 &&
        status.st_size > maxBytes) {
        unlinkat(opened.get(), nameOf(path).constData(), 0);
    }
}

void appendToLog(const QString& path, const QByteArray& text)
{
    const Descriptor folder = openFolder(path);
    if (folder.get() < 0) {
        return;
    }
    // Not blocking: a pipe in the file's place would wait for its reader.
    const Descriptor file(openat(
        folder.get(), nameOf(path).constData(),
        O_WRONLY | O_APPEND | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, S_IRUSR | S_IWUSR));
    struct stat status = {};
    if (file.isOurs(status) && S_ISREG(status.st_mode) && status.st_nlink == 1) {
        [[maybe_unused]] const ssize_t written =
            write(file.get(), text.constData(), static_cast<std::size_t>(text.size()));
    }
}

} // namespace pevrix
