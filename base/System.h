#pragma once

#include <QByteArrayList>
#include <QSettings>
#include <QString>

#include <cstddef>
#include <memory>

class QFile;
class QFileDevice;

/// What differs from one operating system to the next. Each has one source, which CMake chooses; nothing else asks
/// which one it is.
namespace System {

/// What was found under a name.
enum class Opened
{
    File,    ///< and it is open
    Missing, ///< nothing
    Other,   ///< a folder or a device
    Refused  ///< the reason is qt_error_string()
};

/// Opens a regular file to be read, as `file` names it, without waiting, whatever others put in its place meanwhile.
Opened openToRead(QFile &file);

/// Whether all that was written to an open file (QFileDevice::handle()) is on the disk now, or there is no disk behind
/// it. If not, the reason is qt_error_string().
bool reachesDisk(int file);

/// The same of the names in a folder: without this a power cut may take back what was put there last. Not every file
/// system can; then it stays at that.
void folderReachesDisk(const QString &folder);

/// Puts a file into the place of another, or where there is none, in one step. If it cannot be done, the reason is
/// qt_error_string() and both are as they were.
bool replace(const QString &place, const QString &file);

/// Whether a file or folder, or what a link leads to, belongs to the person whom the program runs for; false where
/// there is none. True of all where there are no owners.
bool isOwn(const QString &path);

/// Why no file of a person's can have that name, which is without its folder, as the end of a sentence; empty where one
/// can.
QString faultOfName(const QString &name);

/// Why a file could not be written that Qt does not say it of; at once, before something else is asked of the system.
QString reasonAgainstWriting(const QFileDevice &file);

/// Whether a program has the file open in a way that lets nobody replace it.
bool isHeld(const QString &path);

/// The folder, of this person alone, of what programs keep without being told to. It may not be there yet.
QString stateFolder();

/// Of settings, so that they are a file.
QSettings::Format settingsFormat();

/// Memory whose address is a multiple of `alignment`, a power of two, as `bytes` is. Null where it cannot be had.
void *alignedMemory(std::size_t alignment, std::size_t bytes);
void freeAligned(void *memory);

inline constexpr std::size_t largePage = std::size_t{2} << 20;

/// Asks for pages of 2 MiB instead of 4 KiB where a block of allocated memory spans whole ones: they are filled without
/// a page fault for every 4 KiB. Where that cannot be had, ordinary pages serve.
void adviseLargePages(void *memory, std::size_t bytes);

/// While this lives, the C library reads and writes numbers with a point, and not with a comma as it would in half of
/// Europe: those of this thread at least, on some systems those of the whole program.
class PointNumbers
{
public:
    PointNumbers();
    ~PointNumbers();
    Q_DISABLE_COPY_MOVE(PointNumbers)

private:
    struct Former;
    std::unique_ptr<Former> m_former;
};

/// A file that at most one program has. The system takes it away when its program ends, in whatever way: it cannot go
/// stale, and no process number is mistaken for another's.
class FileLock
{
public:
    /// Makes the file where there is none. Null where another program has it, or the system refuses.
    static std::unique_ptr<FileLock> take(const QString &path);
    /// Lets it go; the file stays.
    ~FileLock();
    Q_DISABLE_COPY_MOVE(FileLock)

    /// Whether nobody has cleared the file away.
    bool isThere() const;
    /// Removes the file, which nobody else can have taken meanwhile.
    void remove();

private:
    struct Held;
    explicit FileLock(std::unique_ptr<Held> held);
    std::unique_ptr<Held> m_held;
};

/// What the program was started with, in UTF-8 as far as the system tells it so; of main() the count and the values.
QByteArrayList arguments(int count, const char *const *values);

/// Makes a terminal show what is written in UTF-8, where it does not by itself.
void prepareTerminal();

/// The file that an address names by its host and its path, both without escapes; empty where it is not on this
/// machine.
QString localFile(const QString &host, const QString &path);

/// Has Qt work without a window, or with one; before there is an application. Letters are drawn by the same engine
/// everywhere, so that pictures are the same.
void choosePlatform(bool hasWindow);

/// Whether a window can be shown.
bool hasDisplay();

/// Whether the program was started from a terminal or a desktop, not from a script, which wants a reason and a status.
bool isStartedByPerson();

} // namespace System
