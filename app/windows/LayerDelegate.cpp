#include "app/windows/LayerDelegate.h"

#include "app/LayerList.h"
#include "app/windows/NumberText.h"
#include "app/windows/Theme.h"
#include "still/LWStill.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include <cmath>

namespace {
constexpr int rowHeight = 48;
constexpr int markWidth = 3;
constexpr double hiddenOpacity = 0.35;
/// More rows than any screen shows.
constexpr int mostStamps = 256;
/// A stamp that is made of this many pixels looks as one that is made of all.
constexpr double mostPixelsRead = 2'000'000;

bool isPictureMissing(const Layer &layer)
{
    const auto *still = qobject_cast<const LWStill *>(&layer);
    return still && still->isPictureMissing();
}

void paintGround(QPainter &painter, const QStyleOptionViewItem &option)
{
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    painter.fillRect(option.rect, isSelected ? Theme::raised : Theme::panel);
    if (!isSelected)
        return;
    painter.fillRect(QRect(option.rect.topLeft(), QSize(markWidth, option.rect.height())), Theme::accent);
    if (!option.state.testFlag(QStyle::State_HasFocus))
        return;
    painter.setPen(Theme::accent);
    painter.drawRect(option.rect.adjusted(0, 0, -1, -1));
}

void paintLine(QPainter &painter, const QRect &place, const QFont &font, const QColor &colour, const QString &text)
{
    painter.setFont(font);
    painter.setPen(colour);
    const QString line = QFontMetrics(font).elidedText(text, Qt::ElideRight, place.width());
    painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, line);
}
} // namespace

LayerDelegate::LayerDelegate(const LayerList &list, SecondLine secondLine, QObject *parent)
    : QStyledItemDelegate(parent), m_list(list), m_secondLine(secondLine), m_stamps(mostStamps)
{}

QString LayerDelegate::name(const Layer &layer)
{
    return layer.label().isEmpty() ? QString("Unnamed") : layer.label();
}

QString LayerDelegate::placeAndSize(const Layer &layer)
{
    return QString("x %1  y %2  ·  %3")
        .arg(NumberText::grouped(layer.xpoint()), NumberText::grouped(layer.ypoint()),
             NumberText::size({layer.screenSizeWidth(), layer.screenSizeHeight()}));
}

QString LayerDelegate::panel(const Layer &layer)
{
    return QString("%1 px  ·  %2 W")
        .arg(NumberText::size({layer.panelWidth(), layer.panelHeight()}), NumberText::grouped(layer.powerOnCell()));
}

void LayerDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const LayerPointer layer = m_list.layer(index.row());
    if (!layer)
        return;
    painter->save();
    paintGround(*painter, option);

    const QRect inside = option.rect.adjusted(Theme::edge, 0, -Theme::edge, 0);
    const QRect picture(QPoint(inside.left(), inside.center().y() - pictureSize.height() / 2 + 1), pictureSize);
    paintPicture(*painter, picture, *layer);

    const QRect texts(QPoint(picture.right() + 1 + Theme::gap, picture.top()), inside.bottomRight());
    const int half = pictureSize.height() / 2;
    const QRect nameLine(texts.topLeft(), QSize(texts.width(), half));
    paintLine(*painter, nameLine, option.font, layer->visible() ? Theme::text : Theme::dimText, name(*layer));
    const bool isMissing = isPictureMissing(*layer);
    paintLine(*painter, nameLine.translated(0, half), Theme::smallFont(), isMissing ? Theme::warning : Theme::dimText,
              isMissing ? QString("The picture is missing") : m_secondLine(*layer));
    painter->restore();
}

void LayerDelegate::paintPicture(QPainter &painter, const QRect &place, const Layer &layer) const
{
    painter.fillRect(place, Theme::ground);
    const QImage picture = stamp(layer, painter.device()->devicePixelRatioF());
    if (picture.isNull())
        return;
    const QSizeF size = picture.deviceIndependentSize();
    const QPointF topLeft((place.width() - size.width()) / 2, (place.height() - size.height()) / 2);
    painter.setOpacity(layer.visible() ? 1 : hiddenOpacity);
    painter.drawImage(place.topLeft() + topLeft, picture);
    painter.setOpacity(1);
}

QImage LayerDelegate::stamp(const Layer &layer, qreal devicePixelRatio) const
{
    const QImage picture = layer.thumbnail();
    const QSizeF shown(layer.screenSizeWidth(), layer.screenSizeHeight());
    if (picture.isNull() || shown.isEmpty())
        return {};
    const QSize size =
        shown.scaled(QSizeF(pictureSize) * devicePixelRatio, Qt::KeepAspectRatio).toSize().expandedTo({1, 1});
    const QImage *known = m_stamps.object(picture.cacheKey());
    if (known && known->size() == size)
        return *known;

    const double excess = double(picture.width()) * picture.height() / mostPixelsRead;
    const QImage sample = excess > 1 ? picture.scaled(picture.size() / std::sqrt(excess)) : picture;
    auto *made = new QImage(sample.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    made->setDevicePixelRatio(devicePixelRatio);
    const QImage result = *made;
    m_stamps.insert(picture.cacheKey(), made);
    return result;
}

void LayerDelegate::updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option, const QModelIndex &) const
{
    const QRect inside =
        option.rect.adjusted(Theme::edge + pictureSize.width() + Theme::gap / 2, 0, -Theme::gap / 2, 0);
    const int height = editor->sizeHint().height();
    editor->setGeometry(inside.left(), inside.top() + (inside.height() - height) / 2, inside.width(), height);
}

QSize LayerDelegate::sizeHint(const QStyleOptionViewItem &, const QModelIndex &) const
{
    return {pictureSize.width(), rowHeight};
}

bool LayerDelegate::helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                              const QModelIndex &index)
{
    const LayerPointer layer = m_list.layer(index.row());
    if (event->type() != QEvent::ToolTip || !layer)
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    const QString tip =
        QString("<qt>%1<br>%2%3</qt>")
            .arg(name(*layer).toHtmlEscaped(), m_secondLine(*layer), layer->visible() ? "" : "<br>hidden");
    QToolTip::showText(event->globalPos(), tip, view, option.rect);
    return true;
}
