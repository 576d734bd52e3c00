#include "output/CanvasPicture.h"

#include "output/CanvasFrame.h"
#include "tests/output/ChancePictures.h"

#include <gtest/gtest.h>

namespace {
constexpr QSize room(640, 400);

/// An output that is drawn into, and the canvas' picture of it.
class CanvasPictureTest : public testing::TestWithParam<double>
{
protected:
    CanvasPictureTest()
    {
        frame.setRoom(room, 12);
        frame.setOutput(output.picture.size());
        if (GetParam() == 0)
            frame.fit();
        else
            frame.setZoom(GetParam(), {320, 200});
        output.picture.fill(Qt::darkGreen);
    }

    QImage painted(CanvasPicture &of) const
    {
        QImage painted(room, Raster::format);
        painted.fill(Qt::gray);
        QPainter painter(&painted);
        of.paintFramed(painter, output, frame.place(), painted.rect(), Qt::white, Qt::black);
        return painted;
    }
    QImage paintedAnew() const
    {
        CanvasPicture anew;
        return painted(anew);
    }
    void drawInto()
    {
        const qint64 before = output.picture.cacheKey();
        QRegion where;
        for (int parts = chance.number(1, 3); parts > 0; --parts)
            where += QRect(chance.number(0, 1500), chance.number(0, 900), chance.number(1, 200), chance.number(1, 9)) &
                     output.picture.rect();
        QPainter painter(&output.picture);
        for (const QRect &part : where)
            painter.fillRect(part, chance.colour(255));
        painter.end();
        output.changes.add(before, where);
    }

    Chance chance;
    ComposedOutput output{QImage(1537, 911, Raster::format)};
    CanvasFrame frame;
    CanvasPicture picture;
};
} // namespace

TEST_P(CanvasPictureTest, MendedItIsAsMadeAnew)
{
    painted(picture);
    for (int round = 0; round < 50; ++round) {
        for (int edits = chance.number(0, 2); edits > 0; --edits)
            drawInto();
        if (chance.number(0, 5) == 0)
            frame.pan({chance.number(-90, 90), chance.number(-60, 60)});
        ASSERT_EQ(difference(painted(picture), paintedAnew()), 0) << "round " << round;
    }
}

TEST_P(CanvasPictureTest, AChangeThatNobodyTellsIsShownToo)
{
    painted(picture);
    output.picture.fill(Qt::red);
    EXPECT_EQ(painted(picture), paintedAnew());
}

INSTANTIATE_TEST_SUITE_P(Zooms, CanvasPictureTest,
                         testing::Values(0, 0.0625, 0.13, 0.25, 0.333, 0.5, 0.7, 0.9, 1, 2, 3, 8));
