#pragma once

#include <QWidget>

class QAbstractButton;

/// A region at one side of the canvas. Where the window leaves little room it folds to an edge that names it; the edge,
/// or toggle(), opens it over the canvas, where it stays until the focus goes elsewhere in the window.
class FoldingSide final : public QWidget
{
    Q_OBJECT

public:
    enum class Side
    {
        Left,
        Right
    };

    /// Of a folded region, in logical pixels.
    static constexpr int edgeWidth = 28;

    /// Not folded, and empty until setContent(). `name` is what the edge says: "Inspector".
    FoldingSide(const QString &name, Side side, QWidget *parent);

    /// Owns `content`, whose least width becomes the region's; once.
    void setContent(QWidget *content);

    void setFolded(bool isFolded);
    bool isFolded() const { return m_isFolded; }
    /// Whether the content is in sight, beside the canvas or over it.
    bool isOpen() const { return m_content->isVisibleTo(window()); }
    /// Brings a folded region over the canvas; nothing where it is in sight.
    void open();
    /// Leads the keyboard into the region, opened where it is folded; or, where it is there already, out of it.
    void toggle();

signals:
    /// The keyboard shall go to the canvas.
    void left();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void moveEvent(QMoveEvent *event) override;

private:
    bool hasFocus(const QWidget *focus) const;
    void follow(const QWidget *focus);
    void close();
    void placeOverCanvas();
    void focusFirstControl();

    Side m_side;
    QWidget *m_content = nullptr;
    QAbstractButton *m_edge;
    int m_leastWidth = 0;
    bool m_isFolded = false;
};
