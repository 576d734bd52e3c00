#include "windows/LayerDelegate.h"

#include "base/NumberText.h"
#include "drawing/TextLine.h"
#include "show/LayerList.h"
#include "still/LWStill.h"
#include "windows/Icons.h"
#include "windows/LayerStamps.h"
#include "windows/Theme.h"

#include <QAbstractItemView>
#include <QFileInfo>
#include <QHelpEvent>
#include <QLineEdit>
#include <QPainter>
#include <QRegularExpression>
#include <QToolTip>

#include <utility>

namespace {
constexpr int rowHeight = 48;
constexpr int iconSize = 16;
constexpr int markWidth = 3;
constexpr double hiddenOpacity = 0.35;

/// Inside the place at every scale; a pen would be cut off at its edge.
void paintFrame(QPainter &painter, const QRect &place, const QColor &colour)
{
    const QRect inside = place.adjusted(1, 1, -1, -1);
    for (const QRect &side : QRegion(place).subtracted(inside))
        painter.fillRect(side, colour);
}

/// A tip wraps its lines only where a word ends, or where it is allowed to.
QString breakable(QString text)
{
    static const QRegularExpression longWord("(\\S{20})(?=\\S)");
    return text.replace(longWord, "\\1\u200b");
}

void paintGround(QPainter &painter, const QStyleOptionViewItem &option)
{
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    painter.fillRect(option.rect, isSelected ? Theme::raised : Theme::panel);
    if (!isSelected)
        return;
    painter.fillRect(QRect(option.rect.topLeft(), QSize(markWidth, option.rect.height())), Theme::accent);
    if (option.state.testFlag(QStyle::State_HasFocus))
        paintFrame(painter, option.rect, Theme::accent);
}

void paintLine(QPainter &painter, const QRect &place, const QFont &font, const QColor &colour, const QString &text)
{
    painter.setFont(font);
    painter.setPen(colour);
    const QString line = QFontMetrics(font).elidedText(text, Qt::ElideRight, place.width());
    painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, line);
}
} // namespace

LayerDelegate::LayerDelegate(const LayerList &list, Kind kind, LayerStamps &stamps, Warnings warnings, QObject *parent)
    : QStyledItemDelegate(parent), m_list(list), m_kind(kind), m_stamps(stamps), m_warnings(std::move(warnings))
{}

QString LayerDelegate::name(const Layer &layer)
{
    if (!layer.label().isEmpty())
        return TextLine::shown(layer.label());
    const auto *still = qobject_cast<const LWStill *>(&layer);
    if (const auto chart = still ? still->chart() : std::nullopt; chart && *chart)
        return (*chart)->chart->title;
    const QString file = still ? QFileInfo(still->ImageURL().toLocalFile()).fileName() : QString();
    return file.isEmpty() ? QString("Unnamed") : TextLine::shown(file);
}

QString LayerDelegate::placeAndSize(const Layer &layer)
{
    return QString("x %1 y %2 · %3")
        .arg(NumberText::grouped(layer.xpoint()), NumberText::grouped(layer.ypoint()),
             NumberText::size({layer.screenSizeWidth(), layer.screenSizeHeight()}));
}

QString LayerDelegate::panel(const Layer &layer)
{
    return QString("%1 px  ·  %2 W")
        .arg(NumberText::size({layer.panelWidth(), layer.panelHeight()}), NumberText::grouped(layer.powerOnCell()));
}

QString LayerDelegate::secondLine(const Layer &layer) const
{
    return m_kind == Kind::Layers ? placeAndSize(layer) : panel(layer);
}

QStringList LayerDelegate::warnings(const Layer &layer) const
{
    return m_warnings ? m_warnings(layer) : QStringList();
}

QStringList LayerDelegate::lines(const Layer &layer) const
{
    QStringList all{secondLine(layer)};
    if (!layer.visible())
        all.append("Hidden");
    return all + warnings(layer);
}

QRect LayerDelegate::eyePlace(const QRect &row) const
{
    return m_kind == Kind::Layers ? QRect(row.topLeft(), QSize(Theme::edge + iconSize + Theme::gap / 2, row.height()))
                                  : QRect();
}

QRect LayerDelegate::picturePlace(const QRect &row) const
{
    const int left = m_kind == Kind::Layers ? eyePlace(row).width() : Theme::edge;
    return {row.topLeft() + QPoint(left, (row.height() - pictureSize.height()) / 2), pictureSize};
}

