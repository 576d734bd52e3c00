#pragma once

#include "screen/LWScreen.h"
#include "tests/screen/TestHost.h"

#include <gtest/gtest.h>
#include <limits>

/// Walls of any numbers, of which nothing is drawn.
class WallFixture : public ::testing::Test
{
protected:
    static constexpr int most = std::numeric_limits<int>::max();

    struct Sizes
    {
        int columns;
        int rows;
        int panelWidth;
        int panelHeight;
    };
    std::shared_ptr<LWScreen> wall(const Sizes &sizes)
    {
        std::shared_ptr<LWScreen> made = LWScreen::init(host);
        made->setCol(sizes.columns);
        made->setRow(sizes.rows);
        made->setPanelWidth(sizes.panelWidth);
        made->setPanelHeight(sizes.panelHeight);
        return made;
    }

    TestHost host;
};
