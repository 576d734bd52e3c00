#pragma once

#include "app/Composition.h"
#include "app/LayerList.h"
#include "app/UserInterface.h"
#include "drawing/Colour.h"
#include "layer/LayerHost.h"

#include <QImage>
#include <QObject>
#include <QString>

/// The document and its controller: owns the layers, carries the actions by name, and conducts the pieces that do the
/// work (Composition, ProjectFile, PngFile, PSDExport, PowerCalculator). Main thread only.
class LWAppDelegate final : public QObject, public LayerHost
{
    Q_OBJECT
    /// Output size in pixels. Plain setters notify nobody; setValue() does.
    Q_PROPERTY(int OutputWidth READ OutputWidth WRITE setOutputWidth)
    Q_PROPERTY(int OutputHeight READ OutputHeight WRITE setOutputHeight)

public:
    /// An empty document. `userInterface` outlives it.
    explicit LWAppDelegate(UserInterface &userInterface);
    ~LWAppDelegate() override;

    /// Makes the first document: one screen named "Layer 0" on an output of 1920 x 1080; then opens the file that was
    /// handed over before, if any.
    void applicationDidFinishLaunching();

    /// The list that table and inspector share; the document's layers, topmost first.
    LayerList &arraycontroller() { return m_arraycontroller; }
    const std::vector<LayerPointer> &allScreensArray() const { return m_arraycontroller.layers(); }

    int OutputWidth() const override { return m_OutputWidth; }
    void setOutputWidth(int pixels) { m_OutputWidth = pixels; }
    int OutputHeight() const override { return m_OutputHeight; }
    void setOutputHeight(int pixels) { m_OutputHeight = pixels; }
    /// Fill and outline of the output; opaque black at first. Not part of a file.
    const Colour &bgColor() const { return m_bgColor; }
    void setBgColor(const Colour &colour) { m_bgColor = colour; }
    const Colour &edgeColor() const { return m_edgeColor; }
    void setEdgeColor(const Colour &colour) { m_edgeColor = colour; }

    /// The composed output, `Format_ARGB32_Premultiplied`; null before the first composition and for an output without
    /// pixels. Copies that are kept across update() cost a second buffer.
    const QImage &offscreenRep() const { return m_offscreenRep; }
    /// The same as the picture that the views show.
    const QImage &img() const { return m_offscreenRep; }
    /// The power line as it was last computed: "Total Power: 72.73Amp".
    const QString &powerResult() const { return m_powerResult; }

    /// The redraw that every edit ends in. Composes at most once in 0.1 s; a call in between recomputes the power and
    /// repaints, and is made up for as soon as the time is over.
    void update(QObject *sender = nullptr);
    /// Opens the gate of update(); nothing else.
    void timerupdate() { m_shouldUpdate = true; }
    bool shouldUpdate() const { return m_shouldUpdate; }
    /// Recomputes the power line; chooses 110 V and 1 phase where none was chosen.
    void calculatePower();

    /// Edits the output size ("OutputWidth", "OutputHeight") or the selected layer ("arrangedObjects.panelWidth") and
    /// notifies the observer. Returns whether there was such a value to edit.
    bool setValue(const QVariant &value, const QString &keyPath);
    /// A value was edited: renders the selected layer and updates. "updatePattern" takes pattern() over into it first.
    void observeValueForKeyPath(const QString &keyPath);

    /// Asks where, and writes the project; a failure is an alert.
    void saveProject();
    /// Asks which, and opens it. A file that cannot be opened is an alert and changes nothing.
    void openProject();
    /// Opens the project at `path`; where its name ends in ".json", its JSON form.
    void openProjectPre(const QString &path);
    /// The platform's request to open a file: kept for the launch, and only for it. An alert where `path` is empty.
    /// Always true.
    bool applicationOpenFile(const QString &path);
    /// The file to open at launch; null: none.
    const QString &preOpenFile() const { return m_preOpenFile; }
    /// Asks where, and writes the composed output as PNG; a failure goes to the log and the status line.
    void saveAction();
    /// Asks where, and exports the layers as a layered file; ".psd" is appended to whatever name was chosen. Layers
    /// without a label get one. A failure goes to the log and the status line; a size that no such file can have is
    /// told before anything is asked.
    void savePSD();

    /// The control's tag becomes the voltage (110, 208) or the number of phases (1, 3).
    void voltageSelect(qint64 tag);
    void phaseSelect(qint64 tag);
    /// Another choice in the pop-up of the corner coordinates.
    void popupButton();
    void setPopupIndex(int index) { m_popupIndex = index; }
    /// The flow pattern that was chosen last.
    qint64 pattern() const { return m_pattern; }

    qint64 voltageCalc() const override { return m_voltageCalc; }
    void setVoltageCalc(qint64 volts) override { m_voltageCalc = volts; }
    qint64 phaseCalc() const override { return m_phaseCalc; }
    void setPhaseCalc(qint64 phases) override { m_phaseCalc = phases; }
    int popupIndex() const override { return m_popupIndex; }
    QSizeF canvasFrameSize() const override { return m_userInterface.canvasFrameSize(); }
    void setKScaleFactor(float factor) override { m_userInterface.setKScaleFactor(factor); }
    void drawRectangle(const QRectF &rectangle) override { m_userInterface.drawRectangle(rectangle); }
    void hideRectangle() override { m_userInterface.hideRectangle(); }
    void choosePattern(qint64 pattern) override;

private:
    void compose();
    void applyAspectLock(Layer &layer) const;
    void gateTimerFired();
    void load(const QString &path);
    /// Tells of the first wall that shows nothing because no raster can hold it.
    void tellWallsTooLarge();
    void replaceLayers(const std::vector<LayerPointer> &layers);
    /// `format`: "PNG". The error's text begins with what could not be exported.
    void tellFailedExport(const char *format, const Error &error);

    UserInterface &m_userInterface;
    LayerList m_arraycontroller;
    Composition m_composition;

    int m_OutputWidth = 0;
    int m_OutputHeight = 0;
    Colour m_bgColor = NamedColour::black;
    Colour m_edgeColor = NamedColour::black;
    QImage m_offscreenRep;
    QString m_powerResult;

    bool m_shouldUpdate = false;
    bool m_updateWasSwallowed = false; ///< a call came while the gate was shut
    bool m_hwchange = false;           ///< the last edited value was the panel width or height
    QString m_hwchangeVal;

    int m_screenNumber = 0;
    int m_popupIndex = 0;
    qint64 m_pattern = 0;
    qint64 m_voltageCalc = 0;
    qint64 m_phaseCalc = 0;
    QString m_preOpenFile;
};
