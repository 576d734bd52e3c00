#include "tests/app/DocumentFixture.h"

#include <QTest>

#include <limits>

namespace {
using AspectLockOfADocument = DocumentFixture;
} // namespace

TEST_F(AspectLockOfADocument, TheLockKeeps16To9)
{
    selected()->setAspectValue({16, 9});
    selected()->setAspectRatio(true);

    document.timerupdate();
    document.setValue(160, "arrangedObjects.panelWidth");
    EXPECT_EQ(selected()->panelHeight(), 90);

    selected()->setPanelWidth(1);
    document.timerupdate();
    document.setValue(90, "arrangedObjects.panelHeight");
    EXPECT_EQ(selected()->panelWidth(), 160);
    EXPECT_EQ(selected()->screenSizeWidth(), 8 * 160);

    document.timerupdate();
    document.setValue(100, "arrangedObjects.panelWidth");
    EXPECT_EQ(selected()->panelHeight(), 56); // 56.25
}

TEST_F(AspectLockOfADocument, AfterAnotherEditTheWidthLeads)
{
    selected()->setAspectValue({16, 9});
    selected()->setAspectRatio(true);
    selected()->setPanelWidth(160);
    selected()->setPanelHeight(1);

    document.timerupdate();
    document.setValue(5, "arrangedObjects.xpoint");

    EXPECT_EQ(selected()->panelHeight(), 90);
}

TEST_F(AspectLockOfADocument, AHeightEditThatTheGateHeldUpStillLeads)
{
    selected()->setAspectValue({16, 9});
    selected()->setAspectRatio(true);
    selected()->setPanelWidth(1);
    ASSERT_FALSE(document.shouldUpdate());

    document.setValue(90, "arrangedObjects.panelHeight");

    ASSERT_TRUE(QTest::qWaitFor([&] { return composed.size() == 2; }));
    EXPECT_EQ(selected()->panelWidth(), 160);
    EXPECT_EQ(selected()->panelHeight(), 90);
}

TEST_F(AspectLockOfADocument, ALockWithoutARatioDoesNothing)
{
    selected()->setAspectRatio(true);
    for (const QSizeF &ratio : {QSizeF(0, 0), QSizeF(5, 0), QSizeF(0, 5)}) {
        selected()->setAspectValue(ratio);
        compose();
        EXPECT_EQ(selected()->panelWidth(), 128);
        EXPECT_EQ(selected()->panelHeight(), 128);
    }
}

TEST_F(AspectLockOfADocument, ALockedSizeBeyond32BitsEndsAtTheirEdge)
{
    selected()->setAspectRatio(true);
    selected()->setAspectValue({1, 1e12});
    compose();
    EXPECT_EQ(selected()->panelHeight(), std::numeric_limits<int>::max());

    selected()->setAspectValue({-1, 1e12});
    compose();
    EXPECT_EQ(selected()->panelHeight(), std::numeric_limits<int>::min());
}
