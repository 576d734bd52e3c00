#pragma once

#include "layer/Supply.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

/// What the program remembers from one run to the next: one file in the platform's place (on Linux
/// ~/.config/wallwright/wallwright.conf), read when something of it is asked for and written when something is set.
/// Values that are damaged or of another kind are as good as not there. What cannot be written is not remembered.
namespace Settings {

/// Recent files beyond these are forgotten, the oldest first.
inline constexpr qsizetype mostRecentFiles = 10;

/// Absolute paths, the most recent first, none twice; a file that is gone stays among them.
QStringList recentFiles();
/// Puts the file first. A relative path is one of the current folder.
void noteRecentFile(const QString &path);
/// Takes the file out, after it could not be opened.
void forgetRecentFile(const QString &path);

/// As QWidget::saveGeometry() and QMainWindow::saveState() give them; empty where there is nothing.
QByteArray windowGeometry();
void setWindowGeometry(const QByteArray &geometry);
QByteArray windowState();
void setWindowState(const QByteArray &state);

/// The supply that was chosen last; nullopt where there is none.
std::optional<Supply> supply();
void setSupply(const Supply &supply);
/// The volts that are offered beside 110 and 208: those that were chosen last, at first 230.
int otherVolts();
void setOtherVolts(int volts);

/// The region of the output that a display shows of a project, as it was set; empty where there is none. Of very many
/// the oldest are forgotten.
QString wallRegion(const QString &display, const QString &project);
void setWallRegion(const QString &display, const QString &project, const QString &region);

/// The panels that were marked as wrong, as a walk names them. Of very many the first stay.
QStringList wrongPanels();
void setWrongPanels(const QStringList &panels);

/// Titles of the inspector's groups that are folded.
QStringList foldedGroups();
void setFoldedGroups(const QStringList &titles);

} // namespace Settings
