#include <QColor>
#include <QColorSpace>
#include <QColorTransform>
#include <QFile>
#include <QtEndian>

#include <gtest/gtest.h>

namespace {

QByteArray profile(const QString &name)
{
    QFile file(":/colour-profiles/" + name);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(name);
    return file.readAll();
}

quint32 number(const QByteArray &bytes, qsizetype position)
{
    return qFromBigEndian<quint32>(bytes.constData() + position);
}

QColorSpace space(const QString &name)
{
    return QColorSpace::fromIccProfile(profile(name));
}

/// What a gray of a profile is in light, where white is 1.
float light(const QString &name, float gray)
{
    const QColorTransform toLight = space(name).transformationToColorSpace(QColorSpace::SRgbLinear);
    return toLight.map(QColor::fromRgbF(gray, gray, gray)).greenF();
}

/// One of a space's corners, as XYZ seen from the printing trade's white, as profiles hold them.
QList<double> column(const QByteArray &bytes, const QByteArray &tag)
{
    const quint32 count = number(bytes, 128);
    for (quint32 i = 0; i < count; ++i) {
        const qsizetype entry = 132 + qsizetype{12} * i;
        if (bytes.mid(entry, 4) != tag)
            continue;
        QList<double> values;
        for (int k = 0; k < 3; ++k)
            values.append(qint32(number(bytes, number(bytes, entry + 4) + 8 + 4 * k)) / 65536.0);
        return values;
    }
    return {};
}

void expectColumn(const QString &name, const QByteArray &tag, const QList<double> &expected)
{
    const QList<double> values = column(profile(name), tag);
    ASSERT_EQ(values.size(), 3) << qPrintable(name) << ' ' << tag.constData();
    for (int i = 0; i < 3; ++i)
        EXPECT_NEAR(values[i], expected[i], 0.003) << qPrintable(name) << ' ' << tag.constData() << ' ' << i;
}

const QStringList profileNames{"GenericRGB", "sRGB", "AdobeRGB1998"};

} // namespace

TEST(ColourProfile, HeadersSayMonitorProfilesOfRgb)
{
    for (const QString &name : profileNames) {
        const QByteArray bytes = profile(name);
        ASSERT_GT(bytes.size(), 132) << qPrintable(name);

        EXPECT_EQ(number(bytes, 0), bytes.size()) << qPrintable(name);
        EXPECT_EQ(bytes.mid(12, 4), "mntr") << qPrintable(name);
        EXPECT_EQ(bytes.mid(16, 4), "RGB ") << qPrintable(name);
        EXPECT_EQ(bytes.mid(20, 4), "XYZ ") << qPrintable(name);
        EXPECT_EQ(bytes.mid(36, 4), "acsp") << qPrintable(name);
    }
}

TEST(ColourProfile, TagsLieInTheirFile)
{
    for (const QString &name : profileNames) {
        const QByteArray bytes = profile(name);
        ASSERT_GT(bytes.size(), 132) << qPrintable(name);
        const quint32 count = number(bytes, 128);
        const qint64 behindTable = 132 + qint64{12} * count;
        ASSERT_LE(behindTable, bytes.size()) << qPrintable(name);

        QByteArrayList tags;
        for (quint32 i = 0; i < count; ++i) {
            const qsizetype entry = 132 + qsizetype{12} * i;
            tags.append(bytes.mid(entry, 4));
            const qint64 offset = number(bytes, entry + 4);
            EXPECT_GE(offset, behindTable) << qPrintable(name) << ' ' << tags.last().constData();
            EXPECT_EQ(offset % 4, 0) << qPrintable(name) << ' ' << tags.last().constData();
            EXPECT_LE(offset + number(bytes, entry + 8), bytes.size())
                << qPrintable(name) << ' ' << tags.last().constData();
        }
        for (const char *needed : {"rXYZ", "gXYZ", "bXYZ", "rTRC", "gTRC", "bTRC", "wtpt", "desc", "cprt"})
            EXPECT_TRUE(tags.contains(needed)) << qPrintable(name) << ' ' << needed;
    }
}

TEST(ColourProfile, AProfileReaderKnowsThemByTheirNames)
{
    EXPECT_EQ(space("GenericRGB").description(), "Generic RGB");
    EXPECT_EQ(space("sRGB").description(), "sRGB");
    EXPECT_EQ(space("AdobeRGB1998").description(), "Adobe RGB (1998) compatible");
    for (const QString &name : profileNames)
        EXPECT_TRUE(space(name).isValid()) << qPrintable(name);
}

TEST(ColourProfile, TwoOfThemAreKnownSpaces)
{
    EXPECT_EQ(space("sRGB").primaries(), QColorSpace::Primaries::SRgb);
    EXPECT_EQ(space("sRGB").transferFunction(), QColorSpace::TransferFunction::SRgb);
    EXPECT_EQ(space("AdobeRGB1998").primaries(), QColorSpace::Primaries::AdobeRgb);
    EXPECT_EQ(space("AdobeRGB1998").transferFunction(), QColorSpace::TransferFunction::Gamma);
    EXPECT_NEAR(space("AdobeRGB1998").gamma(), 563 / 256.0, 0.004);
    EXPECT_EQ(space("GenericRGB").transferFunction(), QColorSpace::TransferFunction::Gamma);
    EXPECT_NEAR(space("GenericRGB").gamma(), 1.8, 0.004);
}

TEST(ColourProfile, CornersAreThoseOfThePhosphors)
{
    expectColumn("GenericRGB", "rXYZ", {0.4543, 0.2419, 0.0149});
    expectColumn("GenericRGB", "gXYZ", {0.3533, 0.6736, 0.0906});
    expectColumn("GenericRGB", "bXYZ", {0.1566, 0.0845, 0.7195});
    expectColumn("sRGB", "rXYZ", {0.4361, 0.2225, 0.0139});
    expectColumn("sRGB", "gXYZ", {0.3851, 0.7169, 0.0971});
    expectColumn("sRGB", "bXYZ", {0.1431, 0.0606, 0.7141});
    expectColumn("AdobeRGB1998", "rXYZ", {0.6097, 0.3111, 0.0195});
    expectColumn("AdobeRGB1998", "gXYZ", {0.2053, 0.6257, 0.0609});
    expectColumn("AdobeRGB1998", "bXYZ", {0.1492, 0.0632, 0.7446});
}

TEST(ColourProfile, WhiteIsWhiteAndBlackIsBlack)
{
    for (const QString &name : profileNames) {
        const QColorTransform toScreen = space(name).transformationToColorSpace(QColorSpace::SRgb);
        EXPECT_EQ(toScreen.map(qRgb(255, 255, 255)), qRgb(255, 255, 255)) << qPrintable(name);
        EXPECT_EQ(toScreen.map(qRgb(0, 0, 0)), qRgb(0, 0, 0)) << qPrintable(name);
    }
}

TEST(ColourProfile, HalfGrayGivesTheLightOfItsCurve)
{
    EXPECT_NEAR(light("GenericRGB", 0.5), 0.2872, 0.002);   // 0.5 ^ 1.8
    EXPECT_NEAR(light("sRGB", 0.5), 0.2140, 0.002);         // ((0.5 + 0.055) / 1.055) ^ 2.4
    EXPECT_NEAR(light("AdobeRGB1998", 0.5), 0.2177, 0.002); // 0.5 ^ 2.19921875
}
