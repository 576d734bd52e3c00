#pragma once

#include <QImage>

#include <gtest/gtest.h>

/// Whether two rasters of charts are alike but for so many steps of 255 in each channel; if not, how `fast` differs.
testing::AssertionResult isSamePicture(const QImage &fast, const QImage &plain, int tolerance = 0);
