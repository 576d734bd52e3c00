#include "windows/ports/CableMenu.h"

#include "tests/windows/PortsFixture.h"

#include <QInputDialog>
#include <QMenu>
#include <QSpinBox>
#include <QTimer>

namespace {
/// MAIN is on the ports A1 to A5, of 40 panels each, by hand; SIDE on A6 by itself.
class CableMenuTest : public PortsFixture
{
protected:
    CableMenuTest()
    {
        addProcessor();
        EXPECT_TRUE(document.wiring().takeAsLaidByHand({0}));
    }

    /// The menu of the panel at that pixel of the output.
    void ask(const QPoint &pixel)
    {
        menu.clear();
        CableMenu(document, [this](const Result<void> &done) {
            told.append(done ? QString("done") : done.error().text);
        }).fill(menu, pixel);
    }
    QStringList texts(const QMenu &of)
    {
        QStringList texts;
        for (const QAction *action : of.actions()) {
            if (!action->isSeparator() && action->isVisible())
                texts.append(action->text().remove('&'));
        }
        return texts;
    }
    /// Of the menu for the panel there.
    void choose(const QString &text, const QPoint &pixel = {5, 5})
    {
        ask(pixel);
        trigger(menu, text);
    }
    void trigger(const QMenu &of, const QString &text)
    {
        for (QAction *action : of.actions()) {
            if (action->text().remove('&') == text)
                return action->trigger();
        }
        ADD_FAILURE() << qPrintable(text) << " is not among " << qPrintable(texts(of).join(", "));
    }
    /// Answers the question for a port that comes next.
    void answer(std::optional<int> port)
    {
        QTimer::singleShot(0, &window, [this, port] {
            auto *dialog = window.findChild<QInputDialog *>();
            ASSERT_NE(dialog, nullptr);
            asked = dialog->windowTitle() + ": " + dialog->labelText();
            most = dialog->intMaximum();
            if (!port)
                return dialog->reject();
            dialog->setIntValue(*port);
            dialog->accept();
        });
    }
    /// The cables of a wall: "A1 40".
    QStringList cables(qsizetype row)
    {
        QStringList cables;
        for (const CableRun &run : layer(row)->record()->runs.list())
            cables.append(QString("%1 %2").arg(run.port.text()).arg(run.cells.size()));
        return cables;
    }
    Cell firstCell() { return layer(0)->record()->runs.list().front().cells.front(); }

    QMenu menu{&window};
    QStringList told;
    QString asked;
    int most = 0;
};
} // namespace

TEST_F(CableMenuTest, NothingIsOfferedBesideThePanels)
{
    ask({2900, 5});
    EXPECT_TRUE(menu.isEmpty());
    layer(0)->setVisible(false);
    ask({5, 5});
    EXPECT_TRUE(menu.isEmpty());
}

TEST_F(CableMenuTest, AWallByItselfOffersItsAutomaticCables)
{
    ask({3005, 5});
    EXPECT_EQ(texts(menu), QStringList("Take the automatic cables as mine"));
    trigger(menu, "Take the automatic cables as mine");
    EXPECT_EQ(told, QStringList("done"));
    EXPECT_EQ(cables(1), QStringList("A6 6"));
}

TEST_F(CableMenuTest, ACableByHandOffersWhatCanBeDoneWithIt)
{
    ask({5, 5});
    EXPECT_EQ(texts(menu), (QStringList{"Reverse A1", "Split A1 here", "Join A1 with the next port", "A1 takes port...",
                                        "Renumber from A1...", "Exchange A1 with port...", "Clear A1",
                                        "Feed panels that are not fed", "Back to automatic cables"}));
}

TEST_F(CableMenuTest, ReversingAndClearingAreOneStepEach)
{
    const Cell first = firstCell();
    const int steps = document.undoStack().index();
    choose("Reverse A1");
    EXPECT_NE(firstCell(), first);
    choose("Reverse A1");
    EXPECT_EQ(firstCell(), first);
    choose("Clear A1");
    EXPECT_EQ(cables(0), (QStringList{"A2 40", "A3 40", "A4 40", "A5 40"}));
    EXPECT_EQ(document.undoStack().index(), steps + 3);
    document.undoStack().undo();
    EXPECT_EQ(cables(0).first(), "A1 40");
}

TEST_F(CableMenuTest, SplittingTakesAFreePortAndJoiningSaysWhyItCannotBe)
{
    choose("Split A1 here", {10 * 128 + 5, 5}); // in the middle of the first row
    EXPECT_EQ(told, QStringList("done"));
    ASSERT_EQ(cables(0).size(), 6);
    EXPECT_TRUE(cables(0).contains("A7 30")) << qPrintable(cables(0).join(", "));

    told.clear();
    choose("Join A7 with the next port", {10 * 128 + 5, 5});
    EXPECT_EQ(told, QStringList("No port behind A7 is wired by hand; there is nothing to join."));
}

TEST_F(CableMenuTest, APortIsAskedForWithinThoseOfTheProcessor)
{
    answer(9);
    choose("A1 takes port...");
    EXPECT_EQ(asked, "A1 takes port: Port of processor A");
    EXPECT_EQ(most, 20); // of an MX40 Pro
    EXPECT_TRUE(cables(0).contains("A9 40"));

    answer(std::nullopt);
    choose("A9 takes port...");
    EXPECT_TRUE(cables(0).contains("A9 40"));

    answer(2);
    choose("Exchange A9 with port...");
    EXPECT_EQ(asked, "Exchange A9 with port: Port of processor A");
    ask({5, 5});
    EXPECT_EQ(texts(menu).first(), "Reverse A2");

    answer(11);
    choose("Renumber from A2...");
    ask({5, 5});
    EXPECT_EQ(texts(menu).first(), "Reverse A11");
}

TEST_F(CableMenuTest, ACableMovesToAnotherProcessor)
{
    addProcessor();
    ask({5, 5});
    const auto others = menu.findChildren<QMenu *>();
    ASSERT_EQ(others.size(), 1);
    EXPECT_EQ(others.front()->title().remove('&'), "Move A1 to processor");
    EXPECT_EQ(texts(*others.front()), QStringList("B, MX40 Pro"));
    trigger(*others.front(), "B, MX40 Pro");
    ask({5, 5});
    EXPECT_EQ(texts(menu).first(), "Reverse B1");
}

TEST_F(CableMenuTest, FeedingSaysWhereNoCableBearsMoreAndAutomaticCablesComeBack)
{
    choose("Clear A1");
    choose("Feed panels that are not fed");
    EXPECT_EQ(told.last(), "No cable ends beside such a panel and bears it; lay one through them with the tool Data.");
    choose("Back to automatic cables");
    ask({5, 5});
    EXPECT_EQ(texts(menu), QStringList("Take the automatic cables as mine"));
}
