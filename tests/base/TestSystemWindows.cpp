#include "tests/base/FullDisk.h"
#include "tests/base/UnreadableMemory.h"

#include <cstring>
#include <windows.h>

namespace {
using Write = decltype(&WriteFile);

qint64 s_mostBytes = 0;
Write s_write = nullptr;

/// What the program calls instead of the system's while a disk is full.
BOOL WINAPI writeWithinLimit(HANDLE file, LPCVOID bytes, DWORD count, LPDWORD written, LPOVERLAPPED overlapped)
{
    LARGE_INTEGER place{};
    const bool isFile =
        GetFileType(file) == FILE_TYPE_DISK && SetFilePointerEx(file, LARGE_INTEGER{}, &place, FILE_CURRENT);
    if (!isFile || place.QuadPart + count <= s_mostBytes)
        return s_write(file, bytes, count, written, overlapped);
    SetLastError(ERROR_DISK_FULL);
    return FALSE;
}

/// Where the program keeps the address of a function that it calls of another library.
Write *importOfWrite()
{
    auto *base = reinterpret_cast<BYTE *>(GetModuleHandleW(nullptr));
    const auto *headers =
        reinterpret_cast<IMAGE_NT_HEADERS *>(base + reinterpret_cast<IMAGE_DOS_HEADER *>(base)->e_lfanew);
    const IMAGE_DATA_DIRECTORY &imports = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    for (auto *library = reinterpret_cast<IMAGE_IMPORT_DESCRIPTOR *>(base + imports.VirtualAddress); library->Name != 0;
         ++library) {
        auto *name = reinterpret_cast<IMAGE_THUNK_DATA *>(base + library->OriginalFirstThunk);
        auto *address = reinterpret_cast<IMAGE_THUNK_DATA *>(base + library->FirstThunk);
        for (; name->u1.AddressOfData != 0; ++name, ++address) {
            if (IMAGE_SNAP_BY_ORDINAL(name->u1.Ordinal))
                continue;
            const auto *import = reinterpret_cast<IMAGE_IMPORT_BY_NAME *>(base + name->u1.AddressOfData);
            if (std::strcmp(import->Name, "WriteFile") == 0)
                return reinterpret_cast<Write *>(&address->u1.Function);
        }
    }
    return nullptr;
}

void call(Write write)
{
    Write *import = importOfWrite();
    DWORD protection = 0;
    VirtualProtect(import, sizeof *import, PAGE_READWRITE, &protection);
    *import = write;
    VirtualProtect(import, sizeof *import, protection, &protection);
}
} // namespace

struct FullDisk::Before
{};

FullDisk::FullDisk(qint64 bytes)
{
    s_mostBytes = bytes;
    s_write = *importOfWrite();
    call(&writeWithinLimit);
}

FullDisk::~FullDisk()
{
    call(s_write);
}

QString FullDisk::reason()
{
    return qt_error_string(ERROR_DISK_FULL);
}

QString reasonOfNoFolder()
{
    return qt_error_string(ERROR_PATH_NOT_FOUND);
}

UnreadableMemory::UnreadableMemory(std::size_t bytes)
    : m_bytes(bytes), m_memory(VirtualAlloc(nullptr, bytes, MEM_COMMIT | MEM_RESERVE, PAGE_NOACCESS))
{}

UnreadableMemory::~UnreadableMemory()
{
    VirtualFree(m_memory, 0, MEM_RELEASE);
}
