#include "tests/soak/Player.h"

#include "base/FileBytes.h"
#include "canvas/LWCanvasImageView.h"
#include "formats/PresetLibrary.h"
#include "formats/ProjectFile.h"
#include "formats/ProjectText.h"
#include "screen/LWScreen.h"
#include "windows/GuideView.h"

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QTest>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <map>

namespace {
constexpr std::size_t mostLayers = 12;
constexpr std::size_t mostProcessors = 6;
constexpr qint64 mostPixels = 3'000'000;
constexpr qint64 mostPanels = 2'000;
constexpr int longestWalk = 30; ///< steps of the history

/// A page of the guide keeps its pictures: the same page whenever memory is compared.
void turnGuideToItsFirstPage()
{
    for (const QWidget *window : QApplication::topLevelWidgets()) {
        if (auto *guide = window->findChild<GuideView *>())
            guide->showGuide("first-wall.md");
    }
}

const QStringList fileNames{"a.Orv", "b.Orv",   "damaged.Orv", "show.json", "plate.png", "sign.svg",
                            "noise", "library", "out.png",     "out",       "gone.Orv",  "."};
} // namespace

std::span<const Player::Act> Player::acts()
{
    static constexpr Act all[] = {
        {"edit property", 120, &Player::editProperty},
        {"type into field", 100, &Player::typeIntoField},
        {"click canvas", 60, &Player::clickCanvas},
        {"drag on canvas", 80, &Player::dragCanvas},
        {"abandon drag", 10, &Player::abandonDrag},
        {"turn wheel", 30, &Player::turnWheel},
        {"drag part", 20, &Player::dragPart},
        {"click button", 60, &Player::clickButton},
        {"click table", 60, &Player::clickTable},
        {"choose in box", 15, &Player::chooseInBox},
        {"press key", 120, &Player::pressKey},
        {"choose in menu", 60, &Player::chooseInMenu},
        {"resize window", 12, &Player::resizeWindow},
        {"wait", 4, &Player::wait},
        {"run events", 40, &Player::runEvents},
        {"edit output", 10, &Player::editOutput},
        {"toggle panel", 30, &Player::togglePanel},
        {"drag rows", 30, &Player::dragRows},
        {"select rows", 60, &Player::selectRows},
        {"add processor", 12, &Player::addProcessor},
        {"change processor", 12, &Player::changeProcessor},
        {"hang on processor", 20, &Player::hangOnProcessor},
        {"add wall", 25, &Player::addWall},
        {"add preset", 15, &Player::addPreset},
        {"undo", 80, &Player::undo},
        {"redo", 50, &Player::redo},
        {"choose supply", 8, &Player::chooseSupply},
        {"open", 8, &Player::open},
        {"save", 8, &Player::save},
        {"drop files", 8, &Player::dropFiles},
        {"work in other program", 12, &Player::workInOtherProgram},
        {"open picture", 8, &Player::openPicture},
    };
    return all;
}

Player::Player(unsigned seed) : m_values(seed), m_names(fileNames), m_bystander(seed + 1, m_names)
{
    QDir::setCurrent(m_folder.path());
    m_window.start();
    fillFolder();
    m_window.makeLateParts();
    m_window.resize(1400, 800);
    m_canvas = m_window.findChild<LWCanvasImageView *>();
    require(QTest::qWaitForWindowExposed(&m_window) && m_canvas, "the window shows its canvas");
}

void Player::require(bool holds, const char *promise)
{
    if (holds)
        return;
    std::fprintf(stderr, "broken: %s\n", promise);
    std::abort();
}

void Player::fillFolder()
{
    QImage plate(61, 43, QImage::Format_ARGB32);
    plate.fill(0x80204080U);
    const Project small{90, 160, {LWScreen::init(document())}};
    const bool isWritten = plate.save(path("plate.png")) && ProjectFile::write(path("a.Orv"), small) &&
                           ProjectText::write(path("show.json"), small) &&
                           PresetLibrary::write(path("library"), small.layers);
    require(isWritten, "the folder can be filled");
    QFile good(path("a.Orv"));
    QFile damaged(path("damaged.Orv"));
    QFile sign(path("sign.svg"));
    QFile noise(path("noise"));
    require(good.open(QIODevice::ReadOnly) && damaged.open(QIODevice::WriteOnly) && sign.open(QIODevice::WriteOnly) &&
                noise.open(QIODevice::WriteOnly),
            "the folder can be filled");
    damaged.write(good.read(good.size() / 2));
    sign.write("<svg xmlns='http://www.w3.org/2000/svg' width='40' height='30'><circle r='9' fill='red'/></svg>");
    noise.write(QByteArray(1000, '\xa5'));
}