QRect LayerDelegate::namePlace(const QRect &row) const
{
    const QRect picture = picturePlace(row);
    return {QPoint(picture.right() + 1 + Theme::gap, picture.top()),
            QPoint(row.right() - Theme::edge, picture.center().y())};
}

QRect LayerDelegate::warningPlace(const QRect &row) const
{
    return {QPoint(row.right() + 1 - Theme::edge - iconSize, picturePlace(row).top()), QSize(iconSize, iconSize)};
}

void LayerDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const LayerPointer layer = m_list.layer(index.row());
    if (!layer)
        return;
    painter->save();
    paintGround(*painter, option);
    const QImage stamp = m_stamps.of(index, layer, painter->device()->devicePixelRatioF());
    paintPicture(*painter, picturePlace(option.rect), stamp, layer->visible() ? 1 : hiddenOpacity);

    QRect nameLine = namePlace(option.rect);
    QRect below = nameLine.translated(0, nameLine.height());
    below.setRight(option.rect.right() - Theme::gap / 2); // numbers need the room
    const bool hasWarning = !warnings(*layer).isEmpty();
    if (hasWarning)
        nameLine.setRight(warningPlace(option.rect).left() - Theme::gap / 2);
    const bool isDim = !layer->visible() || layer->label().isEmpty();
    paintLine(*painter, nameLine, option.font, isDim ? Theme::dimText : Theme::text, name(*layer));
    const auto *view = qobject_cast<const QAbstractItemView *>(option.widget);
    if (!view || !view->indexWidget(index)) // the field to rename it in covers half of the line
        paintLine(*painter, below, Theme::smallFont(), Theme::dimText, secondLine(*layer));
    if (m_hasIcons)
        paintIcons(*painter, option.rect, *layer, hasWarning);
    painter->restore();
}

void LayerDelegate::paintIcons(QPainter &painter, const QRect &row, const Layer &layer, bool hasWarning) const
{
    const qreal ratio = painter.device()->devicePixelRatioF();
    if (m_kind == Kind::Layers) {
        const QPoint topLeft = row.topLeft() + QPoint(Theme::edge, (row.height() - iconSize) / 2);
        const QPixmap eye = layer.visible() ? Icons::pixmap("eye", iconSize, Theme::text, ratio)
                                            : Icons::pixmap("eye-slash", iconSize, Theme::dimText, ratio);
        painter.drawPixmap(topLeft, eye);
    }
    if (hasWarning) {
        painter.drawPixmap(warningPlace(row).topLeft(),
                           Icons::pixmap("exclamation-triangle-fill", iconSize, Theme::warning, ratio));
    }
}

void LayerDelegate::paintPicture(QPainter &painter, const QRect &place, const QImage &stamp, double opacity) const
{
    painter.fillRect(place, Theme::ground);
    if (stamp.isNull())
        return paintFrame(painter, place, Theme::line);
    const QSizeF size = stamp.deviceIndependentSize();
    const QPointF topLeft((place.width() - size.width()) / 2, (place.height() - size.height()) / 2);
    painter.setOpacity(opacity);
    painter.drawImage(place.topLeft() + topLeft, stamp);
    painter.setOpacity(1);
}

void LayerDelegate::updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option, const QModelIndex &) const
{
    const int margin = Theme::gap / 2;
    const int left = namePlace(option.rect).left() - margin;
    const int height = editor->sizeHint().height();
    editor->setGeometry(left, option.rect.top() + (option.rect.height() - height) / 2,
                        option.rect.right() + 1 - margin - left, height);
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
    QStringList tip = lines(*layer).mid(1);
    const bool isCut = option.fontMetrics.horizontalAdvance(name(*layer)) > namePlace(option.rect).width();
    if (isCut || !tip.isEmpty())
        tip.prepend(name(*layer));
    const QString text = breakable(tip.join('\n')).toHtmlEscaped().replace('\n', "<br>");
    QToolTip::showText(event->globalPos(), text.isEmpty() ? QString() : "<qt>" + text + "</qt>", view, option.rect);
    return true;
}

bool LayerDelegate::editorEvent(QEvent *, QAbstractItemModel *, const QStyleOptionViewItem &, const QModelIndex &)
{
    return false;
}

void LayerDelegate::setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const
{
    const auto *field = qobject_cast<QLineEdit *>(editor);
    // A name that is longer than a field holds stays whole where nobody has typed.
    if (!field || field->text() != index.data(Qt::EditRole).toString().left(field->maxLength()))
        QStyledItemDelegate::setModelData(editor, model, index);
}
