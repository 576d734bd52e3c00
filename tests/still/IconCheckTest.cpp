#include "still/IconCheck.h"

#include <gtest/gtest.h>

namespace {
QByteArray part(const QByteArray &type, quint32 length, const QByteArray &content)
{
    QByteArray bytes = type;
    for (const int shift : {24, 16, 8, 0})
        bytes += static_cast<char>(length >> shift);
    return bytes + content;
}

QByteArray family(const QByteArray &parts)
{
    return part("icns", static_cast<quint32>(parts.size() + 8), parts);
}
} // namespace

TEST(IconCheck, PartsClaimNoMoreThanThereIs)
{
    const QByteArray picture = part("icp4", 12, "abcd");
    EXPECT_TRUE(IconCheck::isHarmless(family(picture)));
    EXPECT_TRUE(IconCheck::isHarmless(family(part("TOC ", 16, part("icp4", 12, "")) + picture)));
    EXPECT_FALSE(IconCheck::isHarmless(family(part("icp4", 13, "abcd"))));
    EXPECT_FALSE(IconCheck::isHarmless(family(part("icp4", 7, "abcd"))));
    EXPECT_FALSE(IconCheck::isHarmless(family(part("icp4", 0xffffffff, "abcd"))));
}

TEST(IconCheck, NorDoesTheTableOfContents)
{
    EXPECT_FALSE(IconCheck::isHarmless(family(part("TOC ", 16, part("icp4", 0, "")))));
    EXPECT_FALSE(IconCheck::isHarmless(family(part("TOC ", 16, part("icp4", 1000, "")))));
}

TEST(IconCheck, OtherPicturesAreNotLookedAt)
{
    EXPECT_TRUE(IconCheck::isHarmless("\x89PNG"));
    EXPECT_TRUE(IconCheck::isHarmless("icns"));
    EXPECT_TRUE(IconCheck::isHarmless({}));
}
