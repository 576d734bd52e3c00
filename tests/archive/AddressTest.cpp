#include "archive/Address.h"

#include <QDir>

#include <gtest/gtest.h>

TEST(Address, LocalFileAddressIsEscapedAndComesBack)
{
    const QString path = QDir::rootPath() + QString::fromUtf8("show/50% f\u00FCr #1?.png"); // "/" or "C:/"
    const Address address = Address::fromLocalFile(path);

    const QString root = QDir::rootPath().startsWith(u'/') ? "file://" : "file:///";
    EXPECT_EQ(address.relative, root + QDir::rootPath() + "show/50%25%20f%C3%BCr%20%231%3F.png");
    EXPECT_TRUE(address.bases.isEmpty());
    EXPECT_EQ(address.toLocalFile(), path);
}

TEST(Address, EscapesAreUndone)
{
    EXPECT_EQ((Address{"file:///stage%20left/f%C3%BCr.png", {}}.toLocalFile()),
              QString::fromUtf8("/stage left/f\u00FCr.png"));
}

TEST(Address, HostMayBeEmptyOrLocalhost)
{
    EXPECT_EQ((Address{"file://localhost/show/plate.png", {}}.toLocalFile()), "/show/plate.png");
    EXPECT_EQ((Address{"FILE:///show/plate.png", {}}.toLocalFile()), "/show/plate.png");
    EXPECT_EQ((Address{"file:/show/plate.png", {}}.toLocalFile()), "/show/plate.png");
}

TEST(Address, PlainPathIsAFile)
{
    EXPECT_EQ((Address{"/show/plate.png", {}}.toLocalFile()), "/show/plate.png");
    EXPECT_EQ((Address{"/stage%20left/plate.png", {}}.toLocalFile()), "/stage left/plate.png");
}

TEST(Address, RelativePartIsResolvedAgainstItsBases)
{
    EXPECT_EQ((Address{"plates/logo.png", {"file:///show/"}}.toLocalFile()), "/show/plates/logo.png");
    EXPECT_EQ((Address{"logo.png", {"../plates/", "file:///show/day%201/"}}.toLocalFile()), "/show/plates/logo.png");
    EXPECT_EQ((Address{"logo.png", {"/show/"}}.toLocalFile()), "/show/logo.png");
    EXPECT_EQ((Address{"file:///own.png", {"http://example.com/"}}.toLocalFile()), "/own.png");
}

TEST(Address, AnythingElseIsNeverOpened)
{
    for (const char *foreign : {"http://example.com/plate.png", "https://localhost/plate.png",
                                "file://server/plate.png", "//server/plate.png", "data:image/png;base64,AAAA",
                                "qrc:/plate.png", "file:///show/%00plate.png", "smb://server/plate.png", ""})
        EXPECT_EQ((Address{foreign, {}}.toLocalFile()), "") << foreign;
    EXPECT_EQ((Address{"plate.png", {"http://example.com/"}}.toLocalFile()), "");
    EXPECT_EQ(Address().toLocalFile(), "");
}

TEST(Address, WhatIsNeverAskedForIsToldFromWhatIsMissing)
{
    for (const char *foreign : {"http://example.com/plate.png", "file://server/plate.png", "//server/plate.png",
                                "data:image/png;base64,AAAA", "smb://server/plate.png"})
        EXPECT_TRUE((Address{foreign, {}}.isElsewhere())) << foreign;
    EXPECT_TRUE((Address{"plate.png", {"http://example.com/"}}.isElsewhere()));
    for (const char *here :
         {"file:///show/plate.png", "file://localhost/plate.png", "/show/10:30.png", "plate.png", ""})
        EXPECT_FALSE((Address{here, {}}.isElsewhere())) << here;
    EXPECT_FALSE(Address().isElsewhere());
}

TEST(Address, PlainPathMayHoldAnyLetter)
{
    EXPECT_EQ((Address{"/show/wall #1?.png", {}}.toLocalFile()), "/show/wall #1?.png");
    EXPECT_EQ((Address{"/show/10:30.png", {}}.toLocalFile()), "/show/10:30.png");
}

TEST(Address, RelativeToNothingIsNoFile)
{
    EXPECT_EQ((Address{"plates/logo.png", {}}.toLocalFile()), "");
    EXPECT_EQ((Address{"logo.png", {"plates/"}}.toLocalFile()), "");
    EXPECT_EQ((Address{"file:logo.png", {}}.toLocalFile()), "");
}

TEST(Address, WhatIsEmbeddedInTheProgramIsNoFile)
{
    EXPECT_EQ((Address{"file::/windows/wallwright.svg", {}}.toLocalFile()), "");
    EXPECT_EQ((Address{":/windows/wallwright.svg", {}}.toLocalFile()), "");
    EXPECT_EQ((Address{"windows/wallwright.svg", {"file::/"}}.toLocalFile()), "");
}

TEST(Address, OneWithoutLettersIsNotNone)
{
    EXPECT_NE((Address{"", {}}), Address());
    EXPECT_EQ((Address{"", {}}), (Address{QString::fromLatin1(""), {}}));
    EXPECT_NE((Address{"a", {"/"}}), (Address{"a", {}}));
}
