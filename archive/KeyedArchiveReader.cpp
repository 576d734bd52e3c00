#include "archive/ArchiveTable.h"
#include "archive/KeyedArchive.h"

Result<ArchiveValue> KeyedArchive::read(const QByteArray &bytes, const QStringList &classNames)
{
    const Result<PropertyList::Pointer> list = PropertyList::parse(bytes);
    if (!list)
        return tl::unexpected(list.error());
    plist_t archive = list->get();
    if (PropertyList::text(PropertyList::value(archive, "$archiver")) != "NSKeyedArchiver")
        return fail("This file is another program's; open one that was saved here.");
    plist_t version = PropertyList::value(archive, "$version");
    if (version && PropertyList::integer(version) != 100000)
        return fail("The keyed archive is of an unknown version; only version 100000 can be read.");
    std::vector<plist_t> objects = PropertyList::entries(PropertyList::value(archive, "$objects"));
    if (objects.empty())
        return fail("The keyed archive is damaged: it has no table of objects.");
    const auto root = PropertyList::reference(PropertyList::value(PropertyList::value(archive, "$top"), "root"));
    if (!root)
        return fail("The keyed archive is damaged: it has no root.");
    return ArchiveTable(std::move(objects), classNames).root(*root);
}
