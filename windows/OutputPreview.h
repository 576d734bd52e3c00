#pragma once

#include "output/ComposedOutput.h"

#include <QWidget>

#include <memory>

namespace Ui {
class OutputPreview;
}

/// The composed output alone in a window, scaled to fit.
class OutputPreview final : public QWidget
{
    Q_OBJECT

public:
    /// `output` is read whenever it is painted, and outlives this.
    explicit OutputPreview(const ComposedOutput &output, QWidget *parent = nullptr);
    ~OutputPreview() override;

    /// The output was composed anew.
    void showOutput();
    /// At first beside the window that it belongs to, then where the person has put it.
    void showInWindow();

private:
    std::unique_ptr<Ui::OutputPreview> m_form;
    bool m_wasShown = false;
};
