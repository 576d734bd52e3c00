#include "screen/LWScreen.h"
#include "tests/screen/TestHost.h"

#include <QMetaProperty>

#include <gtest/gtest.h>
#include <thread>

namespace {
/// A value of the property's type that no other property is given.
QVariant distinctValue(const QMetaProperty &property, int number)
{
    if (property.metaType() == QMetaType::fromType<OptionalColour>())
        return QVariant::fromValue(OptionalColour(Colour{number / 256.0, 0, 0, 1}));
    if (property.metaType() == QMetaType::fromType<QSizeF>())
        return QSizeF(number, 1);
    if (property.typeId() == QMetaType::Bool)
        return true;
    return property.typeId() == QMetaType::QString ? QVariant(QString::number(number)) : QVariant(number);
}
} // namespace

TEST(Layer, HasTheRecordThatItIs)
{
    TestHost host;
    const auto wall = LWScreen::init(host);
    const LayerRecordPointer record = wall->record();
    EXPECT_TRUE(wall->hasRecord(record));
    EXPECT_FALSE(wall->hasRecord(std::make_shared<LayerRecord>(*record)));
    EXPECT_FALSE(wall->hasRecord(nullptr));
    wall->setAspectValue({4, 3});
    EXPECT_FALSE(wall->hasRecord(record));
    EXPECT_TRUE(wall->hasRecord(wall->record()));
}

TEST(Layer, EveryPropertyKeepsItsOwnValueByName)
{
    TestHost host;
    LWScreen screen(host);
    const QMetaObject &meta = Layer::staticMetaObject;
    const int first = meta.indexOfProperty("panelWidth");
    for (int i = first; i < meta.propertyCount(); ++i) {
        ASSERT_TRUE(screen.setProperty(meta.property(i).name(), distinctValue(meta.property(i), i)));
    }
    for (int i = first; i < meta.propertyCount(); ++i) {
        const QVariant expected = distinctValue(meta.property(i), i);
        const QVariant kept = screen.property(meta.property(i).name());
        const bool isSame = meta.property(i).metaType() == QMetaType::fromType<OptionalColour>()
                                ? kept.value<OptionalColour>() == expected.value<OptionalColour>()
                                : kept == expected;
        EXPECT_TRUE(isSame) << meta.property(i).name();
    }
    EXPECT_EQ(meta.propertyCount() - first, 56);
}

TEST(Layer, EveryArchivedPropertyExists)
{
    TestHost host;
    const LWScreen screen(host);
    for (const ArchiveField &field : screen.keptFields())
        EXPECT_TRUE(screen.value(field.property).isValid()) << field.property;
}

TEST(Layer, TheAspectIsReadWholeFromAnyThread)
{
    TestHost host;
    LWScreen screen(host);
    screen.setAspectValue({16, 9});
    std::thread writer([&] {
        for (int i = 1; i < 20'000; ++i)
            screen.setAspectValue({16.0 * i, 9.0 * i});
    });
    for (int i = 0; i < 20'000; ++i) {
        const QSizeF ratio = screen.aspectValue();
        ASSERT_DOUBLE_EQ(ratio.width() / ratio.height(), 16.0 / 9);
    }
    writer.join();
}
