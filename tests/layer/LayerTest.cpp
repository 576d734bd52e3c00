#include "screen/LWScreen.h"
#include "tests/screen/TestHost.h"

#include <QMetaProperty>

#include <gtest/gtest.h>
#include <thread>

TEST(Layer, EveryPropertyCanBeReadAndWrittenByName)
{
    TestHost host;
    LWScreen screen(host);
    const QMetaObject *meta = screen.metaObject();
    int properties = 0;
    for (int i = Layer::staticMetaObject.propertyOffset(); i < meta->propertyCount(); ++i, ++properties) {
        const QMetaProperty property = meta->property(i);
        EXPECT_TRUE(property.isReadable() && property.isWritable()) << property.name();
        EXPECT_TRUE(screen.setProperty(property.name(), screen.property(property.name()))) << property.name();
    }
    EXPECT_GE(properties, 64);
}

TEST(Layer, EveryArchivedPropertyExists)
{
    TestHost host;
    const LWScreen screen(host);
    for (const ArchiveField &field : screen.keptFields())
        EXPECT_GE(screen.metaObject()->indexOfProperty(field.property), 0) << field.property;
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
