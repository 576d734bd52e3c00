#include "base/System.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QStandardPaths>

#include <cerrno>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <io.h>
#include <malloc.h>
#include <utility>
#include <windows.h>

namespace {
constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// The path in the form that may be longer than 260 letters, as Qt gives it to the system, too.
std::wstring longPath(const QString &path)
{
    const QString whole = QDir::toNativeSeparators(QDir::cleanPath(QFileInfo(path).absoluteFilePath()));
    if (whole.startsWith("\\\\?\\") || whole.startsWith("\\\\.\\"))
        return whole.toStdWString();
    if (whole.startsWith("\\\\"))
        return ("\\\\?\\UNC\\" + whole.mid(2)).toStdWString();
    return ("\\\\?\\" + whole).toStdWString();
}

HANDLE opened(const QString &path, DWORD access, DWORD sharing, DWORD disposition, DWORD flags = FILE_ATTRIBUTE_NORMAL)
{
    return CreateFileW(longPath(path).c_str(), access, sharing, nullptr, disposition, flags, nullptr);
}

bool isMissing(DWORD error)
{
    return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND || error == ERROR_INVALID_NAME ||
           error == ERROR_BAD_NETPATH || error == ERROR_BAD_NET_NAME;
}
} // namespace

namespace System {

Opened openToRead(QFile &file)
{
    const HANDLE handle = opened(file.fileName(), GENERIC_READ, shareAll, OPEN_EXISTING);
    if (handle == INVALID_HANDLE_VALUE) {
        const DWORD reason = GetLastError();
        const bool isFolder = QFileInfo(file.fileName()).isDir();
        SetLastError(reason);
        return isFolder ? Opened::Other : isMissing(reason) ? Opened::Missing : Opened::Refused;
    }
    if (GetFileType(handle) != FILE_TYPE_DISK) {
        CloseHandle(handle);
        return Opened::Other;
    }
    const int descriptor = _open_osfhandle(reinterpret_cast<intptr_t>(handle), _O_RDONLY | _O_BINARY);
    if (descriptor < 0) {
        CloseHandle(handle);
        SetLastError(ERROR_TOO_MANY_OPEN_FILES);
        return Opened::Refused;
    }
    file.open(descriptor, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle);
    return Opened::File;
}

bool reachesDisk(int file)
{
    const auto handle = reinterpret_cast<HANDLE>(_get_osfhandle(file));
    return FlushFileBuffers(handle) || GetLastError() == ERROR_INVALID_FUNCTION; // that one: there is no disk behind
}

/// Nothing here does that for a folder without an administrator's rights. NTFS keeps a journal of names, so that a
/// power cut leaves the old file or the new one; what QSaveFile has put there last may be the old one again.
void folderReachesDisk(const QString & /*folder*/) {}

bool replace(const QString &place, const QString &file)
{
    return MoveFileExW(longPath(file).c_str(), longPath(place).c_str(),
                       MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH);
}

QString reasonAgainstWriting(const QFileDevice &file)
{
    return file.error() != QFileDevice::NoError ? file.errorString() : qt_error_string();
}

QString faultOfName(const QString &name)
{
    // What these paths reach the system by lets such names pass, and then neither the desktop nor another program can
    // open the file; behind a colon it would even be a hidden part of another file.
    static const QRegularExpression letters(R"([<>:"|?*\x00-\x1f])");
    static const QRegularExpression devices(R"(^(con|prn|aux|nul|com[0-9]|lpt[0-9])(\.|$))",
                                            QRegularExpression::CaseInsensitiveOption);
    if (name.contains(letters))
        return "a name here has none of < > : \" | ? *; choose another one";
    if (name.contains(devices))
        return "a device here has this name; choose another one";
    if (name.endsWith(u'.') || name.endsWith(u' '))
        return "a name here does not end with a point or a space; choose another one";
    return {};
}

bool isOwn(const QString &path)
{
    return QFileInfo::exists(path);
}

bool isHeld(const QString &path)
{
    const HANDLE handle = opened(path, DELETE, shareAll, OPEN_EXISTING);
    if (handle == INVALID_HANDLE_VALUE)
        return GetLastError() == ERROR_SHARING_VIOLATION;
    CloseHandle(handle);
    return false;
}

QString stateFolder()
{
    return QStandardPaths::writableLocation(
        QStandardPaths::GenericDataLocation); // of this machine, not of a roaming one
}

