#include "tests/output/ChancePictures.h"

#include <gtest/gtest.h>
#include <iterator>
#include <limits>

namespace {
constexpr QSize size(200, 100);

std::vector<ComposedPicture> composed(const std::vector<PlacedPicture> &pictures)
{
    std::vector<ComposedPicture> composed;
    std::ranges::transform(pictures, std::back_inserter(composed), ComposedPicture::of);
    return composed;
}

/// Edits of a show by chance: what a person does to layers, several at a time.
class ChanceEdits
{
public:
    explicit ChanceEdits(int pictures) : m_pictures(m_chance.pictures(size, pictures))
    {
        m_style = style(size, colour(), colour());
    }

    void edit()
    {
        for (int edits = m_chance.number(1, 3); edits > 0; --edits)
            editOne();
    }
    const std::vector<PlacedPicture> &pictures() const { return m_pictures; }
    const OutputStyle &outputStyle() const { return m_style; }

private:
    Colour colour()
    {
        const int alpha = m_chance.number(0, 3) == 0 ? m_chance.number(0, 254) : 255;
        return Colour::fromRgba8(m_chance.colour(alpha).rgba());
    }

    void editOne()
    {
        const int kind = m_chance.number(0, 9);
        if (kind == 0 || m_pictures.empty())
            m_pictures.insert(m_pictures.begin() + m_chance.number(0, int(m_pictures.size())), m_chance.picture(size));
        else if (kind == 1)
            m_pictures.erase(m_pictures.begin() + (&any() - m_pictures.data()));
        else if (kind == 2)
            std::swap(any(), any());
        else if (kind == 3)
            any() = m_chance.picture(size);
        else if (kind == 4)
            any().size += QSize(m_chance.number(-9, 9), m_chance.number(-9, 9));
        else if (kind <= 6)
            any().topLeft += QPoint(m_chance.number(-30, 30), m_chance.number(-30, 30));
        else
            drawInto(any());
    }

    PlacedPicture &any() { return m_pictures[m_chance.number(0, int(m_pictures.size()) - 1)]; }

    void drawInto(PlacedPicture &placed)
    {
        const qint64 before = placed.picture.cacheKey();
        const QRect part =
            QRect(m_chance.number(0, 100), m_chance.number(0, 60), m_chance.number(1, 40), 9) & placed.picture.rect();
        QPainter painter(&placed.picture);
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.fillRect(part, m_chance.colour(m_chance.number(0, 2) * 127));
        painter.end();
        placed.changes.add(before, part);
    }

    Chance m_chance;
    std::vector<PlacedPicture> m_pictures;
    OutputStyle m_style;
};

QRegion changed(const std::vector<ComposedPicture> &before, const std::vector<PlacedPicture> &now)
{
    return changeBetween(PictureRows::differing(before, now), size);
}

class CompositionChangeRuns : public testing::TestWithParam<int>
{};
} // namespace

TEST(CompositionChange, NothingWhereAllIsAsItWas)
{
    const std::vector<PlacedPicture> pictures{placed(filled({9, 9}, Qt::red), 5, 5)};
    EXPECT_TRUE(changed(composed(pictures), pictures).isEmpty());
}

TEST(CompositionChange, AMoveIsTheOldAndTheNewPlace)
{
    std::vector<PlacedPicture> pictures{placed(filled({10, 10}, Qt::red), 5, 5),
                                        placed(filled({10, 10}, Qt::red), 100, 50)};
    const auto before = composed(pictures);
    pictures[1].topLeft = {120, 95};
    EXPECT_EQ(changed(before, pictures), QRegion(100, 50, 10, 10) + QRect(120, 95, 10, 5));
}

TEST(CompositionChange, AnAddedAndARemovedPictureAreTheirPlaces)
{
    const std::vector<PlacedPicture> two{placed(filled({10, 10}, Qt::red), 5, 5),
                                         placed(filled({10, 10}, Qt::red), 100, 50)};
    const std::vector<PlacedPicture> one{two[1]};
    EXPECT_EQ(changed(composed(one), two), QRegion(5, 5, 10, 10));
    EXPECT_EQ(changed(composed(two), one), QRegion(5, 5, 10, 10));
    EXPECT_EQ(changed(composed(two), {}), QRegion(5, 5, 10, 10) + QRect(100, 50, 10, 10));
}

TEST(CompositionChange, APictureDrawnIntoIsWhereItWasDrawnInto)
{
    std::vector<PlacedPicture> pictures{placed(filled({50, 50}, Qt::red), -10, 20)};
    const auto before = composed(pictures);
    pictures[0].picture.setPixelColor(0, 0, Qt::blue);
    pictures[0].changes.add(before[0].cacheKey, QRect(5, 5, 10, 10));
    EXPECT_EQ(changed(before, pictures), QRegion(0, 25, 5, 10)); // on the output, what shows of it
    pictures[0].size = {51, 50};
    EXPECT_EQ(changed(before, pictures), QRegion(0, 20, 41, 50));
}

TEST(CompositionChange, PlacesBeyondTheOutputAreNothing)
{
    constexpr int far = std::numeric_limits<int>::max();
    std::vector<PlacedPicture> pictures{placed(filled({50, 50}, Qt::red), far, far)};
    const auto before = composed(pictures);
    pictures[0].topLeft = {-far, -far};
    EXPECT_TRUE(changed(before, pictures).isEmpty());
    pictures[0].size = {far, far};
    EXPECT_TRUE(changed(before, pictures).isEmpty());
}

TEST(CompositionChange, ManyPlacesAreOneAroundThem)
{
    std::vector<PlacedPicture> pictures;
    for (int i = 0; i < 40; ++i)
        pictures.push_back(placed(filled({1, 1}, Qt::red), 4 * i, i));
    EXPECT_EQ(changed({}, pictures), QRegion(0, 0, 157, 40));
}

TEST(CompositionChange, OneThatIsHeldIsKnownToNobody)
{
    Composition composition;
    std::vector<PlacedPicture> pictures{placed(filled({50, 50}, Qt::red), 0, 0)};
    composition.compose(pictures, {size});
    const qint64 first = composition.output().cacheKey();
    EXPECT_FALSE(composition.composed().changes.since(first));
    pictures[0].topLeft = {1, 0};
    composition.compose(pictures, {size});
    EXPECT_EQ(composition.composed().changes.since(first), QRegion(0, 0, 51, 50));
    const QImage held = composition.output();
    composition.compose({}, {size});
    EXPECT_FALSE(composition.composed().changes.since(held.cacheKey()));
}

TEST_P(CompositionChangeRuns, AMendedOutputIsTheWholeOne)
{
    ChanceEdits show(GetParam());
    Composition mended;
    mended.compose(show.pictures(), show.outputStyle());
    for (int round = 0; round < 500; ++round) {
        show.edit();
        mended.compose(show.pictures(), show.outputStyle());
        ASSERT_EQ(difference(mended.output(), Composition().compose(show.pictures(), show.outputStyle())), 0)
            << "round " << round;
    }
}

INSTANTIATE_TEST_SUITE_P(Pictures, CompositionChangeRuns, testing::Values(1, 2, 3, 5, 8, 12, 20, 30, 45, 60));
