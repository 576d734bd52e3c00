#pragma once

#include "output/ComposedOutput.h"

#include <QWidget>

#include <memory>

class OutputView;
class QScreen;

namespace Ui {
class OutputPreview;
}

/// The composed output alone: in a window, scaled to fit, or on a whole display, one output pixel to one device pixel
/// from the top left, without chrome or pointer. Escape and F11 bring it back.
class OutputPreview final : public QWidget
{
    Q_OBJECT

public:
    /// `output` is read whenever it is painted, and outlives this.
    explicit OutputPreview(const ComposedOutput &output, QWidget *parent = nullptr);
    ~OutputPreview() override;

    /// The output was composed anew.
    void showOutput();

    /// Fills a display, also from another one. A display that goes away takes the preview back into its window until it
    /// returns.
    void showOn(QScreen &display);
    void showInWindow();
    /// Goes from the display back into the window, if it was in one; waits for no display any more.
    void leaveDisplay();
    /// The one that it fills; null: none.
    QScreen *display() const { return m_display; }
    /// For a display that has gone away while the preview was on it.
    bool isWaiting() const { return !m_awaited.isEmpty(); }
    /// What stands against showing an output pixel for pixel on a display of `display` logical pixels; empty: nothing.
    static QString misfit(const QSize &display, double ratio, bool isWayland, const QSize &output);

signals:
    /// The preview is on a display or has left it, or sizes have changed there; `problem` says where the display's is
    /// not the output's, or is empty.
    void displayDidChange(const QString &problem);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    /// The desktop may close it on the display, too.
    void closeEvent(QCloseEvent *event) override;

private:
    void fillDisplay();
    void tellFit();

    std::unique_ptr<Ui::OutputPreview> m_form;
    const ComposedOutput &m_output;
    QSize m_outputSize;       ///< as it was composed last
    QRect m_windowGeometry;   ///< before it went to the display
    bool m_hasWindow = false; ///< where it goes back to from the display
    bool m_wasInWindow = false;
    QString m_awaited; ///< display that has gone away; empty: none
    QScreen *m_display = nullptr;
    QMetaObject::Connection m_resolution; ///< follows its geometry
};
