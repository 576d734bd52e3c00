#include "archive/NodeCopy.h"

plist_t copyOfNode(plist_t node, std::vector<plist_t> &references)
{
    if (const std::optional<quint64> index = PropertyList::reference(node)) {
        references.push_back(plist_new_uid(*index));
        return references.back();
    }
    switch (plist_get_node_type(node)) {
    case PLIST_DICT: {
        plist_t copy = plist_new_dict();
        std::vector<plist_t> classReference;
        for (const auto &[key, value] : PropertyList::members(node)) {
            // A key may stand there twice. The first counts for readers, and the second would free its references.
            if (!PropertyList::value(copy, key.toUtf8()))
                plist_dict_set_item(copy, key.toUtf8(),
                                    copyOfNode(value, key == "$class" ? classReference : references));
        }
        references.insert(references.end(), classReference.begin(), classReference.end());
        return copy;
    }
    case PLIST_ARRAY: {
        plist_t copy = plist_new_array();
        for (plist_t entry : PropertyList::entries(node))
            plist_array_append_item(copy, copyOfNode(entry, references));
        return copy;
    }
    case PLIST_STRING:
        return plist_new_string(PropertyList::text(node)->toUtf8());
    default:
        return plist_copy(node);
    }
}