const char *Player::choose()
{
    static const std::vector<int> weights = [] {
        std::vector<int> of;
        for (const Act &act : acts())
            of.push_back(act.weight);
        return of;
    }();
    std::discrete_distribution<std::size_t> chance(weights.begin(), weights.end());
    m_act = &acts()[chance(m_values.generator())];
    return m_act->name;
}

void Player::play()
{
    (this->*m_act->run)();
    runEvents();
    requireWhole(layers());
    requireWhole(document().presetarraycontroller());
    if (isLarge()) {
        closeAll();
        document().newProject();
        document().setValue(320, "OutputWidth");
        document().setValue(180, "OutputHeight");
    }
}

bool Player::isLarge()
{
    if (layers().layers().size() > mostLayers || document().wiring().processors().size() > mostProcessors)
        return true;
    if (qint64{document().OutputWidth()} * document().OutputHeight() > mostPixels)
        return true;
    return std::any_of(layers().layers().begin(), layers().layers().end(), [](const LayerPointer &layer) {
        return qint64{layer->col()} * layer->row() > mostPanels ||
               qint64{layer->screenSizeWidth()} * layer->screenSizeHeight() > mostPixels;
    });
}

void Player::requireWhole(const LayerList &list)
{
    const std::vector<qsizetype> &rows = list.selectionIndexes();
    require(rows.empty() == list.layers().empty(), "something is selected where there is something");
    require(std::adjacent_find(rows.begin(), rows.end(), std::greater_equal<>()) == rows.end(),
            "selected rows rise, none twice");
    require(rows.empty() || (rows.front() >= 0 && rows.back() < list.rowCount()), "selected rows are rows");
    require(std::count(list.layers().begin(), list.layers().end(), nullptr) == 0, "each row is a layer");
}

void Player::walkBackAndForth()
{
    QUndoStack &stack = document().undoStack();
    const int top = stack.index();
    std::map<int, QByteArray> passed; // by how many steps are done
    const auto now = [this] {
        const Result<QByteArray> bytes = ProjectFile::encode(document().project());
        return bytes ? *bytes : bytes.error().text.toUtf8(); // a wall may be too large to be written
    };
    passed[top] = now();
    while (stack.index() > qMax(0, top - longestWalk)) {
        stack.undo();
        passed[stack.index()] = now();
    }
    while (stack.index() < top && stack.canRedo()) {
        stack.redo();
        if (const QByteArray then = passed[stack.index()]; now() != then)
            endWithLostStep(then, now());
    }
    require(stack.index() == top, "undo and redo lead back to the same step");
}

/// The step that is done leads elsewhere than it did.
void Player::endWithLostStep(const QByteArray &then, const QByteArray &now)
{
    const QUndoStack &stack = document().undoStack();
    const QString before = path("before.Orv");
    const QString after = path("after.Orv");
    const bool isTold = FileBytes::write(before, then) && FileBytes::write(after, now);
    std::fprintf(stderr, "step %d of %d, %s: %s and %s%s\n", stack.index(), stack.count(),
                 qUtf8Printable(stack.text(stack.index() - 1)), qUtf8Printable(before), qUtf8Printable(after),
                 isTold ? "" : " (not whole)");
    require(false, "undo and redo lead back to the same document");
}

void Player::closeAll()
{
    while (QWidget *popup = QApplication::activePopupWidget())
        popup->close();
    for (QWidget *shown : QApplication::topLevelWidgets()) {
        if (shown->isVisible() && shown != &m_window)
            shown->close();
    }
}

void Player::rest()
{
    closeAll();
    sendMouse(*m_canvas, QEvent::MouseButtonRelease, {}, Qt::LeftButton, Qt::NoButton, {}); // a drag may be held
    if (QWidget *entry = QApplication::focusWidget())
        entry->clearFocus();
    m_window.desk().chart().end();
    m_window.desk().live().setFrozen(false);
    m_window.desk().live().leaveAll();
    document().endTyping();
    document().timerupdate();
    document().update();
    walkBackAndForth();
    for (const FoundCopy &copy : document().recoverable())
        document().discardRecoverable(copy);
    document().newProject();
    document().resetPresets();
    document().undoStack().clear();
    m_window.showNormal();
    m_window.resize(1400, 800);
    turnGuideToItsFirstPage();
    runEvents();
    QGuiApplication::clipboard()->clear();
    fillFolder();
}
