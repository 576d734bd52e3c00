#pragma once

#include <QTextBrowser>
#include <QTimer>

#include <optional>

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
    /// Lines are never wider than the window, pictures soon after. What is read stays at the top.
    void resizeEvent(QResizeEvent *event) override;

private:
    void follow(const QUrl &link);
    int lineWidth() const;
    void layOut();
    void layOutBlock(QTextCursor &cursor, const QTextBlock &block) const;
    void scrollToHeading(const QString &slug);
    void fitPictures();
    std::optional<int> placeRead() const;
    void readOn(const std::optional<int> &place);

    QTimer m_pictures; ///< until they are fitted to another width
};
