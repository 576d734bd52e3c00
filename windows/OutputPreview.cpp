#include "windows/OutputPreview.h"

#include "ui_OutputPreview.h"
#include "windows/OutputView.h"

#include <QScreen>

#include <utility>

namespace {
/// Beside the window, else in the corner that is farthest from its menus.
QPoint besideWindow(const QRect &window, const QSize &size, const QRect &room)
{
    constexpr int frame = 8;
    constexpr int titleBar = 32;
    if (window.right() + frame + size.width() < room.right())
        return {window.right() + frame, window.top()};
    if (window.left() - frame - size.width() > room.left())
        return {window.left() - frame - size.width(), window.top()};
    return room.bottomRight() - QPoint(size.width() + frame, size.height() + titleBar + frame);
}
} // namespace

OutputPreview::OutputPreview(const ShownOutput &shown, QWidget *parent)
    : QWidget(parent, Qt::Window), m_form(std::make_unique<Ui::OutputPreview>())
{
    m_form->setupUi(this);
    m_form->pvwImageWell->setOutput(shown);
}

OutputPreview::~OutputPreview() = default;

void OutputPreview::showInWindow()
{
    if (parentWidget() && !std::exchange(m_wasShown, true)) {
        const QRect room = parentWidget()->screen()->availableGeometry();
        resize(size().boundedTo(room.size() * 2 / 3)); // the menus stay in reach
        move(besideWindow(parentWidget()->frameGeometry(), size(), room));
    }
    show();
    raise();
}
