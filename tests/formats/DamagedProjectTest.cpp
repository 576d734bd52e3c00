#include "archive/KeyedArchive.h"
#include "formats/ProjectFile.h"
#include "tests/formats/ArchiveNodes.h"
#include "tests/formats/Damage.h"
#include "tests/formats/SampleProject.h"
#include "tests/screen/TestHost.h"

#include <QVariant>

#include <gtest/gtest.h>
#include <memory>

// Three hundred damaged files made from a good one. Each is an error that says why, or a document that can be saved and
// opened again; the sanitizers watch the rest.

namespace {
class DamagedProject : public ::testing::Test
{
protected:
    static constexpr int variants = 60;

    void expectErrorOrDocument(const QByteArray &bytes, int variant)
    {
        const Result<Project> project = ProjectFile::decode(bytes, host);
        if (!project) {
            EXPECT_FALSE(project.error().text.isEmpty()) << variant;
            ++errors;
            return;
        }
        for (const LayerPointer &layer : project->layers)
            layer->thumbnail();
        const Result<QByteArray> again = ProjectFile::encode(*project);
        ASSERT_TRUE(again.has_value()) << variant;
        const Result<Project> reopened = ProjectFile::decode(*again, host);
        ASSERT_TRUE(reopened.has_value()) << variant << ": " << qPrintable(reopened.error().text);
        EXPECT_EQ(archiveText(*reopened), archiveText(*project)) << variant;
    }

    TestHost host;
    Damage damage;
    const QByteArray good = ProjectFile::encode(sampleProject(host)).value();
    int errors = 0;
};

QByteArray binary(const ArchiveNodes &list)
{
    char *bytes = nullptr;
    uint32_t length = 0;
    plist_to_bin(list.get(), &bytes, &length);
    QByteArray copy(bytes, length);
    plist_to_bin_free(bytes);
    return copy;
}

/// All nodes below a node, in their order.
void collect(plist_t node, std::vector<plist_t> &nodes)
{
    nodes.push_back(node);
    if (plist_get_node_type(node) == PLIST_ARRAY) {
        for (uint32_t i = 0; i < plist_array_get_size(node); ++i)
            collect(plist_array_get_item(node, i), nodes);
    }
    if (plist_get_node_type(node) != PLIST_DICT)
        return;
    plist_dict_iter place = nullptr;
    plist_dict_new_iter(node, &place);
    plist_t value = nullptr;
    for (plist_dict_next_item(node, place, nullptr, &value); value; plist_dict_next_item(node, place, nullptr, &value))
        collect(value, nodes);
    free(place);
}

std::vector<plist_t> nodesOfType(const ArchiveNodes &list, plist_type type)
{
    std::vector<plist_t> nodes;
    collect(list.get(), nodes);
    std::erase_if(nodes, [&](plist_t node) { return plist_get_node_type(node) != type; });
    return nodes;
}
} // namespace

TEST_F(DamagedProject, Truncated)
{
    for (int variant = 0; variant < variants; ++variant)
        expectErrorOrDocument(damage.truncated(good), variant);
    EXPECT_EQ(errors, variants);
}

TEST_F(DamagedProject, FlippedBits)
{
    for (int variant = 0; variant < variants; ++variant)
        expectErrorOrDocument(damage.withFlippedBits(good), variant);
    EXPECT_GT(errors, 0);
}

TEST_F(DamagedProject, FlippedBitsInTheTail)
{
    for (int variant = 0; variant < variants; ++variant)
        expectErrorOrDocument(damage.withFlippedTail(good), variant);
    EXPECT_GT(errors, 0);
}

TEST_F(DamagedProject, SwappedTypes)
{
    for (int variant = 0; variant < variants; ++variant) {
        const Project project = sampleProject(host);
        const LayerPointer layer = project.layers[damage.pick(project.layers.size())];
        auto object = std::make_shared<ArchiveObject>(layer->className());
        layer->encodeWithCoder(*object);
        const std::vector<ArchiveValue> others{
            {},
            {true},
            {static_cast<qint64>(damage.random())},
            {1e300},
            {QString("text")},
            {QByteArray("data")},
            {NamedColour::red},
            {Address{"a", {"b"}}},
            {IndexSet{{{3, 4}}}},
            ArchiveValue::list({{QString("0,0")}, {qint64{1}}}),
            {std::make_shared<const ArchiveObject>("LWStill")},
        };
        const QString key = object->entries()[damage.pick(object->entries().size())].first;
        object->encode(key, others[damage.pick(others.size())]);
        const Result<QByteArray> bytes = KeyedArchive::write(ArchiveValue::list(
            {{qint64{5}}, {qint64{5}}, ArchiveValue::list({{ArchiveObjectPointer(std::move(object))}})}));
        ASSERT_TRUE(bytes.has_value());
        expectErrorOrDocument(*bytes, variant);
    }
    EXPECT_GT(errors, variants / 4);
    EXPECT_LT(errors, variants);
}

TEST_F(DamagedProject, RedirectedReferencesAndCycles)
{
    for (int variant = 0; variant < variants; ++variant) {
        const ArchiveNodes list = parsedArchive(good);
        ASSERT_NE(list, nullptr);
        const std::vector<plist_t> references = nodesOfType(list, PLIST_UID);
        ASSERT_GT(references.size(), 50U);
        for (std::size_t count = 1 + damage.pick(3); count > 0; --count) {
            // To anywhere in the table, itself included, and sometimes beyond it.
            const std::size_t target = damage.pick(references.size() + references.size() / 8);
            plist_set_uid_val(references[damage.pick(references.size())], target);
        }
        expectErrorOrDocument(binary(list), variant);
    }
    EXPECT_GT(errors, 0);
}
