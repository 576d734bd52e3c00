#include "layer/Logging.h"
#include "still/LWStill.h"
#include "tests/base/LogLines.h"
#include "tests/screen/TestHost.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace {
constexpr int lowest = std::numeric_limits<int>::min();
constexpr int highest = std::numeric_limits<int>::max();

/// A still at (100, 50) of 400 x 200, on an output that is twice as large as the canvas plus 8 x 10.
class LWStillMarker : public ::testing::Test
{
protected:
    LWStillMarker()
    {
        host.outputSize = {1928, 1090};
        host.canvasFrame = {960, 540};
        place({100, 50}, {400, 200});
    }

    void place(const QPoint &topLeft, const QSize &size)
    {
        still.setXpoint(topLeft.x());
        still.setYpoint(topLeft.y());
        still.setPanelWidth(size.width());
        still.setPanelHeight(size.height());
    }

    LWStill::PreviewScale scaleFor(const QSize &output, const QSizeF &frame)
    {
        host.outputSize = output;
        host.canvasFrame = frame;
        return still.calculateCoeff();
    }

    LWStill::Marker drawnMarker()
    {
        still.drawInRect();
        return still.marker();
    }

    TestHost host;
    LWStill still{host};
};

/// Turns the diagnostic lines of stills on while it lives.
class DiagnosticLines
{
public:
    DiagnosticLines() { QLoggingCategory::setFilterRules("wallwright.still.debug=true"); }
    ~DiagnosticLines() { QLoggingCategory::setFilterRules({}); }

    const QStringList &lines() const { return m_log.lines(); }

private:
    LogLines m_log;
};
} // namespace

TEST_F(LWStillMarker, AnOutputTwiceTheCanvasIsShownAtHalfItsSize)
{
    const LWStill::PreviewScale scale = still.calculateCoeff();

    EXPECT_EQ(scale.coefficient, 0.5F);
    EXPECT_EQ(scale.freeWidth, 0.0F);
    EXPECT_EQ(scale.freeHeight, 0.0F);
}

TEST_F(LWStillMarker, TheMarkerLiesOverTheStillAndKnowsItsScale)
{
    const LWStill::Marker marker = drawnMarker();

    EXPECT_EQ(marker.rectangle, QRectF(51, 26, 200, 100));
    EXPECT_EQ(marker.scaleFactor, 1.5F);
}

TEST_F(LWStillMarker, TheSmallerScaleCountsAndTheOtherSideGetsMargins)
{
    const auto narrow = scaleFor({1928, 1090}, {960, 600});
    EXPECT_EQ(narrow.coefficient, 0.5F);
    EXPECT_EQ(narrow.freeWidth, 0.0F);
    EXPECT_EQ(narrow.freeHeight, 30.0F);

    const auto low = scaleFor({1928, 1090}, {1000, 270});
    EXPECT_EQ(low.coefficient, 0.25F);
    EXPECT_EQ(low.freeWidth, 260.0F);
    EXPECT_EQ(low.freeHeight, 0.0F);
}

TEST_F(LWStillMarker, TheScaleIsOfSinglePrecision)
{
    const auto scale = scaleFor({1920, 1080}, {640, 360});
    EXPECT_EQ(scale.coefficient, 0.33472803235054016F);
    EXPECT_EQ(scale.freeWidth, 0.0F);
    EXPECT_EQ(scale.freeHeight, 0.920501708984375F);

    place({333, 77}, {1001, 503});
    EXPECT_EQ(drawnMarker().rectangle,
              QRectF(112.46443176269531, 27.694561004638672, 335.0627746582031, 168.36819458007812));
    EXPECT_EQ(drawnMarker().scaleFactor, 1.6652719974517822F);
}

TEST_F(LWStillMarker, TheScaleFactorIsRoundedOnce)
{
    host.outputSize = {1000, 4320};
    host.canvasFrame = {640, 360};

    EXPECT_EQ(drawnMarker().scaleFactor, 1.9164732694625854F);
}

TEST_F(LWStillMarker, TheMarkerFollowsTheSizeThatWasEdited)
{
    still.drawInRect();
    still.setPanelWidth(63);
    still.setPanelHeight(31);

    EXPECT_EQ(drawnMarker().rectangle, QRectF(51, 26, 31.5, 15.5));
    EXPECT_EQ(still.screenSizeWidth(), 63);
    EXPECT_EQ(still.screenSizeHeight(), 31);
}