QSettings::Format settingsFormat()
{
    return QSettings::IniFormat; // the registry is none of a person's files
}

void *alignedMemory(std::size_t alignment, std::size_t bytes)
{
    return _aligned_malloc(bytes, alignment);
}

void freeAligned(void *memory)
{
    _aligned_free(memory);
}

/// Large pages are for those here to whom an administrator has given the right.
void adviseLargePages(void * /*memory*/, std::size_t /*bytes*/) {}

/// The C library that programs are linked with here (msvcrt.dll) sets this for the whole program, however it is
/// asked; nothing else here sets or needs another locale of it.
struct PointNumbers::Former
{
    int threads;
    std::string numbers;
};

PointNumbers::PointNumbers() : m_former(std::make_unique<Former>())
{
    m_former->threads = _configthreadlocale(_ENABLE_PER_THREAD_LOCALE);
    m_former->numbers = std::setlocale(LC_NUMERIC, nullptr);
    std::setlocale(LC_NUMERIC, "C");
}

PointNumbers::~PointNumbers()
{
    std::setlocale(LC_NUMERIC, m_former->numbers.c_str());
    _configthreadlocale(m_former->threads);
}

struct FileLock::Held
{
    QString path;
    HANDLE handle;
};

FileLock::FileLock(std::unique_ptr<Held> held) : m_held(std::move(held)) {}

FileLock::~FileLock()
{
    if (m_held->handle != INVALID_HANDLE_VALUE)
        CloseHandle(m_held->handle);
}

/// Whoever has the file open shares it with nobody.
std::unique_ptr<FileLock> FileLock::take(const QString &path)
{
    HANDLE handle = opened(path, GENERIC_READ | GENERIC_WRITE | DELETE, 0, OPEN_ALWAYS);
    if (handle == INVALID_HANDLE_VALUE && GetLastError() != ERROR_SHARING_VIOLATION)
        handle = opened(path, GENERIC_READ, 0, OPEN_EXISTING); // of a read-only disk
    if (handle == INVALID_HANDLE_VALUE)
        return nullptr;
    return std::unique_ptr<FileLock>(new FileLock(std::make_unique<Held>(Held{path, handle})));
}

bool FileLock::isThere() const
{
    return m_held->handle != INVALID_HANDLE_VALUE && QFileInfo::exists(m_held->path);
}

void FileLock::remove()
{
    FILE_DISPOSITION_INFO disposition{};
    disposition.DeleteFile = TRUE;
    SetFileInformationByHandle(m_held->handle, FileDispositionInfo, &disposition, sizeof disposition);
    CloseHandle(std::exchange(m_held->handle, INVALID_HANDLE_VALUE)); // which removes it
}

QByteArrayList arguments(int /*count*/, const char *const * /*values*/)
{
    int count = 0;
    LPWSTR *values = CommandLineToArgvW(GetCommandLineW(), &count);
    QByteArrayList arguments;
    for (int i = 1; i < count; ++i)
        arguments.append(QString::fromWCharArray(values[i]).toUtf8());
    LocalFree(values);
    return arguments;
}

void prepareTerminal()
{
    static const UINT before = GetConsoleOutputCP();
    const bool isTerminal = _isatty(_fileno(stdout)) != 0 || _isatty(_fileno(stderr)) != 0;
    if (isTerminal && before != 0 && SetConsoleOutputCP(CP_UTF8))
        std::atexit([] { SetConsoleOutputCP(before); });
}

QString localFile(const QString &host, const QString &path)
{
    // Another machine would be told who asks: a show from elsewhere shall not decide that.
    const QString plain = QDir::fromNativeSeparators(path);
    if ((!host.isEmpty() && host != "localhost") || plain.startsWith("//"))
        return {};
    const bool hasDrive = plain.size() > 2 && plain[0] == u'/' && plain[1].isLetter() && plain[2] == u':';
    return hasDrive ? plain.sliced(1) : plain;
}

void choosePlatform(bool hasWindow)
{
    // The platform knows the machine's fonts also where nothing is shown; "offscreen" would not.
    if (!hasWindow || qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "windows:fontengine=freetype");
}

bool hasDisplay()
{
    return true;
}

bool isStartedByPerson()
{
    const int reasons = _fileno(stderr);
    return reasons < 0 || _isatty(reasons) != 0; // there are none without a terminal
}

} // namespace System
