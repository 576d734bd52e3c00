#include "windows/GuideView.h"

#include "windows/Theme.h"

#include <QAbstractTextDocumentLayout>
#include <QImage>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextTable>

#include <algorithm>

namespace {
constexpr int columnWidth = 640;
constexpr int margin = 24;
constexpr int lineHeightPercent = 140;
constexpr int textSize = 14;
constexpr int headingSizes[] = {textSize, 24, 18, 15}; ///< by level, 0: text
constexpr int roomAboveHeading = 20;
constexpr int roomInCell = 6;
constexpr int pictureDelay = 150; ///< milliseconds; a drag of the window's edge tells many sizes
constexpr QLatin1StringView folder{"qrc:/docs/"};

/// As links name a heading: "At the wall" is "at-the-wall".
QString slugOf(const QString &heading)
{
    static const QRegularExpression signs("[^a-z0-9 -]");
    return heading.toLower().remove(signs).replace(' ', '-');
}

void layOutTable(QTextTable &table)
{
    QTextTableFormat format = table.format();
    format.setCellPadding(roomInCell);
    format.setCellSpacing(0);
    format.setBorderCollapse(true);
    format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    format.setBorderBrush(Theme::line);
    format.setBorder(1);
    table.setFormat(format);
}
} // namespace

GuideView::GuideView(QWidget *parent) : QTextBrowser(parent)
{
    setAccessibleName("Guide");
    setFrameShape(QFrame::NoFrame);
    setOpenLinks(false);
    QFont letters = font();
    letters.setPixelSize(textSize);
    setFont(letters);
    document()->setDocumentMargin(margin);
    setLineWrapMode(QTextEdit::FixedPixelWidth);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn); // the lines keep their width
    m_pictures.setSingleShot(true);
    m_pictures.setInterval(pictureDelay);
    connect(&m_pictures, &QTimer::timeout, this, &GuideView::fitPictures);
    connect(this, &QTextBrowser::anchorClicked, this, &GuideView::follow);
}

void GuideView::showGuide(const QString &address)
{
    follow(QUrl(address));
}

void GuideView::follow(const QUrl &link)
{
    const QUrl page = QUrl(folder).resolved(link);
    setSource(page, QTextDocument::MarkdownResource);
}

void GuideView::doSetSource(const QUrl &url, QTextDocument::ResourceType)
{
    const bool isHere = !url.path().endsWith('/') && source().matches(url, QUrl::RemoveFragment);
    // Of headings Qt knows nothing: it would look for an anchor of this name.
    if (!isHere || url.fragment().isEmpty())
        QTextBrowser::doSetSource(url.adjusted(QUrl::RemoveFragment), QTextDocument::MarkdownResource);
    layOut();
    if (!url.fragment().isEmpty())
        scrollToHeading(url.fragment());
}

int GuideView::lineWidth() const
{
    return std::clamp(viewport()->width() - 2 * margin, 1, columnWidth);
}

void GuideView::resizeEvent(QResizeEvent *event)
{
    const std::optional<int> read = placeRead(); // before anything is laid out anew
    QTextBrowser::resizeEvent(event);
    const int wrapped = lineWidth() + 2 * margin;
    const bool isSameWidth = lineWrapColumnOrWidth() == wrapped;
    if (!isSameWidth)
        setLineWrapColumnOrWidth(wrapped);
    if (!isSameWidth || !read)
        readOn(read);
    if (isSameWidth)
        return;
    if (isVisible())
        m_pictures.start();
    else
        fitPictures();
}

void GuideView::fitPictures()
{
    const std::optional<int> read = placeRead();
    reload();
    readOn(read);
}

/// The place in the text that is at the top of the view; none: the end is in sight.
std::optional<int> GuideView::placeRead() const
{
    const int scrolled = verticalScrollBar()->value();
    if (scrolled > 0 && scrolled == verticalScrollBar()->maximum())
        return std::nullopt;
    return scrolled == 0 ? 0 : cursorForPosition({margin, 0}).position();
}

void GuideView::readOn(const std::optional<int> &place)
{
    QScrollBar &bar = *verticalScrollBar();
    document()->size(); // all of it is laid out
    if (!place || *place == 0)
        return bar.setValue(place ? 0 : bar.maximum());
    QTextCursor cursor(document());
    cursor.setPosition(*place);
    bar.setValue(bar.value() + cursorRect(cursor).top());
}

void GuideView::layOut()
{
    QTextCursor cursor(document());
    cursor.beginEditBlock();
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next())
        layOutBlock(cursor, block);
    cursor.endEditBlock();
    for (QTextFrame *frame : document()->rootFrame()->childFrames()) {
        if (auto *table = qobject_cast<QTextTable *>(frame))
            layOutTable(*table);
    }
}

void GuideView::layOutBlock(QTextCursor &cursor, const QTextBlock &block) const
{
    QTextBlockFormat format = block.blockFormat();
    const int level = std::min(format.headingLevel(), 3);
    if (!block.text().contains(QChar::ObjectReplacementCharacter)) // a picture's line is high enough
        format.setLineHeight(lineHeightPercent, QTextBlockFormat::ProportionalHeight);
    if (level > 1)
        format.setTopMargin(roomAboveHeading);
    cursor.setPosition(block.position());
    cursor.setBlockFormat(format);
    if (level == 0)
        return;
    cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    QTextCharFormat letters;
    QFont font = this->font();
    font.setPixelSize(headingSizes[level]);
    font.setWeight(QFont::DemiBold);
    letters.setFont(font);
    cursor.mergeCharFormat(letters);
}

void GuideView::scrollToHeading(const QString &slug)
{
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        if (block.blockFormat().headingLevel() == 0 || slugOf(block.text()) != slug)
            continue;
        const QRectF place = document()->documentLayout()->blockBoundingRect(block);
        return verticalScrollBar()->setValue(static_cast<int>(place.top()));
    }
}

QVariant GuideView::loadResource(int type, const QUrl &name)
{
    QVariant resource = QTextBrowser::loadResource(type, name);
    if (type != QTextDocument::ImageResource)
        return resource;
    QImage picture = QImage::fromData(resource.toByteArray());
    const qreal ratio = devicePixelRatioF();
    const int widest = qRound(lineWidth() * ratio);
    if (picture.width() > widest)
        picture = picture.scaledToWidth(widest, Qt::SmoothTransformation);
    picture.setDevicePixelRatio(ratio);
    return picture;
}
