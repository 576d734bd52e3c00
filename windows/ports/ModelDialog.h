#pragma once

#include "wiring/OwnModel.h"

#include <QDialog>

class NumberField;
class QCheckBox;
class QPushButton;
class TextField;

/// What is known of a processor that the program does not know, over the main window. Changes nothing itself.
class ModelDialog final : public QDialog
{
    Q_OBJECT

public:
    explicit ModelDialog(QWidget &window);

    /// As it was described; null values where nothing was.
    OwnModel::Description description() const;

private:
    void refresh();

    TextField *m_name;
    NumberField *m_ports;
    NumberField *m_pixels;
    NumberField *m_panels;
    QCheckBox *m_isRectangle;
    QPushButton *m_accept;
};
