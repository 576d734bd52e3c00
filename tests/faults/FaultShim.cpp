#include "tests/faults/FaultShim.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <string_view>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

namespace {
using FaultShim::Call;
using FaultShim::Kind;

constexpr std::size_t largeAllocation = std::size_t{1} << 20;

std::atomic<bool> isArmed = false;
std::atomic<bool> areAllNamed = false;
std::atomic<int> calls = 0;
FaultShim::Fault fault;
std::array<char, PATH_MAX> folder{};

bool isInside(std::string_view path)
{
    return path.starts_with(folder.data());
}

/// What one path names; a relative one is none of the folder's, since no test goes there.
bool concerns(Call call, const char *path)
{
    return isArmed && fault.call == call && path && isInside(path);
}

bool concerns(Call call, int descriptor)
{
    if (!isArmed || fault.call != call)
        return false;
    std::array<char, 64> link{};
    std::array<char, PATH_MAX> path{};
    std::snprintf(link.data(), link.size(), "/proc/self/fd/%d", descriptor);
    const ssize_t length = readlink(link.data(), path.data(), path.size());
    return length > 0 && isInside({path.data(), static_cast<std::size_t>(length)});
}

/// Counts a call; returns whether it is to fail, with errno set, or ends the program.
bool fails()
{
    const int number = ++calls;
    const bool isMeant = fault.at > 0 && (number == fault.at || (fault.kind == Kind::Always && number > fault.at));
    if (isMeant && fault.kind == Kind::Kill)
        _exit(FaultShim::killed);
    if (isMeant)
        errno = fault.error;
    return isMeant;
}

template <typename Which>
bool fails(Call call, Which which)
{
    return concerns(call, which) && fails();
}

bool isRefused(int openFlags)
{
    if (!areAllNamed || (openFlags & O_TMPFILE) != O_TMPFILE)
        return false;
    errno = EOPNOTSUPP;
    return true;
}

/// Where a disk runs full, what still fits has been written.
bool isFirstOfMany()
{
    return fault.kind == Kind::Always && calls == fault.at;
}

template <typename Function>
Function *next(Function * /*own*/, const char *name)
{
    return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name));
}

mode_t modeOf(int flags, va_list arguments)
{
    return (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(arguments, mode_t) : 0;
}

/// libplist does not ask whether it got the memory that it wants, by itself or through the C library's strdup(); the
/// program asks for it before.
bool isOfLibplist(const void *caller)
{
    Dl_info info{};
    if (dladdr(caller, &info) == 0)
        return false;
    const std::string_view library(info.dli_fname);
    return library.find("/libplist") != library.npos || library.find("/libc.so") != library.npos;
}

bool failsToAllocate(std::size_t bytes, const void *caller)
{
    return bytes >= largeAllocation && isArmed && fault.call == Call::Allocate && !isOfLibplist(caller) && fails();
}
} // namespace

#define NEXT(name) static auto *const next_##name = next(&(name), #name)

