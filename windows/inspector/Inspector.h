#pragma once

#include "windows/inspector/InspectorForm.h"

#include <QScrollArea>

#include <functional>

class ColourButton;
class FigureBlock;
class LWAppDelegate;
class NumberField;
class PatternGrid;
struct WiredPorts;
class QComboBox;
class QToolButton;
class WindowPerson;

/// What the selected layers are made of, to be read and edited, and the output below it. Edits apply while they are
/// typed, to all selected layers, as one step.
class Inspector final : public QScrollArea
{
    Q_OBJECT

public:
    /// Both outlive the inspector's last event. It is empty until makeControls().
    Inspector(LWAppDelegate &document, WindowPerson &person, QWidget *parent = nullptr);
    ~Inspector() override;

    /// Makes the controls, if they are not there.
    void makeControls();
    /// Shows what the layers and the output are now, from the top where the layers are of another kind.
    void refresh();
    /// Has the output's group, unfolded, at the top of what is seen of the controls, or, once that is over, the first
    /// group.
    void showOutputFirst(bool isFirst);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    static constexpr char outputTitle[] = "Output";

    void follow();
    void addEmptyGroup();
    void followEntries();
    void addPlaceGroup();
    void addPlace();
    void addWallGroup();
    void addPanelsGroup();
    void addChartGroup();
    void addLabelsGroup();
    void addDataFlowGroup();
    void addSignalGroup();
    std::vector<InspectorChoice> processors() const;
    std::optional<WiredPorts> wired() const;
    void keepPorts();
    void addPowerGroup();
    void addStillGroup();
    void addChartChoice();
    void addOutputGroup();
    static QToolButton *menuButton(const QString &name, const QString &tip);
    QWidget *cornerChoice();
    QWidget *portSizes();
    QWidget *outputSizes();
    ColourButton *outputColour(const QString &name, const std::function<void(const Colour &)> &set);
    void edit(const QString &property, const QVariant &value);
    void showOutput();
    std::vector<LayerPointer> shownLayers() const;
    QList<QColor> coloursOfShow() const;
    void showFolder() const;
    bool isOutputAtTop() const;
    void makeRoomBelowOutput(bool isAtTop);

    LWAppDelegate &m_document;
    WindowPerson &m_person;
    QWidget *m_content = nullptr; ///< null until the controls are made
    std::unique_ptr<InspectorForm> m_form;
    InspectorForm::Kinds m_kinds = InspectorForm::None; ///< as last shown
    FigureBlock *m_figures = nullptr;
    const QWidget *m_output = nullptr; ///< the top of the output's group
    bool m_isOutputFirst = false;
    int m_outputTop = 0; ///< in the content, when room was made below it
    PatternGrid *m_patterns = nullptr;
    QComboBox *m_corners = nullptr;
    NumberField *m_outputWidth = nullptr;
    NumberField *m_outputHeight = nullptr;
    ColourButton *m_background = nullptr;
    ColourButton *m_edge = nullptr;
};
