#pragma once

#include <QWidget>

#include <vector>

class QButtonGroup;
class QHBoxLayout;
class QLabel;
class ZoomField;
struct CanvasReadOut;

/// The line along the window's bottom: supply voltage and phases to choose from, the power line, what was done
/// or could not be, and what of the output is shown.
class PowerBar final : public QWidget
{
    Q_OBJECT

public:
    /// 110 V and 1 phase are chosen at first, as in a new document.
    explicit PowerBar(QWidget *parent = nullptr);

    /// The power line, as it is to be read.
    void showPowerResult(const QString &text);
    /// A sentence about what could not be done, or about what was; it stays until the next one or clearMessage().
    void showFailure(const QString &sentence);
    void showStatus(const QString &sentence);
    void clearMessage() { showStatus({}); }
    /// Takes away what was done; what could not be done stays.
    void clearStatus();
    /// "x 812  y 344  MAIN C7  #ff0000", "1,920 × 1,080 px" and the zoom; `panel`: the wall and panel under the
    /// pointer.
    void showReadOut(const CanvasReadOut &readOut, const QString &panel);

signals:
    /// Someone chose a voltage (110, 208) or a number of phases (1, 3).
    void voltageChosen(int tag);
    void phaseChosen(int tag);
    /// Someone wants the canvas at this zoom, in per cent, or fitted.
    void zoomChosen(double percent);
    void fitChosen();

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    /// One of several that exclude each other.
    struct Choice
    {
        int tag;
        QString title;
        QString tip;
    };
    /// Radio buttons side by side, the first one checked.
    QButtonGroup *addChoices(const std::vector<Choice> &choices);
    void showMessage(const QString &sentence, const QColor &colour, const QString &kind);
    void elideMessage();
    void addZoom();

    QHBoxLayout *m_row;
    QButtonGroup *m_voltages;
    QButtonGroup *m_phases;
    QLabel *m_powerResult;
    QLabel *m_message;
    QLabel *m_pointer;
    QLabel *m_outputSize;
    ZoomField *m_zoom;
    QString m_messageSentence;
    bool m_isFailure = false; ///< what the sentence tells
};