extern "C" {
int open(const char *path, int flags, ...)
{
    NEXT(openat);
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeOf(flags, arguments);
    va_end(arguments);
    return isRefused(flags) || fails(Call::Open, path) ? -1 : next_openat(AT_FDCWD, path, flags, mode);
}

int open64(const char *path, int flags, ...)
{
    NEXT(openat);
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeOf(flags, arguments);
    va_end(arguments);
    return isRefused(flags) || fails(Call::Open, path) ? -1 : next_openat(AT_FDCWD, path, flags | O_LARGEFILE, mode);
}

int close(int descriptor)
{
    NEXT(close);
    const bool isFailing = fails(Call::Close, descriptor);
    const int reason = errno;
    const int closed = next_close(descriptor); // also where it is told that it failed
    if (isFailing)
        errno = reason;
    return isFailing ? -1 : closed;
}

ssize_t read(int descriptor, void *bytes, size_t count)
{
    NEXT(read);
    return fails(Call::Read, descriptor) ? -1 : next_read(descriptor, bytes, count);
}

ssize_t write(int descriptor, const void *bytes, size_t count)
{
    NEXT(write);
    if (!fails(Call::Write, descriptor))
        return next_write(descriptor, bytes, count);
    return isFirstOfMany() && count > 1 ? next_write(descriptor, bytes, count / 2) : -1;
}

ssize_t pwrite64(int descriptor, const void *bytes, size_t count, off64_t offset)
{
    NEXT(pwrite64);
    return fails(Call::Write, descriptor) ? -1 : next_pwrite64(descriptor, bytes, count, offset);
}

ssize_t writev(int descriptor, const iovec *pieces, int count)
{
    NEXT(writev);
    return fails(Call::Write, descriptor) ? -1 : next_writev(descriptor, pieces, count);
}

int fsync(int descriptor)
{
    NEXT(fsync);
    return fails(Call::Sync, descriptor) ? -1 : next_fsync(descriptor);
}

int fdatasync(int descriptor)
{
    NEXT(fdatasync);
    return fails(Call::Sync, descriptor) ? -1 : next_fdatasync(descriptor);
}

int rename(const char *from, const char *to) noexcept
{
    NEXT(rename);
    return fails(Call::Rename, from) ? -1 : next_rename(from, to);
}

int renameat2(int fromFolder, const char *from, int toFolder, const char *to, unsigned flags) noexcept
{
    NEXT(renameat2);
    return fails(Call::Rename, from) ? -1 : next_renameat2(fromFolder, from, toFolder, to, flags);
}

int link(const char *from, const char *to) noexcept
{
    NEXT(link);
    return fails(Call::Rename, to) ? -1 : next_link(from, to);
}

int linkat(int fromFolder, const char *from, int toFolder, const char *to, int flags) noexcept
{
    NEXT(linkat);
    return fails(Call::Rename, to) ? -1 : next_linkat(fromFolder, from, toFolder, to, flags);
}

int unlink(const char *path) noexcept
{
    NEXT(unlink);
    return fails(Call::Unlink, path) ? -1 : next_unlink(path);
}

int rmdir(const char *path) noexcept
{
    NEXT(rmdir);
    return fails(Call::Unlink, path) ? -1 : next_rmdir(path);
}

int mkdir(const char *path, mode_t mode) noexcept
{
    NEXT(mkdir);
    return fails(Call::MakeFolder, path) ? -1 : next_mkdir(path, mode);
}

void *mmap64(void *place, size_t length, int protection, int flags, int descriptor, off64_t offset) noexcept
{
    NEXT(mmap64);
    return fails(Call::Map, descriptor) ? MAP_FAILED
                                        : next_mmap64(place, length, protection, flags, descriptor, offset);
}

// As glibc names its own to those who stand before them. NOLINTBEGIN(bugprone-reserved-identifier,cert-dcl*)
void *__libc_malloc(size_t bytes);
void *__libc_calloc(size_t count, size_t bytes);
void *__libc_realloc(void *old, size_t bytes);
void *__libc_memalign(size_t alignment, size_t bytes);
// NOLINTEND(bugprone-reserved-identifier,cert-dcl*)

void *malloc(size_t bytes) noexcept
{
    return failsToAllocate(bytes, __builtin_return_address(0)) ? nullptr : __libc_malloc(bytes);
}

void *calloc(size_t count, size_t bytes) noexcept
{
    return failsToAllocate(count * bytes, __builtin_return_address(0)) ? nullptr : __libc_calloc(count, bytes);
}

void *realloc(void *old, size_t bytes) noexcept
{
    return failsToAllocate(bytes, __builtin_return_address(0)) ? nullptr : __libc_realloc(old, bytes);
}

void *aligned_alloc(size_t alignment, size_t bytes) noexcept
{
    return failsToAllocate(bytes, __builtin_return_address(0)) ? nullptr : __libc_memalign(alignment, bytes);
}

void *memalign(size_t alignment, size_t bytes) noexcept
{
    return failsToAllocate(bytes, __builtin_return_address(0)) ? nullptr : __libc_memalign(alignment, bytes);
}

int posix_memalign(void **memory, size_t alignment, size_t bytes) noexcept
{
    void *const got = failsToAllocate(bytes, __builtin_return_address(0)) ? nullptr : __libc_memalign(alignment, bytes);
    if (got)
        *memory = got;
    return got ? 0 : ENOMEM;
}
}

void FaultShim::nameAllFiles()
{
    areAllNamed = true;
}

void FaultShim::arm(const char *path, const Fault &armed)
{
    std::strncpy(folder.data(), path, folder.size() - 1);
    fault = armed;
    calls = 0;
    isArmed = true;
}

int FaultShim::disarm()
{
    isArmed = false;
    return calls;
}
