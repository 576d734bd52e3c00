#pragma once

#include <QTextBrowser>

/// Shows the guides that ship with the program, pictures included, in letters and lines that are easy to read.
class GuideView final : public QTextBrowser
{
    Q_OBJECT

public:
    explicit GuideView(QWidget *parent = nullptr);

    /// Shows a guide, "user-guide.md", at the heading that what follows a "#" names: "user-guide.md#presets".
    void showGuide(const QString &address);

protected:
    /// Pictures no wider than the lines.
    QVariant loadResource(int type, const QUrl &name) override;
    void doSetSource(const QUrl &url, QTextDocument::ResourceType type) override;
    /// Lines and pictures are never wider than the window.
    void resizeEvent(QResizeEvent *event) override;

private:
    void follow(const QUrl &link);
    int lineWidth() const;
    void layOut();
    void layOutBlock(QTextCursor &cursor, const QTextBlock &block) const;
    void scrollToHeading(const QString &slug);
};
