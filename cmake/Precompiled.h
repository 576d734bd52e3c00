// What most sources include of other people's headers, read once for each target. A source still includes what it uses.
#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QHash>
#include <QJsonObject>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QTimer>
#include <QVariant>

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <functional>
#include <limits>
#include <memory>
#include <optional>
#include <tl/expected.hpp>
#include <utility>
#include <vector>

#if __has_include(<QImage>)
#include <QImage>
#include <QPainter>
#endif

#if __has_include(<QWidget>)
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QToolButton>
#endif

#if __has_include(<QTest>)
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>
#endif
