#pragma once

#include <QObject>
#include <QStringList>
#include <QTimer>
#include <QUrl>

#include <random>

class QWidget;

/// Answers what keeps the window waiting, by chance: file panels, alerts, questions and menus that have come up. Where
/// the desktop would be asked to show a folder or a page, nothing is. When it looks depends on the machine, so its
/// chances are its own.
class Bystander final : public QObject
{
    Q_OBJECT

public:
    /// `names`: what is typed in file panels.
    Bystander(unsigned seed, const QStringList &names);
    ~Bystander() override;

public slots:
    void showNothing(const QUrl & /*address*/) {}

private:
    int number(int most) { return std::uniform_int_distribution(0, most)(m_random); }
    void look();
    void answer(QWidget &dialog);

    std::mt19937 m_random;
    QStringList m_names;
    QTimer m_timer;
};