TEST_F(LWStillMarker, WithoutACanvasTheMarkerHasNoSize)
{
    const auto scale = scaleFor({1928, 1090}, {0, 0});
    EXPECT_EQ(scale.coefficient, 0.0F);
    EXPECT_EQ(scale.freeWidth, 0.0F);
    EXPECT_EQ(scale.freeHeight, 0.0F);

    EXPECT_EQ(drawnMarker().rectangle, QRectF(1, 1, 0, 0));
    EXPECT_EQ(drawnMarker().scaleFactor, 2.0F);
}

TEST_F(LWStillMarker, DrawingLogsTheScaleAndTheMarker)
{
    const DiagnosticLines log;

    still.drawInRect();

    EXPECT_EQ(log.lines(),
              QStringList({"in data=1920.000000 1080.000000 960.000000 540.000000",
                           "drawRectange (400 200) * 0.500000 =  (51.000000,26.000000,200.000000,100.000000)"}));
}

TEST_F(LWStillMarker, NothingIsLoggedUnlessAskedFor)
{
    const LogLines log;

    still.drawInRect();

    EXPECT_EQ(log.lines(), QStringList());
}

TEST_F(LWStillMarker, AnOutputOfTheSizeThatIsTakenOffIsMeasuredByItsOtherSide)
{
    EXPECT_EQ(scaleFor({8, 1090}, {960, 540}).coefficient, 0.5F);
    EXPECT_EQ(scaleFor({8, 1090}, {960, 540}).freeWidth, 480.0F);
    EXPECT_EQ(scaleFor({1928, 10}, {960, 540}).coefficient, 0.5F);
    EXPECT_EQ(scaleFor({1928, 10}, {960, 540}).freeHeight, 270.0F);
}

TEST_F(LWStillMarker, WhereTheHeightsScaleIsNoNumberTheWidthsCounts)
{
    EXPECT_EQ(scaleFor({1928, 10}, {960, 0}).coefficient, 0.5F);
    EXPECT_EQ(scaleFor({8, 1090}, {0, 540}).coefficient, 0.0F);
    EXPECT_EQ(scaleFor({8, 10}, {960, 540}).coefficient, 0.0F);
    EXPECT_EQ(scaleFor({8, 10}, {0, 0}).coefficient, 0.0F);
}

TEST_F(LWStillMarker, AnOutputSmallerThanWhatIsTakenOffTurnsTheScale)
{
    const auto scale = scaleFor({4, 5}, {960, 540});

    EXPECT_EQ(scale.coefficient, -240.0F);
    EXPECT_EQ(scale.freeWidth, 0.0F);
    EXPECT_EQ(scale.freeHeight, -330.0F);
    EXPECT_EQ(drawnMarker().scaleFactor, 242.0F);
}

TEST_F(LWStillMarker, AFrameThatIsNoNumberIsAsGoodAsNone)
{
    constexpr double endless = std::numeric_limits<double>::infinity();
    constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();
    for (const double length : {endless, -endless, noNumber, 1e300, -1e300}) {
        const auto scale = scaleFor({1928, 1090}, {length, length});
        EXPECT_EQ(scale.coefficient, 0.0F) << length;
        EXPECT_EQ(drawnMarker().rectangle, QRectF(1, 1, 0, 0)) << length;
    }
}

TEST_F(LWStillMarker, NoNumbersWhateverMakeAMarkerThatIsNowhere)
{
    const double frames[] = {0, 1, -540, 1e-45, 3e38, -3e38, std::numeric_limits<double>::infinity()};
    for (const int output : {lowest, -1, 0, 8, 9, 10, 11, 1080, highest}) {
        for (const int number : {lowest, -1, 0, highest}) {
            for (const double frame : frames) {
                host.outputSize = {output, output};
                host.canvasFrame = {frame, frame};
                place({number, number}, {number, number});
                const auto [rectangle, scaleFactor] = drawnMarker();
                for (const double value : {rectangle.x(), rectangle.y(), rectangle.width(), rectangle.height(),
                                           static_cast<double>(scaleFactor)})
                    EXPECT_TRUE(std::isfinite(value)) << output << ' ' << number << ' ' << frame;
            }
        }
    }
}
