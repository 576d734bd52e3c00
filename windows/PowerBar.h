#pragma once

#include <QWidget>

#include <optional>
#include <vector>

class ElidedLabel;
class NumberField;
class QButtonGroup;
class QGridLayout;
class QHBoxLayout;
class QLabel;
class ZoomField;
struct CanvasReadOut;

/// What stands along the window's bottom: supply voltage and phases to choose from, the power line, what was done or
/// could not be, and what of the output is shown. One line, where the window has no room for it two.
class PowerBar final : public QWidget
{
    Q_OBJECT

public:
    /// Names of the labels in it.
    static constexpr char supplyName[] = "supply";
    static constexpr char messageName[] = "message";

    /// 110 V and 1 phase are chosen at first, as in a new document.
    explicit PowerBar(QWidget *parent = nullptr);

    /// The power line, as it is to be read.
    void showPowerResult(const QString &text);
    /// What it was worked out for, and what stands beside it: "136.54 A at 208 V, 3 phases, 85.20 kW".
    void showSupply(qint64 volts, qint64 phases, const QString &inWords);
    /// A sentence about what could not be done, or about what was; it stays until the next one or clearMessage().
    void showFailure(const QString &sentence);
    void showStatus(const QString &sentence);
    /// The failure that a part of the window has to tell now; empty: it has none any more, and only its own goes. What
    /// another part still has to tell takes its place.
    void showFault(const QObject *part, const QString &sentence);
    void clearMessage() { showStatus({}); }
    /// Takes away what was done; what could not be done stays.
    void clearStatus();
    /// "x 812  y 344  MAIN C7  #ff0000", "1,920 × 1,080 px" and the zoom; `panel`: the wall and panel under the
    /// pointer.
    void showReadOut(const CanvasReadOut &readOut, const QString &panel);

    /// Of the two lines.
    QSize minimumSizeHint() const override;

signals:
    /// Someone chose a voltage (110, 208, that of the field) or a number of phases (1, 3).
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
    struct Fault
    {
        const QObject *part;
        QString sentence;
    };
    void addSupply();
    void addVolts(QHBoxLayout &row);
    /// Radio buttons side by side, the first one checked.
    QButtonGroup *addChoices(QHBoxLayout &row, const std::vector<Choice> &choices);
    void addTold();
    void addZoom();
    void chooseOther(int volts);
    void showMessage(const QString &sentence, const QColor &colour, const QString &kind);
    void fit();
    void fitTold();

    QGridLayout *m_lines;
    QWidget *m_supply; ///< what is chosen
    QWidget *m_told;   ///< what is only read
    QWidget *m_view;   ///< the zoom
    QButtonGroup *m_voltages;
    QButtonGroup *m_phases;
    NumberField *m_volts; ///< of the third choice
    std::optional<int> m_typedVolts;
    std::optional<int> m_otherVolts; ///< that the settings hold, once they were read
    QLabel *m_powerResult;
    QLabel *m_supplyInWords;
    ElidedLabel *m_message;
    ElidedLabel *m_pointer;
    QLabel *m_outputSize;
    ZoomField *m_zoom;
    std::vector<Fault> m_faults;       ///< that are there, the latest last
    bool m_isFailure = false;          ///< what the message tells
    const QObject *m_faulty = nullptr; ///< which part has told it; null: none
};
