#pragma once

#include <QRect>
#include <QRegion>
#include <QString>

#include <optional>

class CanvasGeometry;
class QWidget;

/// What a click, or Enter, would act on: an outline around it, and its label in a box.
struct LabelledOutline
{
    QRect place;   ///< what it is around, in device pixels
    int lineWidth; ///< likewise
    QString label;
    QRect labelBox; ///< in the widget

    bool operator==(const LabelledOutline &) const = default;

    /// The part of the widget that it is painted on.
    QRegion region(const CanvasGeometry &geometry) const;
    /// Has the widget paint anew what changes where one stands for another.
    static void exchange(QWidget &widget, const CanvasGeometry &geometry, const std::optional<LabelledOutline> &before,
                         const std::optional<LabelledOutline> &now);
};
