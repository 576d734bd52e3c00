#include "app/LWAppDelegate.h"
#include "base/NumberText.h"
#include "drawing/Raster.h"
#include "windows/inspector/ColourButton.h"
#include "windows/inspector/Inspector.h"
#include "windows/inspector/NumberField.h"

#include <QComboBox>
#include <QMenu>
#include <QToolButton>

#include <algorithm>

namespace {
/// The longest side of an output that a raster can hold whose other side has so many pixels.
int longestBeside(int other)
{
    return static_cast<int>(std::min(Raster::longestSide, Raster::mostPixels / std::max(other, 1)));
}
} // namespace

void Inspector::addOutputGroup()
{
    m_output = &m_form->beginGroup(outputTitle, InspectorForm::Always);
    const auto side = [this](const char *keyPath) {
        auto *field = new NumberField(1, Raster::longestSide, "px");
        connect(field, &NumberField::edited, this,
                [this, keyPath](int pixels) { m_document.setValue(pixels, keyPath); });
        return field;
    };
    m_outputWidth = side("OutputWidth");
    m_outputHeight = side("OutputHeight");
    const QString most = NumberText::grouped(Raster::mostPixels);
    m_form->addControlWith(outputSizes(), {"Width", 0, "Width times height is at most " + most + " px"}, m_outputWidth);
    m_form->addControl({"Height", 0, "Height times width is at most " + most + " px"}, m_outputHeight);
    m_background = outputColour("Background", [this](const Colour &colour) { m_document.setBgColor(colour); });
    m_edge = outputColour("Edge", [this](const Colour &colour) { m_document.setEdgeColor(colour); });
}

QWidget *Inspector::outputSizes()
{
    QToolButton *button = menuButton("Usual sizes of the output", "Takes a size that outputs have");
    for (const QSize size : {QSize(1920, 1080), QSize(3840, 2160), QSize(4096, 2160), QSize(7680, 4320)}) {
        button->menu()->addAction(NumberText::size(size), this, [this, size] {
            m_document.endTyping();
            m_document.setOutputHeight(size.height());
            m_document.setValue(size.width(), "OutputWidth");
            m_document.endTyping();
        });
    }
    return button;
}

ColourButton *Inspector::outputColour(const QString &name, const std::function<void(const Colour &)> &set)
{
    auto *button = new ColourButton(name + " colour");
    connect(button, &ColourButton::edited, this, [this, set](const Colour &colour) {
        set(colour);
        m_document.update();
    });
    connect(button, &ColourButton::choiceCancelled, this, [this, set](const OptionalColour &before) {
        set(*before); // the output always has one
        m_document.update();
    });
    m_form->addControl({name}, button);
    return button;
}

void Inspector::showOutput()
{
    m_outputWidth->setHighest(longestBeside(m_document.OutputHeight()));
    m_outputHeight->setHighest(longestBeside(m_document.OutputWidth()));
    m_outputWidth->show(m_document.OutputWidth());
    m_outputHeight->show(m_document.OutputHeight());
    m_background->show(m_document.bgColor());
    m_edge->show(m_document.edgeColor());
    m_corners->setCurrentIndex(m_document.popupIndex());
}
