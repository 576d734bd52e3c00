#pragma once

#include "formats/ProjectFile.h"
#include "tests/app/DocumentFixture.h"
#include "tests/base/LogLines.h"

#include <QLoggingCategory>

/// What the document logs while this lives, though nobody asked for it.
class DocumentLogLines : public LogLines
{
public:
    DocumentLogLines() { QLoggingCategory::setFilterRules("wallwright.document.debug=true"); }
    ~DocumentLogLines() { QLoggingCategory::setFilterRules({}); }
};

/// A document whose lists are told by the names in them.
class ListFixture : public DocumentFixture
{
protected:
    static QString labelsOf(const std::vector<LayerPointer> &layers)
    {
        QStringList all;
        for (const LayerPointer &layer : layers)
            all.append(layer->label());
        return all.join(", ");
    }
    QString labels() const { return labelsOf(document.allScreensArray()); }
    QString presetLabels() const { return labelsOf(document.presetScreensArray()); }

    std::vector<LayerPointer> screensNamed(const QStringList &names)
    {
        std::vector<LayerPointer> screens;
        for (const QString &name : names) {
            const int place = 10 * static_cast<int>(screens.size());
            screens.push_back(solidScreen(NamedColour::red, QRect(place, place, 7, 5)));
            screens.back()->setLabel(name);
        }
        return screens;
    }
    /// Replaces the list by small screens of these names, and selects the first.
    void showLayers(const QStringList &names)
    {
        document.arraycontroller().setLayers(screensNamed(names), {0});
        document.finishEdit("Setting");
    }
    void showPresets(const QStringList &names)
    {
        document.presetarraycontroller().setLayers(screensNamed(names), {0});
        document.finishEdit("Setting");
    }

    QByteArray archive() const { return ProjectFile::encode(document.project()).value_or(QByteArray()); }
};
