#include "layer/LayerValues.h"

#include "screen/LWScreen.h"
#include "still/LWStill.h"
#include "tests/screen/TestHost.h"

#include <QMetaProperty>

#include <gtest/gtest.h>

namespace {
/// Declared properties that are no values of the record.
bool isElsewhere(const QByteArray &name)
{
    return name == "objectName" || name == "thumbnail" || name == "pixelPerLimitField";
}

/// Another value than 0, false or nil.
QVariant given(const LayerValue &value)
{
    if (value.type == QMetaType::fromType<OptionalColour>())
        return QVariant::fromValue(OptionalColour(NamedColour::orange));
    if (value.type == QMetaType::fromType<std::optional<QStringList>>())
        return QVariant::fromValue(std::optional(QStringList{"1,0"}));
    if (value.type == QMetaType::fromType<Address>())
        return QVariant::fromValue(Address::fromLocalFile("/show/a.png"));
    if (value.type == QMetaType::fromType<QSizeF>())
        return QSizeF(16, 9);
    if (value.type == QMetaType::fromType<CableRuns>())
        return QVariant::fromValue(CableRuns({{{"A", 2}, 1, {{0, 1}}}}));
    if (!value.choices.isEmpty())
        return value.choices.last();
    return value.type == QMetaType::fromType<bool>()
               ? QVariant(true)
               : QVariant(value.type.id() == QMetaType::QString ? QVariant("7") : QVariant(7));
}

void expectRowsOf(const Layer &layer)
{
    QSet<QByteArray> declared;
    for (int i = 0; i < layer.metaObject()->propertyCount(); ++i) {
        const QMetaProperty property = layer.metaObject()->property(i);
        if (isElsewhere(property.name()))
            continue;
        declared.insert(property.name());
        const LayerValue *row = LayerValues::find(property.name(), layer.kind());
        ASSERT_NE(row, nullptr) << property.name();
        EXPECT_EQ(row->type, property.metaType()) << property.name();
    }
    for (const LayerValue &row : LayerValues::all()) {
        const bool isThere = declared.contains(row.name) || row.addition; // an addition needs no property
        EXPECT_TRUE(isThere || !isOf(row.kind, layer.kind())) << row.name;
    }
}
} // namespace

TEST(LayerValues, HasARowForEachDeclaredValueOfBothKinds)
{
    TestHost host;
    expectRowsOf(LWScreen(host));
    expectRowsOf(LWStill(host));
    EXPECT_EQ(std::ssize(LayerValues::all()), 79);
}

TEST(LayerValues, GivesTheSameAsTheProperty)
{
    TestHost host;
    LWScreen wall(host);
    LWStill still(host);
    for (Layer *layer : {static_cast<Layer *>(&wall), static_cast<Layer *>(&still)}) {
        for (const LayerValue &row : LayerValues::all()) {
            EXPECT_EQ(layer->setValue(row.name, given(row)), isOf(row.kind, layer->kind())) << row.name;
            EXPECT_EQ(layer->value(row.name).isValid(), isOf(row.kind, layer->kind())) << row.name;
        }
        for (int i = 0; i < layer->metaObject()->propertyCount(); ++i) {
            const QMetaProperty property = layer->metaObject()->property(i);
            if (isElsewhere(property.name()))
                continue;
            EXPECT_EQ(property.read(layer), given(*LayerValues::find(property.name()))) << property.name();
        }
    }
}

TEST(LayerValues, WhatIsNoneOfTheTypeChangesNothing)
{
    TestHost host;
    LWScreen wall(host);
    wall.setCol(4);
    const LayerRecordPointer before = wall.record();
    EXPECT_FALSE(wall.setValue("col", QStringList{"a", "b"}));
    EXPECT_FALSE(wall.setValue("colour", 3));
    EXPECT_FALSE(wall.setValue("ImageURL", QVariant::fromValue(Address())));
    EXPECT_TRUE(wall.setValue("col", "4"));
    EXPECT_EQ(wall.record(), before);

    EXPECT_TRUE(wall.setValue("col", QVariant()));
    EXPECT_EQ(wall.col(), 0);
}

TEST(LayerValues, AnEmptyAddressIsNotNone)
{
    TestHost host;
    LWStill still(host);
    EXPECT_TRUE(still.setValue("ImageURL", QVariant::fromValue(Address{"", {}})));
    EXPECT_FALSE(still.ImageURL().isNil());
    EXPECT_TRUE(still.setValue("ImageURL", QVariant()));
    EXPECT_TRUE(still.ImageURL().isNil());
}

TEST(LayerValues, AnEmptyTextIsGiven)
{
    LayerRecord record;
    const LayerValue &id = *LayerValues::find("id");
    EXPECT_FALSE(id.isGiven(record));
    EXPECT_TRUE(id.assign(record, QString("")));
    EXPECT_TRUE(id.isGiven(record));
    EXPECT_TRUE(id.assign(record, {}));
    EXPECT_FALSE(id.isGiven(record));
}

TEST(LayerValues, CopiesOfARecordShareTheKeysOfItsPanels)
{
    TestHost host;
    LWScreen wall(host);
    wall.setHiddenBoxes(QStringList{"0,1", "odd"});
    const LayerRecordPointer before = wall.record();
    wall.setCol(7);
    EXPECT_EQ(wall.record()->hiddenBoxes->texts().constData(), before->hiddenBoxes->texts().constData());
    wall.onImageClick(0, 0);
    EXPECT_EQ(before->hiddenBoxes->texts(), (QStringList{"0,1", "odd"}));
}

TEST(LayerValues, TextsTellNoneFromEmpty)
{
    TestHost host;
    LWScreen wall(host);
    EXPECT_TRUE(wall.value("label").toString().isNull());
    EXPECT_TRUE(wall.setValue("label", QString("")));
    EXPECT_EQ(wall.record()->label, QString(""));
    EXPECT_FALSE(wall.value("label").toString().isNull());
    EXPECT_TRUE(wall.setValue("label", QString()));
    EXPECT_EQ(wall.record()->label, std::nullopt);
}

TEST(LayerValues, SaysWhatRenderingWrites)
{
    TestHost host;
    const auto wall = LWScreen::init(host);
    wall->setCol(3);
    wall->setPanelHeight(70);
    wall->setLabelFontSize(0);
    const LayerRecordPointer before = wall->record();
    wall->drawInRect();
    QStringList written;
    for (const LayerValue &row : LayerValues::all()) {
        if (row.get(*before) != row.get(*wall->record())) {
            written.append(row.name);
            EXPECT_EQ(row.writer, LayerValue::Writer::Rendering) << row.name;
        }
    }
    EXPECT_EQ(written, QStringList({"screenSizeWidth", "screenSizeHeight", "labelFontSize"}));
}

TEST(LayerValues, WordsStandInSentenceCaseBeforeAControl)
{
    EXPECT_EQ(LayerValues::find("panelWidth")->caption(), "Panel width");
    EXPECT_EQ(LayerValues::find("showPowerl")->caption(), "");
    EXPECT_EQ(LayerValues::find("labelFontSize")->words, QLatin1StringView("panel labels, size"));
    EXPECT_EQ(LayerValues::find("xpoint")->range->lowest, -100'000);
    EXPECT_EQ(LayerValues::find("nothing"), nullptr);
}
