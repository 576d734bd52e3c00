// Files as Windows names them.

#include "archive/Address.h"

#include <gtest/gtest.h>

TEST(AddressWindows, DrivesAreKnown)
{
    EXPECT_EQ((Address{"file:///C:/show/b%C3%BChne.png", {}}.toLocalFile()),
              QString::fromUtf8("C:/show/b\u00FChne.png"));
    EXPECT_EQ((Address{"plate.png", {"file:///C:/show/"}}.toLocalFile()), "C:/show/plate.png");
    EXPECT_EQ((Address{"C:/show/plate.png", {}}.toLocalFile()), "C:/show/plate.png");
    EXPECT_EQ((Address{"/C:/show/plate.png", {}}.toLocalFile()), "C:/show/plate.png");
}

// To open a file of another machine tells that machine who asks.
TEST(AddressWindows, AnotherMachineIsNotAsked)
{
    for (const char *text :
         {"file://server/share/plate.png", "file:////server/share/plate.png", "//server/share/plate.png",
          "/\\server\\share\\plate.png", "file:///\\server\\share\\plate.png", "file:///%5Cserver%5Cshare%5Cplate.png",
          "/%5Cserver/share/plate.png"})
        EXPECT_EQ((Address{text, {}}.toLocalFile()), "") << text;
    EXPECT_TRUE(Address::fromLocalFile("//server/share/plate.png").isElsewhere());
    EXPECT_TRUE((Address{"file:////server/share/plate.png", {}}.isElsewhere()));
    EXPECT_TRUE((Address{"/\\server\\share\\plate.png", {}}.isElsewhere()));
    EXPECT_FALSE(Address::fromLocalFile("C:/show/plate.png").isElsewhere());
}
