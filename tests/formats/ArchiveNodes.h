#pragma once

#include <QByteArray>

#include <cstdint>
#include <memory>
#include <plist/plist.h>

/// The nodes of an archive as they stand in its bytes, for tests of the bytes themselves.
using ArchiveNodes = std::unique_ptr<void, void (*)(plist_t)>;

/// Null where the bytes are no binary property list.
inline ArchiveNodes parsedArchive(const QByteArray &bytes)
{
    plist_t list = nullptr;
    plist_from_bin(bytes.constData(), static_cast<uint32_t>(bytes.size()), &list);
    return {list, plist_free};
}

/// The entry of the table that `reference` names.
inline plist_t tableEntry(const ArchiveNodes &archive, plist_t reference)
{
    uint64_t index = 0;
    plist_get_uid_val(reference, &index);
    return plist_array_get_item(plist_dict_get_item(archive.get(), "$objects"), static_cast<uint32_t>(index));
}

inline plist_t rootEntry(const ArchiveNodes &archive)
{
    return tableEntry(archive, plist_dict_get_item(plist_dict_get_item(archive.get(), "$top"), "root"));
}

/// An archive of such nodes, after they were changed.
inline QByteArray archiveBytes(const ArchiveNodes &archive)
{
    char *bytes = nullptr;
    uint32_t size = 0;
    plist_to_bin(archive.get(), &bytes, &size);
    QByteArray written(bytes, size);
    plist_to_bin_free(bytes);
    return written;
}
