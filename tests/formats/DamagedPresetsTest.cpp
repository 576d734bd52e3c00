#include "formats/BuiltInPresets.h"
#include "formats/PresetLibrary.h"
#include "show/RowPasteboard.h"
#include "tests/formats/Damage.h"
#include "tests/formats/SampleProject.h"
#include "tests/screen/TestHost.h"

#include <gtest/gtest.h>

// Damaged preset libraries and pasteboards made from good ones. Each is an error that says why, or something that can
// be used; the sanitizers watch the rest.

namespace {
constexpr int variants = 60;

class DamagedLibrary : public ::testing::Test
{
protected:
    DamagedLibrary()
    {
        std::vector<LayerPointer> presets = BuiltInPresets::make(host);
        for (const LayerPointer &layer : sampleProject(host).layers)
            presets.push_back(layer);
        good = PresetLibrary::encode(presets).value();
    }

    void expectErrorOrLibrary(const QByteArray &bytes, int variant)
    {
        const Result<std::vector<LayerPointer>> presets = PresetLibrary::decode(bytes, host);
        if (!presets) {
            EXPECT_FALSE(presets.error().text.isEmpty()) << variant;
            ++errors;
            return;
        }
        EXPECT_FALSE(presets->empty()) << variant;
        const Result<QByteArray> again = PresetLibrary::encode(*presets);
        ASSERT_TRUE(again.has_value()) << variant;
        const Result<std::vector<LayerPointer>> reopened = PresetLibrary::decode(*again, host);
        ASSERT_TRUE(reopened.has_value()) << variant << ": " << qPrintable(reopened.error().text);
        EXPECT_EQ(archiveText({1, 1, *reopened}), archiveText({1, 1, *presets})) << variant;
    }

    TestHost host;
    Damage damage;
    QByteArray good;
    int errors = 0;
};
} // namespace

TEST_F(DamagedLibrary, Truncated)
{
    for (int variant = 0; variant < variants; ++variant)
        expectErrorOrLibrary(damage.truncated(good), variant);
    EXPECT_EQ(errors, variants);
}

TEST_F(DamagedLibrary, FlippedBits)
{
    for (int variant = 0; variant < variants; ++variant)
        expectErrorOrLibrary(damage.withFlippedBits(good), variant);
    EXPECT_GT(errors, 0);
}

TEST_F(DamagedLibrary, FlippedBitsInTheTail)
{
    for (int variant = 0; variant < variants; ++variant)
        expectErrorOrLibrary(damage.withFlippedTail(good), variant);
    EXPECT_GT(errors, 0);
}

TEST(DamagedPasteboard, EveryFlippedBitIsAnErrorOrASetOfRows)
{
    int errors = 0;
    for (const std::vector<qsizetype> &dragged : {std::vector<qsizetype>{3, 4}, {1, 5, 300}}) {
        const QByteArray good = RowPasteboard::encode(dragged).value();
        for (qsizetype bit = 0; bit < good.size() * 8; ++bit) {
            QByteArray bytes = good;
            bytes[bit / 8] = static_cast<char>(bytes[bit / 8] ^ (1 << (bit % 8)));
            const Result<std::vector<qsizetype>> rows = RowPasteboard::decode(bytes);
            errors += rows ? 0 : 1;
            if (!rows)
                continue;
            EXPECT_FALSE(rows->empty()) << bit;
            EXPECT_TRUE(std::is_sorted(rows->begin(), rows->end())) << bit;
        }
    }
    EXPECT_GT(errors, 1000);
}
