// What a person, and other programs, do with files.
#include "tests/soak/Player.h"

#include <QApplication>
#include <QDropEvent>
#include <QFile>
#include <QFileInfo>
#include <QMimeData>
#include <QUrl>

void Player::open()
{
    document().openProjectPre(anyPath());
}

void Player::save()
{
    document().save();
}

void Player::dropFiles()
{
    QMimeData files;
    QList<QUrl> addresses;
    for (int count = m_values.number(0, 3); count > 0; --count)
        addresses.append(QUrl::fromLocalFile(anyPath()));
    if (m_values.oneIn(6))
        addresses.append(QUrl("http://wallwright.example/a.png"));
    files.setUrls(addresses);
    QDropEvent event(placeIn(m_window), Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&m_window, &event);
}

void Player::workInOtherProgram()
{
    const QString goal = anyPath();
    if (QFileInfo(goal).isDir())
        return;
    switch (m_values.number(0, 4)) {
    case 0:
        QFile::remove(goal);
        break;
    case 1:
        QFile::resize(goal, QFileInfo(goal).size() / 2);
        break;
    case 2:
        QFile::remove(goal);
        QFile::copy(anyPath(), goal);
        break;
    default:
        fillFolder();
    }
}

void Player::openPicture()
{
    document().addImages({anyPath()});
}
