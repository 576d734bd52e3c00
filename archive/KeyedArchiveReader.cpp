#include "archive/ArchiveTable.h"
#include "archive/KeyedArchive.h"

Result<KeyedArchive::Contents> KeyedArchive::readContents(const QByteArray &bytes, const Vocabulary &vocabulary)
{
    Result<PropertyList::Pointer> list = PropertyList::parse(bytes);
    if (!list)
        return tl::unexpected(list.error());
    plist_t archive = list->get();
    if (PropertyList::text(PropertyList::value(archive, "$archiver")) != "NSKeyedArchiver")
        return fail("This file is another program's; open one that was saved here.");
    if (PropertyList::integer(PropertyList::value(archive, "$version")) != 100000)
        return fail("The keyed archive is of an unknown version; only version 100000 can be read.");
    std::vector<plist_t> objects = PropertyList::entries(PropertyList::value(archive, "$objects"));
    if (objects.empty())
        return fail("The keyed archive is damaged: it has no table of objects.");
    plist_t top = PropertyList::value(archive, "$top");
    const auto root = PropertyList::reference(PropertyList::value(top, "root"));
    if (!root)
        return fail("The keyed archive is damaged: it has no root.");

    ArchiveSource source{std::move(*list), std::move(objects), *root};
    ArchiveTable table(std::make_shared<const ArchiveSource>(std::move(source)), vocabulary);
    const Result<ArchiveValue> value = table.root();
    if (!value)
        return tl::unexpected(value.error());
    return table.besideRoot(top).map([&](const ArchiveEntries &beside) { return Contents{*value, beside}; });
}

Result<ArchiveValue> KeyedArchive::read(const QByteArray &bytes, const QStringList &classNames)
{
    Vocabulary vocabulary;
    for (const QString &name : classNames)
        vocabulary.classes.insert(name, std::nullopt);
    return readContents(bytes, vocabulary).map([](const Contents &contents) { return contents.root; });
}
