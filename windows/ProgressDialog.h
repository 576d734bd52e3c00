#pragma once

#include <QProgressDialog>

/// How much of some long work is done, over a window that takes no input as long as this is there. Cancelling does not
/// close it: the work has to end first.
class ProgressDialog final : public QProgressDialog
{
    Q_OBJECT

public:
    /// Not shown yet. `what`: "Exporting show.psd".
    ProgressDialog(const QString &what, QWidget &window);

    /// Shows it with this much done, 0 to 1, and handles the events that wait.
    void showDone(double done);
    bool isCancelled() const { return m_isCancelled; }

    /// Escape or the window's close button.
    void reject() override;

private:
    bool m_isCancelled = false;
};
