#include "base/DecimalText.h"

#include "layer/Power.h"

#include <cstdio>
#include <gtest/gtest.h>
#include <limits>

TEST(DecimalText, ATieGoesToTheEvenDigit)
{
    EXPECT_EQ(DecimalText::of(0.125F), "0.12"); // 26 W at 208 V
    EXPECT_EQ(DecimalText::of(0.375F), "0.38");
    EXPECT_EQ(DecimalText::of(-0.125F), "-0.12");
    EXPECT_EQ(DecimalText::of(0.0F), "0.00");
    EXPECT_EQ(DecimalText::of(136.54F), "136.54");
    EXPECT_EQ(DecimalText::of(-std::numeric_limits<float>::max()), "-340282346638528859811704183484516925440.00");
    EXPECT_EQ(DecimalText::of(8.125), "8.12"); // 8,125 W in kW
    EXPECT_EQ(DecimalText::of(8.375), "8.38");
    EXPECT_EQ(DecimalText::of(std::numeric_limits<double>::lowest()).size(), 313);
}

TEST(DecimalText, EveryTotalReadsAsTheCLibraryPrintsIt)
{
    for (const qint64 volts : {110, 208, 624}) {
        for (qint32 watts = 0; watts <= 60'000; ++watts) {
            const float amperes = Power::amperes(watts, volts);
            char expected[32];
            std::snprintf(expected, sizeof expected, "%.2f", static_cast<double>(amperes));
            ASSERT_EQ(DecimalText::of(amperes), expected) << watts << " W at " << volts << " V";
        }
    }
}
