#pragma once

#include "live/WallRegion.h"

#include <QRegion>
#include <QStringList>
#include <QWidget>

#include <functional>

class QScreen;

/// A display that shows a part of the output, one output pixel to one device pixel, without chrome or pointer. Nothing
/// is ever told on it but what identifies it. Main thread only.
class WallWindow final : public QWidget
{
    Q_OBJECT

public:
    /// What stands in a part of the plane of the output; see WallPicture::draw().
    using Draw = std::function<QImage(const QRect &part)>;

    explicit WallWindow(Draw draw, QWidget *parent = nullptr);

    /// Fills a display, also from another one.
    void fill(QScreen &display);
    void setRegion(const WallRegion &region);
    /// Pixels of the output look otherwise now.
    void renew(const QRegion &output);
    /// What tells which display this is; empty: nothing does.
    void setCard(const QStringList &lines);

signals:
    /// The desktop has put it on another display.
    void displayDidChange();
    /// The desktop has closed it.
    void closed();
    /// A key was pressed here; whoever takes it accepts it.
    void pressed(QKeyEvent *event);

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    QSize devicePixels() const { return (QSizeF(size()) * devicePixelRatioF()).toSize(); }
    /// From pixels of the output's part to those of this, and back.
    QTransform turning() const;
    void followDisplay();
    void paintCard(QPainter &painter);

    Draw m_draw;
    QScreen *m_display = nullptr;
    QMetaObject::Connection m_geometry; ///< follows the display's
    WallRegion m_region;
    QStringList m_card;
};
