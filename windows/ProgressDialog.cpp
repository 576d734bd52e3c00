#include "windows/ProgressDialog.h"

#include <QPushButton>

namespace {
constexpr int steps = 1000; // no bar has more pixels to show
constexpr int leastWidth = 360;
} // namespace

ProgressDialog::ProgressDialog(const QString &what, QWidget &window) : QProgressDialog(what, {}, 0, steps, &window)
{
    setWindowTitle("Wallwright");
    setWindowModality(Qt::WindowModal);
    setMinimumWidth(leastWidth);
    setMinimumDuration(0);
    setAutoReset(false);
    setAutoClose(false);
    auto *cancel = new QPushButton("Cancel");
    cancel->setAutoDefault(false);
    setCancelButton(cancel);
    // Qt would hide the dialog, and the window would take input while the work still runs.
    disconnect(this, &QProgressDialog::canceled, this, nullptr);
    connect(this, &QProgressDialog::canceled, this, &ProgressDialog::reject);
}

void ProgressDialog::showDone(double done)
{
    setValue(qBound(1, static_cast<int>(done * steps), steps));
}

void ProgressDialog::reject()
{
    m_isCancelled = true;
    setLabelText("Cancelling");
}
