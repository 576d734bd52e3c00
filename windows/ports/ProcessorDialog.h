#pragma once

#include "wiring/PortCapacity.h"

#include <QDialog>

#include <functional>
#include <vector>

class NumberField;
class QCheckBox;
class QComboBox;
class QFormLayout;
class QLabel;
class QPushButton;
class SummaryLine;
class TextField;

/// How a processor of the show is set, over the main window, and at once what one of its ports then carries, with where
/// that is from. Changes nothing itself: settings() say what was chosen.
class ProcessorDialog final : public QDialog
{
    Q_OBJECT

public:
    /// `others`: the names of the other processors of the show.
    ProcessorDialog(const ProcessorSettings &settings, const QStringList &others, QWidget &window);

    const ProcessorSettings &settings() const { return m_settings; }

private:
    void addName(QFormLayout &form);
    void addModel(QFormLayout &form);
    void addDepthAndRate(QFormLayout &form);
    void addCard(QFormLayout &form);
    void addBackup(QFormLayout &form);
    void addFigures(QFormLayout &form);
    void takeFrom(const NumberField &field, const std::function<void(int)> &take);

    void takeModel(const QString &name);
    /// What the model has to choose from.
    void offerOfModel();
    void takeRate(const QString &text);
    void refresh();
    QString fault() const;
    QString figureText() const;
    QString sourceText() const;
    const ProcessorModel *model() const;

    ProcessorSettings m_settings;
    QStringList m_others;
    bool m_isRate = true; ///< what stands in its field
    TextField *m_name;
    QComboBox *m_model;
    QComboBox *m_bits;
    QComboBox *m_rate;
    QComboBox *m_card;
    QCheckBox *m_lowLatency;
    QComboBox *m_backup;
    QComboBox *m_backupProcessor;
    NumberField *m_headroom;
    NumberField *m_capacity;
    SummaryLine *m_figure;
    SummaryLine *m_source;
    QPushButton *m_accept;
};
