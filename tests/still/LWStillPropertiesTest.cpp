#include "still/LWStill.h"
#include "tests/screen/TestHost.h"

#include <QMetaProperty>
#include <QSet>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {
/// Every property of a still but the picture, which has its own tests.
std::vector<QMetaProperty> properties()
{
    std::vector<QMetaProperty> properties;
    const QMetaObject &meta = LWStill::staticMetaObject;
    for (int i = QObject::staticMetaObject.propertyCount(); i < meta.propertyCount(); ++i) {
        if (qstrcmp(meta.property(i).name(), "thumbnail") != 0)
            properties.push_back(meta.property(i));
    }
    return properties;
}

/// A value that no plain still has there, and no other property of the same type.
QVariant valueFor(const QMetaProperty &property)
{
    const int number = property.propertyIndex();
    if (property.metaType() == QMetaType::fromType<bool>())
        return true;
    if (property.metaType() == QMetaType::fromType<int>())
        return -1000 - number;
    if (property.metaType() == QMetaType::fromType<qint64>())
        return (qint64{1} << 40) + number;
    if (property.metaType() == QMetaType::fromType<double>())
        return 12.5;
    if (property.metaType() == QMetaType::fromType<QString>())
        return QString("text %1").arg(number);
    if (property.metaType() == QMetaType::fromType<QSizeF>())
        return QSizeF(16, 9);
    if (property.metaType() == QMetaType::fromType<OptionalColour>())
        return QVariant::fromValue(OptionalColour(Colour{number / 256.0, 0.5, 0.25, 0.75}));
    if (property.metaType() == QMetaType::fromType<Address>())
        return QVariant::fromValue(Address{"plates/logo.png", {"file:///nowhere/"}});
    return {};
}

void fill(LWStill &still)
{
    for (const QMetaProperty &property : properties())
        EXPECT_TRUE(property.write(&still, valueFor(property))) << property.name();
}

/// Names of the properties in which two stills differ.
QSet<QString> differences(const LWStill &one, const LWStill &other)
{
    QSet<QString> names;
    for (const QMetaProperty &property : properties()) {
        if (property.read(&one) != property.read(&other))
            names.insert(property.name());
    }
    return names;
}

const QSet<QString> captions{"label1",       "label2",       "label3",       "label4",
                             "label5",       "label6",       "label7",       "label8",
                             "label1Hidden", "label2Hidden", "label3Hidden", "label4Hidden",
                             "label5Hidden", "label6Hidden", "label7Hidden", "label8Hidden"};
const QSet<QString> neverTaken{"aspectHidden", "aspectValue", "aspectRatio",      "showPower",
                               "showPowerl",   "powerOnCell", "XYLabelDirection", "showCurrent"};
} // namespace

TEST(LWStillProperties, EveryFieldCanBeSetAndReadByItsName)
{
    const char *names =
        "panelHeight visible XYFontEnable screenFontEnable BoarderEnable CircleEnable bgEnable showPower showPowerl "
        "showCurrent "
        "XYLabelDirection label1Hidden label2Hidden label3Hidden label4Hidden label5Hidden label6Hidden label7Hidden "
        "label8Hidden aspectHidden labelGroupRightHidden drawLabels drawFlowPath aspectRatio panelWidth col row "
        "screenSizeWidth screenSizeHeight xpoint ypoint XYFontSize screenFontSize boarderWidth circleBWidth "
        "powerOnCell boarderColor rectColor rectColor2 ImageURL circleColor xyColor sfColor label label1 label2 label3 "
        "label4 label5 label6 label7 label8 labelColor pattern pixelLimit labelFontSize aspectValue";
    TestHost host;
    LWStill still(host);
    const LWStill plain(host);
    fill(still);

    QSet<QString> fields;
    for (const QString &name : QString(names).split(' '))
        fields.insert(name);
    EXPECT_EQ(differences(still, plain), fields);
    for (const QMetaProperty &property : properties())
        EXPECT_EQ(property.read(&still), valueFor(property)) << property.name();
}

TEST(LWStillProperties, ACopyHasThemAllButAspectAndPower)
{
    TestHost host;
    LWStill still(host);
    fill(still);

    const auto copy = std::dynamic_pointer_cast<LWStill>(still.copyWithZone());

    EXPECT_EQ(differences(*copy, still), neverTaken);
    EXPECT_EQ(differences(*copy, LWStill(host)) & neverTaken, QSet<QString>());
}

TEST(LWStillProperties, AnArchiveLosesWhatACopyLosesTheCaptionsAndThreeMore)
{
    TestHost host;
    LWStill still(host);
    fill(still);
    still.setLabelFontSize(-12.0); // whole, since archives hold whole sizes
    ArchiveObject coder("LWStill");
    still.encodeWithCoder(coder);

    const auto loaded = LWStill::initWithCoder(host, coder);

    ASSERT_TRUE(loaded.has_value());
    const QSet<QString> lost =
        captions | neverTaken | QSet<QString>{"labelGroupRightHidden", "rectColor2", "pixelLimit", "pattern"};
    EXPECT_EQ(differences(**loaded, still), lost);
    EXPECT_EQ(differences(**loaded, LWStill(host)) & lost, QSet<QString>());
}

TEST(LWStillProperties, AnEmptyArchiveGivesThePlainStill)
{
    TestHost host;

    const auto loaded = LWStill::initWithCoder(host, ArchiveObject("LWStill"));

    ASSERT_TRUE(loaded.has_value());
    EXPECT_EQ(differences(**loaded, LWStill(host)), QSet<QString>());
    EXPECT_TRUE((*loaded)->thumbnail().isNull());
}
