#include "base/System.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <locale.h>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace System {

Opened openToRead(QFile &file)
{
    // What a name stands for is known of the open file alone: to look first and to open then may end at a pipe.
    const int descriptor =
        ::open(QFile::encodeName(file.fileName()).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    if (descriptor < 0)
        return errno == ENOENT || errno == ENOTDIR ? Opened::Missing : errno == ENXIO ? Opened::Other : Opened::Refused;
    struct stat status = {};
    if (fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode)) {
        ::close(descriptor);
        return Opened::Other;
    }
    file.open(descriptor, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle);
    return Opened::File;
}

bool reachesDisk(int file)
{
    return fdatasync(file) == 0 || errno == EINVAL; // that one: there is no disk behind
}

void folderReachesDisk(const QString &folder)
{
    const int descriptor = ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return;
    fsync(descriptor);
    ::close(descriptor);
}

bool replace(const QString &place, const QString &file)
{
    return std::rename(QFile::encodeName(file).constData(), QFile::encodeName(place).constData()) == 0;
}

QString faultOfName(const QString & /*name*/)
{
    return {};
}

bool isOwn(const QString &path)
{
    return QFileInfo(path).ownerId() == geteuid();
}

QString reasonAgainstWriting(const QFileDevice & /*file*/)
{
    return qt_error_string(); // a write that is cut off is no error to Qt
}

bool isHeld(const QString & /*path*/)
{
    return false;
}

QString stateFolder()
{
    // QStandardPaths knows this folder from Qt 6.7 on. A relative path in the variable does not count.
    const QString state = qEnvironmentVariable("XDG_STATE_HOME");
    return QDir::isAbsolutePath(state) ? state : QDir::homePath() + "/.local/state";
}

QSettings::Format settingsFormat()
{
    return QSettings::NativeFormat;
}

void *alignedMemory(std::size_t alignment, std::size_t bytes)
{
    return std::aligned_alloc(alignment, bytes);
}

void freeAligned(void *memory)
{
    std::free(memory);
}

void adviseLargePages(void *memory, std::size_t bytes)
{
    const auto start = reinterpret_cast<std::uintptr_t>(memory);
    const std::uintptr_t first = (start + largePage - 1) / largePage * largePage;
    const std::uintptr_t end = (start + bytes) / largePage * largePage;
    if (first < end)
        madvise(static_cast<std::byte *>(memory) + (first - start), end - first, MADV_HUGEPAGE);
}

struct PointNumbers::Former
{
    locale_t point;
    locale_t before;
};

PointNumbers::PointNumbers() : m_former(std::make_unique<Former>())
{
    m_former->point = newlocale(LC_NUMERIC_MASK, "C", nullptr);
    m_former->before = uselocale(m_former->point);
}

PointNumbers::~PointNumbers()
{
    uselocale(m_former->before);
    if (m_former->point)
        freelocale(m_former->point);
}

struct FileLock::Held
{
    QFile file;
};

FileLock::FileLock(std::unique_ptr<Held> held) : m_held(std::move(held)) {}

FileLock::~FileLock() = default;

std::unique_ptr<FileLock> FileLock::take(const QString &path)
{
    auto held = std::make_unique<Held>();
    QFile &file = held->file;
    file.setFileName(path);
    const bool isOpen = file.open(QIODevice::ReadWrite) || file.open(QIODevice::ReadOnly); // of a read-only disk
    if (!isOpen || flock(file.handle(), LOCK_EX | LOCK_NB) != 0)
        return nullptr;
    if (!file.exists()) // whoever had it has just removed it
        return nullptr;
    return std::unique_ptr<FileLock>(new FileLock(std::move(held)));
}

bool FileLock::isThere() const
{
    return m_held->file.exists();
}

void FileLock::remove()
{
    QFile::remove(m_held->file.fileName()); // and it stays locked to the end
}

QByteArrayList arguments(int count, const char *const *values)
{
    QByteArrayList arguments;
    for (int i = 1; i < count; ++i)
        arguments.append(values[i]);
    return arguments;
}

void prepareTerminal() {}

QString localFile(const QString &host, const QString &path)
{
    return host.isEmpty() || host == "localhost" ? path : QString();
}

void choosePlatform(bool hasWindow)
{
    if (!hasWindow)
        qputenv("QT_QPA_PLATFORM", "offscreen");
}

bool hasDisplay()
{
    return !qEnvironmentVariableIsEmpty("DISPLAY") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ||
           !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
}

bool isStartedByPerson()
{
    return isatty(STDERR_FILENO) != 0 || !qEnvironmentVariableIsEmpty("DESKTOP_STARTUP_ID") ||
           !qEnvironmentVariableIsEmpty("XDG_ACTIVATION_TOKEN");
}

} // namespace System
