#pragma once

#include "app/LWAppDelegate.h"

#include <QTest>

#include <gtest/gtest.h>

/// Until every redraw that was put off is made up for: the gate stays open only where nothing waits behind it.
inline void waitForRedraws(const LWAppDelegate &document)
{
    EXPECT_TRUE(QTest::qWaitFor([&document] { return document.shouldUpdate(); }));
}
