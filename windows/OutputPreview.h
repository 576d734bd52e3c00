#pragma once

#include <QWidget>

#include <memory>

class ShownOutput;

namespace Ui {
class OutputPreview;
}

/// The composed output alone in a window, scaled to fit.
class OutputPreview final : public QWidget
{
    Q_OBJECT

public:
    /// `shown` is read whenever it is painted, and outlives this.
    explicit OutputPreview(const ShownOutput &shown, QWidget *parent = nullptr);
    ~OutputPreview() override;

    /// At first beside the window that it belongs to, then where the person has put it.
    void showInWindow();

private:
    std::unique_ptr<Ui::OutputPreview> m_form;
    bool m_wasShown = false;
};
