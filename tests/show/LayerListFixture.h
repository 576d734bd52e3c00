#pragma once

#include "screen/LWScreen.h"
#include "show/LayerList.h"
#include "tests/screen/TestHost.h"

#include <QAbstractItemModelTester>

#include <gtest/gtest.h>

/// A list of walls that are told apart by their labels.
class LayerListFixture : public ::testing::Test
{
protected:
    void insert(const QString &label, qsizetype index)
    {
        const auto screen = LWScreen::init(host);
        screen->setLabel(label);
        list.insertObjectAtArrangedObjectIndex(screen, index);
    }
    QString labels() const
    {
        QStringList all;
        for (const LayerPointer &layer : list.layers())
            all.append(layer->label());
        return all.join(' ');
    }
    /// The labels of all selected rows, the one that the inspector shows in brackets.
    QString selectedLabels() const
    {
        QStringList all;
        for (const qsizetype index : list.selectionIndexes()) {
            const QString label = list.layer(index) ? list.layer(index)->label() : "no row";
            all.append(index == list.selectionIndex() ? '[' + label + ']' : label);
        }
        return all.join(' ');
    }
    QString selectedLabel() const { return list.selectedLayer() ? list.selectedLayer()->label() : "none"; }

    std::vector<LayerPointer> screens(const QStringList &names)
    {
        std::vector<LayerPointer> made;
        for (const QString &name : names) {
            made.push_back(LWScreen::init(host));
            made.back()->setLabel(name);
        }
        return made;
    }

    TestHost host;
    LayerList list;
    const QAbstractItemModelTester tester{&list, QAbstractItemModelTester::FailureReportingMode::Fatal};
};
